#pragma once

#include <cstdint>
#include <string_view>

#include "vbscript/values/host.h"
#include "vbscript/values/object.h"
#include "vbscript/values/value.h"

namespace quorvane::vbs {

/// The class that every script has, whatever classes of this name it declares.
inline constexpr std::string_view kRegExpClass = "regexp";

/// The classic generator behind Rnd: 24 bits, the same sequence for the same seed everywhere.
struct RandomSequence {
  std::uint32_t state = 0x50000;
};

/// What library functions use of the running engine.
struct Runtime {
  Host& host;
  RandomSequence random;
};

/// One intrinsic function. Arguments may be References; missing() stands for omitted ones in the
/// middle. The machine has checked the count. Throws ScriptError.
struct Intrinsic {
  std::string_view name;   ///< lower case
  std::string_view title;  ///< as error texts spell it
  std::uint8_t minArgs;
  std::uint8_t maxArgs;  ///< 255: any number
  Value (*call)(Runtime&, Args);
};

/// Adds the function's title to a bare error text: "Type mismatch: 'CInt'". For the machine, when
/// an error leaves an intrinsic function.
void nameIntrinsic(ScriptError& error, const Intrinsic& function);

/// Null when there is none, and for those that need the script's own scope (Eval, Execute,
/// ExecuteGlobal, GetRef).
const Intrinsic* findIntrinsic(std::string_view lowerName);

/// Whether it is one of CBool, CByte, ... CStr, which can't stand as statements.
bool isConversion(const Intrinsic& function);

/// Null when `lowerName` is no built-in constant (vbCrLf, vbRed, ...).
const Value* findConstant(std::string_view lowerName);

/// `Erase`: empties the elements of a fixed array, frees those of a dynamic one. Error 13 for what
/// is no array, 10 while a loop or an element reference holds it.
void eraseArray(Value& variable);

}  // namespace quorvane::vbs
