#pragma once

#include <list>
#include <memory>

#include "platform/services.h"
#include "script/customary/session_table.h"
#include "script/shared/stored_sessions.h"

namespace quorvane::customary {

/// Sessions that all instances know. find(), create() and noteRun() throw vbs::ScriptError when the
/// store is away. The last words of a session are said by the instance that ends it: that whose
/// page abandons it, or the first whose sweep finds its time over.
class SharedSessionTable final : public SessionTable {
 public:
  /// Both outlive the table.
  SharedSessionTable(SharedStore& store, const Services& services);

  std::shared_ptr<Session> find(std::string_view id) override;
  std::shared_ptr<Session> create() override;
  void noteRun(Session& session) override;
  void expire() override;
  void endAll() override {}
  std::shared_ptr<Session> takeEnded() override;
  std::size_t size() const override { return 0; }

 private:
  void noteEnded(const std::vector<StoredSessions::Ended>& ended);

  const Services& services_;
  StoredSessions sessions_;
  std::list<std::shared_ptr<Session>> ended_;
};

}  // namespace quorvane::customary
