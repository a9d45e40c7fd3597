#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <vector>

#include "platform/clock.h"
#include "platform/random.h"
#include "script/sessions/aspSessionObj.h"
#include "support/status_lines.h"

namespace quorvane {

/// The live sessions by their numbers. These run from 0 to 10,000, are drawn at random and can be
/// guessed: a session holds nothing that a stranger may not see.
class SessionStore {
 public:
  static constexpr std::int32_t kHighestNumber = 10'000;

  /// All outlive the store.
  SessionStore(const Clock& clock, Random& random, StatusLines& log);
  SessionStore(const SessionStore&) = delete;
  SessionStore& operator=(const SessionStore&) = delete;
  ~SessionStore();

  /// The session with this number, its last access renewed; a new one when there is none, when it
  /// is out of date, or when the number is 0 or less (no number came with the request). With every
  /// number taken the session that has been idle longest makes room, one of those first that never
  /// came back or hold nothing: strangers that keep no cookie do not drive out the visitors.
  vbs::Ref<aspSessionObj> getOrCreate(std::int32_t number);

  /// Tells that a page has run with the session of this number, which may hold more or less now.
  void noteRun(std::int32_t number);

  /// The session is gone for ever, with all that it keeps.
  void remove(std::int32_t number);

  /// Drops every session that is out of date.
  void expire();

  std::size_t size() const { return ages_.size(); }

  /// Calls `visit` with each session, oldest first.
  void forEach(const std::function<void(const aspSessionObj&)>& visit) const;

 private:
  using Numbers = std::list<std::int32_t>;
  struct Place {
    vbs::Ref<aspSessionObj> session;  ///< null: the number is free
    Numbers::iterator age;
    Numbers::iterator idle;
    Numbers* rank = nullptr;  ///< the list that `idle` is in
    bool cameBack = false;
  };

  vbs::Ref<aspSessionObj> find(std::int32_t number) const;  ///< null when there is none
  vbs::Ref<aspSessionObj> create();
  std::int32_t freeNumber();
  std::int32_t nextFreeNumber(std::int32_t number) const;
  void setTaken(std::int32_t number, bool taken);
  std::int32_t dropIdlest();  ///< the number that is free now
  void rank(Place& place);
  void endLooseCircles();

  const Clock& clock_;
  Random& random_;
  StatusLines& log_;
  std::vector<Place> places_{kHighestNumber + 1};  ///< by number
  Numbers ages_;                                   ///< the numbers taken, oldest session first
  // The same numbers, those idle longest first.
  Numbers expendable_;  ///< never came back, or hold nothing
  Numbers valued_;
  bool mayHaveCircles_ = false;  ///< objects of removed sessions may still hold each other

  static constexpr std::size_t kWords = kHighestNumber / 64 + 1;
  std::array<std::uint64_t, kWords> taken_{};  ///< a bit for each number
};

}  // namespace quorvane
