#pragma once

#include <cstddef>

#include "vbscript/values/locale.h"

namespace quorvane::vbs {

inline constexpr std::size_t kLocaleCount = 22;

/// All that is known, English (United States) first: the languages whose letters the code page of
/// a page has.
extern const Locale kLocales[kLocaleCount];

}  // namespace quorvane::vbs
