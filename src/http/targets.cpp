#include "http/targets.h"

#include <utility>

#include "support/paths.h"
#include "support/rooted_path.h"

namespace quorvane {

namespace {

/// What follows a folder's own text leads into the folder only behind a separator.
std::optional<RootedPath> below(const std::string& base, std::string_view path) {
  if (path.empty() || !paths::isSeparator(path.front())) return std::nullopt;
  return RootedPath::portable(base, path);
}

}  // namespace

LocalTarget LocalTarget::inside(const std::string& documentRoot, std::string_view urlPath) {
  return {documentRoot, paths::native(urlPath), Reach::Inside};
}

LocalTarget LocalTarget::anywhere(const std::string& documentRoot, std::string_view localPath) {
  std::string path = paths::native(localPath);
  // The root is spelled as somebody has set it.
  if (path.starts_with(paths::native(documentRoot)) &&
      below(documentRoot, path.substr(documentRoot.size()))) {
    return {documentRoot, path.substr(documentRoot.size()), Reach::Inside};
  }
  return {{}, std::move(path), Reach::Anywhere};
}

LocalTarget LocalTarget::onlyInside(const std::string& documentRoot, std::string_view localPath) {
  std::string path = paths::native(localPath);
  if (const auto found =
          RootedPath::resolved(documentRoot, paths::folderOf(path), paths::fileNameOf(path))) {
    return {documentRoot, paths::kSeparator + std::string(found->relative()), Reach::Inside};
  }
  return {{}, std::move(path), Reach::Nowhere};
}

namespace targets {

std::optional<FoundFile> locate(const Files& files, const LocalTarget& target, bool followLinks) {
  if (target.reach == LocalTarget::Reach::Nowhere) return std::nullopt;
  if (target.reach == LocalTarget::Reach::Anywhere) {
    if (target.path.find('\0') != std::string::npos) return std::nullopt;
    const auto info = files.stat(target.path);
    return info ? std::optional(FoundFile{target.path, *info}) : std::nullopt;
  }
  auto path = below(target.base, target.path);
  if (!path) return std::nullopt;
  const auto present = followLinks ? files.stat(path->text()) : std::nullopt;
  if (present) return FoundFile{std::move(*path).text(), *present};
  auto found = findBelow(files, *path, followLinks);
  const auto info = found ? files.stat(*found) : std::nullopt;
  if (!info) return std::nullopt;
  return FoundFile{std::move(*found), *info};
}

}  // namespace targets

}  // namespace quorvane
