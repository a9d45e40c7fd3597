#include "components/ado/sqlite/like.h"

#include <string>
#include <string_view>
#include <vector>

#include "vbscript/values/time_check.h"

namespace quorvane::ado {

namespace {

/// One unit of a pattern: what a character of the text must be.
struct Mark {
  enum class Kind { One, Any, Many, Set } kind = Kind::One;
  char16_t unit = 0;
  std::u16string set;  ///< pairs of first and last
  bool negated = false;

  bool takes(char16_t c) const {
    if (kind == Kind::Any) return true;
    if (kind == Kind::One) return c == unit;
    for (std::size_t i = 0; i < set.size(); i += 2) {
      if (c >= set[i] && c <= set[i + 1]) return !negated;
    }
    return negated;
  }
};

using Marks = std::vector<Mark>;

/// The set that begins behind "[", or false when none ends.
bool readSet(std::u16string_view pattern, std::size_t& at, Mark& mark) {
  const std::size_t close = pattern.find(u']', at + 1);
  if (close == pattern.npos) return false;
  mark.kind = Mark::Kind::Set;
  mark.negated = pattern[at] == u'^' || pattern[at] == u'!';
  if (mark.negated && close > at + 1) ++at;
  if (mark.negated && at == close) mark.negated = false;
  while (at < close) {
    const char16_t first = pattern[at];
    const bool range = at + 2 < close && pattern[at + 1] == u'-';
    mark.set += first;
    mark.set += range ? pattern[at + 2] : first;
    at += range ? 3 : 1;
  }
  at = close + 1;
  return true;
}

Marks marksOf(std::u16string_view pattern, char16_t escape) {
  Marks marks;
  const bool stars =
      pattern.find_first_of(u"%_") == pattern.npos && pattern.find(u'*') != pattern.npos;
  for (std::size_t at = 0; at < pattern.size();) {
    Mark mark;
    const char16_t c = pattern[at++];
    if (escape != 0 && c == escape && at < pattern.size()) {
      mark.unit = pattern[at++];
    } else if (c == u'%' || (stars && c == u'*')) {
      mark.kind = Mark::Kind::Many;
    } else if (c == u'_' || (stars && c == u'?')) {
      mark.kind = Mark::Kind::Any;
    } else if (c != u'[' || !readSet(pattern, at, mark)) {
      mark.unit = c;
    }
    marks.push_back(std::move(mark));
  }
  return marks;
}

/// Goes back to the last Many only: what stood before it has found its place.
bool matches(std::u16string_view text, const Marks& marks) {
  std::size_t at = 0;
  std::size_t mark = 0;
  std::size_t many = marks.size();
  std::size_t resume = 0;
  std::size_t steps = 0;
  while (at < text.size()) {
    if ((++steps & 0xFFFF) == 0) vbs::checkTime();
    if (mark < marks.size() && marks[mark].kind == Mark::Kind::Many) {
      many = mark++;
      resume = at;
    } else if (mark < marks.size() && marks[mark].takes(text[at])) {
      ++mark;
      ++at;
    } else if (many < marks.size()) {
      mark = many + 1;
      at = ++resume;
    } else {
      return false;
    }
  }
  while (mark < marks.size() && marks[mark].kind == Mark::Kind::Many) ++mark;
  return mark == marks.size();
}

}  // namespace

bool isLike(const vbs::String& text, const vbs::String& pattern, char16_t escape) {
  return matches(text.lower().wide(), marksOf(pattern.lower().wide(), escape));
}

std::int32_t placeLike(const vbs::String& text, const vbs::String& pattern) {
  std::u16string wanted = pattern.lower().wide();
  const std::u16string whole = text.lower().wide();
  const bool anywhere = wanted.starts_with(u'%');
  if (anywhere) wanted.erase(0, 1);
  const Marks marks = marksOf(wanted, 0);
  const std::size_t last = anywhere ? whole.size() : 0;
  for (std::size_t at = 0; at <= last; ++at) {
    if (matches(std::u16string_view(whole).substr(at), marks))
      return static_cast<std::int32_t>(at) + 1;
  }
  return 0;
}

}  // namespace quorvane::ado
