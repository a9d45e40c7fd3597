#include "script/customary/error_answer.h"

#include <gtest/gtest.h>

#include "platform/fake/memory_files.h"
#include "script/customary/code_page.h"

namespace quorvane::customary {
namespace {

constexpr std::int32_t kCyrillic = 1251;

TEST(ErrorAnswer, ShowsTheLineOfAPlace) {
  MemoryFiles files;
  files.put("/srv/a.asp", "one\r\n<% two %>\nthree\rfour");
  const auto line = [&](std::uint32_t number) {
    return sourceLine(files, {"/srv/a.asp", number, 1}, kAnsi).narrow();
  };
  EXPECT_EQ(line(1), "one");
  EXPECT_EQ(line(2), "<% two %>");
  EXPECT_EQ(line(4), "four");
  EXPECT_EQ(line(5), "");
  EXPECT_EQ(line(0), "");
  EXPECT_EQ(sourceLine(files, {"/srv/none.asp", 1, 1}, kAnsi).narrow(), "");
}

TEST(ErrorAnswer, ReadsTheLineInTheCodePageOfItsFile) {
  MemoryFiles files;
  files.put("/srv/own.asp", "\xF7\xE0\xE9");
  files.put("/srv/marked.inc", "\xEF\xBB\xBF\xD1\x87\xD0\xB0\xD0\xB9");
  const auto tea = decode(kUtf8, "\xD1\x87\xD0\xB0\xD0\xB9");
  EXPECT_EQ(sourceLine(files, {"/srv/own.asp", 1, 1}, kCyrillic), tea);
  EXPECT_EQ(sourceLine(files, {"/srv/marked.inc", 1, 1}, kCyrillic), tea);
}

TEST(ErrorAnswer, EncodesAllThatItShowsAndNothingElse) {
  PageError error;
  error.number = 11;
  error.category = vbs::String("Kind of error");
  error.description = decode(kUtf8, "no <b> \xD1\x87");
  error.file = vbs::String("/srv/a&b.inc");
  error.line = 3;
  error.column = 5;
  error.source = vbs::String("x = \"1\" / 0");
  const std::string root = "/srv";
  EXPECT_EQ(errorHtml(error, &root),
            "<html><head><title>Error</title></head><body><h1>An error occurred</h1>"
            "<p>Kind of error '800a000b' (11)</p><p><b>no &lt;b&gt; &#1095;</b></p>"
            "<p>/a&amp;b.inc, line 3, column 5</p><pre>x = &quot;1&quot; / 0</pre></body></html>");
  EXPECT_EQ(
      errorHtml(error, nullptr),
      "<html><head><title>Error</title></head><body><h1>An error occurred</h1></body></html>");
}

}  // namespace
}  // namespace quorvane::customary
