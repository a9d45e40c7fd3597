#include "script/shared/value_bytes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "script/shared/kept_fields.h"
#include "vbscript/values/object.h"

namespace quorvane {
namespace {

using vbs::ArrayRep;
using vbs::Type;
using vbs::Value;

Value throughBytes(const Value& value) {
  std::string bytes;
  value_bytes::append(bytes, value);
  std::string_view rest = bytes;
  auto back = value_bytes::take(rest);
  EXPECT_TRUE(back && rest.empty());
  return back.value_or(Value::error(1));
}

/// Whether they are the same in type, form and content.
bool isSame(const Value& a, const Value& b) {
  std::string one;
  std::string other;
  value_bytes::append(one, a);
  value_bytes::append(other, b);
  return a.type() == b.type() && one == other;
}

std::vector<Value> values() {
  const std::vector<std::int32_t> extents{2, 3};
  Value grid = Value::array(ArrayRep::create(extents));
  grid.asArray()->elements[5] = Value::array(ArrayRep::fromValues({Value::date(1.25), Value()}));
  return {Value(),
          Value::null(),
          Value::integer(-7),
          Value::longInt(-70000),
          Value::byte(200),
          Value::boolean(true),
          Value::boolean(false),
          Value::single(1.5F),
          Value::number(-0.1),
          Value::date(45000.75),
          Value::currency(-123456789012345),
          Value::missing(),
          Value(""),
          Value("caf\xe9 \0 nul"),
          Value(vbs::String::fromWide(u"\u4e2d\u6587 \xd83d\xde00")),
          Value(vbs::String::fromWideBytes("abc")),
          Value::array(ArrayRep::create({})),
          Value::array(ArrayRep::fromBytes(std::string("\0\xff", 2))),
          Value::array(ArrayRep::fromValues({})),
          grid};
}

TEST(ValueBytes, GiveBackEveryTypeAsItWas) {
  for (const Value& value : values()) {
    const Value back = throughBytes(value);
    EXPECT_TRUE(isSame(value, back)) << static_cast<int>(value.type());
  }
  EXPECT_EQ(throughBytes(Value::date(45000.75)).asDouble(), 45000.75);
  EXPECT_EQ(throughBytes(Value::currency(-5)).asCurrency(), -5);
  EXPECT_EQ(throughBytes(values()[15]).asString().byteLength(), 3U);
  const Value grid = throughBytes(values().back());
  ASSERT_EQ(grid.asArray()->rank, 2);
  EXPECT_EQ(grid.asArray()->at(1, 2)->asArray()->elements[0].asDouble(), 1.25);
}

TEST(ValueBytes, RefuseObjects) {
  std::string bytes;
  EXPECT_THROW(value_bytes::append(bytes, Value::nothing()), vbs::ScriptError);
  EXPECT_THROW(value_bytes::append(bytes, Value::array(ArrayRep::fromValues({Value::nothing()}))),
               vbs::ScriptError);
}

TEST(ValueBytes, TakeNothingFromWhatIsCutOrChanged) {
  for (const Value& value : values()) {
    std::string bytes;
    value_bytes::append(bytes, value);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
      std::string_view cut = std::string_view(bytes).substr(0, length);
      EXPECT_FALSE(value_bytes::take(cut)) << length;
    }
    for (std::size_t at = 0; at < bytes.size(); ++at) {
      for (int change = 1; change < 256; change += 50) {
        std::string other = bytes;
        other[at] = static_cast<char>(other[at] ^ change);
        std::string_view rest = other;
        try {
          value_bytes::take(rest);  // must come back, with whatever it says now
        } catch (const vbs::ScriptError&) {
        }
      }
    }
  }
}

TEST(ValueBytes, KeepToADepth) {
  std::string bytes;
  for (int i = 0; i < 1000; ++i) bytes += std::string("\x0c\x01\x01\0\0\0", 6);
  std::string_view rest = bytes;
  EXPECT_FALSE(value_bytes::take(rest));
}

KeptFields::Fields fieldsWith(const KeptFields::Changes& changes) {
  KeptFields::Fields fields;
  for (std::size_t i = 0; i + 1 < changes.set.size(); i += 2) {
    fields[changes.set[i]] = changes.set[i + 1];
  }
  return fields;
}

std::string keysOf(const KeptFields& fields) {
  std::string keys;
  for (const auto& entry : fields.entries("=")) keys += entry.key.asString().narrow() + ' ';
  return keys;
}

void note(KeptFields& fields, const std::string& key, const Value& value) {
  fields.note("=", key, Value(std::string_view(key)), value);
}

TEST(KeptFields, KeepTheOrderAndTellWhatHasChanged) {
  KeptFields fields;
  for (const char* key : {"c", "a", "b"}) note(fields, key, Value::integer(1));
  KeptFields::Fields stored = fieldsWith(fields.changes());
  EXPECT_EQ(keysOf(KeptFields(stored)), "c a b ");

  KeptFields second(stored);
  note(second, "c", Value::integer(1));
  note(second, "b", Value::integer(2));
  const auto changes = second.changes();
  EXPECT_EQ(changes.removed, std::vector<std::string>{"=a"});
  ASSERT_EQ(changes.set.size(), 2U);
  EXPECT_EQ(changes.set[0], "=b");

  KeptFields third(stored);
  for (const char* key : {"a", "b", "c"}) note(third, key, Value::integer(1));
  for (const auto& [field, bytes] : fieldsWith(third.changes())) stored[field] = bytes;
  EXPECT_EQ(keysOf(KeptFields(stored)), "a b c ");
}

TEST(KeptFields, LeaveOutWhatCantBeRead) {
  KeptFields fields(
      {{"=a", ""}, {"=b", "garbage"}, {"=c", std::string(40, '\x0c')}, {"other", "x"}});
  EXPECT_EQ(keysOf(fields), "");
}

TEST(KeptFields, AreOneMebibyteAtMost) {
  KeptFields fields;
  note(fields, "a", Value(std::string_view(std::string(KeptFields::kMostBytes - 100, 'x'))));
  EXPECT_FALSE(fields.changes().empty());
  note(fields, "b", Value(std::string_view(std::string(100, 'x'))));
  EXPECT_THROW(fields.changes(), vbs::ScriptError);
}

}  // namespace
}  // namespace quorvane
