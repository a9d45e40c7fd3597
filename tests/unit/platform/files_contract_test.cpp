#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "kinds.h"
#include "platform/fake/memory_files.h"
#include "platform/system.h"
#include "testing/spelling.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

struct HostFiles {
  static constexpr const char* kName = "Host";
  static constexpr bool kHasCodePage = !kDrive.empty();  ///< that names are in, not UTF-8
  std::string root() const { return folder.path(); }
  void link(const std::string& name, const std::string& target) {
    std::filesystem::create_symlink(root() + '/' + target, root() + '/' + name);
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> made = makeFiles();
  const Files& files = *made;
};

struct FakeFiles {
  static constexpr const char* kName = "Fake";
  static constexpr bool kHasCodePage = false;
  FakeFiles() {
    memory.stamp = TimePoint(std::chrono::hours(500'000));
    memory.addFolder(root());
  }
  std::string root() const { return "/somewhere/below"; }
  void link(const std::string& name, const std::string& target) {
    memory.links[root() + '/' + name] = root() + '/' + target;
  }

  MemoryFiles memory;
  const Files& files = memory;
};

/// What every file system does. Whatever stands in it is made by its own calls.
template <typename Kind>
class FilesContract : public testing::Test {
 protected:
  std::string at(const std::string& name) const { return kind.root() + "/" + name; }
  void write(const std::string& name, const std::string& bytes = "x") {
    ASSERT_TRUE(files.writeAll(at(name), bytes));
  }
  /// What is found below the root, seen from there.
  std::optional<std::string> found(std::string_view relative) {
    const RootedPath path = RootedPath::literal(kind.root(), relative).value();
    const auto whole = files.find(path);
    if (!whole) return std::nullopt;
    EXPECT_TRUE(whole->starts_with(path.root())) << *whole;
    return spelled(whole->substr(std::min(path.root().size(), whole->size())));
  }
  std::vector<std::string> names(const std::string& folder) {
    auto all = files.list(folder);
    std::sort(all.begin(), all.end());
    return all;
  }

  Kind kind;
  const Files& files = kind.files;
};

using Kinds = testing::Types<HostFiles, FakeFiles>;
TYPED_TEST_SUITE(FilesContract, Kinds, KindNames);

TYPED_TEST(FilesContract, StatTellsSizeKindAndChange) {
  this->write("a", "12345");
  const auto info = this->files.stat(this->at("a"));
  ASSERT_TRUE(info);
  EXPECT_EQ(info->size, 5U);
  EXPECT_FALSE(info->isFolder);
  EXPECT_GT(info->modified, TimePoint{});
  EXPECT_TRUE(this->files.stat(this->kind.root())->isFolder);
  EXPECT_TRUE(this->files.stat(this->at(""))->isFolder) << "a separator at the end";
  EXPECT_FALSE(this->files.stat(this->at("b")));
  EXPECT_FALSE(this->files.stat(this->at("a/"))) << "a file is no folder";
  EXPECT_FALSE(this->files.stat(this->at("a/b")));
  EXPECT_EQ(this->files.open(this->at("a"))->info(), *info);
}

TYPED_TEST(FilesContract, AReplacedFileIsAnotherAndItsReadersKeepTheOldOne) {
  this->write("a", "12345");
  const auto before = this->files.stat(this->at("a"));
  const auto open = this->files.open(this->at("a"));
  this->write("a", "54321");
  EXPECT_NE(this->files.stat(this->at("a"))->identity, before->identity);
  char room[5] = {};
  EXPECT_EQ(open->read(0, room, sizeof room), 5U);
  EXPECT_EQ(std::string(room, 5), "12345");
  EXPECT_EQ(open->info(), *before);
}

TYPED_TEST(FilesContract, FindIgnoresCaseInEveryPart) {
  ASSERT_TRUE(this->files.makeFolder(this->at("Docs")));
  ASSERT_TRUE(this->files.makeFolder(this->at("Docs/Sub")));
  ASSERT_TRUE(this->files.makeFolder(this->at("Docs/Empty")));
  this->write("Docs/Sub/Read.Me");
  EXPECT_EQ(this->found("Docs/Sub/Read.Me"), "Docs/Sub/Read.Me");
  EXPECT_EQ(this->found("docs/SUB/read.me"), "Docs/Sub/Read.Me");
  EXPECT_EQ(this->found("/docs//SUB/read.me"), "Docs/Sub/Read.Me");
  EXPECT_EQ(this->found("docs/sub"), "Docs/Sub");
  this->write("Docs/Sub/A Name That is Long.html");
  EXPECT_EQ(this->found("docs/sub/a name THAT is long.HTML"), "Docs/Sub/A Name That is Long.html");
  EXPECT_EQ(this->found("DOCS/EMPTY"), "Docs/Empty");
  EXPECT_FALSE(this->found("docs/none/read.me"));
  EXPECT_FALSE(this->found("docs/sub/read.me/more"));
  EXPECT_FALSE(this->found("docs/sub/read"));
}

TYPED_TEST(FilesContract, FindIgnoresTheCaseOfAccentedLetters) {
  if (TypeParam::kHasCodePage) {
    this->write("Gr\xFC\xDF\x65.html");
    EXPECT_EQ(this->found("GR\xDC\xDF\x45.HTML"), "Gr\xFC\xDF\x65.html");
    EXPECT_FALSE(this->found("GR\xDC\xFF\x45.HTML"));
  } else {
    this->write("Gr\xC3\xBC\xC3\x9F\x65.html");
    EXPECT_EQ(this->found("GR\xC3\x9C\xC3\x9F\x45.HTML"), "Gr\xC3\xBC\xC3\x9F\x65.html");
    EXPECT_FALSE(this->found("GR\xC3\x9C\xC3\xBF\x45.HTML"));
  }
}

TYPED_TEST(FilesContract, FindTakesTheFolderItselfAsItIs) {
  ASSERT_TRUE(this->files.makeFolder(this->at("Root")));
  ASSERT_TRUE(this->files.writeAll(this->at("Root/File"), "x"));
  EXPECT_TRUE(this->files.find(RootedPath::literal(this->at("Root"), "file").value()));
  EXPECT_TRUE(this->files.find(RootedPath::literal(this->at("Root/"), "").value()));
  EXPECT_FALSE(this->files.find(RootedPath::literal(this->at("none"), "").value()));
}

TYPED_TEST(FilesContract, FindSeesNewNamesAtOnceAlsoAfterAMiss) {
  EXPECT_FALSE(this->found("NEW.txt"));
  this->write("new.txt");
  EXPECT_EQ(this->found("NEW.txt"), "new.txt");
  EXPECT_TRUE(this->files.remove(this->at("new.txt")));
  EXPECT_FALSE(this->found("NEW.txt"));
}

TYPED_TEST(FilesContract, LinksThatLeadOutOfAFolderAreKnown) {
  ASSERT_TRUE(this->files.makeFolder(this->at("in")));
  ASSERT_TRUE(this->files.makeFolder(this->at("in/sub")));
  ASSERT_TRUE(this->files.makeFolder(this->at("inside")));
  this->write("in/sub/f");
  this->write("inside/g", "g");
  this->kind.link("in/out", "inside");
  this->kind.link("in/back", "in/sub");
  this->kind.link("root", "in");
  const auto below = [this](const char* path, const char* root) {
    return this->files.leadsBelow(this->at(path), this->at(root));
  };
  EXPECT_EQ(this->files.readAll(this->at("in/out/g")), "g");
  EXPECT_FALSE(below("in/out/g", "in"));
  EXPECT_FALSE(below("in/out", "in"));
  EXPECT_TRUE(below("in/back/f", "in"));
  EXPECT_TRUE(below("in/sub/f", "in/"));
  EXPECT_TRUE(below("in", "in"));
  EXPECT_TRUE(below("root/sub/f", "root"));
  EXPECT_FALSE(below("root/out/g", "root"));
  EXPECT_FALSE(below("inside/g", "in"));
  EXPECT_FALSE(below("in/none", "in"));
  EXPECT_FALSE(below("in/sub/f", "none"));
}

TYPED_TEST(FilesContract, WhatIsLongerThanAnyNameIsNotThere) {
  this->write("a");
  std::string deep;
  for (int i = 0; i < 500'000; ++i) deep += "A/";
  EXPECT_FALSE(this->found(deep));
  EXPECT_FALSE(this->found("a" + std::string(300, 'x')));
  EXPECT_FALSE(this->found("A/" + std::string(5000, 'x')));
}

TYPED_TEST(FilesContract, WholeFilesAreReadWrittenAndRemoved) {
  const std::string bytes("a\0b\r\n", 5);
  this->write("f", bytes);
  EXPECT_EQ(this->files.readAll(this->at("f")), bytes);
  EXPECT_TRUE(this->files.append(this->at("f"), "more"));
  EXPECT_EQ(this->files.readAll(this->at("f")), bytes + "more");
  EXPECT_TRUE(this->files.append(this->at("g"), "made"));
  EXPECT_EQ(this->files.readAll(this->at("g")), "made");
  EXPECT_EQ(this->names(this->kind.root()), (std::vector<std::string>{"f", "g"}))
      << "nothing temporary stays";
  EXPECT_TRUE(this->files.remove(this->at("g")));
  EXPECT_FALSE(this->files.remove(this->at("g")));
  EXPECT_FALSE(this->files.readAll(this->at("g")));
}

TYPED_TEST(FilesContract, NothingIsWrittenWhereThereIsNoFolder) {
  this->write("f");
  EXPECT_FALSE(this->files.writeAll(this->at("no/such"), "x"));
  EXPECT_FALSE(this->files.append(this->at("no/such"), "x"));
  EXPECT_FALSE(this->files.writeAll(this->at("f/below"), "x"));
  EXPECT_FALSE(this->files.append(this->at("f/below"), "x"));
  EXPECT_EQ(this->names(this->kind.root()), std::vector<std::string>{"f"});
}

TYPED_TEST(FilesContract, AFolderIsNotAFile) {
  ASSERT_TRUE(this->files.makeFolder(this->at("a")));
  EXPECT_EQ(this->files.open(this->at("a")), nullptr);
  EXPECT_FALSE(this->files.readAll(this->at("a")));
  EXPECT_FALSE(this->files.writeAll(this->at("a"), "x"));
  EXPECT_FALSE(this->files.append(this->at("a"), "x"));
  EXPECT_FALSE(this->files.remove(this->at("a")));
  EXPECT_TRUE(this->files.stat(this->at("a"))->isFolder);
}

TYPED_TEST(FilesContract, ReadStopsAtTheEnd) {
  this->write("f", "0123456789");
  const auto file = this->files.open(this->at("f"));
  char room[8] = {};
  EXPECT_EQ(file->read(7, room, sizeof room), 3U);
  EXPECT_EQ(std::string(room, 3), "789");
  EXPECT_EQ(file->read(10, room, sizeof room), 0U);
  EXPECT_EQ(file->read(1'000'000, room, sizeof room), 0U);
}

TYPED_TEST(FilesContract, MakeFolderMakesOneLevel) {
  EXPECT_FALSE(this->files.makeFolder(this->at("a/b")));
  EXPECT_TRUE(this->files.makeFolder(this->at("a")));
  EXPECT_TRUE(this->files.makeFolder(this->at("a/b")));
  EXPECT_FALSE(this->files.makeFolder(this->at("a")));
  this->write("f");
  EXPECT_FALSE(this->files.makeFolder(this->at("f")));
  EXPECT_FALSE(this->files.makeFolder(this->at("f/a")));
}

TYPED_TEST(FilesContract, ListNamesWhatStandsInTheFolderItself) {
  ASSERT_TRUE(this->files.makeFolder(this->at("a")));
  ASSERT_TRUE(this->files.makeFolder(this->at("a/b")));
  this->write("a/f");
  this->write("a/b/g");
  EXPECT_EQ(this->names(this->at("a")), (std::vector<std::string>{"b", "f"}));
  EXPECT_EQ(this->names(this->at("a/")), (std::vector<std::string>{"b", "f"}));
  EXPECT_TRUE(this->files.remove(this->at("a/b/g")));
  EXPECT_TRUE(this->names(this->at("a/b")).empty());
  EXPECT_TRUE(this->files.stat(this->at("a/b"))) << "an emptied folder stays";
  EXPECT_TRUE(this->names(this->at("none")).empty());
  EXPECT_TRUE(this->names(this->at("a/f")).empty());
}

TYPED_TEST(FilesContract, RemoveFolderTakesEmptyOnes) {
  ASSERT_TRUE(this->files.makeFolder(this->at("a")));
  this->write("a/f");
  EXPECT_FALSE(this->files.removeFolder(this->at("a")));
  EXPECT_TRUE(this->files.remove(this->at("a/f")));
  EXPECT_TRUE(this->files.removeFolder(this->at("a")));
  EXPECT_FALSE(this->files.stat(this->at("a")));
  this->write("f");
  EXPECT_FALSE(this->files.removeFolder(this->at("f")));
}

TYPED_TEST(FilesContract, RenameMovesAndReplacesNothing) {
  this->write("a", "1");
  this->write("b", "2");
  EXPECT_FALSE(this->files.rename(this->at("a"), this->at("b")));
  EXPECT_TRUE(this->files.rename(this->at("a"), this->at("c")));
  EXPECT_EQ(this->files.readAll(this->at("c")), "1");
  EXPECT_FALSE(this->files.stat(this->at("a")));
  EXPECT_FALSE(this->files.rename(this->at("a"), this->at("d")));
  ASSERT_TRUE(this->files.makeFolder(this->at("from")));
  this->write("from/f", "3");
  EXPECT_TRUE(this->files.rename(this->at("from"), this->at("to")));
  EXPECT_EQ(this->files.readAll(this->at("to/f")), "3");
  EXPECT_FALSE(this->files.rename(this->at("c"), this->at("none/c")));
}

TYPED_TEST(FilesContract, MarksTellTimesAndKinds) {
  this->write("a");
  this->write(".b");
  const auto marks = this->files.marks(this->at("a"));
  ASSERT_TRUE(marks);
  EXPECT_GT(marks->created, TimePoint{});
  EXPECT_GT(marks->accessed, TimePoint{});
  EXPECT_FALSE(marks->hidden);
  EXPECT_FALSE(marks->readOnly);
  EXPECT_TRUE(this->files.marks(this->at(".b"))->hidden);
  EXPECT_TRUE(this->files.setReadOnly(this->at("a"), true));
  EXPECT_TRUE(this->files.marks(this->at("a"))->readOnly);
  EXPECT_TRUE(this->files.setReadOnly(this->at("a"), false));
  EXPECT_FALSE(this->files.marks(this->at("a"))->readOnly);
  EXPECT_FALSE(this->files.setReadOnly(this->at("none"), true));
  EXPECT_FALSE(this->files.marks(this->at("none")));
}

TYPED_TEST(FilesContract, RoomIsTheVolumes) {
  const auto room = this->files.room(this->kind.root());
  ASSERT_TRUE(room);
  EXPECT_GT(room->size, 0U);
  EXPECT_LE(room->available, room->free);
  EXPECT_LE(room->free, room->size);
  EXPECT_FALSE(this->files.room(this->at("none")));
}

}  // namespace

}  // namespace quorvane
