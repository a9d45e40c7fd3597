#include "console/terminal_window.h"

#include <gmock/gmock.h>

#include <optional>

#include "fake_terminal.h"
#include "platform/fake/fake_event_loop.h"

namespace quorvane {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr int kLogTop = 8;  // the first line inside the log's border on a screen of 24 rows
constexpr int kLogLines = 10;

class TerminalWindowTest : public testing::Test {
 protected:
  TerminalWindowTest() {
    WindowServer server;
    server.clickButton = [this](int button) { buttons.push_back(button); };
    server.clickStatusLine = [this](int line) { lines.push_back(line); };
    server.closeWindow = [this] { ++closes; };
    server.running = [this] { return running; };
    server.uptime = [] { return std::string("00:12:33"); };
    window.emplace(form, terminal, loop, std::move(server));
  }

  void open() {
    form.onChange = [this] { window->formChanged(); };
    ASSERT_TRUE(window->open());
    loop.runPosted();
  }
  void addLines(int count) {
    for (int i = 0; i < count; ++i) {
      form.llist[0].add("10:00:00 line " + std::to_string(added++));
      form.changed();
    }
  }
  /// Draws what has changed, as the loop would in time.
  void settle() {
    loop.runPosted();
    for (FakeTimer* timer : std::vector(loop.timers)) {
      timer->tick();
      timer->tick();
    }
  }
  std::wstring logLine(int i) const { return terminal.row(kLogTop + i); }

  FormModel form;
  FakeTerminal terminal{24, 80};
  FakeEventLoop loop;
  bool running = true;
  int added = 0;
  std::vector<int> buttons;
  std::vector<int> lines;
  int closes = 0;
  std::optional<TerminalWindow> window;
};

TEST_F(TerminalWindowTest, ShowsTheForm) {
  form.llist[1].add("Localhost:7007 = 2");
  form.llist[2].add("17");
  form.Label1[0].caption = "10 Talkers, 10 cached.";
  form.dbgText.text = "in full";
  addLines(1);
  open();
  EXPECT_THAT(terminal.row(0), HasSubstr(L"Quorvane Server"));
  EXPECT_THAT(terminal.row(0), HasSubstr(L"\u25cf 00:12:33"));
  EXPECT_THAT(terminal.row(1), HasSubstr(L"10 Talkers, 10 cached."));
  EXPECT_THAT(terminal.row(1), HasSubstr(L"Sessions"));
  EXPECT_THAT(terminal.row(2), HasSubstr(L"Localhost:7007 = 2"));
  EXPECT_THAT(terminal.row(2), HasSubstr(L"17"));
  EXPECT_THAT(terminal.row(7), HasSubstr(L"Log"));
  EXPECT_THAT(logLine(0), HasSubstr(L"10:00:00 line 0"));
  EXPECT_THAT(terminal.row(20), HasSubstr(L"in full"));
  EXPECT_THAT(terminal.row(23), HasSubstr(L"[ Start/Stop ]  [ Clear Log ]"));
}

TEST_F(TerminalWindowTest, ShowsThatTheServerIsStopped) {
  running = false;
  open();
  EXPECT_THAT(terminal.row(0), HasSubstr(L"\u25cb"));
  EXPECT_THAT(terminal.row(0), Not(HasSubstr(L"00:12:33")));
}

TEST_F(TerminalWindowTest, TellsWhenTheTerminalCantBeDrawnOn) {
  terminal.openFails = true;
  EXPECT_FALSE(window->open());
}

TEST_F(TerminalWindowTest, ShowsWindows1252Texts) {
  form.llist[0].add("10:00:00 gr\xFC\xDF\x80");
  open();
  EXPECT_THAT(logLine(0), HasSubstr(L"gr\u00fc\u00df\u20ac"));
}

TEST_F(TerminalWindowTest, DrawsAFloodOnlyOnceATick) {
  open();
  const int before = terminal.shows;
  addLines(1000);
  loop.runPosted();
  addLines(1000);
  EXPECT_EQ(terminal.shows, before) << "the first frame has been drawn just before";
  settle();
  EXPECT_EQ(terminal.shows, before + 1);
  EXPECT_THAT(logLine(kLogLines - 1), HasSubstr(L"line 1999"));
}

TEST_F(TerminalWindowTest, DrawsAtOnceAfterAPause) {
  open();
  settle();
  const int before = terminal.shows;
  addLines(1);
  loop.runPosted();
  EXPECT_EQ(terminal.shows, before + 1);
}

TEST_F(TerminalWindowTest, RestsWhenNothingChanges) {
  open();
  settle();
  EXPECT_FALSE(loop.timers.front()->enabled());
}

TEST_F(TerminalWindowTest, DrawsLaterOnATerminalThatIsStuck) {
  open();
  terminal.isStuck = true;
  addLines(1);
  settle();
  EXPECT_THAT(logLine(0), Not(HasSubstr(L"line 0")));
  terminal.isStuck = false;
  settle();
  EXPECT_THAT(logLine(0), HasSubstr(L"line 0"));
}

TEST_F(TerminalWindowTest, FollowsTheNewestLineUntilTheUserScrollsAway) {
  addLines(50);
  open();
  EXPECT_THAT(logLine(kLogLines - 1), HasSubstr(L"line 49"));
  terminal.wheel(true, kLogTop, 5);
  addLines(5);
  settle();
  EXPECT_THAT(logLine(kLogLines - 1), HasSubstr(L"line 46"));
  EXPECT_THAT(terminal.row(kLogTop + kLogLines), HasSubstr(L"\u25bc 8 "));
  terminal.press(TerminalKey::End);
  addLines(1);
  settle();
  EXPECT_THAT(logLine(kLogLines - 1), HasSubstr(L"line 55"));
}

TEST_F(TerminalWindowTest, KeepsItsLinesWhileOldOnesAreDropped) {
  addLines(10'000);
  open();
  terminal.press(TerminalKey::Home);
  terminal.press(TerminalKey::PageDown);
  addLines(4);
  settle();
  EXPECT_THAT(logLine(kLogLines - 1 - 4), HasSubstr(L"line 9 "));
  EXPECT_EQ(form.llist[0].lines().size(), 10'000U);
}

TEST_F(TerminalWindowTest, MovingTheSelectionClicksTheLine) {
  addLines(5);
  open();
  terminal.press(TerminalKey::Up);
  terminal.press(TerminalKey::Home);
  terminal.press(TerminalKey::Down);
  terminal.press(TerminalKey::Enter);
  EXPECT_THAT(lines, ElementsAre(3, 0, 1, 1));
}

TEST_F(TerminalWindowTest, MeansTheLineThatStandsThereNow) {
  addLines(10'000);
  open();
  terminal.press(TerminalKey::Home);
  addLines(3);  // the selected line is among those dropped
  terminal.press(TerminalKey::Enter);
  terminal.press(TerminalKey::Down);
  EXPECT_THAT(lines, ElementsAre(0, 0));
}

TEST_F(TerminalWindowTest, AMouseClickPicksTheLine) {
  addLines(50);
  open();
  terminal.click(kLogTop + 2, 10);
  settle();
  EXPECT_THAT(lines, ElementsAre(42));
  EXPECT_TRUE(terminal.styleAt(kLogTop + 2, 10).reverse);
}

TEST_F(TerminalWindowTest, AClickBelowTheLastLinePicksNone) {
  addLines(2);
  open();
  terminal.click(kLogTop + 5, 10);
  EXPECT_THAT(lines, IsEmpty());
}

TEST_F(TerminalWindowTest, AClickOnTheScrollBarGoesThere) {
  addLines(100);
  open();
  terminal.click(kLogTop, 79);
  settle();
  EXPECT_THAT(logLine(0), HasSubstr(L"line 0"));
  EXPECT_THAT(lines, IsEmpty());
}

TEST_F(TerminalWindowTest, PressesButtonsByMouse) {
  open();
  terminal.click(23, 2);
  terminal.click(23, 20);
  EXPECT_THAT(buttons, ElementsAre(FormModel::kStartStop, FormModel::kClearLog));
}

TEST_F(TerminalWindowTest, PressesButtonsByKey) {
  open();
  terminal.press(TerminalKey::Tab);  // from the log to the text box
  terminal.press(TerminalKey::Tab);
  terminal.press(TerminalKey::Enter);
  terminal.press(TerminalKey::Right);
  terminal.type(U' ');
  EXPECT_THAT(buttons, ElementsAre(FormModel::kStartStop, FormModel::kClearLog));
}

TEST_F(TerminalWindowTest, TabVisitsEveryPartAndComesBack) {
  addLines(3);
  open();
  for (int i = 0; i < 6; ++i) terminal.press(TerminalKey::Tab);
  terminal.press(TerminalKey::Up);
  EXPECT_THAT(lines, ElementsAre(1));
  for (int i = 0; i < 6; ++i) terminal.press(TerminalKey::BackTab);
  terminal.press(TerminalKey::Up);
  EXPECT_THAT(lines, ElementsAre(1, 0));
}

TEST_F(TerminalWindowTest, ClickingAnotherListClicksNoStatusLine) {
  addLines(3);
  form.llist[1].add("Localhost:7007 = 2");
  open();
  terminal.click(2, 5);
  terminal.press(TerminalKey::Down);
  EXPECT_THAT(lines, IsEmpty());
}

TEST_F(TerminalWindowTest, TellsWhatTheFocusedPartIsFor) {
  form.Label1[2].toolTip = "What the server has done";
  form.btt[0].toolTip = std::string(100, 'x');
  open();
  EXPECT_THAT(terminal.row(22), HasSubstr(L"\u2514\u2500 What the server has done \u2500"));
  terminal.press(TerminalKey::Tab);
  terminal.press(TerminalKey::Tab);
  settle();
  EXPECT_THAT(terminal.row(22), HasSubstr(L"xxx\u2026 \u2500\u2518"));
}

TEST_F(TerminalWindowTest, ScrollsALongTextFromItsBeginning) {
  form.dbgText.text = "one\r\ntwo\r\nthree\r\nfour";
  open();
  EXPECT_THAT(terminal.row(20), HasSubstr(L"one"));
  terminal.wheel(false, 20, 5);
  settle();
  EXPECT_THAT(terminal.row(20), HasSubstr(L"three"));
  form.dbgText.text = "uno\r\ndue\r\ntre";
  form.changed();
  settle();
  EXPECT_THAT(terminal.row(20), HasSubstr(L"uno"));
}

TEST_F(TerminalWindowTest, ClosesByKeyAndWhenTheUserIsGone) {
  open();
  terminal.press(TerminalKey::Interrupt);
  terminal.hangUp();
  EXPECT_EQ(closes, 2);
}

TEST_F(TerminalWindowTest, AsksBeforeItClosesByQ) {
  open();
  terminal.type(U'q');
  settle();
  EXPECT_THAT(terminal.row(0), HasSubstr(L"Press q again to end the server"));
  EXPECT_EQ(closes, 0);
  terminal.type(U'q');
  EXPECT_EQ(closes, 1);
}

TEST_F(TerminalWindowTest, AnyOtherKeyIsANo) {
  open();
  terminal.type(U'q');
  settle();
  terminal.press(TerminalKey::Down);
  settle();
  EXPECT_THAT(terminal.row(0), Not(HasSubstr(L"Press q")));
  terminal.type(U'q');
  settle();
  terminal.type(U'x');
  settle();
  terminal.type(U'q');
  EXPECT_EQ(closes, 0);
}

TEST_F(TerminalWindowTest, PastedTextClosesNothing) {
  open();
  for (const char32_t c : std::u32string(U"qqq quick, qqqq")) terminal.type(c);
  EXPECT_EQ(closes, 0);
  settle();
  terminal.type(U'q');
  EXPECT_EQ(closes, 1) << "it still asked";
}

TEST_F(TerminalWindowTest, GivesTheTerminalBack) {
  open();
  window.reset();
  EXPECT_FALSE(terminal.isOpen());
  loop.runPosted();  // a frame that was still to be drawn
}

TEST_F(TerminalWindowTest, ShowsOneListAtATimeOnASmallScreen) {
  addLines(3);
  form.llist[1].add("Localhost:7007 = 2");
  open();
  terminal.resize(12, 40);
  settle();
  EXPECT_GE(terminal.rowWith(L"line 2"), 0);
  EXPECT_EQ(terminal.rowWith(L"Localhost"), -1);
  for (int i = 0; i < 4; ++i) terminal.press(TerminalKey::Tab);
  settle();
  EXPECT_EQ(terminal.rowWith(L"line 2"), -1);
  EXPECT_GE(terminal.rowWith(L"Localhost"), 0);
}

TEST_F(TerminalWindowTest, DrawsOnScreensOfEverySize) {
  addLines(30);
  form.dbgText.text = std::string(500, 'x');
  open();
  for (int rows = 1; rows < 30; ++rows) {
    for (int columns = 1; columns < 90; ++columns) {
      terminal.resize(rows, columns);
      settle();
      terminal.click(rows - 1, columns - 1);
      terminal.press(TerminalKey::Tab);
    }
  }
  terminal.resize(24, 80);
  settle();
  EXPECT_GE(terminal.rowWith(L"[ Start/Stop ]"), 0);
}

TEST_F(TerminalWindowTest, MarksFailuresToListen) {
  form.llist[0].add("10:00:00 ******* PORT ERROR: Unable to bind to port 7007");
  addLines(1);
  open();
  EXPECT_EQ(terminal.styleAt(kLogTop, 20).text, TerminalColour::Red);
  EXPECT_NE(terminal.styleAt(kLogTop + 1, 20).text, TerminalColour::Red);
}

TEST_F(TerminalWindowTest, UsesNoColoursWhereThereAreNone) {
  terminal.colours = false;
  form.llist[0].add("10:00:00 ******* PORT ERROR: Unable to bind to port 7007");
  open();
  for (int row = 0; row < terminal.rows(); ++row) {
    for (int column = 0; column < terminal.columns(); ++column) {
      const TerminalStyle style = terminal.styleAt(row, column);
      ASSERT_EQ(style.text, TerminalColour::Default);
      ASSERT_EQ(style.ground, TerminalColour::Default);
    }
  }
  EXPECT_TRUE(terminal.styleAt(0, 0).reverse);
}

}  // namespace

}  // namespace quorvane
