#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "console/form_model.h"
#include "console/frames.h"
#include "console/terminal_layout.h"
#include "console/terminal_painter.h"
#include "console/terminal_scroll.h"
#include "console/window_server.h"
#include "platform/event_loop.h"
#include "platform/terminal.h"

namespace quorvane {

/// The server's window on a terminal. It draws the form whenever the form says that it has changed,
/// though only some times a second however often that is, and makes clicks of keys and mouse.
/// Form, terminal and loop outlive it.
class TerminalWindow final : private TerminalEvents {
 public:
  TerminalWindow(FormModel& form, Terminal& terminal, EventLoop& loop, WindowServer server);
  ~TerminalWindow() override;
  TerminalWindow(const TerminalWindow&) = delete;
  TerminalWindow& operator=(const TerminalWindow&) = delete;

  /// False when the terminal can't be drawn on.
  bool open();
  bool isOpen() const { return open_; }

  /// To be called when the form has changed, as often as it likes, once the window is open.
  void formChanged() { frames_.request(); }

 private:
  /// What keys go to, in the order in which Tab visits them.
  enum class Focus { Sockets, Sessions, Status, Text, StartStop, ClearLog };
  static constexpr int kFocusCount = 6;

  void keyPressed(const KeyPress& press) override;
  void mouseUsed(const MouseAction& action) override;
  void terminalResized() override;
  void terminalLost() override;

  bool paint();
  void paintLists(TerminalPainter& painter);
  void takeInLists();
  void takeInText();

  void moveFocus(int step);
  void setFocus(Focus focus);
  bool isShown(Focus focus) const;
  bool onList() const { return focus_ <= Focus::Status; }
  bool onButton() const { return focus_ >= Focus::StartStop; }
  FormModel::List focusedList() const;
  const FormControl& focusedControl() const;
  TerminalScroll& scrollOf(FormModel::List list) { return scrolls_[list]; }

  void characterPressed(char32_t character);
  void askWhetherToClose();
  void move(int lines);
  void moveToEdge(bool end);
  void sideways(int step);
  void press();
  void clickLine();
  int page() const;

  void clickAt(int row, int column);
  void clickList(FormModel::List list, int row, int column);
  void wheel(int row, int column, int lines);

  FormModel& form_;
  Terminal& terminal_;
  WindowServer server_;

  Frames frames_;
  std::unique_ptr<Timer> pause_;  ///< runs while an answer comes too fast for a person
  bool asks_ = false;             ///< whether the window is to be closed
  bool open_ = false;

  TerminalLayout layout_;
  Focus focus_ = Focus::Status;
  FormModel::List wanted_ = FormModel::kStatus;  ///< the list shown where there is room for one
  std::array<TerminalScroll, 3> scrolls_{TerminalScroll(true), TerminalScroll(false),
                                         TerminalScroll(false)};
  std::string text_;  ///< of the text box, as last drawn
  std::vector<std::wstring> textLines_;
  TerminalScroll textScroll_{false};
};

}  // namespace quorvane
