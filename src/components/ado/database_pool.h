#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "components/ado/driver.h"
#include "components/ado/redirects.h"

namespace quorvane {
class Clock;
class SettingsStorage;
}  // namespace quorvane

namespace quorvane::ado {

/// What a server keeps of databases from one request to the next: connections that nobody uses, and
/// which texts stand for others. Outlives every script's objects.
class DatabasePool {
 public:
  static constexpr std::size_t kMost = 16;
  static constexpr std::chrono::seconds kLongest{60};

  /// The clock outlives the pool; settings that are null redirect nothing.
  DatabasePool(const Clock& clock, const SettingsStorage* settings);

  const Redirects& redirects() const { return redirects_; }

  /// A connection that was opened in the same way and is as a new one; null when there is none.
  std::unique_ptr<Database> take(const std::string& way);
  /// Keeps a connection, unless it can't be made as a new one, for kLongest at most; the longest
  /// idle makes room.
  void keep(std::string way, std::unique_ptr<Database> database);
  void expire();
  std::size_t size() const { return idle_.size(); }

 private:
  struct Idle {
    std::string way;
    std::unique_ptr<Database> database;
    std::chrono::steady_clock::time_point since;
  };

  const Clock& clock_;
  Redirects redirects_;
  std::vector<Idle> idle_;  ///< the longest idle first
};

}  // namespace quorvane::ado
