#include <memory>
#include <string>

#include "kinds.h"
#include "platform/fake/memory_files.h"
#include "platform/fake/memory_settings.h"
#include "platform/system.h"
#include "platform/text_settings.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

struct HostSettings {
  static constexpr const char* kName = "Host";
  TemporaryFolder folder;
  std::unique_ptr<Files> files = makeFiles();
  std::unique_ptr<SettingsStorage> made = makeSettingsStorage(*files, folder / "store");
  SettingsStorage& settings = *made;
};

struct TextsInMemory {
  static constexpr const char* kName = "TextsInMemory";
  MemoryFiles files;
  TextSettings settings{files, "/settings/store"};
};

struct FakeSettings {
  static constexpr const char* kName = "Fake";
  MemorySettings settings;
};

constexpr auto kMachine = RegistryRoot::LocalMachine;
const std::string kKey = "Software\\Ardenfell\\Quorvane\\Server";

template <typename Kind>
class SettingsContract : public testing::Test {
 protected:
  std::optional<std::string> text(const std::string& name, const std::string& key = kKey) {
    const auto value = settings.read(kMachine, key, name);
    if (!value) return std::nullopt;
    EXPECT_EQ(value->type, StoredType::Text);
    return value->data;
  }

  Kind kind;
  SettingsStorage& settings = kind.settings;
};

using Kinds = testing::Types<HostSettings, TextsInMemory, FakeSettings>;
TYPED_TEST_SUITE(SettingsContract, Kinds, KindNames);

TYPED_TEST(SettingsContract, AKeyIsThereFromItsMakingOn) {
  EXPECT_FALSE(this->settings.keyExists(kMachine, kKey));
  EXPECT_FALSE(this->settings.writeText(kMachine, kKey, "Port", "7007"));
  EXPECT_FALSE(this->text("Port"));
  EXPECT_TRUE(this->settings.createKey(kMachine, kKey));
  EXPECT_TRUE(this->settings.keyExists(kMachine, kKey));
  EXPECT_FALSE(this->text("Port"));
  EXPECT_TRUE(this->settings.writeText(kMachine, kKey, "Port", "7007"));
  EXPECT_TRUE(this->settings.createKey(kMachine, kKey)) << "it exists already";
  EXPECT_EQ(this->text("Port"), "7007") << "and stays as it is";
}

TYPED_TEST(SettingsContract, KeysAndSubKeysStandApart) {
  ASSERT_TRUE(this->settings.createKey(kMachine, kKey));
  ASSERT_TRUE(this->settings.createKey(kMachine, kKey + "\\Misc"));
  ASSERT_TRUE(this->settings.writeText(kMachine, kKey, "n", "key"));
  ASSERT_TRUE(this->settings.writeText(kMachine, kKey + "\\Misc", "n", "sub-key"));
  EXPECT_EQ(this->text("n"), "key");
  EXPECT_EQ(this->text("n", kKey + "\\Misc"), "sub-key");
}

TYPED_TEST(SettingsContract, RootsStandApart) {
  ASSERT_TRUE(this->settings.createKey(RegistryRoot::CurrentUser, "A"));
  EXPECT_FALSE(this->settings.keyExists(kMachine, "A"));
  EXPECT_TRUE(this->settings.writeText(RegistryRoot::CurrentUser, "A", "n", "user"));
  EXPECT_FALSE(this->settings.read(kMachine, "A", "n"));
  EXPECT_EQ(this->settings.read(RegistryRoot::CurrentUser, "A", "n")->data, "user");
}

TYPED_TEST(SettingsContract, ARootThatDoesNotExistHoldsNothing) {
  for (const int root : {-1, 4, 7}) {
    const auto nowhere = static_cast<RegistryRoot>(root);
    EXPECT_FALSE(this->settings.createKey(nowhere, "A"));
    EXPECT_FALSE(this->settings.keyExists(nowhere, "A"));
    EXPECT_FALSE(this->settings.writeText(nowhere, "A", "n", "x"));
    EXPECT_FALSE(this->settings.read(nowhere, "A", "n"));
  }
}

TYPED_TEST(SettingsContract, NamesAndKeysAreFoundWithoutRegardToCase) {
  ASSERT_TRUE(this->settings.createKey(kMachine, kKey));
  ASSERT_TRUE(this->settings.writeText(kMachine, kKey, "Port", "8080"));
  EXPECT_EQ(this->text("PORT"), "8080");
  EXPECT_EQ(this->text("port", "SOFTWARE\\ardenfell\\quorvane\\SERVER"), "8080");
  EXPECT_TRUE(
      this->settings.writeText(kMachine, "software\\ARDENFELL\\Quorvane\\server", "PORT", "1"));
  EXPECT_EQ(this->text("Port"), "1");
}

TYPED_TEST(SettingsContract, TextsAreKeptExactly) {
  ASSERT_TRUE(this->settings.createKey(kMachine, kKey));
  for (const std::string value : {"", " 1 ", "a=b", "C:\\new\\r", "100%", "%0D", "%25",
                                  "line\r\nPort=1\nEvil=1", ";", "\r", "\xE4\xF6"}) {
    EXPECT_TRUE(this->settings.writeText(kMachine, kKey, "Value", value));
    EXPECT_EQ(this->text("Value"), value);
  }
  EXPECT_FALSE(this->text("Evil"));
}

TYPED_TEST(SettingsContract, NamesMayHoldAnEqualsSign) {
  ASSERT_TRUE(this->settings.createKey(kMachine, kKey));
  EXPECT_TRUE(this->settings.writeText(kMachine, kKey, "a=b", "c"));
  EXPECT_EQ(this->text("a=b"), "c");
  EXPECT_FALSE(this->text("a"));
}

}  // namespace

}  // namespace quorvane
