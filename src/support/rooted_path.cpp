#include "support/rooted_path.h"

#include <algorithm>
#include <array>

#include "support/paths.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::array<std::string_view, 8> kDevices = {"con",    "prn",     "aux",    "nul",
                                                      "conin$", "conout$", "clock$", "config$"};

/// "com1" and the like; the superscript digits one to three count there too, in both encodings.
bool isPortName(std::string_view name) {
  if (!startsWithNoCase(name, "com") && !startsWithNoCase(name, "lpt")) return false;
  std::string_view digit = name.substr(3);
  if (digit.size() == 2 && digit[0] == '\xC2') digit.remove_prefix(1);
  return digit.size() == 1 &&
         std::string_view("0123456789\xB9\xB2\xB3").find(digit[0]) != std::string_view::npos;
}

/// A device is a device with any extension behind its name. Few names begin like one.
bool isDevice(std::string_view part) {
  if (std::string_view("aAcClLnNpP ").find(part.front()) == std::string_view::npos) return false;
  const std::string_view name = trimBlanks(part.substr(0, part.find('.')));
  const auto equals = [&](std::string_view device) { return equalsNoCase(name, device); };
  return std::any_of(kDevices.begin(), kDevices.end(), equals) || isPortName(name);
}

/// Parts of dots and blanks only: some systems drop what stands at the end of a name and arrive at
/// "..".
bool leadsUpwards(std::string_view part) {
  return (part.front() == '.' || part.front() == ' ') && part.size() >= 2 &&
         part.find_first_not_of(". ") == std::string_view::npos &&
         part.find('.') != std::string_view::npos;
}

/// A control character, or a colon: a drive, or a stream of a file.
bool isNowherePlain(char c) {
  return static_cast<unsigned char>(c) < 32 || c == ':';
}

/// Takes the next part that says something off the front of `rest`; false at the end.
bool takePart(std::string_view& rest, std::string_view& part) {
  do {
    while (!rest.empty() && paths::isSeparator(rest.front())) rest.remove_prefix(1);
    part = rest.substr(
        0, static_cast<std::size_t>(std::find_if(rest.begin(), rest.end(), paths::isSeparator) -
                                    rest.begin()));
    rest.remove_prefix(part.size());
  } while (part == ".");
  return !part.empty();
}

/// `path` without empty, "." and, as far as they lead to something, ".." parts, a separator behind
/// each part that is left.
std::string normal(std::string_view path) {
  const bool absolute = !path.empty() && paths::isSeparator(path.front());
  std::string result(absolute ? 1 : 0, paths::kSeparator);
  std::size_t top = result.size();  // no further up than here
  for (std::string_view part; takePart(path, part);) {
    if (part == ".." && result.size() > top) {
      const std::size_t above = result.find_last_of(paths::kSeparator, result.size() - 2);
      result.resize(above == std::string::npos ? 0 : above + 1);
    } else if (part != ".." || !absolute) {
      result.append(part) += paths::kSeparator;
      if (part == "..") top = result.size();
    }
  }
  return result;
}

}  // namespace

RootedPath::RootedPath(std::string_view root, std::size_t more) {
  text_.reserve(root.size() + 1 + more);
  text_ += root;
  if (root.empty() || !paths::isSeparator(root.back())) text_ += paths::kSeparator;
  rootLength_ = text_.size();
}

void RootedPath::append(std::string_view part) {
  if (text_.size() > rootLength_) text_ += paths::kSeparator;
  text_ += part;
}

std::optional<RootedPath> RootedPath::literal(std::string_view root, std::string_view path) {
  constexpr std::string_view kRefused(":\0", 2);
  if (path.find_first_of(kRefused) != std::string_view::npos) return std::nullopt;
  RootedPath result(root, path.size());
  for (std::string_view part; takePart(path, part);) {
    if (part == "..") return std::nullopt;
    result.append(part);
  }
  return result;
}

std::optional<RootedPath> RootedPath::portable(std::string_view root, std::string_view path) {
  if (std::any_of(path.begin(), path.end(), isNowherePlain)) return std::nullopt;
  RootedPath result(root, path.size());
  for (std::string_view part; takePart(path, part);) {
    if (leadsUpwards(part) || isDevice(part)) return std::nullopt;
    result.append(part);
  }
  return result;
}

std::optional<RootedPath> RootedPath::resolved(std::string_view root, std::string_view folder,
                                               std::string_view path) {
  const std::string top = normal(paths::withSeparator(std::string(root)));
  const std::string whole = normal(paths::withSeparator(std::string(folder)).append(path));
  if (!whole.starts_with(top)) return std::nullopt;
  return literal(root, std::string_view(whole).substr(top.size()));
}

std::optional<RootedPath> RootedPath::ofPage(std::string_view root, std::string_view folder,
                                             std::string_view path) {
  const bool fromRoot = !path.empty() && paths::isSeparator(path.front());
  return resolved(root, fromRoot ? root : folder, path);
}

}  // namespace quorvane
