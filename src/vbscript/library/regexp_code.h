#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/library/wide_copy.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/string.h"

namespace quorvane::vbs {

struct RegExpFlags {
  bool ignoreCase = false;
  bool multiline = false;

  friend bool operator==(const RegExpFlags&, const RegExpFlags&) = default;
};

inline constexpr std::uint32_t kUnsetOffset = UINT32_MAX;

/// Where a match and its groups stand, in characters: start and end of the whole, then of each
/// group in turn; kUnsetOffset for a group that took no part.
using MatchOffsets = std::vector<std::uint32_t>;

/// A text ready for matching.
class RegExpSubject {
 public:
  explicit RegExpSubject(const String& text);

  std::u16string_view units() const { return copy_.units(); }
  /// The place behind the character at `place`: where to go on after an empty match.
  std::size_t behind(std::size_t place) const;

 private:
  WideCopy copy_;
};

/// A compiled pattern; immutable, of this thread.
class RegExpCode {
 public:
  /// The code for a pattern, from a small cache when it was used before. Errors 5017 to 5021.
  static std::shared_ptr<const RegExpCode> get(const String& pattern, RegExpFlags flags);
  ~RegExpCode();
  RegExpCode(const RegExpCode&) = delete;
  RegExpCode& operator=(const RegExpCode&) = delete;

  std::size_t groups() const { return groups_; }

  /// Finds the first match at or behind `from`; false when there is none. Error 28 when the pattern
  /// would try too many ways.
  bool match(const RegExpSubject& subject, std::size_t from, MatchOffsets& offsets) const;

 private:
  struct Pcre;  ///< the matcher's own objects
  explicit RegExpCode(std::unique_ptr<Pcre> pcre);

  std::unique_ptr<Pcre> pcre_;
  std::size_t groups_ = 0;
  MemoryCharge charge_;  ///< a script may hold many
};

}  // namespace quorvane::vbs
