#include "console/terminal_layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace quorvane {

namespace {

constexpr std::array<std::size_t, 2> kCaptions = {10, 9};

TerminalLayout layout(int rows, int columns, FormModel::List wanted = FormModel::kStatus) {
  return layoutFor(rows, columns, wanted, kCaptions);
}

std::vector<TerminalArea> shownAreas(const TerminalLayout& l) {
  std::vector<TerminalArea> areas{l.title, l.text, l.hints};
  areas.insert(areas.end(), l.lists.begin(), l.lists.end());
  areas.insert(areas.end(), l.buttons.begin(), l.buttons.end());
  std::erase_if(areas, [](const TerminalArea& a) { return a.empty(); });
  return areas;
}

bool overlap(const TerminalArea& a, const TerminalArea& b) {
  return a.row < b.row + b.rows && b.row < a.row + a.rows && a.column < b.column + b.columns &&
         b.column < a.column + a.columns;
}

TEST(TerminalLayout, ShowsEverythingOnAnOrdinaryScreen) {
  const TerminalLayout l = layout(24, 80);
  EXPECT_EQ(l.title, (TerminalArea{0, 0, 1, 80}));
  EXPECT_EQ(l.lists[FormModel::kSockets], (TerminalArea{1, 0, 6, 40}));
  EXPECT_EQ(l.lists[FormModel::kSessions], (TerminalArea{1, 40, 6, 40}));
  EXPECT_EQ(l.lists[FormModel::kStatus], (TerminalArea{7, 0, 12, 80}));
  EXPECT_EQ(l.text, (TerminalArea{19, 0, 4, 80}));
  EXPECT_EQ(l.buttons[0], (TerminalArea{23, 1, 1, 14}));
  EXPECT_EQ(l.buttons[1], (TerminalArea{23, 17, 1, 13}));
  EXPECT_FALSE(l.hints.empty());
}

TEST(TerminalLayout, ShowsTheWantedListWhereThereIsRoomForOne) {
  for (const auto wanted : {FormModel::kStatus, FormModel::kSockets, FormModel::kSessions}) {
    const TerminalLayout l = layout(12, 80, wanted);
    for (const auto list : {FormModel::kStatus, FormModel::kSockets, FormModel::kSessions}) {
      EXPECT_EQ(l.lists[list].empty(), list != wanted);
    }
    EXPECT_FALSE(layout(40, 30, wanted).lists[wanted].empty());
  }
}

TEST(TerminalLayout, GivesUpBordersLast) {
  EXPECT_TRUE(layout(5, 80).bordered);
  EXPECT_FALSE(layout(4, 80).bordered);
  EXPECT_EQ(layout(1, 80).lists[FormModel::kStatus], (TerminalArea{0, 0, 1, 80}));
}

TEST(TerminalLayout, FitsEverySize) {
  for (int rows = 1; rows <= 60; ++rows) {
    for (int columns = 1; columns <= 140; ++columns) {
      const auto areas = shownAreas(layout(rows, columns));
      for (std::size_t i = 0; i < areas.size(); ++i) {
        const TerminalArea& a = areas[i];
        ASSERT_TRUE(a.row >= 0 && a.column >= 0 && a.row + a.rows <= rows &&
                    a.column + a.columns <= columns)
            << rows << " x " << columns;
        for (std::size_t j = i + 1; j < areas.size(); ++j) {
          ASSERT_FALSE(overlap(a, areas[j])) << rows << " x " << columns;
        }
      }
      ASSERT_FALSE(layout(rows, columns).lists[FormModel::kStatus].empty());
    }
  }
}

}  // namespace

}  // namespace quorvane
