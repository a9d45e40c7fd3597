#include "console/terminal_console.h"

#include <gmock/gmock.h>

#include "fake_terminal.h"
#include "platform/fake/fake_event_loop.h"

namespace quorvane {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TerminalConsoleTest : public testing::Test {
 protected:
  std::unique_ptr<TerminalConsole> console(Terminal* on) {
    WindowServer server;
    server.running = [] { return false; };
    return std::make_unique<TerminalConsole>(
        form, echo, on, loop, std::move(server),
        [this](std::string_view line) { printed.emplace_back(line); });
  }

  /// As the status lists do it.
  void line(const std::string& text) {
    if (echo) echo(text);
    form.llist[0].add(text);
    form.changed();
  }
  void showForm() {
    form.visible = true;
    form.changed();
    loop.runPosted();
  }

  FormModel form;
  TerminalConsole::Print echo;
  FakeTerminal terminal{24, 80};
  FakeEventLoop loop;
  std::vector<std::string> printed;
};

TEST_F(TerminalConsoleTest, DrawsOnceTheFormIsVisible) {
  const auto shown = console(&terminal);
  line("10:00:00 one");
  loop.runPosted();
  EXPECT_FALSE(terminal.isOpen());
  showForm();
  EXPECT_TRUE(terminal.isOpen());
  EXPECT_GE(terminal.rowWith(L"10:00:00 one"), 0);
  EXPECT_THAT(printed, IsEmpty());
}

TEST_F(TerminalConsoleTest, PrintsLinesWithoutATerminal) {
  terminal.there = false;
  const auto shown = console(&terminal);
  line("10:00:00 one");
  showForm();
  line("10:00:00 two");
  EXPECT_FALSE(terminal.isOpen());
  EXPECT_THAT(printed, ElementsAre("10:00:00 one", "10:00:00 two"));
}

TEST_F(TerminalConsoleTest, PrintsLinesWhereTheSystemHasNoTerminals) {
  const auto shown = console(nullptr);
  line("10:00:00 one");
  EXPECT_THAT(printed, ElementsAre("10:00:00 one"));
}

TEST_F(TerminalConsoleTest, PrintsWhatCouldNotBeDrawn) {
  terminal.openFails = true;
  const auto shown = console(&terminal);
  line("10:00:00 one");
  EXPECT_THAT(printed, IsEmpty());
  showForm();
  line("10:00:00 two");
  EXPECT_THAT(printed, ElementsAre("10:00:00 one", "10:00:00 two"));
}

TEST_F(TerminalConsoleTest, LetsGoOfTheFormWhenItEnds) {
  console(&terminal);
  showForm();
  line("10:00:00 one");
  EXPECT_FALSE(terminal.isOpen());
  EXPECT_THAT(printed, IsEmpty());
}

}  // namespace

}  // namespace quorvane
