#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>

#include "platform/clock.h"
#include "platform/random.h"
#include "script/sessions/auth_keys.h"

namespace quorvane {

/// Keys of this process alone.
class MemoryAuthKeys final : public AuthKeys {
 public:
  /// At most this many are held: for one more, the key whose time ends first makes room.
  static constexpr std::size_t kMostKeys = 100'000;

  /// Both outlive the store.
  MemoryAuthKeys(const Clock& clock, Random& random) : clock_(clock), random_(random) {}

  std::string issue(std::chrono::minutes lifetime) override;
  bool validate(std::string_view key) override;
  void expire() override;
  void clear() override;

  std::size_t size() const { return keys_.size(); }

 private:
  void removeFirst();  ///< of byTime_

  const Clock& clock_;
  Random& random_;
  std::unordered_set<std::string> keys_;          ///< upper case
  std::multimap<TimePoint, std::string> byTime_;  ///< the same, by their ends in whole seconds
};

}  // namespace quorvane
