#pragma once

#include "platform/services.h"
#include "script/sessions/session_store.h"
#include "script/shared/stored_sessions.h"

namespace quorvane {

/// Sessions that all instances know. When the store is away, pages run with a session whose values
/// can't be used: that is an error then, with the reason.
class SharedSessionStore final : public SessionStore {
 public:
  /// Both outlive the store.
  SharedSessionStore(SharedStore& store, const Services& services);

  vbs::Ref<aspSessionObj> getOrCreate(std::int32_t number) override;
  void noteRun(std::int32_t) override {}
  void remove(std::int32_t number) override;
  void expire() override;
  std::size_t size() const override { return 0; }
  void forEach(const std::function<void(const aspSessionObj&)>&) const override {}

 private:
  vbs::Ref<aspSessionObj> create();
  vbs::Ref<aspSessionObj> make(std::int32_t number, const StoredSessions::Head& head);
  void tellDestroyed(const std::vector<StoredSessions::Ended>& ended);

  const Services& services_;
  StoredSessions sessions_;
};

}  // namespace quorvane
