#include "platform/terminal.h"

#include <windows.h>

#include "platform/system.h"

namespace quorvane {

namespace {

bool isConsole(DWORD stream) {
  DWORD mode = 0;
  return ::GetConsoleMode(::GetStdHandle(stream), &mode) != 0;
}

/// The server's window on this system is a real one, so consoles are not drawn on.
class UndrawnConsole final : public Terminal {
 public:
  bool isThere() const override {
    return isConsole(STD_INPUT_HANDLE) && isConsole(STD_OUTPUT_HANDLE);
  }
  bool open(TerminalEvents&) override { return false; }
  void close() override {}
  int rows() const override { return 0; }
  int columns() const override { return 0; }
  bool hasColours() const override { return false; }
  void put(int, int, std::wstring_view, const TerminalStyle&) override {}
  bool show() override { return true; }
};

}  // namespace

std::unique_ptr<Terminal> makeTerminal(EventLoop&) {
  return std::make_unique<UndrawnConsole>();
}

}  // namespace quorvane
