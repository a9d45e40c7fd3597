#include "vbscript/library/find_text.h"

#include <algorithm>
#include <cstdint>

#include "vbscript/values/time_check.h"

namespace quorvane::vbs {

namespace {

/// Parts up to here are compared place by place: what that costs at worst is bounded.
constexpr std::size_t kShortPart = 64;
constexpr std::uint64_t kBase = 0x9E3779B97F4A7C15u;

/// Moves a hash of as many characters as the part has along the text, and compares where it agrees.
/// The characters come through iterators, so that the search can run backwards as well. Returns the
/// distance from `text`, or `places` when the part stands nowhere.
template <class Iterator, class PartIterator>
std::size_t findByHash(Iterator text, std::size_t places, PartIterator part, std::size_t length) {
  std::uint64_t wanted = 0;
  std::uint64_t rolling = 0;
  std::uint64_t weight = 1;
  const auto code = [](auto unit) { return static_cast<std::uint64_t>(unit); };
  for (std::size_t i = 0; i < length; ++i) {
    wanted = wanted * kBase + code(part[static_cast<std::ptrdiff_t>(i)]);
    rolling = rolling * kBase + code(text[static_cast<std::ptrdiff_t>(i)]);
    weight *= kBase;
  }
  Iterator end = text + static_cast<std::ptrdiff_t>(length);
  for (std::size_t i = 0; i < places; ++i, ++text, ++end) {
    if (rolling == wanted && std::equal(text, end, part)) return i;
    if (i + 1 < places) rolling = rolling * kBase + code(*end) - weight * code(*text);
  }
  return places;
}

template <class View>
std::size_t find(View text, View part, std::size_t from) {
  if (part.size() <= kShortPart) return text.find(part, from);
  if (text.size() < part.size() || from > text.size() - part.size()) return View::npos;
  const std::size_t places = text.size() - part.size() - from + 1;
  const std::size_t found = findByHash(text.begin() + static_cast<std::ptrdiff_t>(from), places,
                                       part.begin(), part.size());
  return found == places ? View::npos : from + found;
}

template <class View>
std::size_t findLast(View text, View part, std::size_t from) {
  if (part.size() <= kShortPart) return text.rfind(part, from);
  if (text.size() < part.size()) return View::npos;
  const std::size_t last = std::min(from, text.size() - part.size());
  const std::size_t behind = text.size() - (last + part.size());
  const std::size_t found = findByHash(text.rbegin() + static_cast<std::ptrdiff_t>(behind),
                                       last + 1, part.rbegin(), part.size());
  return found == last + 1 ? View::npos : last - found;
}

// What a search has gone through counts as work.

template <class View>
std::size_t countedFind(View text, View part, std::size_t from) {
  const std::size_t found = find(text, part, from);
  const std::size_t end = std::min(found, text.size());
  countWork(end - std::min(from, end));
  return found;
}

template <class View>
std::size_t countedFindLast(View text, View part, std::size_t from) {
  const std::size_t found = findLast(text, part, from);
  const std::size_t start = found == View::npos ? 0 : found;
  countWork(std::min(from, text.size()) - start);
  return found;
}

}  // namespace

std::size_t findText(std::string_view text, std::string_view part, std::size_t from) {
  return countedFind(text, part, from);
}

std::size_t findText(std::u16string_view text, std::u16string_view part, std::size_t from) {
  return countedFind(text, part, from);
}

std::size_t findLastText(std::string_view text, std::string_view part, std::size_t from) {
  return countedFindLast(text, part, from);
}

std::size_t findLastText(std::u16string_view text, std::u16string_view part, std::size_t from) {
  return countedFindLast(text, part, from);
}

}  // namespace quorvane::vbs
