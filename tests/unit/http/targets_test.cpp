#include "http/targets.h"

#include <gtest/gtest.h>

#include "platform/fake/memory_files.h"
#include "testing/spelling.h"

namespace quorvane {

using namespace std::string_view_literals;

TEST(Targets, LocatesFilesWithoutRegardToCase) {
  MemoryFiles files;
  files.put("/root/Docs/Page.htm", "x");
  files.put("/rootless.htm", "x");
  const auto locate = [&](std::string_view path) {
    const auto found = targets::locate(files, LocalTarget::inside("/root", path), true);
    return found ? spelled(found->path) : "nothing";
  };
  EXPECT_EQ(locate("/Docs/Page.htm"), "/root/Docs/Page.htm");
  EXPECT_EQ(locate("/docs/PAGE.HTM"), "/root/Docs/Page.htm");
  EXPECT_EQ(locate("/docs/other.htm"), "nothing");
  EXPECT_EQ(locate("less.htm"), "nothing");
  EXPECT_EQ(locate("Docs/Page.htm"), "nothing") << "no separator behind the folder";
  EXPECT_EQ(locate(""), "nothing");
  EXPECT_EQ(locate("/Docs//./Page.htm"), "/root/Docs/Page.htm");
  EXPECT_EQ(locate("/../rootless.htm"), "nothing");
  EXPECT_EQ(targets::locate(files, LocalTarget::inside("", "rootless.htm"), true), std::nullopt);
}

TEST(Targets, CompleteLocalPathsMayLieAnywhere) {
  MemoryFiles files;
  files.put("/root/Page.htm", "x");
  files.put("/other/file.zip", "x");
  const auto locate = [&](std::string_view path) {
    const auto found = targets::locate(files, LocalTarget::anywhere("/root", path), true);
    return found ? spelled(found->path) : "nothing";
  };
  EXPECT_EQ(locate("/other/file.zip"), "/other/file.zip");
  EXPECT_EQ(locate("/other/FILE.zip"), "nothing");
  EXPECT_EQ(locate("/root/page.HTM"), "/root/Page.htm");
  EXPECT_EQ(locate("/other/file.zip\0.htm"sv), "nothing");
  EXPECT_EQ(locate("/root/../other/file.zip"), "nothing") << "no such name in this file system";
}

TEST(Targets, CompleteLocalPathsMayBeHeldToTheDocumentRoot) {
  MemoryFiles files;
  files.put("/root/sub/Page.htm", "x");
  files.put("/other/file.zip", "x");
  const auto locate = [&](std::string_view path) {
    const auto found = targets::locate(files, LocalTarget::onlyInside("/root", path), true);
    return found ? spelled(found->path) : "nothing";
  };
  EXPECT_EQ(locate("/root/sub/page.HTM"), "/root/sub/Page.htm");
  EXPECT_EQ(locate("\\root\\x\\..\\sub\\Page.htm"), "/root/sub/Page.htm");
  for (const char* path : {"/other/file.zip", "/root/../other/file.zip", "root/sub/Page.htm",
                           "sub/Page.htm", "/rootless.htm", ""}) {
    EXPECT_EQ(locate(path), "nothing") << path;
  }
  EXPECT_EQ(spelled(LocalTarget::onlyInside("/root", "/other/file.zip").text()), "/other/file.zip");
}

TEST(Targets, NoNameOfAClientReachesADevice) {
  MemoryFiles files;
  files.put("/root/aux.htm", "x");
  files.put("/root/a.htm:stream", "x");
  files.put("/root/.../a.htm", "x");
  for (const char* path : {"/aux.htm", "/AUX.htm", "/a.htm:stream", "/.../a.htm"}) {
    EXPECT_EQ(targets::locate(files, LocalTarget::inside("/root", path), true), std::nullopt)
        << path;
  }
}

}  // namespace quorvane
