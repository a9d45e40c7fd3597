#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "support/calendar_time.h"
#include "support/keyed_collection.h"

namespace quorvane {

/// Keys under which scripts offer local files for download ("filebin$" targets). Keys compare
/// without regard to letter case.
class FileAliases {
 public:
  /// At most this many are held; the oldest makes room.
  static constexpr std::size_t kMostAliases = 100000;
  /// And paths of so many bytes in all.
  static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

  /// Offers `localPath` under `key`, in place of what was offered there, until `expires` or
  /// without end. An empty key is ignored.
  void offer(std::string key, std::string localPath,
             std::optional<TimePoint> expires = std::nullopt);

  void withdraw(std::string_view key);

  /// The local path, or nothing when the key is unknown or has run out at `now`.
  std::optional<std::string> pathOf(std::string_view key, TimePoint now) const;

  /// Forgets what has run out.
  void removeExpired(TimePoint now);

  std::size_t size() const { return aliases_.size(); }

 private:
  struct Alias {
    std::string localPath;
    std::optional<TimePoint> expires;
  };

  KeyedCollection<Alias> aliases_;
  std::size_t bytes_ = 0;  ///< of their paths
};

}  // namespace quorvane
