#pragma once

#include "platform/random.h"
#include "script/sessions/auth_keys.h"
#include "script/shared/shared_store.h"

namespace quorvane {

/// Keys that every instance knows. The store itself drops them when their time is over, and a
/// sweep's interval later at that, so that one without a time of its own can still be checked. Here
/// issuing and checking throw vbs::ScriptError when the store is away.
class SharedAuthKeys final : public AuthKeys {
 public:
  /// Both outlive the keys.
  SharedAuthKeys(SharedStore& store, Random& random) : store_(store), random_(random) {}

  std::string issue(std::chrono::minutes lifetime) override;
  bool validate(std::string_view key) override;
  void expire() override {}
  void clear() override {}  ///< other instances' keys live on, and these with them

 private:
  SharedStore& store_;
  Random& random_;
};

}  // namespace quorvane
