#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "vbscript/syntax/ast.h"

namespace quorvane::vbs {

/// A script that does not follow the grammar. Compile errors have numbers from 1001 on.
struct CompileError {
  std::int32_t number = 0;
  std::string description;
  SourcePosition position;
};

/// Parses a whole script (bytes of Windows-1252, or of UTF-8 behind the mark). Throws CompileError
/// at the first fault.
/// Nesting is bounded: too deep a script is error 1001 (out of memory). `source` must outlive the
/// tree.
std::unique_ptr<Script> parseScript(std::string_view source);

struct ParsedExpression {
  std::unique_ptr<NameTable> names;
  ExpressionPtr expression;
};

/// Parses one expression, as Eval takes it. `source` must outlive the tree.
ParsedExpression parseExpression(std::string_view source);

}  // namespace quorvane::vbs
