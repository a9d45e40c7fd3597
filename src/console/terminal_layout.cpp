#include "console/terminal_layout.h"

#include <algorithm>

namespace quorvane {

namespace {

constexpr int kRowsForAllLists = 16;
constexpr int kColumnsForAllLists = 40;
constexpr int kRowsForText = 9;
constexpr int kRowsForBorders = 5;
constexpr int kRowsForTitle = 4;
constexpr int kRowsForButtons = 3;

constexpr int kButtonFrame = 4;  // "[ " and " ]"
constexpr int kGap = 2;
constexpr int kLeastHints = 24;

void placeButtons(TerminalLayout& layout, int row, int columns,
                  const std::array<std::size_t, 2>& captions) {
  int column = columns > 30 ? 1 : 0;
  for (std::size_t i = 0; i < layout.buttons.size(); ++i) {
    const int wanted = static_cast<int>(captions[i]) + kButtonFrame;
    const int width = std::clamp(wanted, 0, std::max(columns - column, 0));
    layout.buttons[i] = {row, column, 1, width};
    column += width + (columns > 30 ? kGap : 1);
  }
  if (columns - column >= kLeastHints) layout.hints = {row, column, 1, columns - column - 1};
}

/// A quarter of the screen, but no more than ten lines of sockets.
int upperListRows(int rows) {
  return std::clamp(rows / 4, 4, 12);
}

int textRows(int rows) {
  if (rows < kRowsForText) return 0;
  return rows < 20 ? 3 : rows < 40 ? 4 : 6;
}

}  // namespace

TerminalLayout layoutFor(int rows, int columns, FormModel::List wanted,
                         const std::array<std::size_t, 2>& captions) {
  TerminalLayout layout;
  int first = 0;
  int end = rows;
  layout.bordered = rows >= kRowsForBorders && columns >= 6;
  if (rows >= kRowsForTitle) layout.title = {first++, 0, 1, columns};
  if (rows >= kRowsForButtons) placeButtons(layout, --end, columns, captions);
  if (const int height = textRows(rows); height > 0) {
    end -= height;
    layout.text = {end, 0, height, columns};
  }
  const bool all = rows >= kRowsForAllLists && columns >= kColumnsForAllLists;
  if (all) {
    const int height = upperListRows(rows);
    const int half = columns / 2;
    layout.lists[FormModel::kSockets] = {first, 0, height, half};
    layout.lists[FormModel::kSessions] = {first, half, height, columns - half};
    first += height;
  }
  layout.lists[all ? FormModel::kStatus : wanted] = {first, 0, end - first, columns};
  return layout;
}

}  // namespace quorvane
