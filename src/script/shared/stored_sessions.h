#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "script/shared/kept_fields.h"
#include "script/shared/shared_store.h"

namespace quorvane {

/// The sessions of one kind in the shared store: a hash each, and a list of them all by the moment
/// at which each ends, another by how long each has been idle. The store's own clock counts. Every
/// call throws vbs::ScriptError when the store does not do it.
///
/// A hash outlives the end of its session for a while: whichever instance finds it ended takes what
/// it holds, for its last words. The store drops those that nobody asks for.
class StoredSessions {
 public:
  /// What stands beside a session's values.
  struct Head {
    std::int32_t timeout = 20;  ///< minutes
    std::int32_t number = 0;
    std::int32_t locale = 0;
    std::int32_t codePage = 0;

    friend bool operator==(const Head&, const Head&) = default;
  };
  struct Ended {
    std::string id;
    Head head;
    KeptFields fields;
  };
  struct Created {
    std::string id;
    std::int32_t number = 0;
    std::vector<Ended> ended;  ///< made room for it
  };

  /// `kind` is part of the keys' names. `most` live at once; beyond, the one that has been idle
  /// longest ends, one of those first that never came back or hold nothing. The store outlives the
  /// object.
  StoredSessions(SharedStore& store, std::string_view kind, std::size_t most);

  /// The session, whose time begins anew; nothing when there is none or its time is over.
  std::optional<Head> find(const std::string& id);

  /// A session by one of these names: the first that is free. With `highest` set they are numbers
  /// from 0 to it, and the first free one behind the last is taken where all of them have gone.
  Created create(const SharedStore::Words& ids, const Head& head, std::int32_t firstNumber,
                 std::optional<std::int32_t> highest);

  KeptFields load(const std::string& id);

  /// Whether the session is still there. Fields that are not named stay what others have made of
  /// them. With `renewed` its time begins anew.
  bool save(const std::string& id, const Head& head, const KeptFields::Changes& changes,
            bool renewed);

  /// Takes the session away; false when it had gone already.
  bool remove(const std::string& id);

  /// Takes away some of those whose time is over, each for one instance alone. `withFields` tells
  /// whether what they hold is wanted.
  std::vector<Ended> takeEnded(bool withFields);

 private:
  SharedStore& store_;
  std::string prefix_;  ///< of a session's key
  SharedStore::Words lists_;
  std::size_t most_;
};

}  // namespace quorvane
