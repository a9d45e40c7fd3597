#include "http/gzip_copies.h"

#include <algorithm>
#include <utility>

#include "support/clsZipString.h"
#include "support/paths.h"
#include "support/text.h"

namespace quorvane {

std::string GzipCopies::nameOf(std::string_view urlPath) {
  std::string name = upperCase(urlPath);
  for (char& c : name) {
    if (paths::isSeparator(c)) c = '^';
  }
  return name;
}

bool GzipCopies::isKept(std::string_view urlPath) {
  const auto parts = split(urlPath, '/');
  return std::none_of(parts.begin() + 1, parts.end(),
                      [](std::string_view part) { return part.empty() || part.ends_with('.'); });
}

std::optional<Body> GzipCopies::stored(const FoundFile& source, const std::string& copyPath) {
  if (const auto copy = files_.stat(copyPath)) return contents_.bodyOf(copyPath, *copy);
  if (source.info.size > kMostSourceBytes) return std::nullopt;
  auto bytes = packed(source);
  if (!bytes) return Body();
  files_.writeAll(copyPath, *bytes);
  return std::move(*bytes);
}

std::optional<Body> GzipCopies::fresh(const FoundFile& source) {
  if (source.info.size > kMostSourceBytes) return std::nullopt;
  auto bytes = packed(source);
  if (!bytes) return Body();
  return std::move(*bytes);
}

std::optional<std::string> GzipCopies::packed(const FoundFile& source) {
  auto bytes = files_.readAll(source.path);
  if (bytes) clsZipString::CompressStringB(*bytes, clsZipString::kGzip);
  return bytes;
}

}  // namespace quorvane
