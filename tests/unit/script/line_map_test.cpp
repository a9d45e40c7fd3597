#include "script/translation/line_map.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

std::string shown(const std::optional<LineMap::Place>& place) {
  if (!place) return "nowhere";
  return place->file + ':' + std::to_string(place->line) + ':' + std::to_string(place->column);
}

TEST(LineMap, LeadsFromLinesToFiles) {
  LineMap map;
  const std::uint32_t page = map.file("page");
  const std::uint32_t part = map.file("part");
  EXPECT_EQ(map.file("page"), page);
  map.add(page, 1, 0);
  map.add(part, 7, 4);
  map.add(page, 3, -9);
  EXPECT_EQ(map.size(), 3u);
  EXPECT_EQ(shown(map.place(1, 5)), "page:1:5");
  EXPECT_EQ(shown(map.place(2, 5)), "part:7:9");
  EXPECT_EQ(shown(map.place(3, 5)), "page:3:1");
  EXPECT_EQ(shown(map.place(2, 0)), "part:7:0");
  EXPECT_EQ(shown(map.place(0, 1)), "nowhere");
  EXPECT_EQ(shown(map.place(9, 5)), "page:3:0");
  EXPECT_EQ(shown(LineMap().place(1, 1)), "nowhere");
}

TEST(LineMap, TurnsWithinALine) {
  LineMap map;
  const std::uint32_t page = map.file("page");
  const std::uint32_t part = map.file("part");
  map.add(page, 1, 0);
  map.add(page, 2, 2);
  map.turn(10, page, 2, -3);
  map.turn(20, part, 5, -19);
  map.add(page, 3, 0);
  EXPECT_EQ(shown(map.place(1, 30)), "page:1:30");
  EXPECT_EQ(shown(map.place(2, 0)), "page:2:0");
  EXPECT_EQ(shown(map.place(2, 3)), "page:2:5");
  EXPECT_EQ(shown(map.place(2, 9)), "page:2:7");  // what was put in has no columns of its own
  EXPECT_EQ(shown(map.place(2, 10)), "page:2:7");
  EXPECT_EQ(shown(map.place(2, 19)), "page:2:16");
  EXPECT_EQ(shown(map.place(2, 20)), "part:5:1");
  EXPECT_EQ(shown(map.place(3, 20)), "page:3:20");
}

}  // namespace

}  // namespace quorvane
