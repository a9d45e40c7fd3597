#include "console/terminal_scroll.h"

#include <algorithm>

namespace quorvane {

void TerminalScroll::fit(std::size_t dropped, std::size_t count, int height) {
  const bool cleared = dropped < dropped_ || static_cast<int>(count) < count_;
  const int gone = dropped < dropped_ ? 0 : static_cast<int>(dropped - dropped_);
  dropped_ = dropped;
  count_ = static_cast<int>(count);
  height_ = std::max(height, 1);
  if (cleared && follows_) {
    following_ = true;
    selected_ = -1;
  }
  top_ -= gone;
  if (selected_ >= 0) selected_ = std::max(selected_ - gone, -1);
  if (following_) {
    top_ = lastTop();
    selected_ = count_ - 1;
  }
  keepInRange();
}

void TerminalScroll::scroll(int lines) {
  scrollTo(top_ + lines);
}

void TerminalScroll::scrollTo(int first) {
  top_ = std::clamp(first, 0, lastTop());
  following_ = follows_ && top_ == lastTop();
  if (following_) selected_ = count_ - 1;
}

void TerminalScroll::moveSelection(int lines) {
  const int from = selected_ >= 0 ? selected_ : top_ - (lines > 0 ? 1 : 0);
  select(from + lines);
}

void TerminalScroll::select(int line) {
  if (count_ == 0) return;
  selected_ = std::clamp(line, 0, count_ - 1);
  top_ = std::clamp(top_, selected_ - height_ + 1, selected_);
  following_ = follows_ && selected_ == count_ - 1;
  keepInRange();
}

int TerminalScroll::below() const {
  return std::max(count_ - top_ - height_, 0);
}

int TerminalScroll::lastTop() const {
  return std::max(count_ - height_, 0);
}

void TerminalScroll::keepInRange() {
  top_ = std::clamp(top_, 0, lastTop());
  selected_ = std::min(selected_, count_ - 1);
}

}  // namespace quorvane
