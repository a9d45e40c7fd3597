#include "http/side_work.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/fake/fake_event_loop.h"

namespace quorvane {

namespace {

class SideWorkTest : public testing::Test {
 protected:
  void add(const std::string& owner, const std::string& name, bool needed = true) {
    addOf(name, owner, name, needed);
  }
  void addOf(const std::string& target, const std::string& owner, const std::string& name,
             bool needed = true) {
    Making making{target, [this, name] {
                    made.push_back(name);
                    if (name == "broken") throw std::runtime_error("no memory");
                  }};
    work.add(owner, {std::move(making), [needed] { return needed; },
                     [this, name] { done.push_back(name); }});
  }
  using Texts = std::vector<std::string>;

  FakeEventLoop loop;
  SideWork work{loop};
  Texts made;
  Texts done;
};

}  // namespace

TEST_F(SideWorkTest, OwnersTakeTurns) {
  for (const char* name : {"a1", "a2", "a3", "a4", "a5"}) add("a", name);
  add("b", "b1");
  EXPECT_TRUE(done.empty());
  loop.runPosted();
  EXPECT_EQ(done, (Texts{"a1", "a2", "a3", "b1", "a4", "a5"}));
  EXPECT_EQ(made, done);
}

TEST_F(SideWorkTest, WhatIsBeingMadeIsNotMadeASecondTime) {
  addOf("copy", "a", "a1");
  addOf("copy", "b", "b1");
  addOf("copy", "c", "gone", false);
  addOf("other", "d", "d1");
  loop.runPosted();
  EXPECT_EQ(made, (Texts{"a1", "d1"}));
  EXPECT_EQ(done, (Texts{"a1", "b1", "gone", "d1"}));
  addOf("copy", "a", "a2");  // not kept, so it is asked for again
  loop.runPosted();
  EXPECT_EQ(made, (Texts{"a1", "d1", "a2"}));
}

TEST_F(SideWorkTest, WhatIsNotNeededAnyMoreIsNotMade) {
  add("a", "gone", false);
  add("a", "broken");
  loop.runPosted();
  EXPECT_EQ(made, (Texts{"broken"}));
  EXPECT_EQ(done, (Texts{"gone", "broken"}));
}

}  // namespace quorvane
