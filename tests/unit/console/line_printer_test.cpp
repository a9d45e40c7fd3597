#include "console/line_printer.h"

#include <gtest/gtest.h>

#include "platform/fake/fake_event_loop.h"

namespace quorvane {

namespace {

class LinePrinterTest : public testing::Test {
 protected:
  void tick() { loop.timer(std::chrono::milliseconds(100))->tick(); }
  bool waits() { return loop.timer(std::chrono::milliseconds(100))->enabled(); }

  FakeEventLoop loop;
  std::string printed;
  std::size_t room = std::string::npos;
  LinePrinter printer{loop, [this](std::string_view bytes) {
                        const std::size_t taken = std::min(room, bytes.size());
                        printed += bytes.substr(0, taken);
                        if (room != std::string::npos) room -= taken;
                        return taken;
                      }};
};

TEST_F(LinePrinterTest, PrintsALineAtOnce) {
  printer.print("one");
  printer.print("");
  EXPECT_EQ(printed, "one\n\n");
  EXPECT_FALSE(waits());
}

TEST_F(LinePrinterTest, WhatIsNotTakenWaits) {
  room = 2;
  printer.print("one");
  printer.print("two");
  EXPECT_EQ(printed, "on");
  EXPECT_TRUE(waits());
  room = 3;
  tick();
  EXPECT_EQ(printed, "one\nt");
  room = std::string::npos;
  tick();
  EXPECT_EQ(printed, "one\ntwo\n");
  EXPECT_FALSE(waits());
}

TEST_F(LinePrinterTest, BeyondItsRoomLinesAreDroppedAndCounted) {
  room = 0;
  const std::string line(1023, 'x');
  for (int i = 0; i < 100; ++i) printer.print(line);
  room = std::string::npos;
  tick();
  std::string expected;
  for (std::size_t i = 0; i < LinePrinter::kMostWaiting / 1024; ++i) expected += line + '\n';
  EXPECT_EQ(printed, expected + "(36 lines dropped: nobody read)\n");
  printer.print("goes on");
  EXPECT_TRUE(printed.ends_with(")\ngoes on\n"));
}

TEST_F(LinePrinterTest, ALineStaysOneAndMovesNoCursor) {
  printer.print("a\tb\r\nc\nd\x1b[2J");
  EXPECT_EQ(printed, "a\tb||c\\x0ad\\x1b[2J\n");
}

TEST_F(LinePrinterTest, ALineHasABound) {
  printer.print(std::string(LinePrinter::kMostWaiting * 3, 'x'));
  EXPECT_EQ(printed.size(), LinePrinter::kMostWaiting + 1);
}

}  // namespace

}  // namespace quorvane
