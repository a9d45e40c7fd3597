#include "console/list_changes.h"

#include <algorithm>
#include <utility>

namespace quorvane {

void ListChanges::collect(const ListModel& list) {
  if (isRemade_) return remake(list);
  if (list.clears() != clears_) {
    dropFirst(shown_ - next_.dropped + next_.added.size());
    clears_ = list.clears();
    dropped_ = total_ = 0;
  }
  const std::size_t total = list.dropped() + list.lines().size();
  dropFirst(list.dropped() - dropped_);
  addLast(list, std::min(total - total_, list.lines().size()));
  dropped_ = list.dropped();
  total_ = total;
}

void ListChanges::remake(const ListModel& list) {
  if (std::equal(lines_.begin(), lines_.end(), list.lines().begin(), list.lines().end())) return;
  lines_.assign(list.lines().begin(), list.lines().end());
  next_.dropped = shown_;
  next_.added = lines_;
}

/// Those that the window doesn't have yet are simply never shown.
void ListChanges::dropFirst(std::size_t count) {
  const std::size_t ofShown = std::min(count, shown_ - next_.dropped);
  next_.dropped += ofShown;
  const std::size_t ofAdded = std::min(count - ofShown, next_.added.size());
  next_.added.erase(next_.added.begin(),
                    next_.added.begin() + static_cast<std::ptrdiff_t>(ofAdded));
}

void ListChanges::addLast(const ListModel& list, std::size_t count) {
  next_.added.insert(next_.added.end(), list.lines().end() - static_cast<std::ptrdiff_t>(count),
                     list.lines().end());
}

ServerWindowLines ListChanges::take() {
  gone_ += next_.dropped;
  shown_ += next_.added.size() - next_.dropped;
  return std::exchange(next_, {});
}

std::optional<int> ListChanges::placeOf(std::size_t number) const {
  const std::size_t first = gone_ + next_.dropped;
  if (number < first || number >= gone_ + shown_) return std::nullopt;
  return static_cast<int>(number - first);
}

}  // namespace quorvane
