#include "components/ado/cursor.h"

#include <algorithm>
#include <utility>

namespace quorvane::ado {

namespace {

constexpr std::size_t kFirstBlock = 1000;  ///< few results are larger, and then hold no locks
constexpr std::size_t kBlock = 500;

}  // namespace

Cursor::Cursor(std::shared_ptr<RowStore> store, bool forwardOnly)
    : store_(std::move(store)), forwardOnly_(forwardOnly) {
  if (forwardOnly_) {
    store_->fetch(kFirstBlock);
  } else {
    store_->fetchAll();
  }
}

void Cursor::makeScrollable() {
  if (!std::exchange(forwardOnly_, false)) return;
  store_->fetchAll();
}

std::int64_t Cursor::total() const {
  return static_cast<std::int64_t>(view_ ? view_->size()
                                         : store_->forgotten() + store_->rows.size());
}

bool Cursor::exists(std::int64_t at) const {
  if (at < 0) return false;
  while (at >= total() && !store_->complete()) {
    if (forwardOnly_) store_->forgetRows();
    if (!store_->fetch(kBlock)) break;
  }
  return at < total();
}

bool Cursor::isEmpty() const {
  if (store_->forgotten() > 0) return false;
  if (!exists(0)) return true;
  if (!view_) return store_->deletedCount() == store_->rows.size();
  return count() == 0;
}

std::size_t Cursor::indexOf(std::int64_t at) const {
  const auto place = static_cast<std::size_t>(at);
  return view_ ? (*view_)[place] : place;
}

StoredRow* Cursor::row(std::int64_t at) const {
  if (!exists(at)) return nullptr;
  const std::size_t index = indexOf(at);
  if (index < store_->forgotten()) return nullptr;
  return &store_->rows[index - store_->forgotten()];
}

StoredRow* Cursor::current() const {
  StoredRow* found = row(at_);
  return found && !found->deleted ? found : nullptr;
}

bool Cursor::isDeleted(std::int64_t at) const {
  const StoredRow* found = row(at);
  return found && found->deleted;
}

void Cursor::moveFirst() {
  at_ = 0;
  while (isDeleted(at_)) ++at_;
}

void Cursor::moveLast() {
  store_->fetchAll();
  at_ = total() - 1;
  while (at_ > 0 && isDeleted(at_)) --at_;
}

void Cursor::moveBy(std::int64_t count) {
  for (; count > 0 && exists(at_ + 1); --count) {
    ++at_;
    while (isDeleted(at_)) ++at_;
  }
  if (count > 0) at_ = std::max(total(), std::int64_t{0});
  for (; count < 0 && at_ >= 0; ++count) {
    --at_;
    while (at_ >= 0 && isDeleted(at_)) --at_;
  }
}

std::size_t Cursor::count() const {
  if (!view_ && store_->deletedCount() == 0) {
    return static_cast<std::size_t>(total());
  }
  std::size_t live = 0;
  for (std::int64_t at = 0; at < total(); ++at) live += isDeleted(at) ? 0 : 1;
  return live;
}

std::size_t Cursor::position() const {
  if (store_->deletedCount() == 0) return static_cast<std::size_t>(at_) + 1;
  std::size_t place = 0;
  for (std::int64_t at = 0; at <= at_; ++at) place += isDeleted(at) ? 0 : 1;
  return place;
}

void Cursor::moveToPosition(std::size_t position) {
  moveFirst();
  if (position <= 1) return;
  if (store_->deletedCount() > 0) return moveBy(static_cast<std::int64_t>(position) - 1);
  at_ = std::min(static_cast<std::int64_t>(position) - 1, total());
}

bool Cursor::moveToIndex(std::size_t index) {
  if (!view_) {
    if (!exists(static_cast<std::int64_t>(index))) return false;
    at_ = static_cast<std::int64_t>(index);
    return true;
  }
  const auto found = std::find(view_->begin(), view_->end(), index);
  if (found == view_->end()) return false;
  at_ = found - view_->begin();
  return true;
}

void Cursor::setView(std::optional<std::vector<std::size_t>> view) {
  makeScrollable();
  view_ = std::move(view);
  moveFirst();
}

void Cursor::showAdded(std::size_t index) {
  if (view_) view_->push_back(index);
  at_ = view_ ? total() - 1 : static_cast<std::int64_t>(index);
}

}  // namespace quorvane::ado
