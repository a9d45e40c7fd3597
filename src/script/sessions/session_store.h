#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "script/sessions/aspSessionObj.h"

namespace quorvane {

/// The live sessions by their numbers. These run from 0 to 10,000, are drawn at random and can be
/// guessed: a session holds nothing that a stranger may not see.
class SessionStore {
 public:
  static constexpr std::int32_t kHighestNumber = 10'000;

  virtual ~SessionStore() = default;

  /// The session with this number, its last access renewed; a new one when there is none, when it
  /// is out of date, or when the number is 0 or less (no number came with the request). With every
  /// number taken the session that has been idle longest makes room, one of those first that never
  /// came back or hold nothing: strangers that keep no cookie do not drive out the visitors.
  virtual vbs::Ref<aspSessionObj> getOrCreate(std::int32_t number) = 0;

  /// Tells that a page has run with the session of this number, which may hold more or less now.
  virtual void noteRun(std::int32_t number) = 0;

  /// The session is gone for ever, with all that it keeps.
  virtual void remove(std::int32_t number) = 0;

  /// Drops every session that is out of date.
  virtual void expire() = 0;

  virtual std::size_t size() const = 0;  ///< those of this process

  /// Calls `visit` with each session of this process, oldest first.
  virtual void forEach(const std::function<void(const aspSessionObj&)>& visit) const = 0;
};

}  // namespace quorvane
