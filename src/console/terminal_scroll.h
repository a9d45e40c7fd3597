#pragma once

#include <cstddef>

namespace quorvane {

/// Where the view of a list stands: its first visible line and the selected one. A view that
/// follows stays at the newest line until the user goes elsewhere, and again once the user is back
/// at the end. Lines are counted from 0 in the list as it stands.
class TerminalScroll {
 public:
  explicit TerminalScroll(bool follows) : follows_(follows), following_(follows) {}

  /// Takes in how the list and the view stand now; to be called before anything else after either
  /// has changed. `dropped` tells how many lines have gone from the front since the list was
  /// cleared, so that the view keeps showing the same lines.
  void fit(std::size_t dropped, std::size_t count, int height);

  void scroll(int lines);         ///< moves the view; the selection stays on its line
  void scrollTo(int first);       ///< likewise
  void moveSelection(int lines);  ///< and the view as far as needed
  void select(int line);

  int top() const { return top_; }
  int selected() const { return selected_; }  ///< -1: none
  bool following() const { return following_; }
  int count() const { return count_; }
  int height() const { return height_; }
  int below() const;  ///< lines beyond the last visible one

 private:
  int lastTop() const;
  void keepInRange();

  bool follows_;
  bool following_;
  int top_ = 0;
  int selected_ = -1;
  int count_ = 0;
  int height_ = 1;
  std::size_t dropped_ = 0;
};

}  // namespace quorvane
