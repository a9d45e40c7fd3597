#include "console/form_model.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

TEST(FormModelTest, ControlsHaveTheirNamesIndicesAndCaptions) {
  FormModel form;
  EXPECT_EQ(form.name, "mainForm");
  EXPECT_EQ(form.Label1[0].caption, "Sockets");
  EXPECT_EQ(form.Label1[1].caption, "Sessions");
  EXPECT_EQ(form.Label1[2].caption, "Log");
  EXPECT_EQ(form.btt[0].caption, "Start/Stop");
  EXPECT_EQ(form.btt[1].caption, "Clear Log");
  const auto controls = form.controls();
  EXPECT_EQ(form.closing.caption, "Press q again to end the server");
  EXPECT_EQ(form.copying.caption, "Copy");
  EXPECT_EQ(form.copyingAll.caption, "Copy All");
  ASSERT_EQ(controls.size(), 9U);
  EXPECT_EQ(controls[0]->name, "dbgText");
  EXPECT_EQ(controls[5]->name, "btt");
  EXPECT_EQ(controls[5]->index, 1);
  EXPECT_EQ(controls[6]->name, "closing");
  EXPECT_EQ(controls[7]->name, "copying");
  EXPECT_EQ(controls[8]->name, "copyingAll");
}

TEST(ListModelTest, ABoundedListKeepsTheNewestAndItsSelection) {
  ListModel list({3, 1000});
  for (const char* line : {"a", "b", "c"}) list.add(line);
  list.select(1);
  list.add("d");
  EXPECT_EQ(list.lines(), (std::deque<std::string>{"b", "c", "d"}));
  EXPECT_EQ(list.selected(), 0);
  EXPECT_EQ(list.dropped(), 1U);
  list.add("e");
  EXPECT_EQ(list.selected(), -1) << "its line is gone";
  list.add("f");
  EXPECT_EQ(list.selected(), -1);
}

TEST(ListModelTest, TheStatusListKeepsTenThousandLines) {
  FormModel form;
  for (int i = 0; i < 10'005; ++i) form.llist[0].add(std::to_string(i));
  EXPECT_EQ(form.llist[0].lines().size(), 10'000U);
  EXPECT_EQ(form.llist[0].lines().front(), "5");
}

TEST(ListModelTest, ABoundOfBytesMakesRoomTheSameWay) {
  ListModel list({10, 6});
  for (const char* line : {"a", "bb", "ccc"}) list.add(line);
  EXPECT_EQ(list.lines().size(), 3U);
  list.select(2);
  list.add("dd");
  EXPECT_EQ(list.lines(), (std::deque<std::string>{"ccc", "dd"}));
  EXPECT_EQ(list.selected(), 0);
  EXPECT_EQ(list.dropped(), 2U);
  list.add("longer than all");
  EXPECT_EQ(list.lines(), (std::deque<std::string>{"longer"}));
  list.clear();
  list.add("a");
  list.add("bbbbb");
  EXPECT_EQ(list.lines().size(), 2U) << "what was cleared takes no room";
}

TEST(ListModelTest, TheStatusListKeepsEightMebibytes) {
  FormModel form;
  for (int i = 0; i < 20; ++i) form.llist[0].add(std::string(std::size_t{1} << 20, 'x'));
  EXPECT_EQ(form.llist[0].lines().size(), 8U);
}

TEST(ListModelTest, SelectingOutsideSelectsNothing) {
  ListModel list;
  list.add("a");
  list.select(0);
  EXPECT_EQ(list.selected(), 0);
  list.select(1);
  EXPECT_EQ(list.selected(), -1);
  list.select(-7);
  EXPECT_EQ(list.selected(), -1);
  list.select(0);
  list.clear();
  EXPECT_EQ(list.selected(), -1);
  EXPECT_TRUE(list.lines().empty());
}

}  // namespace

}  // namespace quorvane
