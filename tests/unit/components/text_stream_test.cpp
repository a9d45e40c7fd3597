#include "components/text_stream.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "vbscript/values/convert.h"

namespace quorvane {

namespace {

using vbs::CallKind;
using vbs::Value;

/// What stands behind a stream, as a test sees it.
struct Behind {
  std::string input;
  std::string output;
  int flushes = 0;
};

class FakeChannel final : public TextStream::Channel {
 public:
  explicit FakeChannel(Behind& behind) : behind_(behind) {}

  /// No more than three bytes beyond what is asked for, so that texts stand across the borders.
  std::string_view ahead(std::size_t least) override {
    return std::string_view(behind_.input).substr(at_, least + at_ % 4);
  }
  void skip(std::size_t count) override { at_ += count; }
  void write(std::string_view bytes) override { behind_.output += bytes; }
  void flush() override { ++behind_.flushes; }

 private:
  Behind& behind_;
  std::size_t at_ = 0;
};

class TextStreamTest : public testing::Test {
 protected:
  void reads(std::string input) {
    behind.input = std::move(input);
    open(TextStream::Mode::Read);
  }
  void open(TextStream::Mode mode, TextStream::Encoding encoding = TextStream::Encoding::Ansi) {
    stream = vbs::make<TextStream>(std::make_unique<FakeChannel>(behind),
                                   TextStream::Form{mode, encoding});
  }
  Value call(std::string_view member, std::vector<Value> args = {}) {
    return stream->invoke(stream->findMember(member), CallKind::Call, args);
  }
  std::string text(std::string_view member, std::vector<Value> args = {}) {
    return vbs::toString(call(member, std::move(args))).narrow();
  }
  bool is(std::string_view member) { return call(member).asBoolean(); }
  std::string place() { return text("line") + ":" + text("column"); }
  int errorOf(std::string_view member, std::vector<Value> args = {}) {
    try {
      call(member, std::move(args));
    } catch (const vbs::ScriptError& error) {
      return error.number;
    }
    return 0;
  }

  Behind behind;
  vbs::Ref<TextStream> stream;
};

TEST_F(TextStreamTest, ReadsLinesWithEitherEnd) {
  reads("one\r\ntwo\n\nlast");
  EXPECT_EQ(text("readline"), "one");
  EXPECT_EQ(text("readline"), "two");
  EXPECT_EQ(place(), "3:1");
  EXPECT_EQ(text("readline"), "");
  EXPECT_FALSE(is("atendofstream"));
  EXPECT_EQ(text("readline"), "last");
  EXPECT_TRUE(is("atendofstream"));
  EXPECT_EQ(errorOf("readline"), 62);
}

TEST_F(TextStreamTest, ReadsAndSkipsByCount) {
  reads("ab\r\ncd\xE4");
  EXPECT_EQ(text("read", {Value::longInt(2)}), "ab");
  EXPECT_TRUE(is("atendofline"));
  EXPECT_EQ(place(), "1:3");
  call("skip", {Value::longInt(3)});
  EXPECT_EQ(place(), "2:2");
  EXPECT_EQ(text("read", {Value::longInt(9)}), "d\xE4");
  EXPECT_EQ(text("read", {Value::longInt(0)}), "");
  EXPECT_EQ(errorOf("read", {Value::longInt(1)}), 62);
  EXPECT_EQ(errorOf("skip", {Value::longInt(-1)}), 5);
}

TEST_F(TextStreamTest, ReadsAllThatIsLeft) {
  reads("first\nall\r\nthe rest\n");
  call("skipline");
  EXPECT_EQ(text("readall"), "all\r\nthe rest\n");
  EXPECT_EQ(errorOf("readall"), 62);
}

TEST_F(TextStreamTest, UnicodeTextTakesTwoBytesACharacter) {
  open(TextStream::Mode::Write, TextStream::Encoding::Unicode);
  call("writeline", {Value(vbs::String::fromWide(u"a\u20AC"))});
  call("write", {Value(vbs::String::fromWide(u"\u010D"))});
  EXPECT_EQ(behind.output, std::string("a\0\xAC\x20\n\0\x0D\x01", 8));
  EXPECT_EQ(place(), "2:2");
  behind.input = behind.output + 'x';
  open(TextStream::Mode::Read, TextStream::Encoding::Unicode);
  EXPECT_EQ(vbs::toString(call("readline")).wide(), u"a\u20AC");
  EXPECT_EQ(vbs::toString(call("readall")).wide(), u"\u010D");
  EXPECT_TRUE(is("atendofstream")) << "half a character is none";
}

TEST_F(TextStreamTest, APromptIsSentBeforeReading) {
  reads("x");
  EXPECT_EQ(behind.flushes, 0);
  is("atendofstream");
  EXPECT_EQ(behind.flushes, 1);
  call("readall");
  EXPECT_EQ(behind.flushes, 2);
  call("close");
  EXPECT_EQ(behind.flushes, 3);
}

TEST_F(TextStreamTest, WritesTextsAndLines) {
  open(TextStream::Mode::Write);
  call("write", {Value("a\xE4")});
  EXPECT_EQ(place(), "1:3");
  call("writeline", {Value("b")});
  call("writeline");
  call("writeblanklines", {Value::longInt(2)});
  stream->write(vbs::String("end"));
  EXPECT_EQ(behind.output,
            "a\xE4"
            "b\n\n\n\nend");
  EXPECT_EQ(place(), "5:4");
  EXPECT_EQ(errorOf("writeblanklines", {Value::longInt(-1)}), 5);
}

TEST_F(TextStreamTest, GoesOneWayOnly) {
  reads("x");
  EXPECT_EQ(errorOf("write", {Value("a")}), 54);
  open(TextStream::Mode::Write);
  for (const char* member : {"readline", "readall", "skipline", "atendofstream", "atendofline"}) {
    EXPECT_EQ(errorOf(member), 54) << member;
  }
}

}  // namespace

}  // namespace quorvane
