#include "platform/terminal.h"

#include "platform/system.h"

namespace quorvane {

namespace {

/// The server's window on this system is a real one.
class NoTerminal final : public Terminal {
 public:
  bool isThere() const override { return false; }
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
  return std::make_unique<NoTerminal>();
}

}  // namespace quorvane
