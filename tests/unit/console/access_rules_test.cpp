#include "console/access_rules.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

TEST(AccessRules, PrivateAddresses) {
  for (const auto* address : {"127.0.0.1", "10.0.0.1", "10.anything", "192.168.0.1", "172.16.0.1",
                              "172.31.255.255", "172.20.x.y"}) {
    EXPECT_TRUE(isPrivateAddress(address)) << address;
  }
  for (const auto* address :
       {"127.0.0.2", "127.0.0.1 ", "172.15.0.1", "172.32.0.1", "172.16.1", "172.16.1.2.3",
        "172.x.0.1", "172..0.1", "192.169.0.1", "100.0.0.1", "8.8.8.8", "", "1", "10"}) {
    EXPECT_FALSE(isPrivateAddress(address)) << address;
  }
}

TEST(AccessRules, PrivateAddressesOfIPv6) {
  for (const auto* address : {"::1", "fc00::1", "fdff::", "fe80::1", "febf::1", "unix"}) {
    EXPECT_TRUE(isPrivateAddress(address)) << address;
  }
  for (const auto* address : {"::", "::2", "fe00::1", "fec0::1", "2001:db8::1", "fc00", "fd::x"}) {
    EXPECT_FALSE(isPrivateAddress(address)) << address;
  }
}

TEST(AccessRules, WithoutRulesEveryoneMayConnect) {
  EXPECT_TRUE(mayConnect(ServerState{}, "8.8.8.8"));
}

TEST(AccessRules, PrivateNetworksOnly) {
  ServerState state;
  state.LocalAddrControl = true;
  EXPECT_TRUE(mayConnect(state, "192.168.1.5"));
  EXPECT_FALSE(mayConnect(state, "8.8.8.8"));
}

TEST(AccessRules, ThisMachineOnlyGoesBeforePrivateNetworks) {
  ServerState state;
  state.LocalhostOnly = true;
  state.LocalAddrControl = true;
  EXPECT_TRUE(mayConnect(state, "127.0.0.1"));
  EXPECT_FALSE(mayConnect(state, "192.168.1.5"));
  EXPECT_TRUE(mayConnect(state, "::1"));
  EXPECT_TRUE(mayConnect(state, "unix"));
  EXPECT_FALSE(mayConnect(state, "fe80::1"));
}

}  // namespace

}  // namespace quorvane
