#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "components/shared_values.h"
#include "platform/clock.h"
#include "platform/random.h"
#include "script/shared/shared_store.h"

namespace quorvane {

/// Behind the values that all pages of all instances share. A page reads them when it first uses
/// them, or locks them; they are read anew only when somebody has changed one. What it writes is in
/// the store at once.
///
/// The lock is a key with an owner that ends by itself, so that an instance that dies with it holds
/// the others up for a few seconds. Writing waits for another's lock too. A page whose own lock has
/// ended meanwhile, and another has written since, gets an error when it writes.
class StoredApplication final : public SharedValues::Backing {
 public:
  /// All outlive the object.
  StoredApplication(SharedStore& store, const Clock& clock, Random& random)
      : store_(store), clock_(clock), random_(random) {}

  void prepare(SharedValues& values) override;
  void put(const vbs::Value& key, const vbs::Value& value) override;
  void remove(const vbs::Value& key) override;
  void clear() override;
  void lock(SharedValues& values) override;
  void unlock() override;
  void endPage() override;

 private:
  void take(SharedValues& values, const RedisReply& reply);
  void write(std::string_view operation, SharedStore::Words arguments);
  RedisReply whenFree(std::string_view script, const SharedStore::Words& arguments);

  SharedStore& store_;
  const Clock& clock_;
  Random& random_;
  std::string version_ = "none";                 ///< of what has been read
  std::map<std::string, std::uint64_t> places_;  ///< in the order of all, by fields
  bool isCurrent_ = false;                       ///< as far as this page is concerned
  std::string token_;                            ///< of the lock; empty: it is not ours
};

}  // namespace quorvane
