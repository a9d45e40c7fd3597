#pragma once

#include <array>
#include <cstddef>

#include "console/form_model.h"

namespace quorvane {

struct TerminalArea {
  int row = 0;
  int column = 0;
  int rows = 0;
  int columns = 0;

  bool empty() const { return rows <= 0 || columns <= 0; }
  bool contains(int r, int c) const {
    return r >= row && r < row + rows && c >= column && c < column + columns;
  }
  TerminalArea inside() const { return {row + 1, column + 1, rows - 2, columns - 2}; }

  friend bool operator==(const TerminalArea&, const TerminalArea&) = default;
};

/// Where each part of the window lies on a terminal of a given size; an empty area is not shown.
/// Lists and the text box include their borders. A small terminal shows one of the lists at a
/// time, the one asked for, and the smallest nothing else.
struct TerminalLayout {
  TerminalArea title;
  std::array<TerminalArea, 3> lists;
  TerminalArea text;
  std::array<TerminalArea, 2> buttons;
  TerminalArea hints;
  bool bordered = true;  ///< lists and the text box have room for borders
};

/// `captions` are the widths of the buttons' captions.
TerminalLayout layoutFor(int rows, int columns, FormModel::List wanted,
                         const std::array<std::size_t, 2>& captions);

}  // namespace quorvane
