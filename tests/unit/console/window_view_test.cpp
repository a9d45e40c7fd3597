#include "console/window_view.h"

#include <gmock/gmock.h>

#include <optional>

#include "platform/fake/fake_event_loop.h"

namespace quorvane {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FakeWindow final : public ServerWindow {
 public:
  bool open(ServerWindowEvents& events, std::array<bool, 3>) override {
    ++opened;
    if (!fails) events_ = &events;
    return !fails;
  }
  void close() override { events_ = nullptr; }
  bool isReady() const override { return ready; }
  void show(ServerWindowPicture picture) override {
    for (std::size_t i = 0; i < lists.size(); ++i) {
      auto& lines = lists[i];
      const ServerWindowLines& next = picture.lists[i];
      lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(next.dropped));
      lines.insert(lines.end(), next.added.begin(), next.added.end());
    }
    last = std::move(picture);
    ++shows;
  }
  ServerWindowEvents& user() { return *events_; }
  bool isOpen() const { return events_ != nullptr; }

  bool fails = false;
  bool ready = true;
  int opened = 0;
  int shows = 0;
  ServerWindowPicture last;
  std::array<std::vector<std::string>, 3> lists;

 private:
  ServerWindowEvents* events_ = nullptr;
};

class WindowViewTest : public testing::Test {
 protected:
  void view() {
    WindowServer server;
    server.clickButton = [this](int button) { buttons.push_back(button); };
    server.clickStatusLine = [this](int line) { clicked = form.llist[0].lines()[line]; };
    server.closeWindow = [this] { ++closings; };
    shown.emplace(form, &window, loop, std::move(server));
  }
  void change() {
    form.changed();
    loop.runPosted();
  }
  /// The next frame.
  void tick() {
    for (FakeTimer* timer : loop.timers) {
      if (timer->enabled()) timer->tick();
    }
  }

  FormModel form;
  FakeWindow window;
  FakeEventLoop loop;
  std::vector<int> buttons;
  std::string clicked;
  int closings = 0;
  std::optional<WindowView> shown;
};

TEST_F(WindowViewTest, IsThereHiddenUntilTheFormIsVisible) {
  view();
  change();
  EXPECT_TRUE(window.isOpen());
  EXPECT_FALSE(window.last.visible);
  form.visible = true;
  form.changed();
  tick();
  EXPECT_TRUE(window.last.visible);
}

TEST_F(WindowViewTest, ShowsTheFormsTexts) {
  view();
  form.caption = "Titel";
  form.Label1[2].caption = "Protokoll";
  form.Label1[2].toolTip = "Was geschah";
  form.btt[1].caption = "Leeren";
  form.copying.caption = "Kopieren";
  form.dbgText.text = "one\r\ntwo";
  change();
  EXPECT_EQ(window.last.texts.title, "Titel");
  EXPECT_EQ(window.last.texts.lists[0].caption, "Protokoll");
  EXPECT_EQ(window.last.texts.lists[0].toolTip, "Was geschah");
  EXPECT_EQ(window.last.texts.lists[1].caption, "Sockets");
  EXPECT_EQ(window.last.texts.lists[2].caption, "Sessions");
  EXPECT_EQ(window.last.texts.buttons[1].caption, "Leeren");
  EXPECT_EQ(window.last.texts.copy, "Kopieren");
  EXPECT_EQ(window.last.text, "one\r\ntwo");
}

TEST_F(WindowViewTest, GivesAFloodOfLinesInFewPictures) {
  view();
  for (int i = 0; i < 1000; ++i) {
    form.llist[0].add(std::to_string(i));
    change();
  }
  EXPECT_EQ(window.shows, 1);
  tick();
  EXPECT_EQ(window.shows, 2);
  EXPECT_EQ(window.lists[0].size(), 1000U);
  tick();
  tick();
  EXPECT_EQ(window.shows, 2) << "nothing has changed since";
}

TEST_F(WindowViewTest, WaitsForAWindowThatIsBusy) {
  view();
  window.ready = false;
  form.llist[0].add("a");
  change();
  tick();
  EXPECT_EQ(window.shows, 0);
  window.ready = true;
  form.llist[0].add("b");
  tick();
  EXPECT_THAT(window.lists[0], ElementsAre("a", "b"));
}

TEST_F(WindowViewTest, TellsTheServerWhatTheUserDoes) {
  view();
  for (const char* line : {"a", "b"}) form.llist[0].add(line);
  change();
  window.user().buttonClicked(1);
  EXPECT_THAT(buttons, ElementsAre(1));
  window.user().lineClicked(1, 0);
  EXPECT_EQ(clicked, "") << "no line of the status list";
  form.llist[0].add("c");
  window.user().lineClicked(0, 1);
  EXPECT_EQ(clicked, "b");
  clicked.clear();
  form.llist[0].clear();
  window.user().lineClicked(0, 1);
  EXPECT_EQ(clicked, "") << "its line has gone meanwhile";
  window.user().closeAsked();
  EXPECT_EQ(closings, 1);
}

TEST_F(WindowViewTest, WithoutAWindowWhoWatchedBeforeDoesSoAgain) {
  int told = 0;
  form.onChange = [&told] { ++told; };
  window.fails = true;
  view();
  change();
  change();
  EXPECT_EQ(told, 2);
  EXPECT_EQ(window.opened, 1);
  EXPECT_EQ(window.shows, 0);
}

TEST_F(WindowViewTest, ClosesTheWindowAndLeavesTheForm) {
  int told = 0;
  form.onChange = [&told] { ++told; };
  view();
  change();
  EXPECT_EQ(told, 0);
  form.changed();
  shown.reset();
  loop.runPosted();
  EXPECT_FALSE(window.isOpen());
  form.changed();
  EXPECT_EQ(told, 1);
}

}  // namespace

}  // namespace quorvane
