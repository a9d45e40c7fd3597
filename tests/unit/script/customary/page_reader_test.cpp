#include "script/customary/page_reader.h"

#include <gtest/gtest.h>

#include <map>

#include "support/paths.h"

namespace quorvane::customary {

namespace {

using FilesByPath = std::map<std::string, std::string>;

IncludeReader readerOf(const FilesByPath& files) {
  return [&files](const std::string& from, const std::string& name,
                  bool isVirtual) -> std::optional<IncludedFile> {
    const std::string path = isVirtual ? name : std::string(paths::folderOf(from)) + name;
    const auto found = files.find(path);
    if (found == files.end()) return std::nullopt;
    return IncludedFile{path, found->second};
  };
}

PageProgram read(std::string_view text, const FilesByPath& files = {}) {
  return readPage("/p.asp", text, kAnsi, readerOf(files));
}

/// The program with the texts in it.
std::string shown(const PageProgram& page) {
  std::string all;
  std::size_t at = page.program.find('\n') + 1;
  while (at < page.program.size()) {
    const std::size_t end = page.program.find('\n', at);
    const std::string line = page.program.substr(at, end - at);
    at = end + 1;
    if (line.starts_with("[%text] ")) {
      all += "{" + page.texts[std::stoul(line.substr(8))].bytes + "}";
    } else {
      all += line + "|";
    }
  }
  return all;
}

std::string shown(std::string_view text, const FilesByPath& files = {}) {
  const PageProgram page = read(text, files);
  return page.fault ? "! " + page.fault->text : shown(page);
}

TEST(PageReader, TextAndCode) {
  EXPECT_EQ(shown(""), "");
  EXPECT_EQ(shown("a\r\n\r\nb"), "{a\r\n\r\nb}");
  EXPECT_EQ(shown("<p><% x = 1 %>\n<b>"), "{<p>} x = 1 |{\n<b>}");
  EXPECT_EQ(shown("<%= a %>,<%=b%>"), "[%out]  a |{,}[%out] b|");
  EXPECT_EQ(shown("<%\n If a Then\n%>x<% End If %>"), "| If a Then||{x} End If |");
  EXPECT_EQ(shown("<% s = \"a%>b\" %>"), " s = \"a|{b\" %>}");
  EXPECT_EQ(shown("100%\\><% s = \"100%\\> %\\>\" %>"), "{100%\\>} s = \"100%> %>\" |");
  EXPECT_EQ(shown("<% a %><% b %>"), " a | b |");
  EXPECT_EQ(shown("a < b <!-- c --> <script>x</script>"), "{a < b <!-- c --> <script>x</script>}");
  EXPECT_EQ(shown("x<% y"), "! What begins here has no end");
}

TEST(PageReader, NothingButCaseFollowsSelect) {
  EXPECT_EQ(shown("<% Select Case a %>\n <% Case 1 %> <% End Select %>"),
            " Select Case a | Case 1 |{ } End Select |");
}

TEST(PageReader, CodePagesThatAreNone) {
  const PageProgram unknown = read("<%@ CodePage=4711 %>");
  ASSERT_TRUE(unknown.fault);
  EXPECT_EQ(unknown.fault->text, "Code page 4711 is not known");
  EXPECT_FALSE(unknown.codePage);
  const PageProgram own = read("<%@ CodePage=0 %>");
  EXPECT_FALSE(own.fault);
  EXPECT_FALSE(own.codePage);
}

TEST(PageReader, Directives) {
  const PageProgram page = read(
      "<%@ Language=VBScript CodePage=\"65001\" LCID = 1031 EnableSessionState=False%>\r\n\xC3\xA9"
      "<% s = \"\xC3\xA9\" %>");
  EXPECT_EQ(page.codePage, 65001);
  EXPECT_EQ(page.lcid, 1031);
  EXPECT_FALSE(page.usesSession);
  EXPECT_EQ(page.texts[0].bytes, "\r\n\xC3\xA9");
  EXPECT_EQ(page.texts[0].codePage, 65001);
  EXPECT_EQ(page.program, "\xEF\xBB\xBF\n[%text] 0\n s = \"\xC3\xA9\" \n");
  EXPECT_EQ(shown("<%@ Language=PerlScript %>"), "! Pages in 'PerlScript' do not run here");
  EXPECT_EQ(shown("<%@CodePage=4711%>"), "! Code page 4711 is not known");
}

TEST(PageReader, ByteOrderMarks) {
  PageProgram page = read("\xEF\xBB\xBFx<% y = \"\xC3\xA9\" %>");
  EXPECT_EQ(page.codePage, 65001);
  EXPECT_EQ(page.texts[0].bytes, "x");
  page = read("<!--#include file=\"a.inc\"--><% z = \"\xE9\" %>",
              {{"/a.inc", "\xEF\xBB\xBF<% y = \"\xC3\xA9\" %>"}});
  EXPECT_FALSE(page.codePage);
  EXPECT_EQ(page.program, "\xEF\xBB\xBF\n y = \"\xC3\xA9\" \n z = \"\xC3\xA9\" \n");
  page = read(std::string_view("\xFF\xFEx\0<\0%\0 \0y\0%\0>\0", 16));
  EXPECT_EQ(shown(page), "{x} y|");
}

TEST(PageReader, Includes) {
  const FilesByPath files = {{"/a.inc", "A<% a %>"},
                             {"/lib/b.inc", "B<!--#INCLUDE FILE='c.inc'-->B"},
                             {"/lib/c.inc", "C"},
                             {"/self.inc", "<!--#include file=\"self.inc\"-->"},
                             {"/open.inc", "<% x"}};
  EXPECT_EQ(shown("1<!-- #include file=\"a.inc\" -->2", files), "{1}{A} a |{2}");
  EXPECT_EQ(shown("<!-- x --><!--#Include Virtual = \"/lib/b.inc\"--> rest", files),
            "{<!-- x -->}{B}{C}{B}{ rest}");
  EXPECT_EQ(shown("<!-- <!--#include file=a.inc--> -->", files), "{<!-- }{A} a |{ -->}");
  EXPECT_EQ(shown("<% ' <!--#include file=\"a.inc\"--> %>", files),
            " ' <!--#include file=\"a.inc\"--> |");
  EXPECT_EQ(shown("<!--#include file=\"none.inc\"-->", files),
            "! Include file not found 'none.inc'");
  EXPECT_EQ(shown("<!--#include file=\"self.inc\"-->", files),
            "! The include file 'self.inc' includes itself");
  const PageProgram page = read("a\n<!--#include file=\"open.inc\"-->", files);
  ASSERT_TRUE(page.fault);
  EXPECT_EQ(page.fault->place.file, "/open.inc");
}

TEST(PageReader, IncludesSixtyFourDeep) {
  for (const int depth : {64, 65}) {
    FilesByPath files;
    for (int i = 1; i < depth; ++i) {
      files["/" + std::to_string(i)] = "<!--#include file=\"" + std::to_string(i + 1) + "\"-->";
    }
    files["/" + std::to_string(depth)] = "end";
    EXPECT_EQ(shown("<!--#include file=\"1\"-->", files),
              depth == 64 ? "{end}" : "! Too many include files at '65'");
  }
}

TEST(PageReader, ScriptBlocks) {
  const FilesByPath files = {{"/f.vbs", "Sub F\nEnd Sub"}, {"/g.inc", "Sub G\nEnd Sub"}};
  EXPECT_EQ(shown("a<SCRIPT Language=\"VBScript\" RunAt='Server'>\nSub S\nEnd Sub\n</SCRIPT>b"),
            "{a}|Sub S|End Sub||{b}");
  EXPECT_EQ(shown("<script runat=server src=\"f.vbs\"></script>", files), "Sub F|End Sub|");
  EXPECT_EQ(
      shown("<script runat=server>x = 1\n<!--#include file=\"g.inc\"-->\ny = 2</script>", files),
      "x = 1||Sub G|End Sub||y = 2|");
  EXPECT_EQ(shown("<script language=perlscript runat=server>x</script>"),
            "! Scripts in 'perlscript' do not run here");
  EXPECT_EQ(shown("<script src=\"<%= a %>\" runat=server>"),
            "{<script src=\"}[%out]  a |{\" runat=server>}");
}

TEST(PageReader, ObjectsAndTypeLibraries) {
  const PageProgram page = read(
      "<object runat=server id=d progid=\"Scripting.Dictionary\" scope=Session></object>"
      "<!-- METADATA TYPE=\"typelib\" FILE=\"msado15.dll\" -->x<object id=y></object>");
  ASSERT_EQ(page.objects.size(), 1U);
  EXPECT_EQ(page.objects[0].name, "d");
  EXPECT_EQ(page.objects[0].progId, "Scripting.Dictionary");
  EXPECT_EQ(page.objects[0].scope, StaticObject::Scope::Session);
  EXPECT_TRUE(page.namesTypeLibrary);
  EXPECT_EQ(shown(page), "{x<object id=y></object>}");
}

TEST(PageReader, LinesLeadBack) {
  const FilesByPath files = {{"/a.inc", "<%\nx\ny\n%>"}};
  const PageProgram page = read("<p>\n<!--#include file=\"a.inc\"-->\n  <%= z %>\n", files);
  // mark, text, "", x, y, "", text, z, text
  ASSERT_EQ(page.lines.size(), 9U);
  EXPECT_EQ(page.lines.place(4, 1)->file, "/a.inc");
  EXPECT_EQ(page.lines.place(4, 1)->line, 2U);
  const auto z = page.lines.place(8, 9);
  ASSERT_TRUE(z);
  EXPECT_EQ(z->file, "/p.asp");
  EXPECT_EQ(z->line, 3U);
  EXPECT_EQ(z->column, 7U);
  EXPECT_EQ(page.lines.place(10, 5)->line, 3U);
  EXPECT_EQ(page.lines.place(10, 5)->column, 0U);
  EXPECT_FALSE(page.lines.place(0, 1));
}

TEST(PageReader, OnlyScriptBlocks) {
  const PageProgram page =
      readScriptBlocks("/global.asa", "text <% x %><script runat=server>Sub S\nEnd Sub</script>",
                       kAnsi, readerOf({}));
  EXPECT_EQ(shown(page), "Sub S|End Sub|");
}

TEST(PageReader, TimeInProportion) {
  for (const std::string_view piece :
       {"<", "<!-- #include ", "<script ", "<object runat=server>", "<%a%>", "<!--"}) {
    std::string text;
    while (text.size() < 400'000) text += piece;
    EXPECT_GT(read(text).lines.size(), 0U);
  }
}

}  // namespace

}  // namespace quorvane::customary
