#include "support/base64.h"

#include <cstddef>
#include <cstdint>

namespace quorvane {

namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string encodeBase64(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const auto byteAt = [&](std::size_t at) -> std::uint32_t {
      return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
    };
    const std::uint32_t group = byteAt(i) << 16 | byteAt(i + 1) << 8 | byteAt(i + 2);
    text += kAlphabet[group >> 18];
    text += kAlphabet[group >> 12 & 63];
    text += i + 1 < bytes.size() ? kAlphabet[group >> 6 & 63] : '=';
    text += i + 2 < bytes.size() ? kAlphabet[group & 63] : '=';
  }
  return text;
}

std::string decodeBase64(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size() / 4 * 3);
  std::uint32_t pending = 0;
  int bits = 0;
  for (const char c : text) {
    if (c == '=') break;
    const std::size_t digit = kAlphabet.find(c);
    if (digit == std::string_view::npos) continue;
    pending = (pending << 6 | static_cast<std::uint32_t>(digit)) & 0xFFFF;
    bits += 6;
    if (bits < 8) continue;
    bits -= 8;
    bytes += static_cast<char>(pending >> bits & 0xFF);
  }
  return bytes;
}

}  // namespace quorvane
