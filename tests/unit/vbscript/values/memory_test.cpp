#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>

#include "testing.h"
#include "vbscript/values/object.h"
#include "vbscript/values/operators.h"

namespace quorvane::vbs {
namespace {

using testing::errorOf;

class Link : public Object {
 public:
  explicit Link(int& ended) : ended_(ended) {}
  ~Link() override { ++ended_; }
  std::string_view typeName() const override { return "Link"; }
  MemberId findMember(std::string_view) override { return kNoMember; }
  Value invoke(MemberId, CallKind, Args) override { throwError(ErrorCode::NoPropertyOrMethod); }

  Value next;

 private:
  int& ended_;
};

ArrayRep* vectorOf(std::int32_t extent) {
  return ArrayRep::create({&extent, 1});
}

TEST(MemoryTest, AMillionLinkedObjectsEndWithoutDeepRecursion) {
  int ended = 0;
  {
    Value chain;
    for (int i = 0; i < 1'000'000; ++i) {
      auto link = make<Link>(ended);
      link->next = std::move(chain);
      chain = Value::object(link.get());
    }
    EXPECT_EQ(ended, 0);
  }
  EXPECT_EQ(ended, 1'000'000);
}

TEST(MemoryTest, DeeplyNestedArraysEndWithoutDeepRecursion) {
  const std::int64_t before = runContext.memory.used;
  {
    Value nest;
    for (int i = 0; i < 1'000'000; ++i) {
      Value outer = Value::array(vectorOf(1));
      *outer.asArray()->at(0) = std::move(nest);
      nest = std::move(outer);
    }
  }
  EXPECT_EQ(runContext.memory.used, before);
}

TEST(MemoryTest, AnObjectEndsAtItsLastRelease) {
  int ended = 0;
  Value a = Value::adopt(new Link(ended));
  Value b = a;
  a = Value();
  EXPECT_EQ(ended, 0);
  b = Value::longInt(1);
  EXPECT_EQ(ended, 1);
}

TEST(MemoryTest, StringsAndArraysAreCharged) {
  const std::int64_t before = runContext.memory.used;
  {
    const String text(std::string(1000, 'x'));
    EXPECT_GE(runContext.memory.used - before, 1000);
    const Value row = Value::array(vectorOf(1000));
    EXPECT_GE(runContext.memory.used - before, 17'000);
  }
  EXPECT_EQ(runContext.memory.used, before);
}

TEST(MemoryTest, PassingTheLimitIsOutOfMemoryAndLeavesTheTargetWhole) {
  Value text{std::string_view("0123456789abcdef")};
  runContext.memory.limit = runContext.memory.used + 100'000;
  int error = 0;
  for (int i = 0; i < 20'000 && error == 0; ++i) {
    error = errorOf([&] { appendTo(text, Value("0123456789")); });
  }
  const std::size_t length = text.asString().length();
  const int arrayError = errorOf([] { vectorOf(1'000'000); });
  runContext.memory.limit = INT64_MAX;
  EXPECT_EQ(error, 7);
  EXPECT_EQ(arrayError, 7);
  EXPECT_GT(length, 60'000u);
  EXPECT_EQ((length - 16) % 10, 0u);
}

TEST(ArrayTest, ElementsStandInColumnOrder) {
  const std::array<std::int32_t, 2> extents{2, 3};
  const Value array = Value::array(ArrayRep::create(extents));
  ArrayRep& rep = *array.asArray();
  *rep.at(1, 2) = Value::integer(7);
  EXPECT_EQ(rep.elements[5].asInt(), 7);
  const std::array<std::int32_t, 2> indexes{1, 2};
  EXPECT_EQ(rep.at(indexes), rep.at(1, 2));
  EXPECT_EQ(rep.at(2, 0), nullptr);
  EXPECT_EQ(rep.at(0, 3), nullptr);
  EXPECT_EQ(rep.at(0, -1), nullptr);
  EXPECT_EQ(rep.at(0), nullptr);
}

TEST(ArrayTest, IndexesMayBeginElsewhere) {
  const std::array<std::int32_t, 2> extents{2, 3};
  const std::array<std::int32_t, 2> lowerBounds{1, -1};
  Value array = Value::array(ArrayRep::create(extents, lowerBounds));
  const auto at = [&](std::int32_t row, std::int32_t column) {
    const std::array<std::int32_t, 2> indexes{row, column};
    return array.asArray()->at(indexes);
  };
  *at(2, 1) = Value::integer(7);
  EXPECT_EQ(array.asArray()->elements[5].asInt(), 7);
  EXPECT_EQ(at(1, -1), array.asArray()->elements);
  for (const auto& [row, column] : {std::pair(0, 0), std::pair(3, 0), std::pair(1, 2)}) {
    EXPECT_EQ(at(row, column), nullptr);
    EXPECT_EQ(array.asArray()->at(row, column), nullptr);
  }
  const Value other = array;
  EXPECT_TRUE(std::ranges::equal(array.writableArray()->lowerBounds(), lowerBounds));
  std::vector<Value> cut;
  EXPECT_EQ(errorOf([&] { ArrayRep::resized(array.asArray(), extents, cut); }), 9);

  const std::array<std::int32_t, 1> last{INT32_MAX};
  const Value vector = Value::array(ArrayRep::create({extents.data(), 1}, last));
  EXPECT_EQ(vector.asArray()->at(0), nullptr);
  EXPECT_EQ(vector.asArray()->at(last), vector.asArray()->elements);
}

TEST(ArrayTest, WritersCloneASharedBody) {
  Value a = Value::array(vectorOf(2));
  *a.asArray()->at(0) = Value("x");
  Value b = a;
  *b.writableArray()->at(0) = Value("y");
  EXPECT_EQ(a.asArray()->at(0)->asString().narrow(), "x");
  EXPECT_EQ(b.asArray()->at(0)->asString().narrow(), "y");
}

TEST(ArrayTest, ResizingKeepsElementsAndTheOtherExtents) {
  const std::array<std::int32_t, 2> extents{2, 2};
  ArrayRep* rep = ArrayRep::create(extents);
  *rep->at(1, 1) = Value("kept");
  std::vector<Value> cut;
  const std::array<std::int32_t, 2> larger{2, 4};
  rep = ArrayRep::resized(rep, larger, cut);
  EXPECT_EQ(rep->at(1, 1)->asString().narrow(), "kept");
  EXPECT_TRUE(rep->at(1, 3)->isEmpty());
  const std::array<std::int32_t, 2> other{3, 4};
  EXPECT_EQ(errorOf([&] { ArrayRep::resized(rep, other, cut); }), 9);
  const std::array<std::int32_t, 2> smaller{2, 1};
  const Value array = Value::array(ArrayRep::resized(rep, smaller, cut));
  EXPECT_EQ(array.asArray()->count, 2u);
  ASSERT_EQ(cut.size(), 6u);
  EXPECT_EQ(cut[1].asString().narrow(), "kept");
}

TEST(ArrayTest, ResizingASharedBodyLeavesTheOtherHolderAlone) {
  const Value a = Value::array(vectorOf(2));
  *a.asArray()->at(0) = Value("x");
  Value b = a;
  ++b.asArray()->references;
  const std::int32_t extent = 5;
  std::vector<Value> cut;
  const Value c = Value::array(ArrayRep::resized(b.asArray(), {&extent, 1}, cut));
  EXPECT_EQ(a.asArray()->count, 2u);
  EXPECT_EQ(a.asArray()->references, 2u);
  EXPECT_EQ(c.asArray()->at(0)->asString().narrow(), "x");
}

TEST(ArrayTest, BoundsAreChecked) {
  const std::int32_t negative = -1;
  EXPECT_EQ(errorOf([&] { ArrayRep::create({&negative, 1}); }), 9);
  const std::array<std::int32_t, 4> huge{1 << 30, 1 << 30, 1 << 30, 1 << 30};
  EXPECT_EQ(errorOf([&] { ArrayRep::create(huge); }), 7);
  const std::int32_t none = 0;
  const Value array = Value::array(ArrayRep::create({&none, 1}));
  EXPECT_EQ(array.asArray()->at(0), nullptr);
}

TEST(ArrayTest, ByteArraysGiveBytesButNoVariantElements) {
  const Value array = Value::array(ArrayRep::fromBytes("A\xFF"));
  EXPECT_EQ(array.asArray()->element(1).asInt(), 255);
  EXPECT_EQ(array.asArray()->at(0), nullptr);
  EXPECT_EQ(typeName(array), "Byte()");
  EXPECT_EQ(varType(array), 8209);
  EXPECT_EQ(toString(array).byteLength(), 2u);
}

}  // namespace
}  // namespace quorvane::vbs
