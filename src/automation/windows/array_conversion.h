#pragma once

#include <cstddef>

#include "automation/windows/com.h"
#include "vbscript/values/value.h"

namespace quorvane::automation {

/// The array as the system's, the caller's to destroy, and the variant's type for it: bytes stay
/// bytes, all others are of variants. Null for one without dimensions. Throws ScriptError.
SAFEARRAY* makeSafeArray(const vbs::ArrayRep& array, VARTYPE& type);

/// The array with elements of any type and its own lower bounds (bytes in a row begin at 0);
/// without dimensions where `array` is null. Throws ScriptError.
vbs::Value arrayValue(SAFEARRAY* array);

/// Bytes that a plain element of a type takes, as they stand in an array.
std::size_t sizeOf(VARTYPE type);

}  // namespace quorvane::automation
