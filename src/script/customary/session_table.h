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
#include "script/customary/session.h"
#include "support/status_lines.h"

namespace quorvane::customary {

/// The live sessions, found by texts of 32 characters that nobody can guess. A text that was not
/// made here finds nothing, so a stranger can't choose another visitor's.
class SessionTable {
 public:
  static constexpr std::size_t kMostSessions = 10'000;

  /// All outlive the table. `most` sessions live at once.
  SessionTable(const Clock& clock, Random& random, StatusLines& log,
               std::size_t most = kMostSessions);
  SessionTable(const SessionTable&) = delete;
  SessionTable& operator=(const SessionTable&) = delete;

  /// The session, its last access renewed; null when there is none or it is out of date.
  std::shared_ptr<Session> find(std::string_view id);

  /// With the table full the session that has been idle longest ends, one of those first that never
  /// came back or hold nothing: strangers that keep no cookie do not drive out the visitors.
  std::shared_ptr<Session> create();

  /// Tells that a page has run with the session, which may hold more or less now, or be abandoned.
  void noteRun(const Session& session);

  void expire();  ///< ends all that are out of date
  void endAll();

  /// The next of the sessions that have ended, whose last words are still to be heard; null when
  /// there is none.
  std::shared_ptr<Session> takeEnded();

  std::size_t size() const { return places_.size(); }

 private:
  using Ranks = std::list<const Session*>;
  struct Place {
    std::shared_ptr<Session> session;
    Ranks* list = nullptr;
    Ranks::iterator rank;
    bool cameBack = false;
  };
  using Places = std::unordered_map<std::string_view, Place>;  ///< views of the sessions' own ids

  std::string newId();
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
