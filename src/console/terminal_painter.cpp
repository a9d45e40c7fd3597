#include "console/terminal_painter.h"

#include <algorithm>
#include <utility>

#include "console/terminal_text.h"

namespace quorvane {

namespace {

using Colour = TerminalColour;

constexpr std::size_t kTimeWidth = 8;  // "HH:mm:ss"

/// How a status line begins that tells of a failure to listen, after its time.
constexpr std::string_view kAlarm = "*******";

bool isAlarm(std::string_view line) {
  return line.size() > kTimeWidth + 1 && line.substr(kTimeWidth + 1).starts_with(kAlarm);
}

std::size_t cellCount(int cells) {
  return static_cast<std::size_t>(std::max(cells, 0));
}

}  // namespace

TerminalStyle TerminalPainter::borderStyle(bool focused) const {
  TerminalStyle style;
  style.bold = focused;
  style.dim = !focused;
  if (colours_ && focused) style.text = Colour::Cyan;
  return style;
}

TerminalStyle TerminalPainter::barStyle() const {
  TerminalStyle style;
  style.bold = true;
  if (colours_) {
    style.text = Colour::White;
    style.ground = Colour::Blue;
  } else {
    style.reverse = true;
  }
  return style;
}

void TerminalPainter::clear() {
  const std::wstring blanks(cellCount(terminal_.columns()), L' ');
  for (int row = 0; row < terminal_.rows(); ++row) terminal_.put(row, 0, blanks, {});
}

void TerminalPainter::title(const TerminalArea& area, std::string_view caption,
                            std::string_view state, bool running) {
  if (area.empty()) return;
  const TerminalStyle bar = barStyle();
  terminal_.put(area.row, area.column, fitted(L' ' + cellsOf(caption), cellCount(area.columns)),
                bar);
  const std::wstring right = cellsOf(state) + L' ';
  int column = area.columns - static_cast<int>(right.size()) - 2;
  const int free = static_cast<int>(caption.size()) + 3;
  const bool fits = column >= free;
  if (!fits) column = area.columns - 2;
  if (column < free) return;
  TerminalStyle lamp = bar;
  if (colours_) lamp.text = running ? Colour::Green : Colour::Red;
  terminal_.put(area.row, area.column + column, running ? L"\u25cf " : L"\u25cb ", lamp);
  if (fits) terminal_.put(area.row, area.column + column + 2, right, bar);
}

void TerminalPainter::border(const TerminalArea& area, std::string_view caption, bool focused) {
  const TerminalStyle style = borderStyle(focused);
  const std::wstring edge(cellCount(area.columns - 2), L'\u2500');
  terminal_.put(area.row, area.column, L'\u250c' + edge + L'\u2510', style);
  for (int row = area.row + 1; row < area.row + area.rows - 1; ++row) {
    terminal_.put(row, area.column, L"\u2502", style);
    terminal_.put(row, area.column + area.columns - 1, L"\u2502", style);
  }
  terminal_.put(area.row + area.rows - 1, area.column, L'\u2514' + edge + L'\u2518', style);
  if (caption.empty() || area.columns < 8) return;
  std::wstring name = cellsOf(caption);
  if (name.size() > cellCount(area.columns - 6)) name = fitted(name, cellCount(area.columns - 6));
  TerminalStyle named = style;
  named.dim = false;
  named.bold = focused;
  terminal_.put(area.row, area.column + 2, L' ' + name + L' ', named);
}

void TerminalPainter::scrollBar(const TerminalArea& area, const TerminalScroll& scroll,
                                bool focused) {
  const int height = scroll.height();
  const int beyond = scroll.count() - height;
  if (beyond <= 0 || height < 2) return;
  const int length = std::max(height * height / scroll.count(), 1);
  const int from = (scroll.top() * (height - length) + beyond / 2) / beyond;
  TerminalStyle style = borderStyle(focused);
  style.dim = false;
  for (int i = 0; i < length; ++i) {
    terminal_.put(area.row + 1 + from + i, area.column + area.columns - 1, L"\u2503", style);
  }
}

void TerminalPainter::line(const TerminalArea& area, int row, const std::string& text,
                           bool selected, const ListLook& look) {
  const std::wstring cells = fitted(cellsOf(text), cellCount(area.columns));
  TerminalStyle style;
  if (selected && look.focused) {
    style.reverse = true;
    terminal_.put(row, area.column, cells, style);
    return;
  }
  if (look.timed && isAlarm(text)) {
    style.bold = true;
    if (colours_) style.text = Colour::Red;
  }
  terminal_.put(row, area.column, cells, style);
  if (!look.timed) return;
  TerminalStyle time;
  time.dim = true;
  terminal_.put(row, area.column, std::wstring_view(cells).substr(0, kTimeWidth), time);
}

void TerminalPainter::list(const TerminalArea& area, const ListModel& lines,
                           const TerminalScroll& scroll, const ListLook& look) {
  if (area.empty()) return;
  const TerminalArea inside = look.bordered ? area.inside() : area;
  if (look.bordered) border(area, look.caption, look.focused);
  const int shown = std::min(inside.rows, scroll.count() - scroll.top());
  for (int i = 0; i < shown; ++i) {
    const int index = scroll.top() + i;
    line(inside, inside.row + i, lines.lines()[static_cast<std::size_t>(index)],
         index == scroll.selected(), look);
  }
  if (!look.bordered) return;
  scrollBar(area, scroll, look.focused);
  if (scroll.below() > 0 && area.columns >= 16) {
    const std::wstring more = L" \u25bc " + std::to_wstring(scroll.below()) + L' ';
    terminal_.put(area.row + area.rows - 1,
                  area.column + area.columns - 2 - static_cast<int>(more.size()), more,
                  borderStyle(look.focused));
  }
}

void TerminalPainter::text(const TerminalArea& area, const std::vector<std::wstring>& lines,
                           const TerminalScroll& scroll, std::string_view note, bool focused,
                           bool bordered) {
  if (area.empty()) return;
  const TerminalArea inside = bordered ? area.inside() : area;
  if (bordered) border(area, {}, focused);
  const int shown = std::min(inside.rows, scroll.count() - scroll.top());
  for (int i = 0; i < shown; ++i) {
    const int line = scroll.top() + i;
    terminal_.put(inside.row + i, inside.column, lines[static_cast<std::size_t>(line)], {});
  }
  if (!bordered) return;
  scrollBar(area, scroll, focused);
  std::wstring below = cellsOf(note);
  const std::size_t room = cellCount(area.columns - 6);
  if (below.empty() || room == 0) return;
  if (below.size() > room) below = fitted(std::move(below), room);
  TerminalStyle style;
  style.dim = true;
  terminal_.put(area.row + area.rows - 1, area.column + 2, L' ' + below + L' ', style);
}

void TerminalPainter::button(const TerminalArea& area, std::string_view caption, bool focused) {
  if (area.empty()) return;
  TerminalStyle style;
  style.bold = true;
  if (focused && colours_) {
    style.text = Colour::Black;
    style.ground = Colour::Cyan;
    style.bold = false;
  } else if (focused) {
    style.reverse = true;
  }
  const std::wstring cells = L"[ " + cellsOf(caption) + L" ]";
  terminal_.put(area.row, area.column, fitted(cells, cellCount(area.columns)), style);
}

void TerminalPainter::hints(const TerminalArea& area) {
  if (area.empty()) return;
  constexpr std::wstring_view kKeys = L"Tab \u21c4  \u2191\u2193  Enter \u21b5  q \u2715";
  TerminalStyle style;
  style.dim = true;
  terminal_.put(area.row, area.column + area.columns - static_cast<int>(kKeys.size()), kKeys,
                style);
}

}  // namespace quorvane
