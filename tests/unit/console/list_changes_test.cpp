#include "console/list_changes.h"

#include <gmock/gmock.h>

namespace quorvane {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

/// A window that keeps the lines it is told of.
struct Shown {
  std::vector<std::string> lines;
  std::size_t gone = 0;

  void take(ListChanges& changes) {
    const ServerWindowLines next = changes.take();
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(next.dropped));
    lines.insert(lines.end(), next.added.begin(), next.added.end());
    gone += next.dropped;
  }
  void bringUpToDate(ListChanges& changes, const ListModel& list) {
    changes.collect(list);
    take(changes);
  }
};

TEST(ListChangesTest, TellsOnlyWhatIsNew) {
  ListChanges changes(false);
  ListModel list;
  Shown shown;
  list.add("a");
  shown.bringUpToDate(changes, list);
  EXPECT_THAT(shown.lines, ElementsAre("a"));
  list.add("b");
  changes.collect(list);
  list.add("c");
  changes.collect(list);
  const ServerWindowLines next = changes.take();
  EXPECT_EQ(next.dropped, 0U);
  EXPECT_THAT(next.added, ElementsAre("b", "c"));
  changes.collect(list);
  EXPECT_TRUE(changes.empty());
}

TEST(ListChangesTest, LinesThatMakeRoomGo) {
  ListChanges changes(false);
  ListModel list({3, 1000});
  Shown shown;
  for (int round = 0; round < 40; ++round) {
    for (int i = 0; i < round % 7; ++i) list.add(std::to_string(round) + "." + std::to_string(i));
    changes.collect(list);
    if (round % 3 == 0) shown.take(changes);
  }
  shown.bringUpToDate(changes, list);
  EXPECT_THAT(shown.lines, ElementsAreArray(list.lines()));
}

TEST(ListChangesTest, AClearedListIsTold) {
  ListChanges changes(false);
  ListModel list({3, 1000});
  Shown shown;
  for (const char* line : {"a", "b", "c", "d"}) list.add(line);
  shown.bringUpToDate(changes, list);
  list.clear();
  for (const char* line : {"1", "2", "3", "4", "5"}) list.add(line);
  shown.bringUpToDate(changes, list);
  EXPECT_THAT(shown.lines, ElementsAre("3", "4", "5"));
  list.clear();
  shown.bringUpToDate(changes, list);
  EXPECT_THAT(shown.lines, IsEmpty());
}

TEST(ListChangesTest, ALineIsFoundByItsNumberWhileItIsThere) {
  ListChanges changes(false);
  ListModel list({3, 1000});
  Shown shown;
  for (const char* line : {"a", "b", "c", "d"}) list.add(line);
  shown.bringUpToDate(changes, list);
  const std::size_t ofD = shown.gone + 2;
  EXPECT_EQ(changes.placeOf(ofD), 2);
  list.add("e");
  list.add("f");
  changes.collect(list);
  EXPECT_EQ(changes.placeOf(ofD), 0) << "it has moved, though the window doesn't know yet";
  EXPECT_EQ(changes.placeOf(ofD + 1), std::nullopt) << "the window has no such line";
  list.add("g");
  changes.collect(list);
  EXPECT_EQ(changes.placeOf(ofD), std::nullopt);
  shown.take(changes);
  EXPECT_EQ(changes.placeOf(shown.gone), 0);
}

TEST(ListChangesTest, AListMadeAnewOfTheSameLinesHasNotChanged) {
  ListChanges changes(true);
  ListModel list;
  Shown shown;
  const auto remake = [&](const std::vector<std::string>& lines) {
    list.clear();
    for (const std::string& line : lines) list.add(line);
    changes.collect(list);
  };
  remake({"a", "b"});
  EXPECT_FALSE(changes.empty());
  shown.take(changes);
  remake({"a", "b"});
  EXPECT_TRUE(changes.empty());
  remake({"a"});
  remake({"c", "d"});
  shown.take(changes);
  EXPECT_THAT(shown.lines, ElementsAre("c", "d"));
}

}  // namespace

}  // namespace quorvane
