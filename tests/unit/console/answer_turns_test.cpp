#include "console/answer_turns.h"

#include <gtest/gtest.h>

#include "no_socket_events.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_event_loop.h"
#include "testing/recorded_lines.h"

namespace quorvane {

namespace {

using Turn = Clients::Turn;

class AnswerTurnsTest : public testing::Test {
 protected:
  AnswerTurnsTest() { slots.reset(); }

  int connect(const std::string& address) {
    FakeRequest request(address, 1);
    return slots.accept(request).value();
  }
  /// What the window does with a request for a page that takes `milliseconds`.
  void ask(int slot, int milliseconds = 0) {
    const Turn turn = turns.turnOf(slot);
    if (turn == Turn::Now) ran.push_back(slot);
    if (turn == Turn::Never) slots.close(slot);
    clock.step = std::chrono::milliseconds(milliseconds);
    turns.over();
    clock.step = {};
  }

  FakeClock clock;
  FakeEventLoop loop;
  NoSocketEvents events;
  Slots slots{loop, events};
  ServerState state;
  RecordedLines lines;
  Visitors visitors{state, slots, lines};
  std::vector<int> ran;
  std::vector<int> answered;
  int pageTakes = 0;
  AnswerTurns turns{clock,
                    loop,
                    slots,
                    visitors,
                    {[this](int slot) { ask(slot, pageTakes); },
                     [this](int slot, const Response&) { answered.push_back(slot); }}};
};

}  // namespace

TEST_F(AnswerTurnsTest, QuickPagesRunAtOnce) {
  const int slot = connect("a");
  for (int i = 0; i < 10; ++i) ask(slot, 4);
  EXPECT_EQ(ran.size(), 10U);
}

TEST_F(AnswerTurnsTest, BehindASlowPageAddressesTakeTurns) {
  pageTakes = 4000;
  std::vector<int> many;
  for (int i = 0; i < 4; ++i) many.push_back(connect("a"));
  for (const int slot : many) ask(slot, 4000);
  EXPECT_EQ(ran, (std::vector<int>{many[0]}));
  EXPECT_TRUE(slots.isHeld(many[1]));
  const int other = connect("b");
  ask(other);
  loop.runPosted();
  EXPECT_EQ(ran, (std::vector<int>{many[0], many[1], other, many[2], many[3]}));
  EXPECT_FALSE(slots.isHeld(many[3]));
  ask(other);
  EXPECT_EQ(ran.size(), 6U) << "nobody waits any more";
}

TEST_F(AnswerTurnsTest, WhoComesMeanwhileIsLookedAtFirst) {
  const int slow = connect("a");
  const int next = connect("a");
  ask(slow, 4000);
  ask(next);
  const int other = connect("b");
  loop.post([&] { ask(other); });  // arrives behind what the round has posted
  loop.runPosted();
  EXPECT_EQ(ran, (std::vector<int>{slow, next, other}));
  EXPECT_TRUE(slots.isHeld(other) || ran.back() == other);
}

TEST_F(AnswerTurnsTest, NoPageIsBegunForAClientThatHasGone) {
  const int slow = connect("a");
  const int reset = connect("a");
  const int closed = connect("a");
  const int next = connect("a");
  ask(slow, 4000);
  for (const int slot : {reset, closed, next}) ask(slot);
  loop.sockets[reset]->reset = true;
  slots.close(closed);
  loop.runPosted();
  EXPECT_EQ(ran, (std::vector<int>{slow, next}));
  EXPECT_EQ(slots.socket(reset).state(), SocketState::Closed);
  const int another = connect("b");
  loop.sockets[another]->reset = true;
  ask(another);
  EXPECT_EQ(ran.size(), 2U);
}

TEST_F(AnswerTurnsTest, AnAnswerIsForTheConnectionThatAsked) {
  const int slot = connect("a");
  const Client client = turns.inSlot(slot);
  turns.answerLater(slot);
  EXPECT_TRUE(turns.isThere(client));
  turns.answer(client, {});
  EXPECT_EQ(answered, (std::vector<int>{slot}));
  EXPECT_FALSE(slots.isHeld(slot));
  slots.close(slot);
  ASSERT_EQ(connect("b"), slot);
  EXPECT_FALSE(turns.isThere(client));
  turns.answer(client, {});
  EXPECT_EQ(answered.size(), 1U);
}

}  // namespace quorvane
