#include "startup/Registry.h"

#include <gtest/gtest.h>

#include "platform/fake/memory_settings.h"

namespace quorvane {

namespace {

constexpr auto kUser = RegistryRoot::CurrentUser;
constexpr auto kMachine = RegistryRoot::LocalMachine;

class RegistryTest : public testing::Test {
 protected:
  MemorySettings storage;
  Registry registry{storage};
};

TEST_F(RegistryTest, AKeyIsCreatedOnceAndHoldsTexts) {
  EXPECT_FALSE(registry.SetRegString(kMachine, "A\\B", "n", "text")) << "no key yet";
  EXPECT_TRUE(registry.CreateRegKey(kMachine, "A\\B"));
  EXPECT_TRUE(registry.CreateRegKey(kMachine, "A\\B"));
  EXPECT_TRUE(registry.SetRegString(kMachine, "A\\B", "n", "text"));
  EXPECT_EQ(registry.GetRegString(kMachine, "A\\B", "n"), "text");
  EXPECT_EQ(registry.GetRegString(kMachine, "A\\B", "other"), "");
  EXPECT_EQ(registry.GetRegString(kMachine, "A\\C", "n"), "");
  EXPECT_EQ(registry.GetRegString(kUser, "A\\B", "n"), "");
}

TEST_F(RegistryTest, AnUnknownRootMapsToNoKey) {
  EXPECT_FALSE(registry.CreateRegKey(static_cast<RegistryRoot>(4), "A"));
  EXPECT_EQ(registry.GetRegString(static_cast<RegistryRoot>(4), "A", "n"), "");
}

TEST_F(RegistryTest, OtherMachinesCantBeReached) {
  registry.CreateRegKey(kMachine, "A");
  registry.SetRegString(kMachine, "A", "n", "text");
  EXPECT_FALSE(registry.CreateRegKey(kMachine, "A", "elsewhere"));
  EXPECT_FALSE(registry.SetRegString(kMachine, "A", "n", "x", "elsewhere"));
  EXPECT_EQ(registry.GetRegString(kMachine, "A", "n", "elsewhere"), "");
  EXPECT_EQ(registry.GetRegString(kMachine, "A", "n"), "text");
}

TEST_F(RegistryTest, ValuesAreReadByTheirType) {
  registry.CreateRegKey(kMachine, "A");
  const auto read = [&](StoredType type, std::string data) {
    storage.put(kMachine, "A", "n", {type, std::move(data)});
    return registry.ReadRegValue({kMachine, "A"}, "n");
  };
  EXPECT_EQ(read(StoredType::Text, std::string("cut\0here", 8)), "cut");
  EXPECT_EQ(read(StoredType::Text, std::string(1000, 'x')), std::string(1000, 'x'));
  EXPECT_EQ(read(StoredType::ExpandableText, std::string("%PATH%\0", 7)), "%PATH%");
  EXPECT_EQ(read(StoredType::ExpandableText, std::string(254, 'x')), std::string(254, 'x'));
  EXPECT_EQ(read(StoredType::ExpandableText, std::string(255, 'x')), "");
  EXPECT_EQ(read(StoredType::Binary, "\x2A"), "42");
  EXPECT_EQ(read(StoredType::Binary, std::string("\x01\x02\x03", 3)), "513");
  EXPECT_EQ(read(StoredType::Binary, "\xFF\xFF"), "-1");
  EXPECT_EQ(read(StoredType::Other, std::string("\x5F\x1B\0\0", 4)), "") << "numbers are not read";
}

TEST_F(RegistryTest, RootsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(kUser), 0);
  EXPECT_EQ(static_cast<int>(kMachine), 1);
  EXPECT_EQ(static_cast<int>(RegistryRoot::Users), 2);
  EXPECT_EQ(static_cast<int>(RegistryRoot::ClassesRoot), 3);
}

}  // namespace

}  // namespace quorvane
