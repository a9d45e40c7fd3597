#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vbscript/values/value.h"

namespace quorvane {

/// Values under keys as fields of a hash: what of them the store has, and what a page has made of
/// them since. A field's name is the folded key; its bytes are the value's place in the order of
/// all, the key as it is spelled, and the value.
class KeptFields {
 public:
  /// The bytes of a session at most, names of fields included.
  static constexpr std::size_t kMostBytes = std::size_t{1} << 20;

  using Fields = std::map<std::string, std::string>;
  struct Entry {
    std::uint64_t place;
    vbs::Value key;
    vbs::Value value;
  };
  struct Changes {
    std::vector<std::string> set;  ///< names and bytes by turns
    std::vector<std::string> removed;
    bool empty() const { return set.empty() && removed.empty(); }
  };

  KeptFields() = default;
  explicit KeptFields(Fields stored) : stored_(std::move(stored)) {}

  /// The values whose fields' names begin with `prefix`, in their order. What can't be read is as
  /// if it were not there.
  std::vector<Entry> entries(std::string_view prefix) const;

  /// Notes a value that there is now, in the order of all. Throws vbs::ScriptError for one that
  /// can't be kept.
  void note(std::string_view prefix, std::string_view foldedKey, const vbs::Value& key,
            const vbs::Value& value);

  /// What the notes change. Throws vbs::ScriptError when all of it is too much.
  Changes changes() const;

  static std::string bytesOf(std::uint64_t place, const vbs::Value& key, const vbs::Value& value);

 private:
  std::uint64_t placeOf(const std::string& field) const;

  Fields stored_;
  Fields noted_;
  std::uint64_t last_ = 0;
};

}  // namespace quorvane
