#include "startup/mainMod.h"

#include <gtest/gtest.h>

#include "platform/fake/memory_settings.h"

namespace quorvane {

namespace {

constexpr auto kMachine = RegistryRoot::LocalMachine;

class MainModTest : public testing::Test {
 protected:
  void put(const std::string& name, const std::string& text) {
    registry.CreateRegKey(kMachine, mainMod::kServerKey);
    registry.SetRegString(kMachine, mainMod::kServerKey, name, text);
  }
  std::string stored(const std::string& name) {
    return registry.GetRegString(kMachine, mainMod::kServerKey, name);
  }
  std::uint16_t portFor(const std::string& text) {
    put("Port", text);
    settings.LoadSettings();
    return state.ServerPort;
  }

  MemorySettings storage;
  Registry registry{storage};
  ServerState state;
  mainMod settings{registry, state};
};

TEST_F(MainModTest, MissingSettingsAreStoredWithTheirDefaults) {
  state.EncodeStatic = true;
  state.LogServer = false;
  state.DefaultDocument = "other";
  settings.LoadSettings();
  EXPECT_EQ(stored("LogServer"), "1");
  EXPECT_EQ(stored("Port"), "7007");
  for (const auto* name : {"EncodeStatic", "EncodeDynamic", "EncodeImages", "RunAsService",
                           "LocalhostOnly", "LocalAddrControl"}) {
    EXPECT_EQ(stored(name), "0") << name;
  }
  EXPECT_EQ(storage.keys.at(MemorySettings::place(kMachine, mainMod::kServerKey)).size(), 8U)
      << "DefaultLCID and ControlAnyAddress are not stored";
  EXPECT_TRUE(state.LogServer);
  EXPECT_EQ(state.ServerPort, 7007);
  EXPECT_EQ(state.DefaultLCID, 0);
  EXPECT_FALSE(state.EncodeStatic);
  EXPECT_EQ(state.DefaultDocument, "index.qvs");
}

TEST_F(MainModTest, DefaultsAreUsedWhereTheyCantBeStored) {
  storage.readOnly = true;
  settings.LoadSettings();
  EXPECT_TRUE(state.LogServer);
  EXPECT_EQ(state.ServerPort, 7007);
  EXPECT_TRUE(storage.keys.empty());
}

TEST_F(MainModTest, PortRule) {
  EXPECT_EQ(portFor("8080"), 8080);
  EXPECT_EQ(portFor("1"), 1);
  EXPECT_EQ(portFor("65534"), 65534);
  for (const auto* text : {"65535", "65536", "0", "-1", "abc", "1e99", "0.4", "80 80"}) {
    EXPECT_EQ(portFor(text), 7007) << text;
  }
  EXPECT_EQ(portFor("8080.4"), 8080);
  EXPECT_EQ(portFor("8080.6"), 8081);
  EXPECT_EQ(portFor(" 8080 "), 8080);
}

TEST_F(MainModTest, APortThatIsNoTextIsNotReadable) {
  put("Port", "1");
  storage.put(kMachine, mainMod::kServerKey, "Port", {StoredType::Other, "8080"});
  settings.LoadSettings();
  EXPECT_EQ(state.ServerPort, 7007);
}

TEST_F(MainModTest, FlagsCompareTexts) {
  for (const auto* text : {"true", " 1", "01", "yes", "0"}) {
    put("EncodeDynamic", text);
    settings.LoadSettings();
    EXPECT_FALSE(state.EncodeDynamic) << text;
  }
  put("EncodeDynamic", "1");
  put("EncodeStatic", "1");
  put("EncodeImages", "1");
  put("RunAsService", "1");
  put("LocalhostOnly", "1");
  put("LocalAddrControl", "1");
  put("ControlAnyAddress", "1");
  settings.LoadSettings();
  EXPECT_TRUE(state.EncodeDynamic && state.EncodeStatic && state.EncodeImages);
  EXPECT_TRUE(state.RunAsService && state.LocalhostOnly && state.LocalAddrControl);
  EXPECT_TRUE(state.ControlAnyAddress);
}

TEST_F(MainModTest, SecondsAreWholeNumbers) {
  settings.LoadSettings();
  EXPECT_EQ(state.HeadSeconds, 30U);
  EXPECT_EQ(state.BodySeconds, 60U);
  EXPECT_EQ(state.IdleSeconds, 120U);
  EXPECT_EQ(state.SendSeconds, 60U);
  put("HeadSeconds", "5");
  put("BodySeconds", "0");
  put("IdleSeconds", "-1");
  put("SendSeconds", "long");
  settings.LoadSettings();
  EXPECT_EQ(state.HeadSeconds, 5U);
  EXPECT_EQ(state.BodySeconds, 0U);
  EXPECT_EQ(state.IdleSeconds, 120U);
  EXPECT_EQ(state.SendSeconds, 60U);
}

TEST_F(MainModTest, LoggingIsOffOnlyWhenExactlyZero) {
  for (const auto* text : {"true", " 0", "no", "1"}) {
    put("LogServer", text);
    settings.LoadSettings();
    EXPECT_TRUE(state.LogServer) << text;
  }
  put("LogServer", "0");
  settings.LoadSettings();
  EXPECT_FALSE(state.LogServer);
}

TEST_F(MainModTest, AnEmptySettingIsReplacedByItsDefault) {
  put("LogServer", "");
  settings.LoadSettings();
  EXPECT_TRUE(state.LogServer);
  EXPECT_EQ(stored("LogServer"), "1");
}

TEST_F(MainModTest, LanguageIsANumberOrNone) {
  put("DefaultLCID", "1031");
  settings.LoadSettings();
  EXPECT_EQ(state.DefaultLCID, 1031);
  for (const auto* text : {"german", "", "1e30"}) {
    put("DefaultLCID", text);
    settings.LoadSettings();
    EXPECT_EQ(state.DefaultLCID, 0) << text;
  }
}

TEST_F(MainModTest, BackslashesInANameLeadToSubKeys) {
  const std::string misc = std::string(mainMod::kServerKey) + "\\Misc";
  EXPECT_EQ(settings.GetServerSetting("Misc\\LCID", ""), "");
  EXPECT_FALSE(storage.keyExists(kMachine, misc)) << "a sub-key is made only for a default";
  EXPECT_EQ(settings.GetServerSetting("Misc\\LCID", "1033"), "1033");
  EXPECT_EQ(registry.GetRegString(kMachine, misc, "LCID"), "1033");
  settings.SaveServerSetting("Misc\\Deep\\Name", "x");
  EXPECT_EQ(registry.GetRegString(kMachine, misc + "\\Deep", "Name"), "x");
  EXPECT_EQ(settings.GetServerSetting("Misc\\Deep\\Name", "y"), "x");
}

TEST_F(MainModTest, AnEmptyDefaultMakesTheKeyAndWritesNothing) {
  EXPECT_EQ(settings.GetServerSetting("Nothing", ""), "");
  EXPECT_TRUE(storage.keyExists(kMachine, mainMod::kServerKey));
  EXPECT_FALSE(storage.read(kMachine, mainMod::kServerKey, "Nothing"));
}

TEST_F(MainModTest, SettingsOfTheUserStandApart) {
  settings.SaveServerSetting("Port", "1", false);
  EXPECT_EQ(settings.GetServerSetting("Port", "", true), "");
  EXPECT_EQ(settings.GetServerSetting("Port", "", false), "1");
}

TEST_F(MainModTest, TheUsersLanguageAndTheDeveloperFolderAreReadAndNeverMade) {
  EXPECT_EQ(settings.userLanguage(), "");
  EXPECT_EQ(settings.developerFolder(), "");
  EXPECT_TRUE(storage.keys.empty());
  registry.CreateRegKey(RegistryRoot::CurrentUser, mainMod::kUserKey);
  registry.SetRegString(RegistryRoot::CurrentUser, mainMod::kUserKey, "LCID", "1046");
  registry.CreateRegKey(kMachine, mainMod::kProgramKey);
  registry.SetRegString(kMachine, mainMod::kProgramKey, "MainPath", "/here");
  EXPECT_EQ(settings.userLanguage(), "1046");
  EXPECT_EQ(settings.developerFolder(), "/here");
}

TEST_F(MainModTest, VersionText) {
  state.AppVersion = "1.2.3";
  EXPECT_EQ(VersionText(state), "1.2.3 (Beta)");
}

}  // namespace

}  // namespace quorvane
