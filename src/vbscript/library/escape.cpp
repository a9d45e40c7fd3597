#include "vbscript/library/arguments.h"
#include "vbscript/values/digits.h"

namespace quorvane::vbs::intrinsic {

namespace {

bool staysAsItIs(char16_t unit) {
  if (unit >= 0x80) return false;
  const char c = static_cast<char>(unit);
  const bool alphanumeric =
      (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
  return alphanumeric || std::string_view("@*_+-./").find(c) != std::string_view::npos;
}

void appendHex(String& out, unsigned number, unsigned digits) {
  while (digits-- > 0)
    out.appendUnit(static_cast<char16_t>(kHexDigits[number >> (digits * 4) & 0xF]));
}

/// The number that `digits` hexadecimal digits at `at` spell, or -1.
int readHex(const String& text, std::size_t at, std::size_t digits) {
  if (at + digits > text.length()) return -1;
  int number = 0;
  for (std::size_t i = at; i < at + digits; ++i) {
    const char16_t unit = text.at(i);
    const int value = unit < 0x80 ? digitValue(static_cast<char>(unit)) : 99;
    if (value > 15) return -1;
    number = number * 16 + value;
  }
  return number;
}

}  // namespace

Value escape(Runtime&, Args args) {
  const String text = toString(args[0]);
  String out;
  for (std::size_t i = 0; i < text.length(); ++i) {
    const char16_t unit = text.at(i);
    if (staysAsItIs(unit)) {
      out.appendUnit(unit);
    } else if (unit < 0x100) {
      out.appendAnsi("%");
      appendHex(out, unit, 2);
    } else {
      out.appendAnsi("%u");
      appendHex(out, unit, 4);
    }
  }
  return out;
}

Value unescape(Runtime&, Args args) {
  const String text = toString(args[0]);
  String out;
  for (std::size_t i = 0; i < text.length();) {
    const bool percent = text.at(i) == u'%';
    const bool longForm = percent && i + 1 < text.length() && text.at(i + 1) == u'u';
    const int code = !percent ? -1 : longForm ? readHex(text, i + 2, 4) : readHex(text, i + 1, 2);
    out.appendUnit(code >= 0 ? static_cast<char16_t>(code) : text.at(i));
    i += code < 0 ? 1 : longForm ? 6 : 3;
  }
  return out;
}

}  // namespace quorvane::vbs::intrinsic
