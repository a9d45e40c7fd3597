#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

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

TEST_F(LinuxFilesTest, FindTakesTheExactNameFirst) {
  write("Index.qvs");
  write("index.QVS");
  EXPECT_EQ(found("Index.qvs"), folder / "Index.qvs");
  EXPECT_EQ(found("index.QVS"), folder / "index.QVS");
  EXPECT_EQ(found("INDEX.qvs"), folder / "Index.qvs") << "the one that sorts first";
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
