#include "platform/charset.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "support/text.h"

namespace quorvane::charset {

namespace {

constexpr unsigned kNone = 0;
constexpr unsigned kUtf16 = 1200;
constexpr unsigned kUtf16Swapped = 1201;

struct Named {
  std::string_view name;
  unsigned codePage;
};

/// The names that sets have on the Web, and the system's numbers for them. The standard ones of
/// East Asia are taken for the code pages that grew out of them, as everybody does.
constexpr std::array kNamed{
    Named{"utf-8", 65001},
    Named{"utf8", 65001},
    Named{"utf-7", 65000},
    Named{"unicode", kUtf16},
    Named{"utf-16", kUtf16},
    Named{"utf-16le", kUtf16},
    Named{"unicodefffe", kUtf16Swapped},
    Named{"utf-16be", kUtf16Swapped},
    Named{"x-ansi", 1252},
    Named{"ascii", 20127},
    Named{"us-ascii", 20127},
    Named{"gb2312", 936},
    Named{"gbk", 936},
    Named{"gb18030", 54936},
    Named{"big5", 950},
    Named{"shift_jis", 932},
    Named{"shift-jis", 932},
    Named{"x-sjis", 932},
    Named{"ks_c_5601-1987", 949},
    Named{"euc-kr", 949},
    Named{"euc-jp", 20932},
    Named{"iso-2022-jp", 50220},
    Named{"koi8-r", 20866},
    Named{"koi8-u", 21866},
    Named{"tis-620", 874},
    Named{"windows-874", 874},
    Named{"iso-8859-8-i", 28598},
    Named{"latin1", 28591},
    Named{"macintosh", 10000},
};

/// The number at the end of a name that begins with `prefix`; kNone for any other.
unsigned numberBehind(std::string_view name, std::string_view prefix) {
  unsigned number = kNone;
  if (!name.starts_with(prefix)) return kNone;
  name.remove_prefix(prefix.size());
  const auto read = std::from_chars(name.data(), name.data() + name.size(), number);
  return read.ec == std::errc() && read.ptr == name.data() + name.size() ? number : kNone;
}

bool isUtf16(unsigned codePage) {
  return codePage == kUtf16 || codePage == kUtf16Swapped;
}

unsigned codePageOf(std::string_view name) {
  const std::string lower = lowerCase(name);
  unsigned codePage = kNone;
  for (const Named& known : kNamed) {
    if (known.name == lower) codePage = known.codePage;
  }
  for (const std::string_view prefix : {"windows-", "cp", "ibm", "x-cp"}) {
    if (codePage == kNone) codePage = numberBehind(lower, prefix);
  }
  constexpr unsigned kIso8859 = 28590;
  const unsigned part = numberBehind(lower, "iso-8859-");
  if (codePage == kNone && part != kNone) codePage = kIso8859 + part;
  return isUtf16(codePage) || ::IsValidCodePage(codePage) ? codePage : kNone;
}

char16_t unitOf(std::string_view bytes, bool swapped) {
  const auto first = static_cast<unsigned char>(bytes[0]);
  const auto second = static_cast<unsigned char>(bytes[1]);
  return static_cast<char16_t>(swapped ? first << 8 | second : second << 8 | first);
}

/// How many bytes the character in front may have.
std::size_t lengthOf(unsigned codePage, std::string_view bytes) {
  const auto lead = static_cast<unsigned char>(bytes.front());
  std::size_t length = 1;
  if (codePage == CP_UTF8) {
    if (lead >= 0xC0) length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  } else if (codePage == 54936 && lead >= 0x81 && bytes.size() > 1) {
    const auto second = static_cast<unsigned char>(bytes[1]);
    length = second >= '0' && second <= '9' ? 4 : 2;
  } else if (::IsDBCSLeadByteEx(codePage, lead)) {
    length = 2;
  }
  return std::min(length, bytes.size());
}

/// Sets whose bytes mean what those before them say.
bool hasStates(unsigned codePage) {
  return codePage == 65000 || (codePage >= 50220 && codePage <= 50229);
}

/// Some code pages take no flags.
DWORD strictness(unsigned codePage) {
  return hasStates(codePage) || (codePage >= 57002 && codePage <= 57011) ? 0 : MB_ERR_INVALID_CHARS;
}

std::u16string textOf(unsigned codePage, std::string_view bytes, DWORD flags) {
  std::u16string text(bytes.size(), u'\0');
  const int length = static_cast<int>(bytes.size());
  const int count = ::MultiByteToWideChar(codePage, flags, bytes.data(), length,
                                          reinterpret_cast<wchar_t*>(text.data()), length);
  text.resize(static_cast<std::size_t>(std::max(count, 0)));
  return text;
}

/// Character after character, since the system does not say where it would have stopped.
Decoded decodedStepwise(unsigned codePage, std::string_view bytes, std::size_t most) {
  Decoded result;
  while (result.bytes < bytes.size()) {
    const std::string_view left = bytes.substr(result.bytes);
    std::size_t length = lengthOf(codePage, left);
    std::u16string next = textOf(codePage, left.substr(0, length), strictness(codePage));
    if (next.empty()) {
      next = u"\uFFFD";
      length = 1;
    }
    if (result.text.size() + next.size() > most) break;
    result.text += next;
    result.bytes += length;
  }
  return result;
}

}  // namespace

bool isKnown(std::string_view name) {
  return codePageOf(name) != kNone;
}

Decoded decode(std::string_view name, std::string_view bytes, std::size_t most) {
  const unsigned codePage = codePageOf(name);
  Decoded result;
  if (codePage == kNone) return result;
  if (isUtf16(codePage)) {
    while (result.bytes + 1 < bytes.size() && result.text.size() < most) {
      result.text += unitOf(bytes.substr(result.bytes), codePage == kUtf16Swapped);
      result.bytes += 2;
    }
    return result;
  }
  if (hasStates(codePage)) {
    result.text = textOf(codePage, bytes, 0).substr(0, most);
    result.bytes = bytes.size();
    return result;
  }
  // Nothing to look for in what is whole and correct.
  std::u16string all = textOf(codePage, bytes, strictness(codePage));
  if (!all.empty() && all.size() <= most) return {std::move(all), bytes.size()};
  return decodedStepwise(codePage, bytes, most);
}

std::string encode(std::string_view name, std::u16string_view text) {
  const unsigned codePage = codePageOf(name);
  std::string result;
  if (codePage == kNone || text.empty()) return result;
  if (isUtf16(codePage)) {
    for (const char16_t unit : text) {
      const char low = static_cast<char>(unit & 0xFF);
      const char high = static_cast<char>(unit >> 8);
      result += codePage == kUtf16Swapped ? high : low;
      result += codePage == kUtf16Swapped ? low : high;
    }
    return result;
  }
  const auto* units = reinterpret_cast<const wchar_t*>(text.data());
  const int length = static_cast<int>(text.size());
  const bool takesDefault = !hasStates(codePage) && codePage != CP_UTF8 && codePage != 54936;
  // Letters that only look alike are not what was written.
  const DWORD flags = takesDefault ? WC_NO_BEST_FIT_CHARS : 0;
  const char* lacking = takesDefault ? "?" : nullptr;
  const int room =
      ::WideCharToMultiByte(codePage, flags, units, length, nullptr, 0, lacking, nullptr);
  result.resize(static_cast<std::size_t>(std::max(room, 0)));
  ::WideCharToMultiByte(codePage, flags, units, length, result.data(), room, lacking, nullptr);
  return result;
}

}  // namespace quorvane::charset
