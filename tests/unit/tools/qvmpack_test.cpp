#include "tools/qvmpack.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <set>
#include <sstream>

#include "platform/system.h"
#include "support/clsQVMod.h"
#include "testing/module_builder.h"
#include "testing/spelling.h"
#include "testing/temporary_folder.h"
#include "tools/qvmpack_folder.h"
#include "tools/qvmpack_module.h"

namespace quorvane {

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
namespace fs = std::filesystem;

class ModuleToolTest : public testing::Test {
 protected:
  ModuleToolTest() { fs::create_directory(folder / "site"); }

  void add(const std::string& path, const std::string& content) {
    const fs::path whole = fs::path(folder / "site") / path;
    fs::create_directories(whole.parent_path());
    folder.write("site/" + path, content);
  }
  ExitCode run(const std::vector<std::string>& arguments) {
    out.str("");
    err.str("");
    return runModuleTool(arguments, *files, out, err);
  }
  ExitCode pack() { return run({"pack", folder / "site", folder / "modules/a.qvm"}); }

  /// What the server serves of the packed module.
  std::string served(const std::string& path, std::int32_t language = 0) {
    clsQVMod reader(*files);
    reader.setLanguageID(language);
    reader.setModFolder(folder / "modules");
    return reader.ModReadFile(path);
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> files = makeFiles();
  std::ostringstream out;
  std::ostringstream err;

  bool made = fs::create_directory(folder / "modules");
};

TEST_F(ModuleToolTest, TheServerFindsWhatIsPacked) {
  add("index.qvs", "root");
  add("img/Logo.GIF", "logo");
  add("img/icons/small.png", std::string(100000, 'x'));
  EXPECT_EQ(pack(), ExitCode::Done) << err.str();
  EXPECT_EQ(served("/index.qvs"), "root");
  EXPECT_EQ(served("/IMG/logo.gif"), "logo");
  EXPECT_EQ(served("/img/icons/small.png"), std::string(100000, 'x'));
  EXPECT_THAT(out.str(), HasSubstr("3 files, "));
}

TEST_F(ModuleToolTest, VariantsAreForTheirLanguage) {
  add("index.qvs", "neutral");
  add("1031$index.qvs", "deutsch");
  add("sub/1036$a.qvs", "francais");
  EXPECT_EQ(pack(), ExitCode::Done) << err.str();
  EXPECT_EQ(served("/index.qvs", 1033), "neutral");
  EXPECT_EQ(served("/index.qvs", 1031), "deutsch");
  EXPECT_EQ(served("/sub/a.qvs", 1031), "");
  EXPECT_EQ(served("/sub/a.qvs", 1036), "francais");
}

TEST_F(ModuleToolTest, IncludesArePutInTheirPlace) {
  add("sub/index.qvs", "<!--#include file=\"../Head.inc\"-->\r\nrest");
  add("head.inc", "<!--#include file=\"part.inc\"-->\r\nhead ");
  add("sub/part.inc", "part ");
  EXPECT_EQ(pack(), ExitCode::Done) << err.str();
  EXPECT_EQ(served("/sub/index.qvs"), "part head rest");
  EXPECT_EQ(run({"pack", "--keep-includes", folder / "site", folder / "modules/a.qvm"}),
            ExitCode::Done);
  EXPECT_EQ(served("/sub/index.qvs"), "<!--#include file=\"../Head.inc\"-->\r\nrest");
}

TEST_F(ModuleToolTest, APageWhoseIncludesCanNotBeHadIsNamedAndStaysAsItIs) {
  add("a.qvs", "<!--#include file=\"none.inc\"-->\r\na");
  add("loop.qvs", "<!--#include file=\"loop.inc\"-->\r\n");
  add("loop.inc", "x<!--#include file=\"loop.inc\"-->\r\n");
  EXPECT_EQ(pack(), ExitCode::Finding);
  EXPECT_THAT(err.str(), HasSubstr("a.qvs includes \"none.inc\", which is not there."));
  EXPECT_THAT(err.str(), HasSubstr("loop.qvs has too many includes at \"loop.inc\"."));
  EXPECT_EQ(served("/a.qvs"), "<!--#include file=\"none.inc\"-->\r\na");
}

TEST_F(ModuleToolTest, PagesThatNeedFilesBesideTheModuleAreNamed) {
  add("run.qvs", "<% Server.Execute \"b.qvs\" %>");
  add("sub/small.htm", "<img src=\"/a.png?RX=20&amp;ry=20\">");
  add("plain.htm", "server.execute");
  EXPECT_EQ(pack(), ExitCode::Finding);
  EXPECT_THAT(err.str(), HasSubstr("run.qvs runs other pages"));
  EXPECT_THAT(err.str(), HasSubstr("sub/small.htm resizes pictures"));
  EXPECT_THAT(err.str(), Not(HasSubstr("plain.htm")));
}

TEST_F(ModuleToolTest, FoldersOfOneLetterAreFoundWhereTheyAre) {
  add("a/b.gif", "picture");
  EXPECT_EQ(pack(), ExitCode::Done) << err.str();
  EXPECT_EQ(served("/a/b.gif"), "picture");
}

TEST_F(ModuleToolTest, KeysInsideOtherKeysAreFoundWhereverThatIsPossible) {
  add("a.css", "root");
  add("css/a.css", "folder");
  add("css/css/a.css", "deep");
  EXPECT_EQ(pack(), ExitCode::Done) << err.str();
  EXPECT_EQ(served("/a.css"), "root");
  EXPECT_EQ(served("/css/a.css"), "folder");
  EXPECT_EQ(served("/css/css/a.css"), "deep");
}

TEST_F(ModuleToolTest, RecordsThatCouldNotBeUnpackedGetAnotherLength) {
  for (int missing = 30; missing < 45; ++missing) {
    add("a", std::string(static_cast<std::size_t>(65536 - missing), 'x'));
    add("folder/b", std::string(static_cast<std::size_t>(65536 - missing), 'x'));
    ASSERT_EQ(pack(), ExitCode::Done) << err.str();
    ASSERT_EQ(served("/a").size(), static_cast<std::size_t>(65536 - missing));
    ASSERT_EQ(served("/folder/b").size(), static_cast<std::size_t>(65536 - missing));
  }
}

TEST_F(ModuleToolTest, EmptyFilesAreLeftOut) {
  add("a.txt", "");
  add("b.txt", "text");
  EXPECT_EQ(pack(), ExitCode::Finding);
  EXPECT_THAT(err.str(), HasSubstr("a.txt is empty and left out"));
  EXPECT_EQ(served("/b.txt"), "text");
}

TEST_F(ModuleToolTest, WarnsOfTooManyFiles) {
  for (int i = 0; i < 300; ++i) add("f" + std::to_string(1000 + i), "x" + std::to_string(i));
  EXPECT_EQ(pack(), ExitCode::Finding);
  EXPECT_THAT(err.str(), HasSubstr("Reading stops at entry 256 of 300"));
  EXPECT_EQ(served("/f1254"), "x254");
  EXPECT_EQ(served("/f1255"), "");
}

TEST_F(ModuleToolTest, WarnsOfNamesThatAreNotServed) {
  add("price$list.txt", "a");
  add("01031$x.txt", "b");
  EXPECT_EQ(pack(), ExitCode::Finding);
  EXPECT_THAT(err.str(), HasSubstr("/price$list.txt would not be served: a \"$\""));
  EXPECT_THAT(err.str(), HasSubstr("/01031$x.txt would not be served: a \"$\""));
}

TEST_F(ModuleToolTest, WarnsOfNamesThatAreOfSomeSystemsOnly) {
  ModuleBuilder module;
  module.entries = {{"", "same.txt", "c"}, {"", "SAME.txt", "d"}, {"", "back\\slash.txt", "e"}};
  folder.write("a.qvm", module.build());
  EXPECT_EQ(run({"verify", folder / "a.qvm"}), ExitCode::Finding);
  EXPECT_THAT(err.str(), HasSubstr("/SAME.txt would not be served: another file"));
  EXPECT_THAT(err.str(), HasSubstr("holds a separator"));
}

TEST_F(ModuleToolTest, WarnsOfKeysInsideEarlierOnes) {
  ModuleBuilder module;
  module.entries = {{"img/", "a.css", "folder"}, {"/", "a.css", "root"}};
  folder.write("a.qvm", module.build());
  EXPECT_EQ(run({"verify", folder / "a.qvm"}), ExitCode::Finding);
  EXPECT_THAT(err.str(), HasSubstr("/a.css would not be served: its key occurs inside"));
}

TEST_F(ModuleToolTest, VerifiesOthersModules) {
  ModuleBuilder module;
  module.entries = {{"img", "a.gif", "1"}, {"img", "b.gif", "2"}};
  folder.write("good.qvm", module.build());
  EXPECT_EQ(run({"verify", folder / "good.qvm"}), ExitCode::Done) << err.str();
  EXPECT_EQ(out.str(), "2 files, all served\n");

  module.entries[0].folder = "i";
  folder.write("letter.qvm", module.build());
  EXPECT_EQ(run({"verify", folder / "letter.qvm"}), ExitCode::Finding);
  EXPECT_THAT(err.str(), HasSubstr("a folder of one letter"));

  module.lengthError = 1;
  folder.write("length.qvm", module.build());
  EXPECT_EQ(run({"verify", folder / "length.qvm"}), ExitCode::Finding);
  EXPECT_THAT(err.str(), HasSubstr("does not read it"));
}

TEST_F(ModuleToolTest, SaysWhereReadingStops) {
  const auto problemOf = [](auto change) {
    ModuleBuilder module;
    module.entries = {{"img", "a.gif", "1"}, {"img", "b.gif", "2"}};
    change(module);
    return readModule(module.build()).problem;
  };
  EXPECT_EQ(problemOf([](ModuleBuilder&) {}), "");
  EXPECT_THAT(problemOf([](ModuleBuilder& m) { m.entries[1].number = 4; }),
              HasSubstr("entry 2 of 2: the number is 4"));
  EXPECT_THAT(problemOf([](ModuleBuilder& m) { m.entries[1].claimedLength = 2; }),
              HasSubstr("lengths contradict"));
  EXPECT_THAT(problemOf([](ModuleBuilder& m) { m.entries[1].sizeText = "2"; }),
              HasSubstr("lengths contradict"));
  EXPECT_THAT(problemOf([](ModuleBuilder& m) { m.entries[1].packedLength = 3; }),
              HasSubstr("can't be unpacked"));
  EXPECT_THAT(problemOf([](ModuleBuilder& m) { m.entries[1].packedLength = 0x7FFFFFFF; }),
              HasSubstr("ends early"));
  EXPECT_THAT(problemOf([](ModuleBuilder& m) { m.entries[1].nameLength = 9; }),
              HasSubstr("length of its name"));
  EXPECT_THAT(problemOf([](ModuleBuilder& m) { m.entries[1].name = ""; }), HasSubstr("no name"));
  EXPECT_THAT(problemOf([](ModuleBuilder& m) { m.entries[1].date = "0"; }), HasSubstr("no date"));
  EXPECT_THAT(problemOf([](ModuleBuilder& m) { m.entries[1].content = ""; }),
              HasSubstr("it is empty"));
  EXPECT_THAT(problemOf([](ModuleBuilder& m) { m.claimedCount = 3; }), HasSubstr("ends early"));
  EXPECT_THAT(problemOf([](ModuleBuilder& m) { m.claimedCount = 1; }),
              HasSubstr("after the last entry"));
  EXPECT_THAT(problemOf([](ModuleBuilder& m) { m.tag = "QVMOB"; }), HasSubstr("no resource"));
  EXPECT_THAT(problemOf([](ModuleBuilder& m) { m.checkByte = 0; }), HasSubstr("no resource"));
}

TEST_F(ModuleToolTest, ListsAndUnpacksWhatWasPacked) {
  add("index.qvs", "root");
  add("img/icons/small.png", "picture");
  add("1031$index.qvs", "deutsch");
  ASSERT_EQ(pack(), ExitCode::Done);
  EXPECT_EQ(run({"list", folder / "modules/a.qvm"}), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("img/icons/  small.png\n"));
  EXPECT_EQ(run({"unpack", folder / "modules/a.qvm", folder / "copy"}), ExitCode::Done);
  EXPECT_EQ(folder.read("copy/index.qvs"), "root");
  EXPECT_EQ(folder.read("copy/img/icons/small.png"), "picture");
  EXPECT_EQ(folder.read("copy/1031$index.qvs"), "deutsch");
}

TEST_F(ModuleToolTest, PackingLeavesOutTheModuleItself) {
  add("index.qvs", "root");
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(run({"pack", folder / "site", folder / "site/site.qvm"}), ExitCode::Done);
    EXPECT_THAT(out.str(), HasSubstr("1 files"));
  }
}

TEST(UnpackedPath, StaysBelowTheFolder) {
  const auto path = [](const std::string& in, const std::string& name) {
    const auto unpacked = unpackedPath({in, name, "", "", 0}, "/to");
    return unpacked ? spelled(unpacked->text()) : "";
  };
  EXPECT_EQ(path("", "a"), "/to/a");
  EXPECT_EQ(path("/", "a"), "/to/a");
  EXPECT_EQ(path("\\img\\\\./icons", "a"), "/to/img/icons/a");
  EXPECT_EQ(path("...", "a"), "/to/.../a");
  EXPECT_EQ(path("..", "a"), "");
  EXPECT_EQ(path("img/../..", "a"), "");
  EXPECT_EQ(path("img\\..\\..", "a"), "");
  EXPECT_EQ(path("C:", "a"), "");
  EXPECT_EQ(path("", ".."), "");
  EXPECT_EQ(path("", "."), "");
  EXPECT_EQ(path("", "../a"), "");
  EXPECT_EQ(path("", "..\\a"), "");
  EXPECT_EQ(path("", "a:b"), "");
  EXPECT_EQ(path("", ""), "");
}

TEST_F(ModuleToolTest, NothingIsUnpackedOutsideTheFolder) {
  ModuleBuilder module;
  module.entries = {{"..", "a", "1"}, {"", "../b", "2"}, {"", "good", "3"}};
  folder.write("evil.qvm", module.build());
  fs::create_directory(folder / "target");
  EXPECT_EQ(run({"unpack", folder / "evil.qvm", folder / "target"}), ExitCode::Finding);
  EXPECT_FALSE(fs::exists(folder / "a"));
  EXPECT_FALSE(fs::exists(folder / "b"));
  EXPECT_EQ(folder.read("target/good"), "3");
}

TEST_F(ModuleToolTest, NothingIsUnpackedThroughLinks) {
  ModuleBuilder module;
  module.entries = {{"link", "c", "1"}, {"link/deep", "d", "2"}, {"", "file", "3"}};
  folder.write("evil.qvm", module.build());
  fs::create_directory(folder / "target");
  fs::create_directory(folder / "outside");
  folder.write("kept", "kept");
  fs::create_symlink(folder / "outside", folder / "target/link");
  fs::create_symlink(folder / "kept", folder / "target/file");
  EXPECT_EQ(run({"unpack", folder / "evil.qvm", folder / "target"}), ExitCode::Finding);
  EXPECT_TRUE(fs::is_empty(folder / "outside"));
  EXPECT_EQ(folder.read("kept"), "kept");
  EXPECT_THAT(err.str(), HasSubstr("symbolic link"));
}

TEST_F(ModuleToolTest, NamesAreListedWithoutWhatATerminalWouldObey) {
  ModuleBuilder module;
  module.entries = {{"", "good\x1B", "1"}};
  folder.write("evil.qvm", module.build());
  run({"list", folder / "evil.qvm"});
  EXPECT_THAT(out.str(), HasSubstr("good"));
  EXPECT_THAT(out.str(), Not(HasSubstr("\x1B")));
}

TEST_F(ModuleToolTest, SurvivesDamage) {
  ModuleBuilder module;
  module.entries = {{"img", "a.gif", "1"}, {"", "1031$b.gif", std::string(500, 'x')}};
  const std::string whole = module.build();
  std::mt19937 random(1);
  std::set<std::size_t> read;
  for (int round = 0; round < 2000; ++round) {
    std::string damaged = whole.substr(0, whole.size() - random() % 2 * (random() % whole.size()));
    for (int i = 0; i < 2; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
    damaged = withItsLength(std::move(damaged));
    const ModuleContents contents = readModule(damaged);
    ASSERT_LE(contents.files.size(), 2U);
    read.insert(contents.files.size());
    unservedFiles(damaged, contents, *files);
  }
  EXPECT_EQ(read, (std::set<std::size_t>{0, 1, 2}))
      << "damage was met before and behind each entry";
}

TEST_F(ModuleToolTest, FilesThatCantBeReadOrWrittenAreFailures) {
  EXPECT_EQ(pack(), ExitCode::Failed) << "an empty folder";
  add("a", "text");
  EXPECT_EQ(run({"pack", folder / "none", folder / "a.qvm"}), ExitCode::Failed);
  EXPECT_EQ(run({"pack", folder / "site", folder / "none/a.qvm"}), ExitCode::Failed);
  EXPECT_EQ(run({"list", folder / "none"}), ExitCode::Failed);
  EXPECT_EQ(run({"verify", folder / "none"}), ExitCode::Failed);
  EXPECT_EQ(run({"unpack", folder / "none", folder / "copy"}), ExitCode::Failed);
  EXPECT_FALSE(fs::exists(folder / "copy"));
  EXPECT_EQ(run({"unpack", folder / "site/a", folder / "site/a"}), ExitCode::Failed);
}

TEST_F(ModuleToolTest, HelpAndMistakes) {
  EXPECT_EQ(run({"pack", "--help"}), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("qvmpack pack"));
  for (const std::vector<std::string>& wrong : std::vector<std::vector<std::string>>{
           {}, {"zip"}, {"pack", "a"}, {"list"}, {"verify", "a", "b"}, {"unpack", "a"}}) {
    EXPECT_EQ(run(wrong), ExitCode::Usage);
    EXPECT_THAT(err.str(), HasSubstr("--help"));
  }
}

TEST_F(ModuleToolTest, VerifyAsksAServerForEveryEntry) {
  add("index.qvs", "<% x = 6 %><%= x * 7 %>");
  add("1031$index.qvs", "<%= \"deutsch\" %>");
  add("img/logo.gif", "GIF89a");
  ASSERT_EQ(pack(), ExitCode::Done) << err.str();
  EXPECT_EQ(run({"verify", folder / "modules/a.qvm"}), ExitCode::Done) << err.str();
  EXPECT_THAT(out.str(), HasSubstr("3 files, all served"));
}

TEST_F(ModuleToolTest, VerifyTellsWhatTheServerDoesNotAnswer) {
  add("bad.qvs", "<% x = 1 / 0 %>");
  add("1036$bad.qvs", "<% If %>");
  add("lacking.qvs", "<!--#include file=\"none.inc\"-->\r\nrest");
  add("notes.secret", "not for clients");
  add("good.qvs", "<% Response.Flush %>well");
  run({"pack", "--keep-includes", folder / "site", folder / "modules/a.qvm"});
  EXPECT_EQ(run({"verify", folder / "modules/a.qvm"}), ExitCode::Finding);
  EXPECT_THAT(err.str(), HasSubstr("/lacking.qvs lacks an include."));
  EXPECT_THAT(err.str(), HasSubstr("/notes.secret is answered with HTTP/1.1 404"));
  EXPECT_THAT(err.str(), Not(HasSubstr("good.qvs")));
  std::string text = err.str();
  int errorPages = 0;
  for (auto at = text.find("/bad.qvs ends with an error page."); at != text.npos;
       at = text.find("/bad.qvs ends with an error page.", at + 1)) {
    ++errorPages;
  }
  EXPECT_EQ(errorPages, 2) << text;
}

}  // namespace

}  // namespace quorvane
