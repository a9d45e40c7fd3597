#include "script/customary/server_texts.h"

#include <algorithm>
#include <array>

#include "script/customary/code_page.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "vbscript/values/memory_meter.h"

namespace quorvane::customary {

namespace {

constexpr std::size_t kLongestPath = 4096;

std::string_view nameOf(char16_t character) {
  switch (character) {
    case u'&':
      return "&amp;";
    case u'<':
      return "&lt;";
    case u'>':
      return "&gt;";
    case u'"':
      return "&quot;";
    default:
      return {};
  }
}

bool isFirstHalf(char16_t unit) {
  return (unit & 0xFC00) == 0xD800;
}
bool isSecondHalf(char16_t unit) {
  return (unit & 0xFC00) == 0xDC00;
}

/// The character at a place, of one unit or two; moves `at` to its last.
std::uint32_t characterAt(const vbs::String& text, std::size_t& at) {
  const char16_t unit = text.at(at);
  if (!isFirstHalf(unit) || at + 1 >= text.length() || !isSecondHalf(text.at(at + 1))) return unit;
  const char16_t low = text.at(++at);
  return 0x10000 + ((std::uint32_t{unit} & 0x3FF) << 10) + (std::uint32_t{low} & 0x3FF);
}

bool isPlain(char16_t unit, bool isUtf8) {
  return (unit < 160 || isUtf8) && nameOf(unit).empty();
}

/// Most texts have nothing to encode, so this is quick for those that are held byte by byte.
std::size_t firstSpecial(const vbs::String& text, bool isUtf8) {
  if (!text.isAnsi()) return 0;
  const std::string_view bytes = text.ansi();
  const auto found = std::find_if(bytes.begin(), bytes.end(), [&](char c) {
    return c < 0 ? !isUtf8 : !nameOf(static_cast<char16_t>(c)).empty();
  });
  return static_cast<std::size_t>(found - bytes.begin());
}

constexpr bool isUrlSafe(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// What no file's name has, on some systems at least, and what a page that passes on a visitor's
/// text had better be told of.
bool isNoPath(std::string_view path) {
  return path.size() > kLongestPath || std::any_of(path.begin(), path.end(), [](char c) {
           return static_cast<unsigned char>(c) < 32 ||
                  std::string_view("*?<>|:\"").find(c) != std::string_view::npos;
         });
}

}  // namespace

vbs::String htmlEncoded(const vbs::String& text, std::int32_t codePage) {
  const bool isUtf8 = codePage == kUtf8;
  std::size_t at = firstSpecial(text, isUtf8);
  if (at == text.length()) return text;
  vbs::String encoded = text.substr(0, at);
  std::size_t done = at;
  for (; at < text.length(); ++at) {
    const char16_t unit = text.at(at);
    if (isPlain(unit, isUtf8)) continue;
    if (done < at) encoded.append(text.substr(done, at - done));
    if (const std::string_view name = nameOf(unit); !name.empty()) {
      encoded.appendAnsi(name);
    } else {
      encoded.appendAnsi("&#" + std::to_string(characterAt(text, at)) + ';');
    }
    done = at + 1;
  }
  if (done < at) encoded.append(text.substr(done, at - done));
  return encoded;
}

vbs::String urlEncoded(const vbs::String& text, std::int32_t codePage) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const vbs::MemoryCharge work(text.byteLength() * 2);
  const std::string bytes = encode(codePage, text);
  const auto escaped = static_cast<std::size_t>(
      std::count_if(bytes.begin(), bytes.end(), [](char c) { return !isUrlSafe(c) && c != ' '; }));
  const std::size_t length = bytes.size() + 2 * escaped;
  if (length == 0) return {};
  vbs::String encoded = vbs::String::withCapacity(vbs::Encoding::Ansi, length);
  char* out = encoded.extend(length);
  for (const char c : bytes) {
    if (isUrlSafe(c) || c == ' ') {
      *out++ = c == ' ' ? '+' : c;
    } else {
      *out++ = '%';
      *out++ = kDigits[static_cast<unsigned char>(c) >> 4];
      *out++ = kDigits[static_cast<unsigned char>(c) & 15];
    }
  }
  return encoded;
}

std::optional<std::string> mappedPath(const Services& services, std::string_view folder,
                                      std::string_view path) {
  const std::string& root = services.state.ScriptsFolder;
  if (isNoPath(path)) return std::nullopt;
  const auto wanted = RootedPath::ofPage(root, folder, path);
  if (!wanted) return std::nullopt;
  if (wanted->relative().empty()) return root;
  const bool isOpen = !path.empty() && paths::isSeparator(path.back());
  const auto finished = [&](std::string text) {
    return isOpen ? paths::withSeparator(std::move(text)) : std::move(text);
  };
  if (auto found = services.files.find(*wanted)) return finished(std::move(*found));
  // What is to be made lies in a folder that is there.
  const std::string_view above = paths::folderOf(wanted->relative());
  const auto found = services.files.find(*RootedPath::literal(root, above));
  if (!found) return finished(wanted->text());
  return finished(paths::join(*found, paths::fileNameOf(wanted->relative())));
}

std::string nameBytes(const vbs::String& name, std::int32_t codePage) {
  const vbs::String start = name.substr(0, kLongestPath + 1);
  return start.isAnsi() && codePage != kUtf8 ? std::string(start.ansi()) : start.utf8();
}

}  // namespace quorvane::customary
