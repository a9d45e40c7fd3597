#include "platform/host_lookup.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quorvane {

namespace {

using namespace std::chrono_literals;

constexpr auto kLong = 20s;

TEST(HostLookupTest, FindsThisMachine) {
  const auto found = HostLookup("localhost").wait(kLong);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->fault, "");
  ASSERT_FALSE(found->addresses.empty());
  EXPECT_EQ(found->addresses.front(), "127.0.0.1");
}

TEST(HostLookupTest, SaysWhyThereAreNone) {
  const auto found = HostLookup("no-such-host.invalid").wait(kLong);
  ASSERT_TRUE(found);
  EXPECT_NE(found->fault, "");
  EXPECT_TRUE(found->addresses.empty());
}

TEST(HostLookupTest, NobodyWaitsLongerThanTheyLike) {
  std::promise<void> mayEnd;
  {
    const HostLookup lookup("slow", [end = mayEnd.get_future().share()](const std::string& host) {
      end.wait();
      return HostLookup::Found{{host}, {}};
    });
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_FALSE(lookup.wait(20ms));
    EXPECT_FALSE(lookup.wait(0ms));
    EXPECT_LT(std::chrono::steady_clock::now() - begun, kLong / 2);
    mayEnd.set_value();
    const auto found = lookup.wait(kLong);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->addresses, std::vector<std::string>{"slow"});
  }
  std::promise<void> never;
  const HostLookup dropped("slow", [end = never.get_future().share()](const std::string&) {
    end.wait_for(50ms);
    return HostLookup::Found();
  });
}

}  // namespace

}  // namespace quorvane
