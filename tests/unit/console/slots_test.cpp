#include "console/slots.h"

#include <gtest/gtest.h>

#include "no_socket_events.h"
#include "platform/fake/fake_event_loop.h"

namespace quorvane {

namespace {

class SlotsTest : public testing::Test {
 protected:
  std::optional<int> take() {
    FakeRequest request("127.0.0.1", 1);
    return slots.accept(request);
  }
  void fill(int count) {
    for (int i = 0; i < count; ++i) take();
  }

  FakeEventLoop loop;
  NoSocketEvents events;
  Slots slots{loop, events};
};

TEST_F(SlotsTest, SlotZeroAlwaysExistsAndAResetMakesTen) {
  EXPECT_EQ(slots.highest(), 0);
  slots.reset();
  EXPECT_EQ(slots.highest(), 9);
  EXPECT_TRUE(slots.exists(9));
  EXPECT_FALSE(slots.exists(10));
  EXPECT_FALSE(slots.exists(-1));
}

TEST_F(SlotsTest, TheLowestClosedSlotIsTaken) {
  slots.reset();
  for (int i = 0; i < 10; ++i) EXPECT_EQ(take(), i);
  EXPECT_EQ(take(), 10) << "with ten busy an eleventh is made";
  slots.close(7);
  slots.close(3);
  slots.close(7);
  EXPECT_EQ(take(), 3);
  EXPECT_EQ(take(), 7);
  EXPECT_EQ(take(), 11);
}

TEST_F(SlotsTest, WhatIsHeldIsBoundedAndTheHeaviestIsNamed) {
  Slots small(loop, events, 100);
  const auto hold = [&](int index, std::size_t bytes) {
    small.record(index).pendingText.assign(bytes, 'x');
    return small.noteHeld(index);
  };
  small.reset();
  for (int i = 0; i < 3; ++i) {
    FakeRequest request("127.0.0.1", 1);
    small.accept(request);
  }
  EXPECT_EQ(hold(0, 30), std::nullopt);
  EXPECT_EQ(hold(1, 60), std::nullopt);
  EXPECT_EQ(hold(2, 11), 1);
  small.close(1);
  EXPECT_EQ(hold(0, 89), std::nullopt);
  EXPECT_EQ(hold(2, 0), std::nullopt) << "its request was complete";
  EXPECT_EQ(hold(0, 100), std::nullopt);
  EXPECT_EQ(hold(0, 101), 0);
  small.reset();
  EXPECT_EQ(hold(0, 100), std::nullopt) << "nothing is held of before";
}

TEST_F(SlotsTest, ATakenSlotHasAnEmptyRecordAndTag) {
  slots.reset();
  slots.record(0).pendingText = "GET";
  slots.record(0).expectedBodyLength = 5;
  slots.socket(0).tag = "X";
  EXPECT_EQ(take(), 0);
  EXPECT_EQ(slots.record(0).pendingText, "");
  EXPECT_EQ(slots.record(0).expectedBodyLength, 0);
  EXPECT_EQ(slots.socket(0).tag, "");
}

TEST_F(SlotsTest, AFailedAcceptLeavesTheSlotClosedForTheNext) {
  slots.reset();
  loop.sockets[0]->acceptFails = true;
  EXPECT_EQ(take(), std::nullopt);
  loop.sockets[0]->acceptFails = false;
  EXPECT_EQ(take(), 0);
}

TEST_F(SlotsTest, ClosingASlotGivesItsTextBack) {
  slots.reset();
  take();
  slots.record(0).pendingText = std::string(100'000, 'x');
  slots.close(0);
  EXPECT_LT(slots.record(0).pendingText.capacity(), 1000U);
}

TEST_F(SlotsTest, TidyUpTrimsFromTheTopToTheFirstThatIsNotClosed) {
  slots.reset();
  fill(15);
  slots.close(14);
  slots.close(13);
  slots.tidyUp();
  EXPECT_EQ(slots.highest(), 12);
  slots.close(5);
  slots.close(11);
  slots.tidyUp();
  EXPECT_EQ(slots.highest(), 12) << "12 is connected";
  EXPECT_EQ(take(), 5);
  EXPECT_EQ(take(), 11);
  EXPECT_EQ(take(), 13);
}

TEST_F(SlotsTest, TidyUpClosesWhatIsDyingAndKeepsTen) {
  slots.reset();
  fill(12);
  loop.sockets[2]->become(SocketState::PeerClosing);
  loop.sockets[2]->tag = "X";
  loop.sockets[11]->become(SocketState::Error);
  for (int i = 3; i < 11; ++i) slots.close(i);
  slots.tidyUp();
  EXPECT_EQ(slots.highest(), 9);
  EXPECT_EQ(slots.socket(2).state(), SocketState::Closed);
  EXPECT_EQ(slots.socket(2).tag, "");
  EXPECT_EQ(slots.socket(0).state(), SocketState::Connected);
  EXPECT_EQ(take(), 2);
}

TEST_F(SlotsTest, ManyRoundsOfGrowingAndTrimmingKeepTheOrder) {
  slots.reset();
  for (int round = 0; round < 5; ++round) {
    for (int i = 0; i < 30; ++i) EXPECT_EQ(take(), i);
    for (int i = 29; i >= 0; --i) slots.close(i);
    slots.tidyUp();
    EXPECT_EQ(slots.highest(), 9);
  }
}

TEST_F(SlotsTest, CloseAllLeavesTheClosedSlotZero) {
  slots.reset();
  fill(12);
  slots.closeAll();
  EXPECT_EQ(slots.highest(), 0);
  EXPECT_EQ(slots.socket(0).state(), SocketState::Closed);
  EXPECT_EQ(take(), 0);
}

}  // namespace

}  // namespace quorvane
