#include "script/translation/include_expansion.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace quorvane {

namespace {

class IncludeExpansion : public ::testing::Test {
 protected:
  std::string expand(std::string source) {
    return expandIncludes(std::move(source),
                          [this](const std::string& name) -> std::optional<IncludedFile> {
                            const auto it = files.find(name);
                            if (it == files.end()) return std::nullopt;
                            return IncludedFile{name, it->second};
                          });
  }

  std::map<std::string, std::string> files{
      {"a.inc", "[A]"},
      {"lines.inc", "one\r\ntwo\r\n"},
      {"nested.inc", "<<!--#include file=\"a.inc\"-->\r\n>"},
      {"self.inc", "x<!--#include file=\"self.inc\"-->\r\n"},
  };
};

TEST_F(IncludeExpansion, PutsTheFileInPlaceOfTheDirectivesLine) {
  EXPECT_EQ(expand("top\r\n<!-- #include file=\"a.inc\" --> rest of line\r\nbottom"),
            "top\r\n[A]bottom");
  EXPECT_EQ(expand("<!--#include file=\"lines.inc\"-->\r\nend"), "one\r\ntwo\r\nend");
}

TEST_F(IncludeExpansion, LowersTheFileName) {
  EXPECT_EQ(expand("<!--#INCLUDE FILE=\" A.INC \"-->\r\n"), "[A]");
}

TEST_F(IncludeExpansion, ShowsTheDirectiveOnAPagesLastLine) {
  EXPECT_EQ(expand("<!--#include file=\"a.inc\"-->tail"), "[A]include file=\"a.inc\"-->tail");
}

TEST_F(IncludeExpansion, ExpandsIncludesOfIncludes) {
  EXPECT_EQ(expand("<!--#include file=\"nested.inc\"-->\r\n!"), "<[A]>!");
}

TEST_F(IncludeExpansion, FindsADirectiveMadeByJoiningPageAndFile) {
  files["open.inc"] = "--#include file=\"a.inc\"-->\r\n";
  EXPECT_EQ(expand("<!<!--#include file=\"open.inc\"-->\r\n!"), "[A]!");
}

TEST_F(IncludeExpansion, StopsAtAPlainComment) {
  const std::string page = "<!-- note -->\r\n<!--#include file=\"a.inc\"-->\r\n";
  EXPECT_EQ(expand(page), page);
  EXPECT_EQ(expand("<!--#include file=\"a.inc\"-->\r\n" + page), "[A]" + page);
}

TEST_F(IncludeExpansion, StopsAtAMalformedDirective) {
  for (const std::string page : {
           "<!--#include file=\"a.inc\"",
           "<!--#includefile=\"a.inc\"-->\r\n",
           "<!--#include virtual=\"a.inc\"-->\r\n",
           "<!--#include file \"a.inc\"-->\r\n",
           "<!--#include file=a.inc-->\r\n",
           "<!--#include file\"=a.inc\"-->\r\n",
           "<!--#include file=\"a.inc-->\r\n",
           "<!--#include \"file=\"a.inc\"",
       }) {
    EXPECT_EQ(expand(page), page);
  }
}

TEST_F(IncludeExpansion, ReadsPastWhatStandsBeforeTheKeywords) {
  EXPECT_EQ(expand("<!-- see: #include the file named = \"a.inc\" \" -->\r\n"), "[A]");
}

TEST_F(IncludeExpansion, ReplacesThePageWhenAFileIsMissing) {
  EXPECT_EQ(expand("top\r\n<!--#include file=\"Gone.inc\"-->\r\nbottom"),
            "Include file not found 'gone.inc'");
}

TEST_F(IncludeExpansion, EndsForFilesThatIncludeThemselves) {
  EXPECT_EQ(expand("<!--#include file=\"self.inc\"-->\r\n"),
            "Too many include files at 'self.inc'");
  files["wide.inc"] = "<!--#include file=\"wide.inc\"-->" + std::string(1 << 20, 'x');
  EXPECT_EQ(expand("<!--#include file=\"wide.inc\"-->\r\n"),
            "Too many include files at 'wide.inc'");
}

TEST_F(IncludeExpansion, EndsADirectivesLineAtAnyLineEnd) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    EXPECT_EQ(expand("<!--#include file=\"a.inc\"--> x" + end + "bottom" + end), "[A]bottom" + end);
  }
  EXPECT_EQ(expand("<!--#include file=\"a.inc\"-->\n\nbottom"), "[A]\nbottom");
}

TEST_F(IncludeExpansion, TakesLinearTimeForManyIncludes) {
  std::string page;
  for (int i = 0; i < 9'000; ++i) page += "<!--#include file=\"a.inc\"-->\r\n";
  page += std::string(8 << 20, 'x');
  EXPECT_EQ(expand(page).size(), 9'000u * 3 + (8u << 20));
}

}  // namespace

}  // namespace quorvane
