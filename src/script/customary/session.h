#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "components/shared_values.h"
#include "platform/random.h"
#include "script/customary/static_objects.h"
#include "support/calendar_time.h"
#include "vbscript/values/memory_meter.h"

namespace quorvane::customary {

/// 32 characters that nobody can guess.
std::string newSessionId(Random& random);

/// What is kept for one browser between its requests.
struct Session {
  explicit Session(std::string text) : id(std::move(text)) {}

  std::string id;           ///< a secret between the server and the browser: its cookie's value
  std::int32_t number = 0;  ///< what pages see instead
  TimePoint lastAccess;
  std::chrono::minutes timeout{20};
  std::int32_t locale = 0;    ///< that its pages begin with; 0: none of its own
  std::int32_t codePage = 0;  ///< the same
  bool isAbandoned = false;   ///< it ends with the page that runs
  vbs::Ref<SharedValues> contents = vbs::make<SharedValues>("Contents");
  vbs::Ref<StaticObjects> objects;  ///< null: none are declared
  vbs::MemoryCharge charge{sizeof(Session)};

  bool isOutOfDate(TimePoint now) const { return isAbandoned || lastAccess + timeout < now; }

  /// Whether it keeps anything that a visitor could miss.
  bool holdsAnything() const { return !contents->empty() || (objects && objects->holdsAny()); }

  /// Whether something that it keeps may lead back to itself.
  bool holdsObjects() const;

  /// Whoever still holds a part of it finds that empty.
  void clear() {
    contents->clear();
    if (objects) objects->dropReferences();
  }
};

}  // namespace quorvane::customary
