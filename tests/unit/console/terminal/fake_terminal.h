#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/terminal.h"

namespace quorvane {

/// A terminal that exists as a grid; a test types, clicks and reads the shown rows.
class FakeTerminal final : public Terminal {
 public:
  FakeTerminal(int rows, int columns) { resize(rows, columns); }

  bool isThere() const override { return there; }
  bool open(TerminalEvents& events) override {
    if (openFails) return false;
    events_ = &events;
    return true;
  }
  void close() override { events_ = nullptr; }
  int rows() const override { return static_cast<int>(next_.size()); }
  int columns() const override { return static_cast<int>(next_.empty() ? 0 : next_[0].size()); }
  bool hasColours() const override { return colours; }

  void put(int row, int column, std::wstring_view text, const TerminalStyle& style) override {
    for (const wchar_t c : text) {
      if (row < 0 || row >= rows() || column < 0 || column >= columns()) return;
      next_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column++)] = {c, style};
    }
  }
  bool show() override {
    ++shows;
    if (isStuck) return false;
    screen_ = next_;
    return true;
  }

  void resize(int rows, int columns) {
    next_.assign(static_cast<std::size_t>(rows),
                 std::vector<Cell>(static_cast<std::size_t>(columns)));
    screen_ = next_;
    if (events_) events_->terminalResized();
  }
  void press(TerminalKey key) { events_->keyPressed({key, 0}); }
  void type(char32_t character) { events_->keyPressed({TerminalKey::Character, character}); }
  void click(int row, int column) { events_->mouseUsed({MouseAction::Kind::Press, row, column}); }
  void wheel(bool up, int row, int column) {
    const auto kind = up ? MouseAction::Kind::WheelUp : MouseAction::Kind::WheelDown;
    events_->mouseUsed({kind, row, column});
  }
  void hangUp() { events_->terminalLost(); }

  bool isOpen() const { return events_ != nullptr; }

  /// What a row shows, without the blanks at its end.
  std::wstring row(int row) const {
    std::wstring text;
    for (const Cell& cell : screen_[static_cast<std::size_t>(row)]) text += cell.glyph;
    return text.substr(0, text.find_last_not_of(L' ') + 1);
  }
  /// The first row that holds a text, or -1.
  int rowWith(std::wstring_view text) const {
    for (int i = 0; i < rows(); ++i) {
      if (row(i).find(text) != std::wstring::npos) return i;
    }
    return -1;
  }
  TerminalStyle styleAt(int row, int column) const {
    return screen_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)].style;
  }

  bool colours = true;
  bool there = true;
  bool openFails = false;
  bool isStuck = false;
  int shows = 0;

 private:
  struct Cell {
    wchar_t glyph = L' ';
    TerminalStyle style;
  };
  std::vector<std::vector<Cell>> next_;
  std::vector<std::vector<Cell>> screen_;
  TerminalEvents* events_ = nullptr;
};

}  // namespace quorvane
