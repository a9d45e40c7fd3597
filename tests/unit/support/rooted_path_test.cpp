#include "support/rooted_path.h"

#include <gtest/gtest.h>

#include <string>

#include "support/paths.h"
#include "testing/spelling.h"

namespace quorvane {

using namespace std::string_view_literals;

namespace {

const std::string s(1, paths::kSeparator);

std::string text(const std::optional<RootedPath>& path) {
  return path ? path->text() : "refused";
}

std::string native(std::string_view path) {
  return paths::native(path);
}

}  // namespace

TEST(RootedPath, IsTheRootASeparatorAndTheRest) {
  const auto path = RootedPath::literal("/root", "/a/b.htm");
  ASSERT_TRUE(path);
  EXPECT_EQ(path->text(), "/root" + s + native("a/b.htm"));
  EXPECT_EQ(path->root(), "/root" + s);
  EXPECT_EQ(path->relative(), native("a/b.htm"));
  EXPECT_EQ(text(RootedPath::literal("/root/", "a")), "/root/a");
  EXPECT_EQ(text(RootedPath::literal("/", "a")), "/a");
  EXPECT_EQ(text(RootedPath::literal("", "a")), s + "a");
}

TEST(RootedPath, TakesBothSeparatorsAndDropsPartsThatSayNothing) {
  EXPECT_EQ(text(RootedPath::literal("/r", "\\a\\\\b//c/./d/")), "/r" + native("/a/b/c/d"));
  for (const char* path : {"", "/", "\\", ".", "/./", "//.\\."}) {
    ASSERT_TRUE(RootedPath::literal("/r", path)) << path;
    EXPECT_EQ(RootedPath::literal("/r", path)->relative(), "") << path;
  }
}

TEST(RootedPath, LiteralPathsGoNowhereElse) {
  for (const char* path : {"..", "/..", "../a", "a/..", "a/../b", "a/..\\b", "\\..\\a", "./../a"}) {
    EXPECT_EQ(text(RootedPath::literal("/r", path)), "refused") << path;
  }
  EXPECT_EQ(text(RootedPath::literal("/r", "c:/a")), "refused");
  EXPECT_EQ(text(RootedPath::literal("/r", "a.htm::$DATA")), "refused");
  EXPECT_EQ(text(RootedPath::literal("/r", "a\0.htm"sv)), "refused");
  for (const char* path : {"...", "a\x1B", "con", "..a", "a..", ". .", ".hidden"}) {
    EXPECT_EQ(text(RootedPath::literal("/r", path)), "/r" + s + path) << path;
  }
}

TEST(RootedPath, PortablePathsArePlainNamesOnEverySystem) {
  for (const char* path :
       {"/", "/a.htm", "/a/b/c.htm", "/a..b.htm", "/..a", "/a/.hidden", "/%2e%2e/a.htm",
        "/console.htm", "/com10.txt", "/com.txt", "/co", "/lpt", "/sch\xC3\xB6n.htm", "/a b.htm"}) {
    ASSERT_TRUE(RootedPath::portable("/r", path)) << path;
    EXPECT_EQ("/" + spelled(std::string(RootedPath::portable("/r", path)->relative())), path);
  }
  EXPECT_EQ(text(RootedPath::portable("/r", "//a/./b")), "/r" + native("/a/b"));
}

TEST(RootedPath, PortablePathsReachNoDeviceDriveOrStream) {
  for (const auto path : {"/.."sv,
                          "/../a.htm"sv,
                          "/a/../../b.htm"sv,
                          "/a/..\\b.htm"sv,
                          "\\..\\a.htm"sv,
                          "/.. /a.htm"sv,
                          "/. ./a.htm"sv,
                          "/.../a.htm"sv,
                          "/a/.."sv,
                          "/ ./a.htm"sv,
                          "/c:/a.htm"sv,
                          "/a.htm:stream"sv,
                          "/a.htm::$DATA"sv,
                          "/a\0.htm"sv,
                          "/a\n.htm"sv,
                          "/a\x1F"sv,
                          "/con"sv,
                          "con"sv,
                          "/CON.txt"sv,
                          "/a/Nul .htm"sv,
                          "/ nul"sv,
                          "/aux.tar.htm"sv,
                          "/PRN/x.htm"sv,
                          "\\prn\\x.htm"sv,
                          "/com1.txt"sv,
                          "/lpt9"sv,
                          "/com0"sv,
                          "/com\xB9.txt"sv,
                          "/lpt\xB2"sv,
                          "/com\xB3.a.b"sv,
                          "/COM\xC2\xB2.txt"sv,
                          "/LPT\xC2\xB9"sv,
                          "/CONIN$.txt"sv,
                          "/conout$"sv,
                          "/clock$"sv,
                          "/Config$.sys"sv}) {
    EXPECT_EQ(text(RootedPath::portable("/r", path)), "refused") << path;
  }
}

TEST(RootedPath, ResolvedPathsMayLeadUpwardsAsFarAsTheRoot) {
  const auto resolved = [](std::string_view folder, std::string_view path) {
    return text(RootedPath::resolved("/srv/site", folder, path));
  };
  EXPECT_EQ(resolved("/srv/site/a/", "b.inc"), "/srv/site" + native("/a/b.inc"));
  EXPECT_EQ(resolved("/srv/site/a", "..\\b.inc"), "/srv/site" + native("/b.inc"));
  EXPECT_EQ(resolved("/srv/site/a", "../../site/b.inc"), "/srv/site" + native("/b.inc"));
  EXPECT_EQ(resolved("/srv/site/a", "x/../../c/./b.inc"), "/srv/site" + native("/c/b.inc"));
  EXPECT_EQ(resolved("/srv/site/a", "/b.inc"), "/srv/site" + native("/a/b.inc"));
  EXPECT_EQ(resolved("/srv/site/a", ".."), "/srv/site" + s);
  EXPECT_EQ(resolved("/srv/site/a/../b", "c"), "/srv/site" + native("/b/c"));
  EXPECT_EQ(resolved("/srv/other/..", "site/c"), "/srv/site" + native("/c"));

  EXPECT_EQ(resolved("/srv/site/a", "../../b.inc"), "refused");
  EXPECT_EQ(resolved("/srv/site/a", "../../siteother/b.inc"), "refused");
  EXPECT_EQ(resolved("/srv/site", "../../../../../srv/other"), "refused");
  EXPECT_EQ(resolved("/srv/site", ".."), "refused");
  EXPECT_EQ(resolved("/srv/other", "b.inc"), "refused");
  EXPECT_EQ(resolved("srv/site", "b.inc"), "refused") << "no absolute folder";
  EXPECT_EQ(resolved("/srv/site", "c:b.inc"), "refused");
  EXPECT_EQ(resolved("/srv/site", "b\0.inc"sv), "refused");
}

TEST(RootedPath, RootsMayBeSpelledInAnyWay) {
  EXPECT_EQ(text(RootedPath::resolved("/srv/x/../site/", "/srv/site", "a")), "/srv/x/../site/a");
  EXPECT_EQ(text(RootedPath::resolved("/", "/a/b", "../../../c")), "/c");
  EXPECT_EQ(text(RootedPath::resolved("site", "site/a", "../b")), "site" + s + "b");
  EXPECT_EQ(text(RootedPath::resolved("site", "site/a", "../../b")), "refused");
  EXPECT_EQ(text(RootedPath::resolved("../site", "../site/a", "../b")), "../site" + s + "b");
  EXPECT_EQ(text(RootedPath::resolved("../site", "../site/a", "../../site/b")),
            "../site" + s + "b");
  EXPECT_EQ(text(RootedPath::resolved("site", "", "../site/b")), "refused");
}

TEST(RootedPath, LongPathsTakeTimeInProportion) {
  std::string down;
  std::string upAndDown;
  for (int i = 0; i < 1'000'000; ++i) down += "a/";
  for (int i = 0; i < 500'000; ++i) upAndDown += "a/../";
  EXPECT_EQ(RootedPath::portable("/r", down)->relative().size(), down.size() - 1);
  EXPECT_EQ(RootedPath::resolved("/r", "/r", upAndDown)->relative(), "");
  EXPECT_EQ(text(RootedPath::resolved("/r", "/r/" + down, upAndDown + "../../b")).size(),
            down.size());
}

}  // namespace quorvane
