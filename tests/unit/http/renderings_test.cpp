#include "http/renderings.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/fake/fake_event_loop.h"

namespace quorvane {

namespace {

class RecordingImages final : public ImageLibrary {
 public:
  bool render(const std::string& source, const std::string&, const ImageRendering&) override {
    rendered.push_back(source);
    if (source == "broken") throw std::runtime_error("no memory");
    return true;
  }
  std::vector<std::string> rendered;
};

class RenderingsTest : public testing::Test {
 protected:
  void add(const std::string& owner, const std::string& source, bool needed = true) {
    renderings.add(owner,
                   {source,
                    source + " copy",
                    {},
                    [needed] { return needed; },
                    [this, source](bool made) { done.push_back(source + (made ? "" : " not")); }});
  }
  using Texts = std::vector<std::string>;

  FakeEventLoop loop;
  RecordingImages images;
  Renderings renderings{loop, &images};
  Texts done;
};

}  // namespace

TEST_F(RenderingsTest, OwnersTakeTurns) {
  for (const char* source : {"a1", "a2", "a3", "a4", "a5"}) add("a", source);
  add("b", "b1");
  EXPECT_TRUE(done.empty());
  loop.runPosted();
  EXPECT_EQ(done, (Texts{"a1", "a2", "a3", "b1", "a4", "a5"}));
}

TEST_F(RenderingsTest, WhatIsNotNeededAnyMoreIsNotRendered) {
  add("a", "gone", false);
  add("a", "broken");
  loop.runPosted();
  EXPECT_EQ(images.rendered, (Texts{"broken"}));
  EXPECT_EQ(done, (Texts{"gone not", "broken not"}));
}

TEST_F(RenderingsTest, WithoutALibraryNothingIsMade) {
  Renderings none(loop, nullptr);
  std::string told;
  none.add("a",
           {"s", "t", {}, [] { return true; }, [&](bool made) { told = made ? "yes" : "no"; }});
  loop.runPosted();
  EXPECT_EQ(told, "no");
}

}  // namespace quorvane
