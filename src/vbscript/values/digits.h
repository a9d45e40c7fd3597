#pragma once

#include <string_view>

namespace quorvane::vbs {

inline constexpr std::string_view kHexDigits = "0123456789ABCDEF";

/// What a digit of a hexadecimal or octal number is worth; 99 when it is none.
constexpr int digitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : 99;
}

}  // namespace quorvane::vbs
