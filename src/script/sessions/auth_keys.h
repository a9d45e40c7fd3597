#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>

#include "platform/clock.h"
#include "platform/random.h"

namespace quorvane {

/// Short-lived keys that pages hand out and check. A key stays valid until a sweep finds it past
/// its time; checking does not use it up. Keys compare without regard to letter case.
class AuthKeys {
 public:
  /// At most this many are held: for one more, the key whose time ends first makes room.
  static constexpr std::size_t kMostKeys = 100'000;

  /// Both outlive the store.
  AuthKeys(const Clock& clock, Random& random) : clock_(clock), random_(random) {}

  /// A new key: 32 upper-case hexadecimal digits.
  std::string issue(std::chrono::minutes lifetime);

  bool validate(std::string_view key) const;

  /// Removes the keys whose time lies before now.
  void expire();

  void clear();

  std::size_t size() const { return keys_.size(); }

 private:
  void removeFirst();  ///< of byTime_

  const Clock& clock_;
  Random& random_;
  std::unordered_set<std::string> keys_;          ///< upper case
  std::multimap<TimePoint, std::string> byTime_;  ///< the same, by their ends in whole seconds
};

}  // namespace quorvane
