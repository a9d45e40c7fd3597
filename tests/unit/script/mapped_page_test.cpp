#include "script/translation/mapped_page.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

#include "script/translation/page_translator.h"

namespace quorvane {

namespace {

class MappedPageTest : public ::testing::Test {
 protected:
  MappedPage map(const std::string& text) {
    return mapPage({"page", text}, [this](const std::string& name) -> std::optional<IncludedFile> {
      const auto it = files.find(name);
      if (it == files.end()) return std::nullopt;
      return IncludedFile{it->first, it->second};
    });
  }

  /// Where each line of the program begins, as "file:line:column text".
  std::vector<std::string> lines(const std::string& text) {
    const MappedPage page = map(text);
    std::vector<std::string> shown;
    std::size_t start = 0;
    while (start < page.program.size()) {
      const std::size_t end = page.program.find("\r\n", start);
      const auto number = static_cast<std::uint32_t>(shown.size() + 1);
      shown.push_back(at(page, number, 1) + ' ' + page.program.substr(start, end - start));
      start = end + 2;
    }
    EXPECT_EQ(shown.size(), page.lines.size());
    return shown;
  }

  static std::string at(const MappedPage& page, std::uint32_t line, std::uint32_t column) {
    const auto place = page.lines.place(line, column);
    if (!place) return "nowhere";
    return place->file + ':' + std::to_string(place->line) + ':' + std::to_string(place->column);
  }

  /// Where `words` of the program stand.
  std::string find(const std::string& text, const std::string& words) {
    const MappedPage page = map(text);
    const std::size_t found = page.program.find(words);
    if (found == std::string::npos) return "not found";
    std::uint32_t line = 1;
    std::size_t start = 0;
    for (std::size_t end = page.program.find("\r\n"); end < found;
         end = page.program.find("\r\n", start)) {
      ++line;
      start = end + 2;
    }
    return at(page, line, static_cast<std::uint32_t>(found - start) + 1);
  }

  std::map<std::string, std::string> files;
};

using Lines = std::vector<std::string>;

TEST_F(MappedPageTest, TextAndCodeOfOneLine) {
  EXPECT_EQ(
      lines("<b><% x = 1 %></b>\r\nend"),
      (Lines{"page:1:1 response.xwrite \"<b>\"", "page:1:6  x = 1 ",
             "page:1:15 response.xwrite \"</b>\" & vbCrLf", "page:2:1 response.xwrite \"end\""}));
}

TEST_F(MappedPageTest, TheProgramIsTheSame) {
  const std::string page = "a\"b<% Response.Write 1\r\n\r\nRESPONSE.END %>\r\n<%= 2 %>";
  EXPECT_EQ(map(page).program, translatePage(page));
  EXPECT_EQ(map("").lines.size(), 0u);
}

TEST_F(MappedPageTest, EveryLineEndCounts) {
  for (const std::string end : {"\r\n", "\n", "\r"}) {
    EXPECT_EQ(
        lines("<%" + end + "a" + end + "b%>" + end + "c" + end),
        (Lines{"page:1:3 ", "page:2:1 a", "page:3:1 b", "page:3:4 response.xwrite \"\" & vbCrLf",
               "page:4:1 response.xwrite \"c\" & vbCrLf", "page:5:1 response.xwrite \"\""}));
  }
}

TEST_F(MappedPageTest, LinesThatAreLeftOut) {
  EXPECT_EQ(lines("<%a\r\n\r\nb\n\n\nc\n\n\n\nd\n\n\n\n\ne%>"),
            (Lines{"page:1:3 a", "page:3:1 b", "page:5:1 ", "page:6:1 c", "page:8:1 ",
                   "page:10:1 d", "page:12:1 ", "page:14:1 ", "page:15:1 e"}));
}

TEST_F(MappedPageTest, JoinedBlocks) {
  EXPECT_EQ(lines("<%a%>\r\n<%b%>\n<% c%>"), (Lines{"page:1:3 a", "page:2:3 b", "page:3:3  c"}));
  EXPECT_EQ(lines("x<%\r\n%>y"),
            (Lines{"page:1:1 response.xwrite \"x\" & vbCrLf", "page:2:3 response.xwrite \"y\""}));
}

TEST_F(MappedPageTest, ColumnsOfValuesAndDirectives) {
  EXPECT_EQ(find("<p>\n <%= 1 / x %>", "/"), "page:2:8");
  EXPECT_EQ(find("<p>\n <%= 1 / x %>", "xwrite  1"), "page:2:5");
  EXPECT_EQ(find("<% = y%>", "y"), "page:1:6");
  EXPECT_EQ(find("<%@ Language=VBScript %>", "Language"), "page:1:5");
}

TEST_F(MappedPageTest, ColumnsOfRewrittenLines) {
  const std::string page =
      "<%\n  Response.Write a: Set b = Server.CreateObject(c): Response.Redirect d\n"
      "  If e Then Response.End(): f = 1\n%>";
  EXPECT_EQ(find(page, "response.xwrite a"), "page:2:3");
  EXPECT_EQ(find(page, "a: Set"), "page:2:18");
  EXPECT_EQ(find(page, "Set b"), "page:2:21");
  EXPECT_EQ(find(page, "xcreateobject"), "page:2:36");
  EXPECT_EQ(find(page, "(c)"), "page:2:48");
  EXPECT_EQ(find(page, "Redirect d"), "page:2:62");
  EXPECT_EQ(find(page, "f = 1"), "page:3:29");
}

TEST_F(MappedPageTest, TextHasTheColumnThatItBeginsIn) {
  EXPECT_EQ(find("<%x%>say \"a\"", "chr(34)"), "page:1:6");
  EXPECT_EQ(find("ab\r\ncd\r\n", "& vbCrLf\r\nresponse.xwrite \"\""), "page:2:1");
}

TEST_F(MappedPageTest, Includes) {
  files["head"] = "<%\nh = 1\n%>\n";
  files["outer"] = "o1\r\n<!--#include file=\"inner\"-->\r\no3";
  files["inner"] = "i1\r\ni2\r\n";
  EXPECT_EQ(
      lines("<!--#include file=\"head\"--> gone\n\nt<%x%>\n"),
      (Lines{"head:1:3 ", "head:2:1 h = 1", "head:3:1 ", "head:3:3 response.xwrite \"\" & vbCrLf",
             "page:3:1 response.xwrite \"t\"", "page:3:4 x",
             "page:3:7 response.xwrite \"\" & vbCrLf", "page:4:1 response.xwrite \"\""}));
  EXPECT_EQ(lines("<%\r\n<!--#include file=\"outer\"-->\r\n<!--#include file=\"inner\"-->\r\n%>"),
            (Lines{"page:1:3 ", "outer:1:1 o1", "inner:1:1 i1", "inner:2:1 i2", "outer:3:1 o3i1",
                   "inner:2:1 i2", "page:4:1 "}));
}

TEST_F(MappedPageTest, FilesThatMeetWithinALine) {
  files["part"] = "two = 2\nthree";
  const std::string page = "<% one: <!--#include file=\"part\"-->\n = 3: Response.Write four %>";
  EXPECT_EQ(find(page, "one"), "page:1:4");
  EXPECT_EQ(find(page, "two"), "part:1:1");
  EXPECT_EQ(find(page, "ree ="), "part:2:3");
  EXPECT_EQ(find(page, "= 3"), "page:2:2");
  EXPECT_EQ(find(page, "four"), "page:2:22");
}

TEST_F(MappedPageTest, DirectivesMadeByJoining) {
  files["open"] = "--#include file=\"leaf\"-->\r\nrest";
  files["leaf"] = "L";
  EXPECT_EQ(lines("<%a<!<!--#include file=\"open\"-->\r\nb%>"), (Lines{"page:1:3 aLrestb"}));
  EXPECT_EQ(find("<%a<!<!--#include file=\"open\"-->\r\nb%>", "L"), "leaf:1:1");
  EXPECT_EQ(find("<%a<!<!--#include file=\"open\"-->\r\nb%>", "rest"), "open:2:1");
  EXPECT_EQ(find("<%a<!<!--#include file=\"open\"-->\r\nb%>", "b"), "page:2:1");
}

TEST_F(MappedPageTest, ADirectiveOnThePagesLastLine) {
  files["part"] = "<%x%>";
  EXPECT_EQ(lines("<!--#include file=\"part\"-->"),
            (Lines{"part:1:3 x",
                   "page:1:6 response.xwrite \"include file=\" & chr(34) & \"part\" "
                   "& chr(34) & \"-->\""}));
}

TEST_F(MappedPageTest, AMissingIncludeLeavesThePagesName) {
  EXPECT_EQ(lines("a\r\n<!--#include file=\"none\"-->\r\n"),
            (Lines{"page:1:1 response.xwrite \"Include file not found 'none'\""}));
}

/// Whatever the page, each line of code has the very text that stands at its place.
TEST_F(MappedPageTest, AnyPage) {
  const std::vector<std::string> parts{"<%",
                                       "%>",
                                       "\r\n",
                                       "\n",
                                       "\r",
                                       "=",
                                       "@",
                                       "word",
                                       " ",
                                       "\"",
                                       "Response.End",
                                       "response.write x",
                                       "Response.Redirect p",
                                       "<!--#include file=\"part\"-->",
                                       "<!--",
                                       "x = 1"};
  std::mt19937 random(7);  // NOLINT(cert-msc51-cpp): the same pages every time
  std::uniform_int_distribution<std::size_t> any(0, parts.size() - 1);
  for (int round = 0; round < 3000; ++round) {
    std::string text;
    files["part"].clear();
    for (int i = 0; i < 30; ++i) text += parts[any(random)];
    for (int i = 0; i < 8; ++i) files["part"] += parts[any(random) % 12];
    const std::map<std::string, std::string> all{{"page", text}, {"part", files["part"]}};
    const MappedPage page = map(text);
    std::uint32_t line = 0;
    for (std::size_t start = 0; start < page.program.size();) {
      const std::size_t end = page.program.find("\r\n", start);
      const std::string_view code = std::string_view(page.program).substr(start, end - start);
      const auto place = page.lines.place(++line, 1);
      ASSERT_TRUE(place) << text;
      ASSERT_TRUE(all.contains(place->file)) << text;
      if (code.starts_with("word") || code.starts_with("x = 1")) {
        std::string_view file = all.at(place->file);
        for (std::uint32_t i = 1; i < place->line; ++i) {
          const std::size_t next = file.find_first_of("\r\n");
          file.remove_prefix(next + (file.substr(next, 2) == "\r\n" ? 2 : 1));
        }
        EXPECT_EQ(file.substr(place->column - 1, 4), code.substr(0, 4)) << text;
      }
      start = end + 2;
    }
    EXPECT_EQ(line, page.lines.size());
  }
}

}  // namespace

}  // namespace quorvane
