#include "http/bounded_copies.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include "support/files.h"
#include "support/paths.h"

namespace quorvane {

void BoundedCopies::used(const std::string& path, std::uint64_t size) {
  if (!std::exchange(folderRead_, true)) readFolder(paths::folderOf(path));
  putFirst(path, size);
  makeRoom();
}

/// Of earlier use nothing is known but when each copy was made.
void BoundedCopies::readFolder(std::string_view folder) {
  struct Found {
    std::string path;
    FileInfo info;
  };
  std::vector<Found> found;
  for (const std::string& name : files_.list(std::string(folder))) {
    if (!isCopy_(name)) continue;
    std::string path = paths::join(folder, name);
    const auto info = files_.stat(path);
    if (info && !info->isFolder) found.push_back({std::move(path), *info});
  }
  std::sort(found.begin(), found.end(),
            [](const Found& a, const Found& b) { return a.info.modified < b.info.modified; });
  for (const Found& copy : found) putFirst(copy.path, copy.info.size);
}

void BoundedCopies::putFirst(const std::string& path, std::uint64_t size) {
  const auto known = byPath_.find(path);
  if (known == byPath_.end()) {
    copies_.push_front({path, 0});
    byPath_[path] = copies_.begin();
  } else {
    copies_.splice(copies_.begin(), copies_, known->second);
  }
  bytes_ += size - copies_.front().size;
  copies_.front().size = size;
}

void BoundedCopies::makeRoom() {
  for (std::size_t untried = copies_.size() - 1; untried > 0; --untried) {
    if (copies_.size() <= bounds_.mostCopies && bytes_ <= bounds_.mostBytes) return;
    const auto oldest = std::prev(copies_.end());
    if (files_.remove(oldest->path) || isGone(*oldest)) {
      forget(oldest);
    } else {
      // Some systems keep a file that is being sent; its turn comes again.
      copies_.splice(std::next(copies_.begin()), copies_, oldest);
    }
  }
}

bool BoundedCopies::isGone(const Copy& copy) const {
  return !files_.stat(copy.path);
}

void BoundedCopies::forget(Copies::iterator copy) {
  bytes_ -= copy->size;
  byPath_.erase(copy->path);
  copies_.erase(copy);
}

}  // namespace quorvane
