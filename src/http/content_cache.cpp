#include "http/content_cache.h"

#include <chrono>
#include <utility>

namespace quorvane {

namespace {

/// What an entry takes besides its content, about.
constexpr std::size_t kEntryBytes = 256;

/// File times have a limited resolution: a file changed this recently may change again without a
/// trace in its time.
constexpr std::chrono::seconds kSettlingTime{2};

}  // namespace

std::optional<ContentCache::Content> ContentCache::contentOf(const std::string& path,
                                                             const FileInfo& present) {
  if (present.isFolder) return std::nullopt;
  const auto it = byPath_.find(path);
  if (it == byPath_.end()) return loaded(path);
  const Entries::iterator entry = it->second;
  if (entry->info != present) {
    drop(entry);
    return loaded(path);
  }
  entries_.splice(entries_.begin(), entries_, entry);
  return Content{entry->content, entry->info};
}

Body ContentCache::bodyOf(const std::string& path, const FileInfo& present) {
  auto content = contentOf(path, present);
  return content ? std::move(content->body) : Body();
}

std::optional<ContentCache::Content> ContentCache::loaded(const std::string& path) {
  auto file = files_.open(path);
  if (!file) return std::nullopt;
  const FileInfo info = file->info();
  if (info.size > kMostFileBytes) return Content{FileSlice{std::move(file), 0, info.size}, info};
  std::string bytes(static_cast<std::size_t>(info.size), '\0');
  const std::size_t count = file->read(0, bytes.data(), bytes.size());
  bytes.resize(count);
  const bool whole = count == info.size;
  auto content = std::make_shared<const std::string>(std::move(bytes));
  if (whole && isSettled(info)) keep({path, info, content});
  return Content{std::move(content), info};
}

bool ContentCache::isSettled(const FileInfo& info) const {
  return clock_.now() - info.modified > kSettlingTime;
}

void ContentCache::keep(Entry entry) {
  keptBytes_ += entry.content->size() + kEntryBytes;
  entries_.push_front(std::move(entry));
  byPath_[entries_.front().path] = entries_.begin();
  while (keptBytes_ > kMostBytes) drop(std::prev(entries_.end()));
}

void ContentCache::drop(Entries::iterator entry) {
  keptBytes_ -= entry->content->size() + kEntryBytes;
  byPath_.erase(entry->path);
  entries_.erase(entry);
}

}  // namespace quorvane
