#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "vbscript/values/text_locale.h"

namespace quorvane::vbs {

inline constexpr std::size_t kLocaleCount = 22;

/// Those that are kept by hand, English (United States) first.
extern const Locale kLocales[kLocaleCount];

/// All others that are known; tools/locale_names makes them.
std::span<const Locale> otherLocales();

/// The names between the bars of a text.
template <std::size_t kCount>
constexpr std::array<std::string_view, kCount> words(std::string_view text) {
  std::array<std::string_view, kCount> result{};
  for (std::string_view& word : result) {
    word = text.substr(0, text.find('|'));
    text.remove_prefix(word.size() < text.size() ? word.size() + 1 : word.size());
  }
  return result;
}

}  // namespace quorvane::vbs
