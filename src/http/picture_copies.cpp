#include "http/picture_copies.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "platform/image_library.h"
#include "support/files.h"
#include "support/paths.h"

namespace quorvane {

namespace {

constexpr std::string_view kMark = "^R";

bool takeDigits(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
  text.remove_prefix(end);
  return end > 0;
}

/// Whether `text` begins with a size as it stands in a name, with `times` between its sides.
bool beginsWithSize(std::string_view text, char times) {
  if (!takeDigits(text) || !text.starts_with(times)) return false;
  text.remove_prefix(1);
  return takeDigits(text);
}

}  // namespace

std::string PictureCopies::nameOf(const ImageRendering& wanted, std::string_view fileName) {
  return std::string(kMark) + std::to_string(wanted.width) + 'x' + std::to_string(wanted.height) +
         std::string(fileName);
}

/// A compressed copy has its picture's name in upper case behind the separator of a folder, which
/// is a "^" there.
bool PictureCopies::isCopy(std::string_view name) {
  if (name.starts_with(kMark) && beginsWithSize(name.substr(kMark.size()), 'x')) return true;
  const std::size_t compressed = name.find("^^R");
  return compressed != std::string_view::npos && beginsWithSize(name.substr(compressed + 3), 'X');
}

void PictureCopies::used(const std::string& path, std::uint64_t size) {
  if (!std::exchange(folderRead_, true)) readFolder(paths::folderOf(path));
  putFirst(path, size);
  makeRoom();
}

/// Of earlier use nothing is known but when each copy was made.
void PictureCopies::readFolder(std::string_view folder) {
  struct Found {
    std::string path;
    FileInfo info;
  };
  std::vector<Found> found;
  for (const std::string& name : files_.list(std::string(folder))) {
    if (!isCopy(name)) continue;
    std::string path = paths::join(folder, name);
    const auto info = files_.stat(path);
    if (info && !info->isFolder) found.push_back({std::move(path), *info});
  }
  std::sort(found.begin(), found.end(),
            [](const Found& a, const Found& b) { return a.info.modified < b.info.modified; });
  for (const Found& copy : found) putFirst(copy.path, copy.info.size);
}

void PictureCopies::putFirst(const std::string& path, std::uint64_t size) {
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

void PictureCopies::makeRoom() {
  for (std::size_t untried = copies_.size() - 1; untried > 0; --untried) {
    if (copies_.size() <= kMostCopies && bytes_ <= kMostBytes) return;
    const auto oldest = std::prev(copies_.end());
    if (files_.remove(oldest->path) || isGone(*oldest)) {
      forget(oldest);
    } else {
      // Some systems keep a file that is being sent; its turn comes again.
      copies_.splice(std::next(copies_.begin()), copies_, oldest);
    }
  }
}

bool PictureCopies::isGone(const Copy& copy) const {
  return !files_.stat(copy.path);
}

void PictureCopies::forget(Copies::iterator copy) {
  bytes_ -= copy->size;
  byPath_.erase(copy->path);
  copies_.erase(copy);
}

}  // namespace quorvane
