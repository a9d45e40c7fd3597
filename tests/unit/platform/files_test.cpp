#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <fstream>

#include "platform/linux/name_index.h"
#include "platform/system.h"
#include "temporary_folder.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

class FilesTest : public testing::Test {
 protected:
  void write(const std::string& name, const std::string& bytes = "x") {
    std::ofstream(folder / name) << bytes;
  }
  std::optional<std::string> found(std::string_view relative) {
    return files->find(RootedPath::literal(folder.path(), relative).value());
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> files = makeFiles();
};

TEST_F(FilesTest, StatTellsSizeKindAndChange) {
  write("a", "12345");
  const auto info = files->stat(folder / "a");
  ASSERT_TRUE(info);
  EXPECT_EQ(info->size, 5U);
  EXPECT_FALSE(info->isFolder);
  EXPECT_GT(info->modified.time_since_epoch().count(), 0);
  EXPECT_TRUE(files->stat(folder.path())->isFolder);
  EXPECT_FALSE(files->stat(folder / "b"));
  EXPECT_EQ(files->open(folder / "a")->info(), *info);
}

TEST_F(FilesTest, AReplacedFileHasAnotherIdentity) {
  write("a", "12345");
  const auto before = files->stat(folder / "a");
  EXPECT_TRUE(files->writeAll(folder / "a", "54321"));
  EXPECT_NE(files->stat(folder / "a")->identity, before->identity);
}

TEST_F(FilesTest, FindTakesTheExactNameFirst) {
  write("Index.qvs");
  write("index.QVS");
  EXPECT_EQ(found("Index.qvs"), folder / "Index.qvs");
  EXPECT_EQ(found("index.QVS"), folder / "index.QVS");
  EXPECT_EQ(found("INDEX.qvs"), folder / "Index.qvs") << "the one that sorts first";
}

TEST_F(FilesTest, FindIgnoresCaseInEveryPart) {
  fs::create_directories(folder / "Docs/Sub");
  write("Docs/Sub/Read.Me");
  EXPECT_EQ(found("docs/SUB/read.me"), folder / "Docs/Sub/Read.Me");
  EXPECT_EQ(found("/docs//SUB/read.me"), folder / "Docs/Sub/Read.Me");
  EXPECT_EQ(found("docs/sub"), folder / "Docs/Sub");
  EXPECT_FALSE(found("docs/none/read.me"));
  EXPECT_FALSE(found("docs/sub/read.me/more"));
}

TEST_F(FilesTest, FindSeesNewNamesAtOnceAlsoAfterAMiss) {
  EXPECT_FALSE(found("NEW.txt"));
  write("new.txt");
  EXPECT_EQ(found("NEW.txt"), folder / "new.txt");
  fs::remove(folder / "new.txt");
  EXPECT_FALSE(found("NEW.txt"));
}

TEST_F(FilesTest, AFolderThatHasRestedIsReadOnceAndAgainWhenItChanges) {
  write("old.txt");
  const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
  fs::last_write_time(folder.path(), longAgo);
  EXPECT_EQ(found("OLD.txt"), folder / "old.txt");
  EXPECT_EQ(found("OLD.TXT"), folder / "old.txt");
  write("fresh.txt");
  EXPECT_EQ(found("FRESH.txt"), folder / "fresh.txt");
}

TEST_F(FilesTest, AFolderIsFoundInItself) {
  EXPECT_EQ(files->find(RootedPath::literal(folder.path() + "/", "").value()), folder / "");
  EXPECT_FALSE(files->find(RootedPath::literal(folder / "none", "").value()));
}

TEST_F(FilesTest, WhatIsLongerThanTheSystemAllowsIsNotThere) {
  write("a");
  std::string deep;
  for (int i = 0; i < 500'000; ++i) deep += "A/";
  EXPECT_FALSE(found(deep));
  EXPECT_FALSE(found("a" + std::string(300, 'x')));
  EXPECT_FALSE(found("A/" + std::string(5000, 'x')));
}

TEST_F(FilesTest, FoldCoversAccentedLetters) {
  EXPECT_EQ(foldCase("\xC3\x84\xC3\x96.TXT"), "\xC3\xA4\xC3\xB6.txt");
  EXPECT_EQ(foldCase("\xC3\x97\xC3\x9F"), "\xC3\x97\xC3\x9F") << "no letters with a capital";
  EXPECT_EQ(foldCase("\xE2\x82\x80"), "\xE2\x82\x80");
  write("Gr\xC3\xBC\xC3\x9F\x65.html");
  EXPECT_TRUE(found("GR\xC3\x9C\xC3\x9F\x45.HTML"));
}

TEST_F(FilesTest, PipesAndDevicesAreNoFiles) {
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_FALSE(files->stat(folder / "pipe"));
  EXPECT_EQ(files->open(folder / "pipe"), nullptr);
  EXPECT_FALSE(files->readAll(folder / "pipe"));
  EXPECT_EQ(files->open(folder.path()), nullptr);
  EXPECT_FALSE(files->stat("/dev/zero"));
}

TEST_F(FilesTest, WholeFilesReadAndWritten) {
  const std::string bytes("a\0b\r\n", 5);
  EXPECT_TRUE(files->writeAll(folder / "f", bytes));
  EXPECT_EQ(files->readAll(folder / "f"), bytes);
  EXPECT_TRUE(files->append(folder / "f", "more"));
  EXPECT_EQ(files->readAll(folder / "f"), bytes + "more");
  EXPECT_TRUE(files->append(folder / "g", "made"));
  EXPECT_EQ(files->readAll(folder / "g"), "made");
  EXPECT_FALSE(files->readAll(folder / "none"));
  EXPECT_FALSE(files->writeAll(folder / "no/such", "x"));
  EXPECT_EQ(files->list(folder.path()).size(), 2U) << "nothing temporary stays";
  EXPECT_TRUE(files->remove(folder / "g"));
  EXPECT_FALSE(files->remove(folder / "g"));
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

TEST_F(FilesTest, AWriteThatFailsHalfWayLeavesTheOldFileAndNothingElse) {
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

TEST_F(FilesTest, ReadStopsAtTheEnd) {
  write("f", "0123456789");
  const auto file = files->open(folder / "f");
  char room[8] = {};
  EXPECT_EQ(file->read(7, room, sizeof room), 3U);
  EXPECT_EQ(std::string(room, 3), "789");
  EXPECT_EQ(file->read(10, room, sizeof room), 0U);
}

TEST_F(FilesTest, MakeFolderMakesOneLevel) {
  EXPECT_FALSE(files->makeFolder(folder / "a/b"));
  EXPECT_TRUE(files->makeFolder(folder / "a"));
  EXPECT_TRUE(files->makeFolder(folder / "a/b"));
  EXPECT_FALSE(files->makeFolder(folder / "a"));
  EXPECT_TRUE(files->list(folder / "none").empty());
}

}  // namespace

}  // namespace quorvane
