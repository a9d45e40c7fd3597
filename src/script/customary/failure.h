#pragma once

#include <cstdint>
#include <string_view>

#include "vbscript/values/error.h"

namespace quorvane::customary {

/// The number that pages know failures of the server's own objects by: an unspecified error of an
/// object of the system.
inline constexpr std::int32_t kObjectFailed = -2147467259;

[[noreturn]] inline void fail(std::string_view description) {
  vbs::ScriptError error;
  error.number = kObjectFailed;
  error.description = description;
  error.source = "Quorvane";
  throw error;
}

}  // namespace quorvane::customary
