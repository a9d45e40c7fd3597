#include "platform/charset.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include "support/text.h"

namespace quorvane::charset {

namespace {

struct Alias {
  std::string_view name;
  const char* converters;
};

/// Names that mean more on the Web, or something else, than to the converter. The standard ones of
/// East Asia are taken for the code pages that grew out of them, as everybody does.
constexpr std::array kAliases{
    Alias{"unicode", "UTF-16LE"},
    Alias{"utf-16", "UTF-16LE"},
    Alias{"unicodefffe", "UTF-16BE"},
    Alias{"x-ansi", "CP1252"},
    Alias{"ascii", "ASCII"},
    Alias{"us-ascii", "ASCII"},
    Alias{"gb2312", "CP936"},
    Alias{"gbk", "CP936"},
    Alias{"big5", "CP950"},
    Alias{"shift_jis", "CP932"},
    Alias{"shift-jis", "CP932"},
    Alias{"x-sjis", "CP932"},
    Alias{"ks_c_5601-1987", "CP949"},
    Alias{"euc-kr", "CP949"},
    Alias{"iso-8859-8-i", "ISO-8859-8"},
};

std::string converterName(std::string_view name) {
  const std::string lower = lowerCase(name);
  for (const Alias& alias : kAliases) {
    if (alias.name == lower) return alias.converters;
  }
  // The converter reads options behind a slash, and takes the empty name for the locale's.
  return lower.empty() || lower.find('/') != lower.npos ? "none" : lower;
}

class Converter {
 public:
  Converter(const std::string& to, const std::string& from)
      : handle_(::iconv_open(to.c_str(), from.c_str())) {}
  ~Converter() {
    if (isOpen()) ::iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  // NOLINTNEXTLINE(performance-no-int-to-ptr): that is how failure is told
  bool isOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  /// Takes from `in` and puts into `out` until one of them is used up, or what comes next in `in`
  /// is no character. False in that last case.
  bool run(std::string_view& in, char*& out, std::size_t& room) {
    char* from = const_cast<char*>(in.data());
    std::size_t left = in.size();
    const std::size_t result = ::iconv(handle_, &from, &left, &out, &room);
    const bool fits = result != static_cast<std::size_t>(-1) || errno == E2BIG;
    in = in.substr(in.size() - left);
    return fits;
  }

  /// What has been held back goes out: letters that an accent might have followed, the way back to
  /// a set's plain state. False when it finds no room.
  bool finish(char*& out, std::size_t& room) {
    return ::iconv(handle_, nullptr, nullptr, &out, &room) != static_cast<std::size_t>(-1);
  }

 private:
  iconv_t handle_;
};

constexpr const char* kUnits = "UTF-16LE";

}  // namespace

bool isKnown(std::string_view name) {
  return Converter(kUnits, converterName(name)).isOpen();
}

Decoded decode(std::string_view name, std::string_view bytes, std::size_t most) {
  Decoded result;
  Converter converter(kUnits, converterName(name));
  if (!converter.isOpen()) return result;
  std::string_view left = bytes;
  result.text.resize(std::min(most, bytes.size()));  // no character has fewer bytes than units
  char* out = reinterpret_cast<char*>(result.text.data());
  std::size_t room = result.text.size() * 2;
  while (!left.empty() && !converter.run(left, out, room) && room >= 2) {
    constexpr char16_t kReplacement = 0xFFFD;
    std::memcpy(out, &kReplacement, 2);
    out += 2;
    room -= 2;
    left.remove_prefix(1);
  }
  result.bytes = bytes.size() - left.size();
  // Sets that hold letters back have a byte for each.
  if (!converter.finish(out, room) && result.bytes > 0) --result.bytes;
  result.text.resize(result.text.size() - room / 2);
  return result;
}

std::string encode(std::string_view name, std::u16string_view text) {
  std::string result;
  Converter converter(converterName(name), kUnits);
  if (!converter.isOpen()) return result;
  std::string_view left(reinterpret_cast<const char*>(text.data()), text.size() * 2);
  std::array<char, 4096> block;
  while (!left.empty()) {
    char* out = block.data();
    std::size_t room = block.size();
    const bool fits = converter.run(left, out, room);
    result.append(block.data(), block.size() - room);
    if (fits) continue;
    result += '?';
    // Half of a pair alone is one character, and what follows it is another.
    const auto isHalf = [&left](std::size_t unit, unsigned char kind) {
      const std::size_t at = unit * 2 + 1;
      return at < left.size() && (static_cast<unsigned char>(left[at]) & 0xFC) == kind;
    };
    const bool isPair = isHalf(0, 0xD8) && isHalf(1, 0xDC);
    left.remove_prefix(std::min<std::size_t>(left.size(), isPair ? 4 : 2));
  }
  char* out = block.data();
  std::size_t room = block.size();
  converter.finish(out, room);
  return result.append(block.data(), block.size() - room);
}

}  // namespace quorvane::charset
