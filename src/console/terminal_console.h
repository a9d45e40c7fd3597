#pragma once

#include <functional>
#include <string_view>

#include "console/form_model.h"
#include "console/terminal_window.h"
#include "platform/event_loop.h"
#include "platform/terminal.h"

namespace quorvane {

/// Where a run in debug mode shows what happens: the window drawn on the terminal once the form
/// becomes visible; or, without a terminal that can be drawn on, the lines of status list 0 printed
/// one by one.
class TerminalConsole {
 public:
  using Print = std::function<void(std::string_view line)>;

  /// `echo` is where the status lists hand over each line; the console sets it when lines are to be
  /// printed. All outlive the console; `terminal` may be null.
  TerminalConsole(FormModel& form, Print& echo, Terminal* terminal, EventLoop& loop,
                  WindowServer server, Print print);
  TerminalConsole(const TerminalConsole&) = delete;
  TerminalConsole& operator=(const TerminalConsole&) = delete;
  ~TerminalConsole();

  /// Whether the window is on the terminal now.
  bool isDrawn() const { return window_ && window_->isOpen(); }

 private:
  void formChanged();

  FormModel& form_;
  Print& echo_;
  Print print_;
  std::unique_ptr<TerminalWindow> window_;  ///< null where lines are printed
};

}  // namespace quorvane
