#include "jscript/heap_text.h"

#include <cstdint>

namespace quorvane::jscript {

std::string_view textAt(duk_context* context, duk_idx_t index) {
  duk_size_t size = 0;
  const char* text = duk_get_lstring(context, index, &size);
  return {text ? text : "", size};
}

std::string encoded(std::u16string_view units) {
  std::string bytes;
  for (const char16_t unit : units) {
    if (unit < 0x80) {
      bytes += static_cast<char>(unit);
    } else if (unit < 0x800) {
      bytes += static_cast<char>(0xC0 | (unit >> 6));
      bytes += static_cast<char>(0x80 | (unit & 0x3F));
    } else {
      bytes += static_cast<char>(0xE0 | (unit >> 12));
      bytes += static_cast<char>(0x80 | ((unit >> 6) & 0x3F));
      bytes += static_cast<char>(0x80 | (unit & 0x3F));
    }
  }
  return bytes;
}

std::u16string decoded(std::string_view bytes) {
  std::u16string units;
  for (std::size_t at = 0; at < bytes.size();) {
    const auto lead = static_cast<unsigned char>(bytes[at++]);
    const int more = lead < 0xC0 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    std::uint32_t code = more == 0 ? lead : lead & (0x3Fu >> more);
    for (int i = 0; i < more && at < bytes.size(); ++i) {
      code = (code << 6) | (static_cast<unsigned char>(bytes[at++]) & 0x3Fu);
    }
    if (code >= 0x10000) {
      units += static_cast<char16_t>(0xD7C0 + (code >> 10));
      code = 0xDC00 + (code & 0x3FF);
    }
    units += static_cast<char16_t>(code);
  }
  return units;
}

bool isAscii(std::string_view bytes) {
  for (const char c : bytes) {
    if (c < 0) return false;
  }
  return true;
}

}  // namespace quorvane::jscript
