#include "console/terminal_window.h"

#include <algorithm>
#include <utility>

#include "console/terminal_text.h"

namespace quorvane {

namespace {

/// Fast enough to look immediate, slow enough for a flood of lines over a slow connection.
constexpr std::chrono::milliseconds kFrameInterval{40};

/// What is pasted arrives faster than a person reads a question and answers it.
constexpr std::chrono::milliseconds kShortestThought{300};

constexpr int kWheelLines = 3;

bool isQ(char32_t character) {
  return character == U'q' || character == U'Q';
}

}  // namespace

TerminalWindow::TerminalWindow(FormModel& form, Terminal& terminal, EventLoop& loop,
                               WindowServer server)
    : form_(form),
      terminal_(terminal),
      server_(std::move(server)),
      frames_(loop, kFrameInterval, [this] { return paint(); }),
      pause_(loop.makeTimer(kShortestThought, [this] { pause_->stop(); })) {}

TerminalWindow::~TerminalWindow() {
  terminal_.close();
}

bool TerminalWindow::open() {
  open_ = terminal_.open(*this);
  if (open_) frames_.request();
  return open_;
}

bool TerminalWindow::paint() {
  layout_ = layoutFor(terminal_.rows(), terminal_.columns(), wanted_,
                      {form_.btt[0].caption->size(), form_.btt[1].caption->size()});
  if (!isShown(focus_)) focus_ = Focus::Status;
  takeInLists();
  takeInText();
  TerminalPainter painter(terminal_);
  painter.clear();
  const bool running = server_.running();
  painter.title(layout_.title, asks_ ? *form_.closing.caption : form_.caption,
                running ? server_.uptime() : "", running);
  paintLists(painter);
  painter.text(layout_.text, textLines_, textScroll_, *focusedControl().toolTip,
               focus_ == Focus::Text, layout_.bordered);
  for (std::size_t i = 0; i < layout_.buttons.size(); ++i) {
    const auto own = i == FormModel::kStartStop ? Focus::StartStop : Focus::ClearLog;
    painter.button(layout_.buttons[i], *form_.btt[i].caption, focus_ == own);
  }
  painter.hints(layout_.hints);
  return terminal_.show();
}

/// Takes in what the lists hold now, so that lines are meant by their present places.
void TerminalWindow::takeInLists() {
  for (const auto list : {FormModel::kStatus, FormModel::kSockets, FormModel::kSessions}) {
    const ListModel& lines = form_.llist[list];
    const int rows = layout_.lists[list].rows;
    scrollOf(list).fit(lines.dropped(), lines.lines().size(), layout_.bordered ? rows - 2 : rows);
  }
}

void TerminalWindow::paintLists(TerminalPainter& painter) {
  for (const auto list : {FormModel::kStatus, FormModel::kSockets, FormModel::kSessions}) {
    const TerminalArea& area = layout_.lists[list];
    const ListModel& lines = form_.llist[list];
    TerminalPainter::ListLook look;
    look.caption = *form_.Label1[FormModel::kLabelOfList[list]].caption;
    look.focused = onList() && focusedList() == list;
    look.bordered = layout_.bordered;
    look.timed = list == FormModel::kStatus;
    painter.list(area, lines, scrollOf(list), look);
  }
}

void TerminalWindow::takeInText() {
  const TerminalArea inside = layout_.bordered ? layout_.text.inside() : layout_.text;
  const std::string& now = *form_.dbgText.text;
  if (now != text_) {
    text_ = now;
    textScroll_ = TerminalScroll(false);
  }
  textLines_ = wrapped(text_, static_cast<std::size_t>(std::max(inside.columns, 1)));
  textScroll_.fit(0, textLines_.size(), inside.rows);
}

FormModel::List TerminalWindow::focusedList() const {
  if (focus_ == Focus::Sockets) return FormModel::kSockets;
  return focus_ == Focus::Sessions ? FormModel::kSessions : FormModel::kStatus;
}

const FormControl& TerminalWindow::focusedControl() const {
  if (onList()) return form_.Label1[FormModel::kLabelOfList[focusedList()]];
  if (focus_ == Focus::Text) return form_.dbgText;
  return form_.btt[focus_ == Focus::StartStop ? FormModel::kStartStop : FormModel::kClearLog];
}

bool TerminalWindow::isShown(Focus focus) const {
  switch (focus) {
    case Focus::Text:
      return !layout_.text.empty();
    case Focus::StartStop:
      return !layout_.buttons[FormModel::kStartStop].empty();
    case Focus::ClearLog:
      return !layout_.buttons[FormModel::kClearLog].empty();
    default:
      return true;  // a list that has no room takes that of another
  }
}

void TerminalWindow::moveFocus(int step) {
  int to = static_cast<int>(focus_);
  do {
    to = (to + step + kFocusCount) % kFocusCount;
  } while (!isShown(static_cast<Focus>(to)));
  setFocus(static_cast<Focus>(to));
}

void TerminalWindow::setFocus(Focus focus) {
  focus_ = focus;
  if (onList()) wanted_ = focusedList();
}

void TerminalWindow::keyPressed(const KeyPress& press) {
  takeInLists();
  frames_.request();
  if (!isQ(press.character)) asks_ = false;
  switch (press.key) {
    case TerminalKey::Character:
      return characterPressed(press.character);
    case TerminalKey::Up:
      return move(-1);
    case TerminalKey::Down:
      return move(1);
    case TerminalKey::PageUp:
      return move(-page());
    case TerminalKey::PageDown:
      return move(page());
    case TerminalKey::Home:
      return moveToEdge(false);
    case TerminalKey::End:
      return moveToEdge(true);
    case TerminalKey::Left:
      return sideways(-1);
    case TerminalKey::Right:
      return sideways(1);
    case TerminalKey::Tab:
      return moveFocus(1);
    case TerminalKey::BackTab:
      return moveFocus(-1);
    case TerminalKey::Enter:
      return this->press();
    case TerminalKey::Interrupt:
      return server_.closeWindow();
  }
}

void TerminalWindow::characterPressed(char32_t character) {
  if (isQ(character)) askWhetherToClose();
  if (character == U' ') press();
}

/// The first time it asks. Any other key is a no, and so is an answer out of the same breath, which
/// is text that somebody has pasted.
void TerminalWindow::askWhetherToClose() {
  if (asks_ && !pause_->enabled()) return server_.closeWindow();
  asks_ = true;
  pause_->start();
}

int TerminalWindow::page() const {
  const TerminalScroll& scroll =
      focus_ == Focus::Text ? textScroll_ : scrolls_[static_cast<std::size_t>(focusedList())];
  return std::max(scroll.height() - 1, 1);
}

void TerminalWindow::move(int lines) {
  if (focus_ == Focus::Text) return textScroll_.scroll(lines);
  if (!onList()) return;
  scrollOf(focusedList()).moveSelection(lines);
  clickLine();
}

void TerminalWindow::moveToEdge(bool end) {
  const int far = end ? textScroll_.count() : 0;
  if (focus_ == Focus::Text) return textScroll_.scrollTo(far);
  if (!onList()) return;
  TerminalScroll& scroll = scrollOf(focusedList());
  scroll.select(end ? scroll.count() - 1 : 0);
  clickLine();
}

/// Between the neighbours of a row: the two upper lists, or the two buttons.
void TerminalWindow::sideways(int step) {
  if (onButton() || (onList() && focus_ != Focus::Status)) {
    const Focus first = onButton() ? Focus::StartStop : Focus::Sockets;
    setFocus(step < 0 ? first : static_cast<Focus>(static_cast<int>(first) + 1));
  }
}

void TerminalWindow::press() {
  if (focus_ == Focus::StartStop) return server_.clickButton(FormModel::kStartStop);
  if (focus_ == Focus::ClearLog) return server_.clickButton(FormModel::kClearLog);
  if (onList()) clickLine();
}

/// Moving the selection is a click, too.
void TerminalWindow::clickLine() {
  if (focus_ != Focus::Status) return;
  const int line = scrollOf(FormModel::kStatus).selected();
  if (line >= 0) server_.clickStatusLine(line);
}

void TerminalWindow::mouseUsed(const MouseAction& action) {
  takeInLists();
  frames_.request();
  switch (action.kind) {
    case MouseAction::Kind::Press:
      return clickAt(action.row, action.column);
    case MouseAction::Kind::WheelUp:
      return wheel(action.row, action.column, -kWheelLines);
    case MouseAction::Kind::WheelDown:
      return wheel(action.row, action.column, kWheelLines);
  }
}

void TerminalWindow::clickAt(int row, int column) {
  for (const auto button : {FormModel::kStartStop, FormModel::kClearLog}) {
    if (!layout_.buttons[button].contains(row, column)) continue;
    setFocus(button == FormModel::kStartStop ? Focus::StartStop : Focus::ClearLog);
    return press();
  }
  if (layout_.text.contains(row, column)) return setFocus(Focus::Text);
  for (const auto list : {FormModel::kStatus, FormModel::kSockets, FormModel::kSessions}) {
    if (layout_.lists[list].contains(row, column)) return clickList(list, row, column);
  }
}

void TerminalWindow::clickList(FormModel::List list, int row, int column) {
  constexpr std::array<Focus, 3> kFocusOfList = {Focus::Status, Focus::Sockets, Focus::Sessions};
  setFocus(kFocusOfList[list]);
  const TerminalArea& area = layout_.lists[list];
  const TerminalArea inside = layout_.bordered ? area.inside() : area;
  TerminalScroll& scroll = scrollOf(list);
  const int line = row - inside.row;
  if (inside.contains(row, column)) {
    if (scroll.top() + line >= scroll.count()) return;
    scroll.select(scroll.top() + line);
    clickLine();
  } else if (column == area.column + area.columns - 1 && line >= 0 && line < inside.rows) {
    const int beyond = std::max(scroll.count() - inside.rows, 0);
    scroll.scrollTo(beyond * line / std::max(inside.rows - 1, 1));
  }
}

void TerminalWindow::wheel(int row, int column, int lines) {
  if (layout_.text.contains(row, column)) return textScroll_.scroll(lines);
  for (const auto list : {FormModel::kStatus, FormModel::kSockets, FormModel::kSessions}) {
    if (layout_.lists[list].contains(row, column)) scrollOf(list).scroll(lines);
  }
}

void TerminalWindow::terminalResized() {
  frames_.request();
}

void TerminalWindow::terminalLost() {
  server_.closeWindow();
}

}  // namespace quorvane
