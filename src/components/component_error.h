#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "vbscript/values/error.h"

namespace quorvane {

/// An error with a number and a text of the component's own. `source` is the object's program
/// identifier, as Err.Source shows it.
[[noreturn]] inline void throwComponentError(std::int32_t number, std::string_view description,
                                             std::string_view source) {
  vbs::ScriptError thrown;
  thrown.number = number;
  thrown.description = description;
  thrown.source = source;
  throw thrown;
}

}  // namespace quorvane
