#include "platform/text_settings.h"

#include <gtest/gtest.h>

#include "platform/system.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

constexpr auto kMachine = RegistryRoot::LocalMachine;
const std::string kKey = "Software\\Ardenfell\\Quorvane\\Server";

class TextSettingsTest : public testing::Test {
 protected:
  std::string file() const {
    return folder / "store/HKEY_LOCAL_MACHINE/Software/Ardenfell/Quorvane/Server.ini";
  }
  void writeFile(const std::string& text) {
    ASSERT_TRUE(settings.createKey(kMachine, kKey));
    ASSERT_TRUE(files->writeAll(file(), text));
  }
  std::optional<std::string> text(const std::string& name, const std::string& key = kKey) {
    const auto value = settings.read(kMachine, key, name);
    if (!value) return std::nullopt;
    return value->data;
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> files = makeFiles();
  TextSettings settings{*files, folder / "store"};
};

TEST_F(TextSettingsTest, AKeyIsAFileAndItsSubKeysAFolderBesideIt) {
  EXPECT_FALSE(settings.keyExists(kMachine, kKey));
  EXPECT_FALSE(settings.writeText(kMachine, kKey, "Port", "7007"));
  EXPECT_TRUE(settings.createKey(kMachine, kKey));
  EXPECT_TRUE(settings.createKey(kMachine, kKey));
  EXPECT_TRUE(settings.keyExists(kMachine, kKey));
  EXPECT_TRUE(settings.writeText(kMachine, kKey, "Port", "7007"));
  EXPECT_EQ(files->readAll(file()), "Port=7007\n");
  EXPECT_TRUE(settings.createKey(kMachine, kKey + "\\Misc"));
  EXPECT_TRUE(settings.writeText(kMachine, kKey + "\\Misc", "LCID", "1031"));
  EXPECT_EQ(files->readAll(folder /
                           "store/HKEY_LOCAL_MACHINE/Software/Ardenfell/Quorvane/Server/Misc.ini"),
            "LCID=1031\n");
  EXPECT_EQ(text("LCID", kKey + "\\Misc"), "1031");
}

TEST_F(TextSettingsTest, NamesAndKeysAreFoundWithoutRegardToCase) {
  writeFile("port=8080\n");
  EXPECT_EQ(text("PORT"), "8080");
  EXPECT_EQ(text("Port", "SOFTWARE\\ardenfell\\quorvane\\SERVER"), "8080");
  EXPECT_TRUE(settings.writeText(kMachine, "software\\ARDENFELL\\Quorvane\\server", "PORT", "1"));
  EXPECT_EQ(files->readAll(file()), "port=1\n");
}

TEST_F(TextSettingsTest, OtherLinesAndCommentsStay) {
  writeFile("; my notes = none\r\n\r\n[Server]\nPort = 7007\nunknown line\nLogServer=1");
  EXPECT_TRUE(settings.writeText(kMachine, kKey, "Port", "8080"));
  EXPECT_TRUE(settings.writeText(kMachine, kKey, "New", "x"));
  EXPECT_EQ(files->readAll(file()),
            "; my notes = none\r\n\r\n[Server]\nPort =8080\nunknown line\nLogServer=1\nNew=x\n");
  EXPECT_FALSE(text("; my notes"));
  EXPECT_FALSE(text("unknown line"));
}

TEST_F(TextSettingsTest, ATextMayHoldNul) {
  settings.createKey(kMachine, kKey);
  const std::string withNul("a\0b", 3);
  EXPECT_TRUE(settings.writeText(kMachine, kKey, "Value", withNul));
  EXPECT_EQ(text("Value"), withNul);
}

TEST_F(TextSettingsTest, HandWrittenTextsNeedNoEscapes) {
  writeFile("Path=C:\\Web\\%TEMP%\nDos=1\r\n  Spaced\t=x\n#Off=1\n=\n");
  EXPECT_EQ(text("Path"), "C:\\Web\\%TEMP%");
  EXPECT_EQ(text("Dos"), "1");
  EXPECT_EQ(text("Spaced"), "x");
  EXPECT_FALSE(text("Off"));
  EXPECT_FALSE(text("#Off"));
}

TEST_F(TextSettingsTest, NamesMayHoldAnEqualsSignButNotAppearAsComments) {
  settings.createKey(kMachine, kKey);
  EXPECT_TRUE(settings.writeText(kMachine, kKey, "a=b", "c"));
  EXPECT_EQ(text("a=b"), "c");
  EXPECT_FALSE(text("a"));
  EXPECT_FALSE(settings.writeText(kMachine, kKey, ";off", "1"));
}

TEST_F(TextSettingsTest, KeysLeaveTheStoreByNoSpelling) {
  for (const std::string key : {"..\\x", "a\\..\\..\\..\\x", "a/b", "", "a\\\\b", "."}) {
    EXPECT_FALSE(settings.createKey(kMachine, key)) << key;
    EXPECT_FALSE(settings.keyExists(kMachine, key)) << key;
  }
}

TEST_F(TextSettingsTest, WithoutRightsWritingFailsQuietly) {
  ASSERT_TRUE(files->writeAll(folder / "file", ""));
  TextSettings nowhere(*files, folder / "file/store");
  EXPECT_FALSE(nowhere.createKey(kMachine, kKey));
  EXPECT_FALSE(nowhere.writeText(kMachine, kKey, "a", "b"));
  EXPECT_FALSE(nowhere.read(kMachine, kKey, "a"));
}

TEST_F(TextSettingsTest, AByteOrderMarkIsPassedOverAndKept) {
  writeFile("\xEF\xBB\xBFPort=1\nB=2\n");
  EXPECT_EQ(text("Port"), "1");
  EXPECT_TRUE(settings.writeText(kMachine, kKey, "Port", "3"));
  EXPECT_EQ(files->readAll(file()), "\xEF\xBB\xBFPort=3\nB=2\n");
}

TEST_F(TextSettingsTest, LinesAreNumberedAndCommentsLeftOut) {
  writeFile("; x=1\n\n a%3Db = text \r\nnothing\n");
  const auto lines = settings.lines(kMachine, kKey);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].number, 3U);
  EXPECT_EQ(lines[0].name, "a=b");
  EXPECT_EQ(lines[0].text, " text ");
  EXPECT_EQ(lines[1].number, 4U);
  EXPECT_EQ(lines[1].name, std::nullopt);
  EXPECT_TRUE(settings.lines(kMachine, "No\\Such").empty());
}

}  // namespace

}  // namespace quorvane
