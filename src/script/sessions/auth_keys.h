#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/random.h"
#include "support/keyed_collection.h"

namespace quorvane {

/// Short-lived keys that pages hand out and check. A key stays valid until a sweep finds it past
/// its time; checking does not use it up. Keys compare without regard to letter case.
class AuthKeys {
 public:
  /// Both outlive the store.
  AuthKeys(const Clock& clock, Random& random) : clock_(clock), random_(random) {}

  /// A new key: 32 upper-case hexadecimal digits.
  std::string issue(std::chrono::minutes lifetime);

  bool validate(std::string_view key) const { return keys_.find(key) != nullptr; }

  /// Removes the keys whose time lies before now.
  void expire();

  void clear() { keys_.clear(); }

  std::size_t size() const { return keys_.size(); }

 private:
  const Clock& clock_;
  Random& random_;
  KeyedCollection<TimePoint> keys_;  ///< whole seconds
};

}  // namespace quorvane
