#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "vbscript/values/error.h"

namespace quorvane::xml {

/// The numbers that go with most faults of a call.
inline constexpr std::int32_t kFailed = static_cast<std::int32_t>(0x80004005);
inline constexpr std::int32_t kBadArgument = static_cast<std::int32_t>(0x80070057);
inline constexpr std::int32_t kNotReady = static_cast<std::int32_t>(0x8000000A);

/// Throws an error as the customary component words it. `text` is UTF-8.
[[noreturn]] void fail(std::int32_t number, std::string_view text);
[[noreturn]] inline void fail(std::string_view text) {
  fail(kFailed, text);
}
[[noreturn]] void failArgument();

}  // namespace quorvane::xml
