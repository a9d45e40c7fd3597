#include "console/slot_watch.h"

#include <gtest/gtest.h>

#include "no_socket_events.h"
#include "platform/fake/fake_event_loop.h"

namespace quorvane {

namespace {

class SlotWatchTest : public testing::Test {
 protected:
  SlotWatchTest() {
    state.HeadSeconds = 2;
    state.BodySeconds = 3;
    state.IdleSeconds = 4;
    state.SendSeconds = 5;
    slots.reset();
  }

  int connect() {
    FakeRequest request("127.0.0.1", 1);
    const int slot = slots.accept(request).value();
    watch.begin();
    return slot;
  }
  void pass(int seconds) {
    for (int i = 0; i < seconds; ++i) loop.timers.back()->tick();
  }
  /// How many looks a slot survives, the first included.
  int looksAt(int slot) {
    int looks = 0;
    for (; looks < 100 && isOpen(slot); ++looks) pass(1);
    return looks;
  }
  bool isOpen(int slot) { return slots.socket(slot).state() == SocketState::Connected; }

  ServerState state;
  FakeEventLoop loop;
  NoSocketEvents events;
  Slots slots{loop, events};
  bool hasWord = false;
  SlotWatch watch{state, loop, slots, [this](int index) {
                    if (hasWord) slots.close(index);
                    return hasWord;
                  }};
};

}  // namespace

TEST_F(SlotWatchTest, ANewConnectionHasToSendAHead) {
  const int slot = connect();
  EXPECT_EQ(looksAt(slot), 3);
  EXPECT_EQ(loop.sockets[slot]->aborts, 1);
  const int next = connect();
  pass(1);
  slots.record(next).pendingText = "GET / HTTP";
  EXPECT_EQ(looksAt(next), 2) << "bytes are no head";
}

TEST_F(SlotWatchTest, WhoHasBegunARequestMayBeTold) {
  hasWord = true;
  const int slot = connect();
  slots.record(slot).pendingText = "GET / HTTP";
  EXPECT_EQ(looksAt(slot), 3);
  EXPECT_EQ(loop.sockets[slot]->aborts, 0);
  const int silent = connect();
  EXPECT_EQ(looksAt(silent), 3);
  EXPECT_EQ(loop.sockets[silent]->aborts, 1) << "there is nothing to say to those";
}

TEST_F(SlotWatchTest, ABodyHasToGoOn) {
  const int slot = connect();
  slots.record(slot).bodyStart = 10;
  for (int i = 0; i < 10; ++i) {
    slots.record(slot).pendingText += "x";
    pass(2);
    EXPECT_TRUE(isOpen(slot));
  }
  EXPECT_EQ(looksAt(slot), 2);
}

TEST_F(SlotWatchTest, BetweenRequestsAConnectionMayIdle) {
  const int slot = connect();
  slots.noteRequest(slot);
  pass(4);
  slots.noteRequest(slot);
  EXPECT_EQ(looksAt(slot), 5);
}

TEST_F(SlotWatchTest, AnAnswerHasToBeTaken) {
  const int slot = connect();
  FakeSocket& socket = *loop.sockets[slot];
  socket.pending = 1000;
  socket.unconfirmed = 100;
  for (int i = 0; i < 10; ++i) {
    --socket.unconfirmed;
    pass(4);
    EXPECT_TRUE(isOpen(slot));
  }
  EXPECT_EQ(looksAt(slot), 2);
}

TEST_F(SlotWatchTest, NothingIsForEverWhereTheSettingsSaySo) {
  state.HeadSeconds = state.IdleSeconds = 0;
  const int silent = connect();
  const int idle = connect();
  slots.noteRequest(idle);
  pass(1000);
  EXPECT_TRUE(isOpen(silent) && isOpen(idle));
}

TEST_F(SlotWatchTest, ASlotsNextConnectionBeginsAnew) {
  const int slot = connect();
  pass(2);
  slots.close(slot);
  EXPECT_EQ(connect(), slot);
  EXPECT_EQ(looksAt(slot), 3);
}

TEST_F(SlotWatchTest, ASlotsNextConnectionMayBeAtTheSamePlaceOfTheSameAnswer) {
  for (int i = 0; i < 2; ++i) {
    const int slot = connect();
    FakeSocket& socket = *loop.sockets[slot];
    socket.pending = socket.unconfirmed = 1000;
    EXPECT_EQ(looksAt(slot), 6);
    socket.pending = 0;
  }
}

TEST_F(SlotWatchTest, ItLooksOnlyWhileSomebodyIsThere) {
  FakeTimer& timer = *loop.timers.back();
  EXPECT_FALSE(timer.enabled());
  const int slot = connect();
  EXPECT_TRUE(timer.enabled());
  pass(1);
  EXPECT_TRUE(timer.enabled());
  slots.close(slot);
  pass(1);
  EXPECT_FALSE(timer.enabled());
}

TEST_F(SlotWatchTest, TheLongestIdleMakesRoom) {
  const int answered = connect();
  const int silent = connect();
  const int sending = connect();
  const int uploading = connect();
  loop.sockets[sending]->pending = 1;
  slots.record(uploading).pendingText = "POST";
  slots.record(uploading).bodyStart = 4;
  slots.noteRequest(answered);
  EXPECT_TRUE(watch.makeRoom());
  EXPECT_FALSE(isOpen(silent));
  EXPECT_TRUE(watch.makeRoom());
  EXPECT_FALSE(isOpen(answered));
  EXPECT_FALSE(watch.makeRoom());
  EXPECT_TRUE(isOpen(sending) && isOpen(uploading));
}

}  // namespace quorvane
