#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <fstream>

#include "platform/linux/name_index.h"
#include "platform/system.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

class LinuxFilesTest : public testing::Test {
 protected:
  void write(const std::string& name, const std::string& bytes = "x") { folder.write(name, bytes); }
  std::optional<std::string> found(std::string_view relative) {
    return files->find(RootedPath::literal(folder.path(), relative).value());
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> files = makeFiles();
};

TEST_F(LinuxFilesTest, AFolderThatHasRestedIsReadOnceAndAgainWhenItChanges) {
  write("old.txt");
  const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
  fs::last_write_time(folder.path(), longAgo);
  EXPECT_EQ(found("OLD.txt"), folder / "old.txt");
  EXPECT_EQ(found("OLD.TXT"), folder / "old.txt");
  write("fresh.txt");
  EXPECT_EQ(found("FRESH.txt"), folder / "fresh.txt");
}

TEST_F(LinuxFilesTest, FoldCoversAccentedLetters) {
  EXPECT_EQ(foldCase("\xC3\x84\xC3\x96.TXT"), "\xC3\xA4\xC3\xB6.txt");
  EXPECT_EQ(foldCase("\xC3\x97\xC3\x9F"), "\xC3\x97\xC3\x9F") << "no letters with a capital";
  EXPECT_EQ(foldCase("\xE2\x82\x80"), "\xE2\x82\x80");
  write("Gr\xC3\xBC\xC3\x9F\x65.html");
  EXPECT_TRUE(found("GR\xC3\x9C\xC3\x9F\x45.HTML"));
}

TEST_F(LinuxFilesTest, PipesAndDevicesAreNoFiles) {
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_FALSE(files->stat(folder / "pipe"));
  EXPECT_EQ(files->open(folder / "pipe"), nullptr);
  EXPECT_FALSE(files->readAll(folder / "pipe"));
  EXPECT_EQ(files->open(folder.path()), nullptr);
  EXPECT_FALSE(files->stat("/dev/zero"));
}

/// Lets files grow no further than this while it lives, as a disk that fills up does.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit before_{};
  void (*handler_)(int);
};

TEST_F(LinuxFilesTest, AWriteThatFailsHalfWayLeavesTheOldFileAndNothingElse) {
  write("old", "old content");
  {
    const FileSizeLimit limit(1000);
    EXPECT_FALSE(files->writeAll(folder / "old", std::string(5000, 'x')));
    EXPECT_FALSE(files->writeAll(folder / "new", std::string(1001, 'x')));
    EXPECT_TRUE(files->writeAll(folder / "fits", std::string(1000, 'x')));
  }
  EXPECT_EQ(files->readAll(folder / "old"), "old content");
  EXPECT_EQ(files->list(folder.path()).size(), 2U) << "the old one and the one that fits";
}

}  // namespace

}  // namespace quorvane
