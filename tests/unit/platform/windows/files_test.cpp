#include "support/files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <string>

#include "platform/system.h"
#include "platform/windows/wide_text.h"
#include "support/rooted_path.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

std::string shortNameOf(const std::string& path) {
  std::wstring name(MAX_PATH, L'\0');
  name.resize(::GetShortPathNameW(widePathOf(path).c_str(), name.data(), MAX_PATH));
  return narrowOf(name);
}

class WindowsFilesTest : public testing::Test {
 protected:
  void makeWide(const std::wstring& name) {
    const std::wstring path = widePathOf(folder.path()) + L'\\' + name;
    const HANDLE file =
        ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    ::CloseHandle(file);
  }
  bool finds(const std::string& root, const std::string& path) const {
    return files->find(RootedPath::literal(root, path).value()).has_value();
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> files = makeFiles();
};

TEST_F(WindowsFilesTest, TheRootMayHaveAShortNameAndWhatIsBelowMayNot) {
  ASSERT_TRUE(files->makeFolder(folder / "a folder of pages"));
  ASSERT_TRUE(files->writeAll(folder / "a folder of pages/the index.html", "x"));
  const std::string root = shortNameOf(folder / "a folder of pages");
  ASSERT_NE(root.find('~'), root.npos);
  EXPECT_EQ(files->find(RootedPath::literal(root, "the index.html").value()),
            root + "\\the index.html");
  EXPECT_TRUE(finds(root, "THE INDEX.html"));
  EXPECT_TRUE(finds(root, ""));

  const std::string page = shortNameOf(folder / "a folder of pages/the index.html");
  const std::string shortName = page.substr(page.find_last_of('\\') + 1);
  ASSERT_NE(shortName.find('~'), shortName.npos);
  ASSERT_TRUE(files->stat(root + "\\" + shortName));
  EXPECT_FALSE(finds(root, shortName));
  EXPECT_FALSE(finds(folder / "a folder of pages", shortName));
}

TEST_F(WindowsFilesTest, EachPartIsOfTheCodePageOrOfUtf8) {
  ASSERT_TRUE(files->makeFolder(folder / "caf\xE9"));
  ASSERT_TRUE(files->writeAll(folder / "caf\xE9/na\xEFve.txt", "x"));
  EXPECT_TRUE(finds(folder.path(), "caf\xE9/na\xEFve.txt"));
  EXPECT_TRUE(finds(folder.path(), "caf\xC3\xA9/na\xC3\xAFve.txt"));
  EXPECT_TRUE(finds(folder.path(), "caf\xE9/na\xC3\xAFve.txt"));
  EXPECT_TRUE(finds(folder / "caf\xE9", "na\xC3\xAFve.txt"));
  EXPECT_FALSE(finds(folder.path(), "caf\xE9/na\xC3\xAFvete.txt"));
}

TEST_F(WindowsFilesTest, NamesThatTheCodePageLacksAreUtf8AndTheirFoldersTakeNewFiles) {
  makeWide(L"\x0416\xFF0F\x0101.txt");  // a letter, a wide slash and a letter with a line above
  const auto names = files->list(folder.path());
  ASSERT_EQ(names.size(), 1U);
  EXPECT_EQ(names[0], "\xD0\x96\xEF\xBC\x8F\xC4\x81.txt");
  EXPECT_TRUE(files->stat(folder / names[0]));
  ASSERT_TRUE(files->makeFolder(folder / "sub"));
  ASSERT_TRUE(::CreateDirectoryW((widePathOf(folder.path()) + L"\\\x0416").c_str(), nullptr));
  EXPECT_TRUE(files->writeAll(folder / "\xD0\x96/caf\xE9.txt", "new"));
  EXPECT_EQ(files->readAll(folder / "\xD0\x96/caf\xE9.txt"), "new");
}

}  // namespace

}  // namespace quorvane
