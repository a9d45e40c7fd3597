#include "console/terminal_scroll.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

TEST(TerminalScroll, FollowsTheNewestLine) {
  TerminalScroll scroll(true);
  scroll.fit(0, 3, 5);
  EXPECT_EQ(scroll.top(), 0);
  EXPECT_EQ(scroll.selected(), 2);
  scroll.fit(0, 12, 5);
  EXPECT_EQ(scroll.top(), 7);
  EXPECT_EQ(scroll.selected(), 11);
  EXPECT_EQ(scroll.below(), 0);
}

TEST(TerminalScroll, StaysWhereTheUserScrolledTo) {
  TerminalScroll scroll(true);
  scroll.fit(0, 20, 5);
  scroll.scroll(-3);
  EXPECT_FALSE(scroll.following());
  scroll.fit(0, 30, 5);
  EXPECT_EQ(scroll.top(), 12);
  EXPECT_EQ(scroll.selected(), 19);
  EXPECT_EQ(scroll.below(), 13);
}

TEST(TerminalScroll, FollowsAgainAtTheEnd) {
  TerminalScroll scroll(true);
  scroll.fit(0, 20, 5);
  scroll.scroll(-3);
  scroll.scroll(100);
  EXPECT_TRUE(scroll.following());
  scroll.fit(0, 21, 5);
  EXPECT_EQ(scroll.selected(), 20);
}

TEST(TerminalScroll, KeepsItsLinesWhenOldOnesAreDropped) {
  TerminalScroll scroll(true);
  scroll.fit(0, 100, 10);
  scroll.select(50);
  scroll.scrollTo(45);
  scroll.fit(30, 100, 10);
  EXPECT_EQ(scroll.top(), 15);
  EXPECT_EQ(scroll.selected(), 20);
  scroll.fit(60, 100, 10);
  EXPECT_EQ(scroll.top(), 0);
  EXPECT_EQ(scroll.selected(), -1);
}

TEST(TerminalScroll, FollowsFromTheStartAfterAClear) {
  TerminalScroll scroll(true);
  scroll.fit(10, 100, 10);
  scroll.scroll(-20);
  scroll.fit(0, 0, 10);
  EXPECT_EQ(scroll.top(), 0);
  EXPECT_EQ(scroll.selected(), -1);
  scroll.fit(0, 15, 10);
  EXPECT_EQ(scroll.top(), 5);
  EXPECT_EQ(scroll.selected(), 14);
}

TEST(TerminalScroll, KeepsItsPlaceInAListThatIsFilledAnew) {
  TerminalScroll scroll(false);
  scroll.fit(0, 20, 5);
  EXPECT_EQ(scroll.top(), 0);
  EXPECT_EQ(scroll.selected(), -1);
  scroll.select(10);
  scroll.fit(0, 19, 5);
  EXPECT_EQ(scroll.top(), 6);
  EXPECT_EQ(scroll.selected(), 10);
  scroll.fit(0, 8, 5);
  EXPECT_EQ(scroll.top(), 3);
  EXPECT_EQ(scroll.selected(), 7);
}

TEST(TerminalScroll, MovesTheViewOnlyAsFarAsTheSelectionNeeds) {
  TerminalScroll scroll(true);
  scroll.fit(0, 20, 5);
  scroll.moveSelection(-1);
  EXPECT_EQ(scroll.selected(), 18);
  EXPECT_EQ(scroll.top(), 15);
  scroll.moveSelection(-6);
  EXPECT_EQ(scroll.selected(), 12);
  EXPECT_EQ(scroll.top(), 12);
  scroll.moveSelection(-100);
  EXPECT_EQ(scroll.selected(), 0);
  EXPECT_EQ(scroll.top(), 0);
  scroll.moveSelection(100);
  EXPECT_TRUE(scroll.following());
}

TEST(TerminalScroll, BeginsWithTheFirstVisibleLine) {
  TerminalScroll scroll(false);
  scroll.fit(0, 20, 5);
  scroll.scrollTo(4);
  scroll.moveSelection(1);
  EXPECT_EQ(scroll.selected(), 4);
}

TEST(TerminalScroll, IsAtHomeInAnEmptyListAndInNoRoom) {
  TerminalScroll scroll(true);
  scroll.fit(0, 0, 0);
  scroll.moveSelection(-1);
  scroll.select(3);
  scroll.scroll(5);
  EXPECT_EQ(scroll.top(), 0);
  EXPECT_EQ(scroll.selected(), -1);
  scroll.fit(0, 3, -2);
  EXPECT_EQ(scroll.top(), 2);
}

}  // namespace

}  // namespace quorvane
