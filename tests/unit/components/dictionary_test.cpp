#include "components/dictionary.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "components/components.h"
#include "testing/fake_services.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"

namespace quorvane {

namespace {

using vbs::CallKind;
using vbs::Value;

const FakeServices<> outside;

Value newDictionary() {
  return kDictionary.create(outside.services);
}

class DictionaryTest : public testing::Test {
 protected:
  static int errorOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const vbs::ScriptError& error) {
      return error.number;
    }
    return 0;
  }

  Value use(std::string_view member, CallKind kind, std::vector<Value> args) {
    vbs::Object& object = *dictionary_.asObject();
    return object.invoke(object.findMember(member), kind, args);
  }
  Value get(std::string_view member, std::vector<Value> args = {}) {
    return use(member, CallKind::Get, std::move(args));
  }
  void put(Value key, Value item) {
    std::vector<Value> args{std::move(key), std::move(item)};
    dictionary_.asObject()->invoke(vbs::kDefaultMember, CallKind::Let, args);
  }
  void add(Value key, Value item) { use("add", CallKind::Call, {std::move(key), std::move(item)}); }
  bool exists(Value key) { return get("exists", {std::move(key)}).asBoolean(); }
  int count() { return get("count").asInt(); }
  /// The keys or items, joined with blanks.
  std::string list(std::string_view member) {
    const Value array = get(member);
    std::string joined;
    for (std::size_t i = 0; i < array.asArray()->count; ++i) {
      joined +=
          (i > 0 ? " " : "") + vbs::toString(*array.asArray()->at(static_cast<int>(i))).narrow();
    }
    return joined;
  }

  Value dictionary_ = newDictionary();
};

TEST_F(DictionaryTest, AddsFindsAndRemoves) {
  add(Value("a"), Value::integer(1));
  add(Value("b"), Value::integer(2));
  EXPECT_EQ(count(), 2);
  EXPECT_TRUE(exists(Value("a")));
  EXPECT_FALSE(exists(Value("A")));
  EXPECT_EQ(get("item", {Value("b")}).asInt(), 2);
  use("remove", CallKind::Call, {Value("a")});
  EXPECT_FALSE(exists(Value("a")));
  EXPECT_EQ(list("keys"), "b");
  EXPECT_EQ(errorOf([&] { add(Value("b"), Value()); }), 457);
  EXPECT_EQ(errorOf([&] { get("remove", {Value("zz")}); }), 32811);
}

TEST_F(DictionaryTest, ReadingAMissingKeyAddsIt) {
  EXPECT_TRUE(get("item", {Value("new")}).isEmpty());
  EXPECT_EQ(count(), 1);
  put(Value("other"), Value::integer(5));
  EXPECT_EQ(count(), 2);
}

TEST_F(DictionaryTest, ShowsThePlaceOfAnItem) {
  vbs::Object& object = *dictionary_.asObject();
  EXPECT_EQ(object.itemPlace(Value("k")), nullptr);
  EXPECT_EQ(count(), 0);
  put(Value("k"), Value("text"));
  Value* place = object.itemPlace(Value("k"));
  ASSERT_NE(place, nullptr);
  *place = Value("other");
  EXPECT_EQ(list("items"), "other");
}

TEST_F(DictionaryTest, KeysOfAllTypes) {
  put(Value::integer(1), Value("one"));
  EXPECT_TRUE(exists(Value::number(1.0)));
  EXPECT_TRUE(exists(Value::longInt(1)));
  EXPECT_TRUE(exists(Value::currency(10000)));
  EXPECT_FALSE(exists(Value("1")));
  put(Value::number(-0.0), Value("zero"));
  EXPECT_TRUE(exists(Value::integer(0)));
  EXPECT_FALSE(exists(Value()));
  put(Value(), Value("empty"));
  put(Value::null(), Value("null"));
  EXPECT_EQ(get("item", {Value()}).asString().narrow(), "empty");
  EXPECT_EQ(get("item", {Value::null()}).asString().narrow(), "null");
  const Value a = newDictionary();
  const Value b = newDictionary();
  put(a, Value("object"));
  EXPECT_TRUE(exists(a));
  EXPECT_FALSE(exists(b));
  EXPECT_EQ(errorOf([&] { put(Value::array(vbs::ArrayRep::create({})), Value()); }), 5);
}

TEST_F(DictionaryTest, TextsAreOneKeyHoweverTheyAreHeld) {
  put(Value(vbs::String::fromWideBytes(std::string_view("a\0b\0", 4))), Value::integer(1));
  EXPECT_TRUE(exists(Value("ab")));
}

TEST_F(DictionaryTest, TextComparison) {
  use("comparemode", CallKind::Let, {Value::integer(1)});
  put(Value("Stra\xDF"
            "e \xC4"),
      Value::integer(1));
  EXPECT_TRUE(
      exists(Value("STRA\xDF"
                   "E \xE4")));
  EXPECT_EQ(errorOf([&] { use("comparemode", CallKind::Let, {Value::integer(0)}); }), 5);
  get("removeall");
  use("comparemode", CallKind::Let, {Value::integer(0)});
  put(Value("a"), Value());
  EXPECT_FALSE(exists(Value("A")));
}

TEST_F(DictionaryTest, OrderOfInsertionSurvivesRemovalAndGrowth) {
  std::string expected;
  for (int i = 0; i < 1000; ++i) put(Value::whole(i), Value::whole(i * 2));
  for (int i = 0; i < 1000; ++i) {
    if (i % 3 == 0) {
      use("remove", CallKind::Call, {Value::whole(i)});
    } else {
      expected += (expected.empty() ? "" : " ") + std::to_string(i);
    }
  }
  EXPECT_EQ(list("keys"), expected);
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(exists(Value::whole(i)), i % 3 != 0);
}

TEST_F(DictionaryTest, AddingAndRemovingForeverStaysSmall) {
  const auto before = vbs::runContext.memory.used;
  for (int i = 0; i < 100'000; ++i) {
    put(Value::longInt(i), Value::longInt(i));
    if (i >= 10) use("remove", CallKind::Call, {Value::longInt(i - 10)});
  }
  EXPECT_EQ(count(), 10);
  EXPECT_LT(vbs::runContext.memory.used - before, 10'000);
}

TEST_F(DictionaryTest, KeysCanBeRenamed) {
  put(Value("a"), Value::integer(1));
  put(Value("b"), Value::integer(2));
  use("key", CallKind::Let, {Value("a"), Value("z")});
  EXPECT_EQ(list("keys"), "z b");
  EXPECT_EQ(list("items"), "1 2");
  EXPECT_FALSE(exists(Value("a")));
  EXPECT_EQ(errorOf([&] { use("key", CallKind::Let, {Value("a"), Value("y")}); }), 32811);
  EXPECT_EQ(errorOf([&] { use("key", CallKind::Let, {Value("z"), Value("b")}); }), 457);
  for (int i = 0; i < 1000; ++i) {
    use("key", CallKind::Let, {i % 2 ? Value("y") : Value("z"), i % 2 ? Value("z") : Value("y")});
  }
  EXPECT_EQ(list("keys"), "z b");
}

TEST_F(DictionaryTest, EnumeratesTheKeysOfTheBeginning) {
  put(Value("a"), Value());
  put(Value("b"), Value());
  const auto enumerator = dictionary_.asObject()->enumerate();
  get("removeall");
  std::string seen;
  for (Value key; enumerator->next(key);) seen += vbs::toString(key).narrow();
  EXPECT_EQ(seen, "ab");
}

/// Puts something back into the dictionary that drops it.
class Returning : public vbs::Object {
 public:
  explicit Returning(Value& home) : home_(home) {}
  ~Returning() override {
    std::vector<Value> args{Value("back"), Value::integer(1)};
    home_.asObject()->invoke(vbs::kDefaultMember, CallKind::Let, args);
  }
  std::string_view typeName() const override { return "Returning"; }
  vbs::MemberId findMember(std::string_view) override { return vbs::kNoMember; }
  Value invoke(vbs::MemberId, CallKind, vbs::Args) override { return Value(); }

 private:
  Value& home_;
};

TEST_F(DictionaryTest, EndingItemsMayUseTheDictionary) {
  for (const char* how : {"remove", "removeall", "item"}) {
    put(Value("x"), Value::adopt(new Returning(dictionary_)));
    if (std::string_view(how) == "item") {
      put(Value("x"), Value());
    } else if (std::string_view(how) == "remove") {
      get(how, {Value("x")});
    } else {
      get(how);
    }
    EXPECT_TRUE(exists(Value("back"))) << how;
    get("removeall");
  }
}

TEST_F(DictionaryTest, TheMemoryGoesBack) {
  const auto before = vbs::runContext.memory.used;
  Value other = newDictionary();
  std::swap(other, dictionary_);
  for (int i = 0; i < 1000; ++i) put(Value::whole(i), Value("text of some length"));
  EXPECT_GT(vbs::runContext.memory.used - before, 40'000);
  std::swap(other, dictionary_);
  other = Value();
  EXPECT_EQ(vbs::runContext.memory.used, before);
}

TEST_F(DictionaryTest, IsMadeByName) {
  EXPECT_EQ(vbs::typeName(createComponent("Scripting.DICTIONARY", outside.services)), "Dictionary");
  EXPECT_EQ(vbs::typeName(createComponent("VBScript.RegExp", outside.services)), "IRegExp2");
  EXPECT_EQ(errorOf([&] { createComponent("No.Such", outside.services); }), 429);
}

TEST_F(DictionaryTest, TheSettingsSayWhoseComponentsThereAre) {
  FakeServices<> server;
  for (const auto source : {ComponentSource::System, ComponentSource::Own}) {
    server.state.Components = source;
    EXPECT_EQ(vbs::typeName(createComponent("System.Collections.ArrayList", server.services)),
              "ArrayList");
    EXPECT_EQ(errorOf([&] { createComponent("No.Such", server.services); }), 429);
  }
  server.state.Components = ComponentSource::None;
  EXPECT_EQ(errorOf([&] { createComponent("Scripting.Dictionary", server.services); }), 429);
  EXPECT_EQ(errorOf([&] { getSystemObject("some:name", "", server.services); }), 429);
}

}  // namespace

}  // namespace quorvane
