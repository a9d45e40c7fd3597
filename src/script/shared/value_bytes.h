#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "vbscript/values/value.h"

namespace quorvane {

/// Script values as bytes that a store keeps and any instance of the server reads: each value comes
/// back as the one that it was, type by type. A tag of one byte, then what the type has, numbers
/// with their lowest byte first.
namespace value_bytes {

/// Adds the value to `out`. Throws vbs::ScriptError for objects, and for arrays that hold one.
void append(std::string& out, const vbs::Value& value);

/// Takes a value from the front of `bytes`. Nothing for bytes that are no value, whatever they are.
std::optional<vbs::Value> take(std::string_view& bytes);

}  // namespace value_bytes

}  // namespace quorvane
