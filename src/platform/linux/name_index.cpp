#include "platform/linux/name_index.h"

#include <dirent.h>
#include <sys/stat.h>

#include <ctime>
#include <memory>

#include "platform/fold_case.h"

namespace quorvane {

namespace {

constexpr std::size_t kListings = 32;
constexpr std::size_t kLargestKept = 200'000;  ///< names; a larger folder is read each time
constexpr std::int64_t kSecond = 1'000'000'000;

std::int64_t nanoseconds(const timespec& t) {
  return t.tv_sec * kSecond + t.tv_nsec;
}

std::int64_t nowNanoseconds() {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  return nanoseconds(now);
}

std::optional<std::int64_t> folderChange(const std::string& folder) {
  struct stat info {};
  if (::stat(folder.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) return std::nullopt;
  return nanoseconds(info.st_mtim);
}

std::unordered_map<std::string, std::string> readNames(const std::string& folder) {
  std::unordered_map<std::string, std::string> names;
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), ::closedir);
  if (!open) return names;
  while (const dirent* entry = ::readdir(open.get())) {
    const auto [it, isNew] = names.try_emplace(foldCase(entry->d_name), entry->d_name);
    if (!isNew && it->second > entry->d_name) it->second = entry->d_name;
  }
  return names;
}

}  // namespace

std::optional<std::string> NameIndex::find(const std::string& folder, std::string_view name) {
  const Listing* listing = listingOf(folder);
  if (!listing) return std::nullopt;
  const auto it = listing->names.find(foldCase(name));
  if (it == listing->names.end()) return std::nullopt;
  return it->second;
}

const NameIndex::Listing* NameIndex::listingOf(const std::string& folder) {
  const auto changed = folderChange(folder);
  if (!changed) return nullptr;
  for (auto it = listings_.begin(); it != listings_.end(); ++it) {
    if (it->folder != folder) continue;
    if (it->changed == *changed) {
      listings_.splice(listings_.begin(), listings_, it);
      return &listings_.front();
    }
    listings_.erase(it);
    break;
  }
  const std::int64_t readAt = nowNanoseconds();
  listings_.push_front({folder, *changed, readNames(folder)});
  Listing& listing = listings_.front();
  // A name added within the clock's last step would not show in the time of change, nor is a
  // listing of that size worth its memory; both are read again next time.
  if (readAt - *changed < kSecond || listing.names.size() > kLargestKept) listing.changed = -1;
  if (listings_.size() > kListings) listings_.pop_back();
  return &listing;
}

}  // namespace quorvane
