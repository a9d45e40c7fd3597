#include "support/file_aliases.h"

#include <utility>

namespace quorvane {

void FileAliases::offer(std::string key, std::string localPath, std::optional<TimePoint> expires) {
  if (key.empty()) return;
  aliases_.put(std::move(key), {std::move(localPath), expires});
  if (aliases_.size() > kMostAliases) {
    const std::string oldest = aliases_.begin()->key;
    aliases_.remove(oldest);
  }
}

std::optional<std::string> FileAliases::pathOf(std::string_view key, TimePoint now) const {
  const Alias* alias = aliases_.find(key);
  if (!alias || (alias->expires && *alias->expires < now)) return std::nullopt;
  return alias->localPath;
}

void FileAliases::removeExpired(TimePoint now) {
  aliases_.removeIf(
      [now](const auto& entry) { return entry.value.expires && *entry.value.expires < now; });
}

}  // namespace quorvane
