#include <gtest/gtest.h>

#include <fstream>

#include "platform/system.h"
#include "testing/temporary_folder.h"

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
