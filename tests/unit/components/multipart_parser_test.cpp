#include "components/uploads/multipart_parser.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quorvane::uploads {

namespace {

/// Writes down what it is told.
class Recorder final : public PartReceiver {
 public:
  void beginPart(PartHead head) override {
    text += '(' + head.name + (head.isFile ? '|' + head.fileName : "") +
            (head.contentType.empty() ? "" : '|' + head.contentType) + ':';
  }
  void partBytes(std::string_view bytes) override {
    text += bytes;
    longest = std::max(longest, bytes.size());
  }
  void endPart() override { text += ')'; }

  std::string text;
  std::size_t longest = 0;
};

constexpr std::string_view kForm =
    "ignored\r\n"
    "--XX\r\n"
    "Content-Disposition: form-data; name=\"a\"\r\n\r\none\r\n--X\r\n-\r\n"
    "--XX \t\r\n"
    "content-disposition: form-data; name=\"f\"; filename=\"C:\\dir\\x.txt\"\r\n"
    "Content-Type: text/plain\r\n\r\n"
    "\r\n--XXfile\r\n"
    "--XX\r\n\r\n\r\n\r\n"
    "--XX--\r\nignored --XX\r\n\r\n\r\n";

/// "--XX" behind a line's end and anything but what belongs there breaks the form.
constexpr std::string_view kSound =
    "ignored\r\n"
    "--XX\r\n"
    "Content-Disposition: form-data; name=\"a\"\r\n\r\none\r\n--X\r\n-\r\n"
    "--XX \t\r\n"
    "content-disposition: form-data; name=\"f\"; filename=\"C:\\dir\\x.txt\"\r\n"
    "Content-Type: text/plain\r\n\r\n"
    "\r\nfile\r\n"
    "--XX\r\n\r\n\r\n"
    "--XX--\r\nignored --XX\r\n\r\n\r\n";
constexpr std::string_view kParts = "(a:one\r\n--X\r\n-)(f|C:\\dir\\x.txt|text/plain:\r\nfile)(:)";

TEST(MultipartParserTest, PartsComeOneAfterTheOther) {
  Recorder recorder;
  MultipartParser parser("XX", recorder);
  parser.take(kSound);
  EXPECT_EQ(recorder.text, kParts);
  EXPECT_TRUE(parser.isComplete());
}

TEST(MultipartParserTest, ItDoesNotMatterWhereTheBodyIsCut) {
  for (std::size_t cut = 0; cut <= kSound.size(); ++cut) {
    Recorder recorder;
    MultipartParser parser("XX", recorder);
    parser.take(kSound.substr(0, cut));
    parser.take(kSound.substr(cut));
    EXPECT_EQ(recorder.text, kParts) << cut;
    EXPECT_TRUE(parser.isComplete()) << cut;
  }
  Recorder recorder;
  MultipartParser parser("XX", recorder);
  for (const char c : kSound) parser.take({&c, 1});
  EXPECT_EQ(recorder.text, kParts);
}

TEST(MultipartParserTest, WhatIsNoFormEnds) {
  Recorder recorder;
  MultipartParser parser("XX", recorder);
  parser.take(kForm);
  EXPECT_TRUE(parser.isMalformed());
  EXPECT_EQ(recorder.text, "(a:one\r\n--X\r\n-)(f|C:\\dir\\x.txt|text/plain:)");

  Recorder other;
  MultipartParser cut("XX", other);
  cut.take(kSound.substr(0, kSound.find("file\r\n")));
  EXPECT_FALSE(cut.isComplete());
  EXPECT_EQ(other.text, "(a:one\r\n--X\r\n-)(f|C:\\dir\\x.txt|text/plain:");
}

TEST(MultipartParserTest, HeadsAndPartsHaveBounds) {
  Recorder recorder;
  MultipartParser parser("XX", recorder);
  parser.take("--XX\r\n");
  for (int i = 0; i < 100 && !parser.isMalformed(); ++i) parser.take(std::string(1000, 'h'));
  EXPECT_TRUE(parser.isMalformed());
  EXPECT_EQ(recorder.text, "");

  Recorder many;
  MultipartParser parts("X", many);
  for (std::size_t i = 0; i <= MultipartParser::kMostParts; ++i) parts.take("--X\r\n\r\n\r\n\r\n");
  EXPECT_TRUE(parts.isMalformed());
  EXPECT_EQ(std::count(many.text.begin(), many.text.end(), '('),
            static_cast<std::ptrdiff_t>(MultipartParser::kMostParts));
}

TEST(MultipartParserTest, LongPartsPassThrough) {
  Recorder recorder;
  MultipartParser parser("XX", recorder);
  parser.take("--XX\r\nContent-Disposition: form-data; name=a\r\n\r\n");
  for (int i = 0; i < 100; ++i) parser.take(std::string(1000, 'b'));
  EXPECT_GE(recorder.text.size(), 99'900U);
  EXPECT_LE(recorder.longest, 1100U);
}

TEST(MultipartParserTest, BoundariesStandInTheContentType) {
  EXPECT_EQ(MultipartParser::boundaryOf("multipart/form-data; boundary=ab"), "ab");
  EXPECT_EQ(MultipartParser::boundaryOf("Multipart/Form-Data; charset=x; Boundary=\"a b\"; y=1"),
            "a b");
  EXPECT_EQ(MultipartParser::boundaryOf("multipart/form-data"), "");
  EXPECT_EQ(MultipartParser::boundaryOf("text/plain; boundary=ab"), "");
  EXPECT_EQ(MultipartParser::boundaryOf("multipart/form-data; boundary=" + std::string(201, 'x')),
            "");
}

}  // namespace

}  // namespace quorvane::uploads
