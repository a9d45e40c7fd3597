#include "support/ip_address.h"

#include <gtest/gtest.h>

#include "support/address_ranges.h"
#include "support/listen_address.h"

namespace quorvane {

namespace {

std::string again(std::string_view text) {
  const auto address = IpAddress::parse(text);
  return address ? address->text() : "none";
}

TEST(IpAddress, IsWrittenInTheCustomaryWay) {
  for (const auto* text :
       {"0.0.0.0", "127.0.0.1", "255.255.255.255", "::", "::1", "1::", "2001:db8::1",
        "2001:db8:0:1:1:1:1:1", "fe80::1:0:0:1", "1:2:3:4:5:6:7:8"}) {
    EXPECT_EQ(again(text), text);
  }
  EXPECT_EQ(again("2001:DB8:0:0:0:0:0:1"), "2001:db8::1");
  EXPECT_EQ(again("2001:0db8::0001"), "2001:db8::1");
  EXPECT_EQ(again("1:0:0:2:0:0:0:3"), "1:0:0:2::3");
  EXPECT_EQ(again("1:2:3:4:5:6:7::"), "1:2:3:4:5:6:7:0");
}

TEST(IpAddress, IPv4WrittenAsIPv6IsIPv4) {
  EXPECT_EQ(again("::ffff:10.0.0.1"), "10.0.0.1");
  EXPECT_EQ(again("::FFFF:a00:1"), "10.0.0.1");
  EXPECT_EQ(again("64:ff9b::10.0.0.1"), "64:ff9b::a00:1");
  EXPECT_TRUE(IpAddress::parse("::ffff:10.0.0.1")->isV4());
  EXPECT_FALSE(IpAddress::parse("::10.0.0.1")->isV4());
}

TEST(IpAddress, NothingElseIsOne) {
  for (const auto* text : {"",
                           " ",
                           "1",
                           "1.2.3",
                           "1.2.3.4.5",
                           "1.2.3.256",
                           "01.2.3.4",
                           "1.2.3.0004",
                           "1.2.3.-4",
                           "1.2.3.",
                           ".1.2.3",
                           "1.2.3.4 ",
                           " 1.2.3.4",
                           "1.2.3.4:80",
                           "0x7f.0.0.1",
                           "localhost",
                           ":",
                           ":::",
                           "1:",
                           ":1",
                           "1:2:3:4:5:6:7",
                           "1:2:3:4:5:6:7:8:9",
                           "1:2:3:4:5:6:7:8::",
                           "::1::",
                           "1::2::3",
                           "12345::",
                           "g::",
                           "[::1]",
                           "::1%eth0",
                           "::1.2.3",
                           "1.2.3.4::",
                           "::1.2.3.4:5",
                           "1:2:3:4:5:6:7:1.2.3.4",
                           "+1::",
                           "-1.2.3.4"}) {
    EXPECT_EQ(again(text), "none") << text;
  }
  EXPECT_EQ(again(std::string_view("1.2.3.4\0", 8)), "none");
}

TEST(ListenAddress, KnowsPortsAddressesAndFiles) {
  using Kind = ListenAddress::Kind;
  const auto kindOf = [](std::string_view text) { return ListenAddress::parse(text).kind; };
  EXPECT_EQ(kindOf("7007"), Kind::Everywhere);
  EXPECT_EQ(kindOf("127.0.0.1:7007"), Kind::Address);
  EXPECT_EQ(kindOf("[::1]:7007"), Kind::Address);
  EXPECT_EQ(kindOf("unix:/run/site.sock"), Kind::Local);
  for (const auto* text : {"7007", "127.0.0.1:80", "[::1]:7007", "[2001:db8::1]:65535", "0.0.0.0:1",
                           "unix:/run/site.sock", "whatever"}) {
    EXPECT_EQ(ListenAddress::parse(text).text(), text);
  }
  EXPECT_EQ(ListenAddress::parse("127.0.0.1:80").port, 80);
  EXPECT_EQ(ListenAddress::parse("unix:/run/a:80").path, "/run/a:80");
  for (const auto* text : {"",
                           "0",
                           "65536",
                           "-1",
                           "80x",
                           " 80",
                           ":80",
                           "localhost:80",
                           "::1:80",
                           "::1",
                           "[::1]",
                           "[::1]:",
                           "[::1]80",
                           "[127.0.0.1]:80",
                           "127.0.0.1",
                           "127.0.0.1:",
                           "127.0.0.1:0",
                           "unix:",
                           "UNIX:/a",
                           "*:80",
                           "[]:80",
                           "[:80"}) {
    EXPECT_EQ(kindOf(text), Kind::Unclear) << text;
  }
}

TEST(ListenAddress, AListHasCommasOrBlanks) {
  const auto all = ListenAddress::parseList(" 7007,127.0.0.1:80 \t[::1]:80, nothing ,,unix:/a ");
  ASSERT_EQ(all.size(), 5U);
  EXPECT_EQ(all[1].text(), "127.0.0.1:80");
  EXPECT_EQ(all[3].kind, ListenAddress::Kind::Unclear);
  EXPECT_EQ(all[4].text(), "unix:/a");
  EXPECT_TRUE(ListenAddress::parseList(" , ").empty());
}

TEST(AddressRanges, HoldAddressesPrefixesAndThisMachinesFiles) {
  const auto ranges = AddressRanges::parse("127.0.0.1, 10.1.0.0/16 fd00::/8,2001:db8::1 unix");
  EXPECT_FALSE(ranges.isPartial());
  for (const auto* client : {"127.0.0.1", "10.1.0.0", "10.1.255.255", "fd12:3::4", "2001:db8::1",
                             "unix", "::ffff:10.1.2.3"}) {
    EXPECT_TRUE(ranges.contains(std::string_view(client))) << client;
  }
  for (const auto* client : {"127.0.0.2", "10.2.0.0", "fc00::1", "2001:db8::2", "", "UNIX", "x"}) {
    EXPECT_FALSE(ranges.contains(std::string_view(client))) << client;
  }
}

TEST(AddressRanges, PrefixesMayEndWithinAByteAndAreOfOneFamily) {
  const auto ranges = AddressRanges::parse("172.16.0.0/12 0.0.0.0/0");
  EXPECT_TRUE(ranges.contains(std::string_view("8.8.8.8")));
  EXPECT_FALSE(ranges.contains(std::string_view("2001:db8::1")));
  const auto twelve = AddressRanges::parse("172.16.0.0/12");
  EXPECT_TRUE(twelve.contains(std::string_view("172.31.255.255")));
  EXPECT_FALSE(twelve.contains(std::string_view("172.32.0.0")));
  EXPECT_FALSE(AddressRanges::parse("::/0").contains(std::string_view("8.8.8.8")));
  EXPECT_TRUE(AddressRanges::parse("::/0").contains(std::string_view("8::8")));
}

TEST(AddressRanges, LeaveOutWhatIsNone) {
  for (const auto* text : {"localhost", "10.0.0.0/33", "10.0.0.0/-1", "10.0.0.0/", "fd00::/129",
                           "/8", "10.0.0.0/8/8", "10.0.0.0/ 8x"}) {
    const auto ranges = AddressRanges::parse(text);
    EXPECT_TRUE(ranges.isPartial()) << text;
    EXPECT_FALSE(ranges.contains(std::string_view("10.0.0.1"))) << text;
  }
  EXPECT_TRUE(AddressRanges::parse("").empty());
  EXPECT_TRUE(AddressRanges::parse("x").empty());
  EXPECT_FALSE(AddressRanges::parse("unix").empty());
}

}  // namespace

}  // namespace quorvane
