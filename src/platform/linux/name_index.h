#pragma once

#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quorvane {

/// Finds names in folders without regard to letter case. Remembers the listings of the folders
/// asked for last, so that names nobody has don't cost a walk through a large folder each.
class NameIndex {
 public:
  /// The name in `folder` that equals `name` in all but letter case; of several the one that sorts
  /// first.
  std::optional<std::string> find(const std::string& folder, std::string_view name);

 private:
  struct Listing {
    std::string folder;
    std::int64_t changed = 0;  ///< nanoseconds; the folder's time of change when it was read
    std::unordered_map<std::string, std::string> names;  ///< folded to actual
  };

  const Listing* listingOf(const std::string& folder);

  std::list<Listing> listings_;  ///< the one used last in front
};

}  // namespace quorvane
