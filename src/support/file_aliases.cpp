#include "support/file_aliases.h"

#include <utility>

namespace quorvane {

void FileAliases::offer(std::string key, std::string localPath, std::optional<TimePoint> expires) {
  if (key.empty()) return;
  withdraw(key);
  bytes_ += localPath.size();
  aliases_.add(std::move(key), {std::move(localPath), expires});
  while (aliases_.size() > kMostAliases || bytes_ > kMostBytes) {
    withdraw(std::string(aliases_.begin()->key));
  }
}

void FileAliases::withdraw(std::string_view key) {
  const Alias* alias = aliases_.find(key);
  if (!alias) return;
  bytes_ -= alias->localPath.size();
  aliases_.remove(key);
}

std::optional<std::string> FileAliases::pathOf(std::string_view key, TimePoint now) const {
  const Alias* alias = aliases_.find(key);
  if (!alias || (alias->expires && *alias->expires < now)) return std::nullopt;
  return alias->localPath;
}

void FileAliases::removeExpired(TimePoint now) {
  aliases_.removeIf([this, now](const auto& entry) {
    const bool isOver = entry.value.expires && *entry.value.expires < now;
    if (isOver) bytes_ -= entry.value.localPath.size();
    return isOver;
  });
}

}  // namespace quorvane
