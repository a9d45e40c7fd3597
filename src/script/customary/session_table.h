#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "script/customary/session.h"

namespace quorvane::customary {

/// The live sessions, found by texts of 32 characters that nobody can guess. A text that was not
/// made here finds nothing, so a stranger can't choose another visitor's.
class SessionTable {
 public:
  static constexpr std::size_t kMostSessions = 10'000;

  virtual ~SessionTable() = default;

  /// The session, its last access renewed; null when there is none or it is out of date.
  virtual std::shared_ptr<Session> find(std::string_view id) = 0;

  /// With the table full the session that has been idle longest ends, one of those first that never
  /// came back or hold nothing: strangers that keep no cookie do not drive out the visitors.
  virtual std::shared_ptr<Session> create() = 0;

  /// Tells that a page has run with the session, which may hold more or less now, or be abandoned.
  virtual void noteRun(Session& session) = 0;

  virtual void expire() = 0;  ///< ends all that are out of date
  virtual void endAll() = 0;  ///< the server stops: all of this process alone

  /// The next of the sessions that have ended, whose last words are still to be heard; null when
  /// there is none.
  virtual std::shared_ptr<Session> takeEnded() = 0;

  virtual std::size_t size() const = 0;  ///< those of this process
};

}  // namespace quorvane::customary
