#include "console/terminal_console.h"

#include <utility>

namespace quorvane {

TerminalConsole::TerminalConsole(FormModel& form, Print& echo, Terminal* terminal, EventLoop& loop,
                                 WindowServer server, Print print)
    : form_(form), echo_(echo), print_(std::move(print)) {
  if (!terminal || !terminal->isThere()) {
    echo_ = print_;
    return;
  }
  window_ = std::make_unique<TerminalWindow>(form, *terminal, loop, std::move(server));
  form_.onChange = [this] { formChanged(); };
}

TerminalConsole::~TerminalConsole() {
  window_.reset();
  form_.onChange = nullptr;
  echo_ = nullptr;
}

void TerminalConsole::formChanged() {
  if (!window_ || !form_.visible) return;
  if (window_->isOpen()) return window_->formChanged();
  if (window_->open()) return;
  window_.reset();
  for (const std::string& line : form_.llist[FormModel::kStatus].lines()) print_(line);
  echo_ = print_;
}

}  // namespace quorvane
