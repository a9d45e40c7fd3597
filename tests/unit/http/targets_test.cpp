#include "http/targets.h"

#include <gtest/gtest.h>

#include "platform/fake/memory_files.h"

namespace quorvane {

using namespace std::string_view_literals;

TEST(Targets, OrdinaryPathsStayInside) {
  for (const char* path : {"/", "/a.htm", "/a/b/c.htm", "/a..b.htm", "/..a", "/a/.hidden", "//a"}) {
    EXPECT_TRUE(targets::staysInside(path)) << path;
  }
  EXPECT_TRUE(targets::staysInside("/%2e%2e/a.htm"));
  EXPECT_TRUE(targets::staysInside("/console.htm"));
  EXPECT_TRUE(targets::staysInside("/com10.txt"));
  EXPECT_TRUE(targets::staysInside("/com.txt"));
  EXPECT_TRUE(targets::staysInside("/sch\xC3\xB6n.htm"));
}

TEST(Targets, WhatLeadsElsewhereIsRefused) {
  for (const auto path : {""sv,
                          "a.htm"sv,
                          "/.."sv,
                          "/../a.htm"sv,
                          "/a/../../b.htm"sv,
                          "/a/..\\b.htm"sv,
                          "\\..\\a.htm"sv,
                          "/.. /a.htm"sv,
                          "/. ./a.htm"sv,
                          "/.../a.htm"sv,
                          "/a/.."sv,
                          "/c:/a.htm"sv,
                          "/a.htm:stream"sv,
                          "/a.htm::$DATA.txt"sv,
                          "/a\0.htm"sv,
                          "/a\n.htm"sv,
                          "/con"sv,
                          "/CON.txt"sv,
                          "/a/Nul .htm"sv,
                          "/aux.tar.htm"sv,
                          "/PRN/x.htm"sv,
                          "/com1.txt"sv,
                          "/lpt9"sv,
                          "/com\xB9.txt"sv,
                          "/COM\xC2\xB2.txt"sv,
                          "/CONIN$.txt"sv}) {
    EXPECT_FALSE(targets::staysInside(path)) << path;
  }
}

TEST(Targets, LocatesFilesWithoutRegardToCase) {
  MemoryFiles files;
  files.put("/root/Docs/Page.htm", "x");
  files.put("/rootless.htm", "x");
  const auto locate = [&](std::string_view path) {
    const auto found = targets::locate(files, LocalTarget::inside("/root", path));
    return found ? found->path : "nothing";
  };
  EXPECT_EQ(locate("/Docs/Page.htm"), "/root/Docs/Page.htm");
  EXPECT_EQ(locate("/docs/PAGE.HTM"), "/root/Docs/Page.htm");
  EXPECT_EQ(locate("/docs/other.htm"), "nothing");
  EXPECT_EQ(locate("less.htm"), "nothing");
  EXPECT_EQ(locate("/../rootless.htm"), "nothing");
  EXPECT_EQ(targets::locate(files, LocalTarget::inside("", "rootless.htm")), std::nullopt);
}

TEST(Targets, CompleteLocalPathsMayLieAnywhere) {
  MemoryFiles files;
  files.put("/root/Page.htm", "x");
  files.put("/other/file.zip", "x");
  const auto locate = [&](std::string_view path) {
    const auto found = targets::locate(files, LocalTarget::anywhere("/root", path));
    return found ? found->path : "nothing";
  };
  EXPECT_EQ(locate("/other/file.zip"), "/other/file.zip");
  EXPECT_EQ(locate("/other/FILE.zip"), "nothing");
  EXPECT_EQ(locate("/root/page.HTM"), "/root/Page.htm");
  EXPECT_EQ(locate("/other/file.zip\0.htm"sv), "nothing");
}

}  // namespace quorvane
