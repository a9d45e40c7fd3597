#include "http/targets.h"

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

/// A device is a device with any extension behind its name.
bool isDevice(std::string_view part) {
  const std::string_view name = trimBlanks(part.substr(0, part.find('.')));
  const auto equals = [&](std::string_view device) { return equalsNoCase(name, device); };
  return std::any_of(kDevices.begin(), kDevices.end(), equals) || isPortName(name);
}

/// Parts of dots and blanks only: some systems drop what stands at the end of a name and arrive at
/// "..".
bool leadsUpwards(std::string_view part) {
  return part.size() >= 2 && part.find_first_not_of(". ") == std::string_view::npos &&
         part.find('.') != std::string_view::npos;
}

bool isForbiddenCharacter(char c) {
  return static_cast<unsigned char>(c) < 32 || c == ':';
}

}  // namespace

LocalTarget LocalTarget::inside(const std::string& documentRoot, std::string_view urlPath) {
  return {documentRoot, paths::native(urlPath), true};
}

LocalTarget LocalTarget::anywhere(const std::string& documentRoot, std::string_view localPath) {
  std::string path = paths::native(localPath);
  if (path.starts_with(documentRoot) && targets::staysInside(path.substr(documentRoot.size()))) {
    return {documentRoot, path.substr(documentRoot.size()), true};
  }
  return {{}, std::move(path), false};
}

namespace targets {

bool staysInside(std::string_view path) {
  if (path.empty() || !paths::isSeparator(path.front())) return false;
  if (std::any_of(path.begin(), path.end(), isForbiddenCharacter)) return false;
  while (!path.empty()) {
    path.remove_prefix(1);
    const std::string_view part = path.substr(0, path.find_first_of("/\\"));
    if (leadsUpwards(part) || isDevice(part)) return false;
    path.remove_prefix(part.size());
  }
  return true;
}

std::optional<FoundFile> locate(const Files& files, const LocalTarget& target) {
  std::string path = target.text();
  if (path.find('\0') != std::string::npos) return std::nullopt;
  if (target.confined && !staysInside(target.path)) return std::nullopt;
  if (const auto info = files.stat(path)) return FoundFile{std::move(path), *info};
  if (!target.confined) return std::nullopt;
  auto found = files.find(target.base, std::string_view(target.path).substr(1));
  const auto info = found ? files.stat(*found) : std::nullopt;
  if (!info) return std::nullopt;
  return FoundFile{std::move(*found), *info};
}

}  // namespace targets

}  // namespace quorvane
