#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/clock.h"
#include "platform/random.h"
#include "script/customary/session_table.h"
#include "support/status_lines.h"

namespace quorvane::customary {

/// Sessions of this process alone.
class MemorySessionTable final : public SessionTable {
 public:
  /// All outlive the table. `most` sessions live at once.
  MemorySessionTable(const Clock& clock, Random& random, StatusLines& log,
                     std::size_t most = kMostSessions);
  MemorySessionTable(const MemorySessionTable&) = delete;
  MemorySessionTable& operator=(const MemorySessionTable&) = delete;

  std::shared_ptr<Session> find(std::string_view id) override;
  std::shared_ptr<Session> create() override;
  void noteRun(Session& session) override;
  void expire() override;
  void endAll() override;
  std::shared_ptr<Session> takeEnded() override;
  std::size_t size() const override { return places_.size(); }

 private:
  using Ranks = std::list<const Session*>;
  struct Place {
    std::shared_ptr<Session> session;
    Ranks* list = nullptr;
    Ranks::iterator rank;
    bool cameBack = false;
  };
  using Places = std::unordered_map<std::string_view, Place>;  ///< views of the sessions' own ids

  void rank(Place& place);
  Places::iterator end(Places::iterator at);

  const Clock& clock_;
  Random& random_;
  StatusLines& log_;
  std::size_t most_;
  std::int32_t lastNumber_;
  Places places_;
  // All of them, those idle longest first.
  Ranks expendable_;  ///< never came back, or hold nothing
  Ranks valued_;
  std::list<std::shared_ptr<Session>> ended_;
};

}  // namespace quorvane::customary
