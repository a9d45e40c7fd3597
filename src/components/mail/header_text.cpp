#include "components/mail/header_text.h"

#include <algorithm>

#include "components/mail/encoded_words.h"
#include "platform/charset.h"
#include "support/text.h"
#include "vbscript/values/time_check.h"

namespace quorvane::mail {

namespace {

/// Sets of the ISO have control characters where Windows-1252 has letters, and are named for it.
std::u16string withoutHighControls(std::u16string text) {
  for (char16_t& unit : text) {
    if (unit >= 0x80 && unit < 0xA0) unit = vbs::ansiToUnit(static_cast<unsigned char>(unit));
  }
  return text;
}

}  // namespace

std::u16string readAs(const vbs::String& text, const std::string& set) {
  std::u16string wide = text.wide();
  if (!text.isAnsi()) return wide;
  const std::string_view bytes = text.raw();
  constexpr char16_t kHigh = 0x80;
  const auto isHigh = [](char16_t unit) { return unit >= kHigh; };
  if (std::none_of(wide.begin(), wide.end(), isHigh)) return wide;
  vbs::countWork(bytes.size());
  std::u16string read = charset::decode(set, bytes, bytes.size()).text;
  if (read.find(u'\uFFFD') != read.npos) return wide;
  // Windows reads ASCII by passing over what it has not.
  if (std::none_of(read.begin(), read.end(), isHigh)) return wide;
  const std::string encoded = charset::encode(set, wide);
  const bool loses =
      std::count(encoded.begin(), encoded.end(), '?') > std::count(bytes.begin(), bytes.end(), '?');
  return loses || equalsNoCase(set, "utf-8") ? read : wide;
}

std::string oneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(),
      [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
  return text;
}

std::string headerText(const vbs::String& text, const std::string& set) {
  return oneLine(decodeWords(charset::encode("utf-8", withoutHighControls(readAs(text, set)))));
}

}  // namespace quorvane::mail
