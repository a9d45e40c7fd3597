#pragma once

#include <termios.h>

namespace quorvane {

/// While it lives, a crash (a bad access, an abort) puts the terminal back:
/// out of the state that drawing needs, with the modes `before`. The crash then takes its course as
/// it would have. One at a time, while the curses library has its screen.
class TerminalRescue {
 public:
  TerminalRescue(int terminal, const termios& before);
  TerminalRescue(const TerminalRescue&) = delete;
  TerminalRescue& operator=(const TerminalRescue&) = delete;
  ~TerminalRescue();
};

/// Whether the terminal that the curses library has its screen on can place text anywhere.
bool canMoveCursor();

}  // namespace quorvane
