#include <gtest/gtest.h>

#include <random>

#include "platform/fake/memory_files.h"
#include "support/clsQVMod.h"
#include "testing/module_builder.h"

namespace quorvane {

namespace {

const MemoryFiles kNoFiles;

clsQVMod loaded(const ModuleBuilder& builder, std::int32_t language = 1031) {
  clsQVMod modules(kNoFiles);
  modules.setLanguageID(language);
  modules.loadModule(builder.build());
  return modules;
}

/// Three entries of which the second is changed by `change`; only the first may be available then.
template <class Change>
void expectStopAtSecond(Change change) {
  ModuleBuilder builder{{{"/", "a.htm", "A"}, {"/", "b.htm", "BB"}, {"/", "c.htm", "C"}}};
  change(builder.entries[1]);
  clsQVMod modules = loaded(builder);
  EXPECT_EQ(modules.ModReadFile("/a.htm"), "A");
  EXPECT_FALSE(modules.ModFileExists("/b.htm"));
  EXPECT_FALSE(modules.ModFileExists("/c.htm"));
}

}  // namespace

TEST(Modules, FindsFilesWithoutRegardToCase) {
  clsQVMod modules = loaded({{{"img", "logo.gif", "GIF"}, {"\\sub\\deep", "x.htm", "X"}}});
  EXPECT_EQ(modules.ModReadFile("/IMG/Logo.GIF"), "GIF");
  EXPECT_EQ(modules.ModReadFile("/sub\\deep/x.htm"), "X");
  EXPECT_EQ(*modules.sharedFile("/img/logo.gif"), "GIF");
  EXPECT_TRUE(modules.ModFileExists("/img/logo.gif"));
}

TEST(Modules, AMissIsEmpty) {
  clsQVMod modules = loaded({{{"/", "a.htm", "A"}}});
  EXPECT_EQ(modules.ModReadFile("/b.htm"), "");
  EXPECT_FALSE(modules.ModFileExists("/b.htm"));
  EXPECT_EQ(modules.sharedFile("/b.htm"), nullptr);
  EXPECT_EQ(modules.ModReadFile(""), "");
  EXPECT_EQ(clsQVMod(kNoFiles).ModReadFile("/a.htm"), "");
}

TEST(Modules, OnlyTheExistenceTestPutsALeadingSeparator) {
  clsQVMod modules = loaded({{{"/", "a.htm", "A"}}});
  EXPECT_EQ(modules.ModReadFile("a.htm"), "");
  EXPECT_EQ(modules.ModReadFile("/a.htm"), "A");
  EXPECT_TRUE(modules.ModFileExists("a.htm"));
  EXPECT_EQ(modules.ModReadFile("a.htm"), "A");  // the key of the last path asked for is reused
}

TEST(Modules, FoldersOfOneCharacterKeepNoSeparator) {
  clsQVMod modules = loaded({{{"a", "b.gif", "1"}, {"", "root.gif", "2"}, {"/c", "d.gif", "3"}}});
  EXPECT_EQ(modules.ModReadFile("/ab.gif"), "1");
  EXPECT_EQ(modules.ModReadFile("/a/b.gif"), "");
  EXPECT_EQ(modules.ModReadFile("/root.gif"), "2");
  EXPECT_EQ(modules.ModReadFile("/cd.gif"), "3");
}

TEST(Modules, TheLanguageVariantWinsInEitherOrder) {
  for (const bool variantFirst : {true, false}) {
    ModuleBuilder builder{{{"/", "index.qvs", "neutral"}, {"/", "1031$index.qvs", "german"}}};
    if (variantFirst) std::swap(builder.entries[0], builder.entries[1]);
    EXPECT_EQ(loaded(builder).ModReadFile("/index.qvs"), "german");
  }
}

TEST(Modules, VariantsOfOtherLanguagesAreIgnored) {
  clsQVMod modules = loaded({{{"/", "1033$x.qvs", "english"}, {"/", "10310$y.qvs", "none"}}});
  EXPECT_FALSE(modules.ModFileExists("/x.qvs"));
  EXPECT_FALSE(modules.ModFileExists("/1033$x.qvs"));
  EXPECT_FALSE(modules.ModFileExists("/y.qvs"));
}

TEST(Modules, AKeyInsideAnEarlierKeyCountsAsLoaded) {
  clsQVMod modules = loaded({{{"/", "a.htm", "first"},
                              {"/", "A.HTM", "again"},
                              {"/", "a.html", "longer"},
                              {"/", "a.ht", "inside"}}});
  EXPECT_EQ(modules.ModReadFile("/a.htm"), "first");
  EXPECT_EQ(modules.ModReadFile("/a.html"), "longer");
  EXPECT_FALSE(modules.ModFileExists("/a.ht"));
}

TEST(Modules, AWrongHeaderMakesTheWholeModuleIgnored) {
  const ModuleEntry entry{"/", "a.htm", "A"};
  EXPECT_TRUE(loaded({{entry}}).ModFileExists("/a.htm"));
  for (const std::int64_t lengthError : {-1, 1}) {
    ModuleBuilder builder{{entry}};
    builder.lengthError = lengthError;
    EXPECT_FALSE(loaded(builder).ModFileExists("/a.htm"));
  }
  ModuleBuilder tag{{entry}};
  tag.tag = "QVMOX";
  EXPECT_FALSE(loaded(tag).ModFileExists("/a.htm"));
  ModuleBuilder check{{entry}};
  check.checkByte = 165;
  EXPECT_FALSE(loaded(check).ModFileExists("/a.htm"));
  ModuleBuilder negative{{entry}};
  negative.claimedCount = 0xFFFF;
  EXPECT_FALSE(loaded(negative).ModFileExists("/a.htm"));
}

TEST(Modules, LoadingStopsAtTheFirstBadEntry) {
  expectStopAtSecond([](ModuleEntry& e) { e.number = 4; });
  expectStopAtSecond([](ModuleEntry& e) { e.claimedLength = 3; });
  expectStopAtSecond([](ModuleEntry& e) { e.claimedLength = 0x7FFFFFFF; });
  expectStopAtSecond([](ModuleEntry& e) { e.claimedLength = 0x80000002; });
  expectStopAtSecond([](ModuleEntry& e) { e.packedLength = 0x7FFFFFFF; });
  expectStopAtSecond([](ModuleEntry& e) { e.packedLength = 0xFFFFFFFF; });
  expectStopAtSecond([](ModuleEntry& e) { e.packedLength = 0; });
  expectStopAtSecond([](ModuleEntry& e) { e.nameLength = 4; });
  expectStopAtSecond([](ModuleEntry& e) { e.sizeText = "3"; });
  expectStopAtSecond([](ModuleEntry& e) { e.sizeText = "two"; });
  expectStopAtSecond([](ModuleEntry& e) { e.content = ""; });
  expectStopAtSecond([](ModuleEntry& e) { e.name = ""; });
  expectStopAtSecond([](ModuleEntry& e) { e.date = ""; });
  expectStopAtSecond([](ModuleEntry& e) { e.date = "0"; });
}

TEST(Modules, AThirdEntryNumberedFourKeepsTheFirstTwo) {
  ModuleBuilder builder{{{"/", "a.htm", "A"}, {"/", "b.htm", "B"}, {"/", "c.htm", "C"}}};
  builder.entries[2].number = 4;
  clsQVMod modules = loaded(builder);
  EXPECT_TRUE(modules.ModFileExists("/a.htm"));
  EXPECT_TRUE(modules.ModFileExists("/b.htm"));
  EXPECT_FALSE(modules.ModFileExists("/c.htm"));
}

TEST(Modules, AModuleHoldsAtMost255Files) {
  ModuleBuilder builder;
  for (int i = 1; i <= 300; ++i) {
    builder.entries.push_back({"/", "f" + std::to_string(1000 + i) + ".htm", "x"});
  }
  clsQVMod modules = loaded(builder);
  EXPECT_TRUE(modules.ModFileExists("/f1255.htm"));
  EXPECT_FALSE(modules.ModFileExists("/f1256.htm"));
}

TEST(Modules, NamesLongerThan255CharactersCountModulo256) {
  const std::string name = std::string(300, 'n') + ".htm";
  clsQVMod modules = loaded({{{"/", name, "long"}}});
  EXPECT_EQ(modules.ModReadFile("/" + name), "long");
}

TEST(Modules, LoadsEveryModuleOfAFolderAnew) {
  MemoryFiles files;
  files.put("/modules/one.qvm", ModuleBuilder{{{"/", "a.htm", "A"}}}.build());
  files.put("/modules/two.QVM", ModuleBuilder{{{"/", "b.htm", "B"}}}.build());
  files.put("/modules/three.txt", ModuleBuilder{{{"/", "c.htm", "C"}}}.build());
  files.put("/modules/empty.qvm", "");
  clsQVMod modules(files);
  modules.setModFolder("/modules");
  EXPECT_TRUE(modules.ModFileExists("/a.htm"));
  EXPECT_TRUE(modules.ModFileExists("/b.htm"));
  EXPECT_FALSE(modules.ModFileExists("/c.htm"));
  modules.setModFolder("/missing");
  EXPECT_FALSE(modules.ModFileExists("/a.htm"));
}

TEST(Modules, NoCutOrChangedModuleDoesHarm) {
  const std::string first(300, 'a');
  const std::string whole = ModuleBuilder{{{"/", "a.htm", first}, {"img", "b.gif", "B"}}}.build();
  const std::size_t secondEntry = ModuleBuilder{{{"/", "a.htm", first}}}.build().size();
  for (std::size_t cut = 0; cut < whole.size(); ++cut) {
    clsQVMod modules(kNoFiles);
    modules.loadModule(withItsLength(whole.substr(0, cut)));
    EXPECT_EQ(modules.ModReadFile("/a.htm"), cut < secondEntry ? "" : first) << cut;
    EXPECT_FALSE(modules.ModFileExists("/img/b.gif")) << cut;
  }
  std::mt19937 random(7);
  for (int round = 0; round < 2000; ++round) {
    std::string changed = whole;
    changed[13 + random() % (whole.size() - 13)] = static_cast<char>(random());
    clsQVMod modules(kNoFiles);
    modules.loadModule(changed);
    const std::string content = modules.ModReadFile("/a.htm");
    EXPECT_TRUE(content.empty() || content == first);
  }
}

}  // namespace quorvane
