#pragma once

#include "vbscript/syntax/ast.h"
#include "vbscript/syntax/compile_errors.h"

namespace quorvane::vbs {

/// Throws the CompileError with the error's usual text.
[[noreturn]] void failCompile(CompileErrorCode code, SourcePosition position);

}  // namespace quorvane::vbs
