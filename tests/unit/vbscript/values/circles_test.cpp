#include "vbscript/values/circles.h"

#include <gtest/gtest.h>

#include <string>

#include "testing.h"

namespace quorvane::vbs {
namespace {

/// Writes its letter when it ends.
class Node : public Object {
 public:
  Node(std::string& ended, char letter) : ended_(ended), letter_(letter) {}
  ~Node() override { ended_ += letter_; }
  std::string_view typeName() const override { return "Node"; }
  MemberId findMember(std::string_view) override { return kNoMember; }
  Value invoke(MemberId, CallKind, Args) override { throwError(ErrorCode::NoPropertyOrMethod); }
  void visitReferences(ReferenceVisitor& visitor) override {
    if (!shows) return;
    visitor.value(first);
    visitor.value(second);
  }

  Value first;
  Value second;
  bool shows = true;

 private:
  std::string& ended_;
  char letter_;
};

class CirclesTest : public ::testing::Test {
 protected:
  ~CirclesTest() override { endCircles(nullptr); }

  Ref<Node> node(char letter) { return make<Node>(ended, letter); }
  static Value to(const Ref<Node>& node) { return Value::object(node.get()); }
  static Value arrayOf(Value element) {
    std::vector<Value> elements;
    elements.push_back(std::move(element));
    return Value::array(ArrayRep::fromValues(std::move(elements)));
  }
  /// Two that hold each other, and a third that one of them holds.
  void makeCircle() {
    const auto a = node('a');
    const auto b = node('b');
    const auto c = node('c');
    a->first = to(b);
    b->first = to(a);
    b->second = to(c);
  }

  std::string ended;
};

TEST_F(CirclesTest, EndWithWhatTheyHold) {
  makeCircle();
  EXPECT_EQ(ended, "");
  endCircles(nullptr);
  EXPECT_EQ(ended.size(), 3u);
}

TEST_F(CirclesTest, MayRunThroughArrays) {
  {
    const auto a = node('a');
    const Value inner = arrayOf(to(a));
    a->first = arrayOf(inner);
    a->second = inner;
  }
  endCircles(nullptr);
  EXPECT_EQ(ended, "a");
}

TEST_F(CirclesTest, StayWhenOneOfThemIsHeldFromOutside) {
  Value held;
  {
    const auto a = node('a');
    const auto b = node('b');
    a->first = to(b);
    b->first = arrayOf(to(a));
    held = b->first;  // the array between them
  }
  makeCircle();
  endCircles(nullptr);
  EXPECT_EQ(ended.size(), 3u);
  held = Value();
  endCircles(nullptr);
  EXPECT_EQ(ended.size(), 5u);
}

TEST_F(CirclesTest, StayWhenOlder) {
  makeCircle();
  const auto since = node('s');
  endCircles(since.get());
  EXPECT_EQ(ended, "");
  makeCircle();
  endCircles(since.get());
  EXPECT_EQ(ended.size(), 3u);
}

TEST_F(CirclesTest, StayWhenAnObjectDoesNotShowWhatItHolds) {
  makeCircle();
  Node* hider = nullptr;
  {
    const auto a = node('A');
    const auto b = node('B');
    a->first = to(b);
    b->first = to(a);
    b->shows = false;
    hider = b.get();
  }
  endCircles(nullptr);
  EXPECT_EQ(ended.size(), 3u);
  hider->shows = true;
}

/// Looks for circles while it ends.
class Searching : public Node {
 public:
  using Node::Node;
  ~Searching() override { endCircles(nullptr); }
};

TEST_F(CirclesTest, MayBeLookedForWhileObjectsEnd) {
  {
    const auto a = node('a');
    a->first = Value::adopt(new Searching(ended, 's'));
    a->second = to(node('b'));
  }
  makeCircle();
  {
    const auto a = node('A');
    a->first = to(a);
    a->second = Value::adopt(new Searching(ended, 'S'));
  }
  endCircles(nullptr);
  EXPECT_EQ(ended.size(), 8u);
}

}  // namespace
}  // namespace quorvane::vbs
