#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "vbscript/syntax/parser.h"

namespace quorvane::vbs {

/// A script that did not compile or stopped with an untrapped error.
struct ErrorReport {
  std::int32_t number = 0;
  std::string description;  ///< bytes of Windows-1252
  std::string source;
  std::uint32_t line = 0;    ///< 1-based line of the script text
  std::uint32_t column = 0;  ///< 1-based
  std::string sourceLine;    ///< text of that line, for compile errors
  bool isCompileError = false;
};

/// `source` is the text that did not compile.
ErrorReport compileErrorReport(const CompileError& error, std::string_view source);

}  // namespace quorvane::vbs
