#include "proxies/proxy_protocol.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvane {

namespace {

using Outcome = ProxyPreface::Outcome;

const std::string kSignature("\r\n\r\n\0\r\nQUIT\n", 12);

std::string number(std::size_t value) {
  return {static_cast<char>(value >> 8), static_cast<char>(value & 0xff)};
}

std::string binary(char command, char family, const std::string& rest) {
  return kSignature + command + family + number(rest.size()) + rest;
}

const std::string kFourBytes("\xc0\x00\x02\x01\xc6\x33\x64\x01\x12\x67\x01\xbb", 12);

std::string extra(char type, const std::string& value) {
  return type + number(value.size()) + value;
}

/// The visitor in short, or how it ended. Cut at every byte it wants more, and what follows is
/// left.
std::string read(const std::string& preface) {
  const ProxyPreface whole = ProxyPreface::read(preface + "GET / HTTP/1.1\r\n\r\n");
  if (whole.outcome == Outcome::Refused) return "refused";
  EXPECT_EQ(whole.length, preface.size());
  for (std::size_t cut = 0; cut < preface.size(); ++cut) {
    EXPECT_EQ(ProxyPreface::read(preface.substr(0, cut)).outcome, Outcome::NeedMore) << cut;
  }
  if (whole.outcome == Outcome::Unnamed) return "unnamed";
  const Visitor& visitor = whole.visitor;
  return visitor.address + (visitor.isSecure ? "+tls" : "") + ":" + std::to_string(visitor.port);
}

TEST(ProxyProtocol, VersionOne) {
  EXPECT_EQ(read("PROXY TCP4 192.0.2.1 198.51.100.1 4711 443\r\n"), "192.0.2.1:443");
  EXPECT_EQ(read("PROXY TCP6 2001:db8::1 ::1 4711 80\r\n"), "2001:db8::1:80");
  EXPECT_EQ(read("PROXY TCP6 ffff:f000:f000:f000:f000:f000:f000:f000 "
                 "ffff:f000:f000:f000:f000:f000:f000:f000 65535 65535\r\n"),
            "ffff:f000:f000:f000:f000:f000:f000:f000:65535");
  EXPECT_EQ(read("PROXY UNKNOWN\r\n"), "unnamed");
  EXPECT_EQ(read("PROXY UNKNOWN ffff::1 whatever\r\n"), "unnamed");
}

TEST(ProxyProtocol, VersionOneIsTakenAsItStandsOnly) {
  for (const auto* text :
       {"PROXY TCP4 192.0.2.1 198.51.100.1 4711\r\n",
        "PROXY TCP4 192.0.2.1 198.51.100.1 4711 443 \r\n",
        "PROXY  TCP4 192.0.2.1 198.51.100.1 4711 443\r\n",
        "PROXY TCP4 2001:db8::1 ::1 4711 443\r\n", "PROXY TCP4 ::ffff:1.2.3.4 1.2.3.4 4711 443\r\n",
        "PROXY TCP6 192.0.2.1 198.51.100.1 4711 443\r\n",
        "PROXY TCP4 192.0.2.1 198.51.100.1 4711 65536\r\n",
        "PROXY TCP4 192.0.2.1 198.51.100.1 x 443\r\n",
        "PROXY TCP4 192.0.2.x 198.51.100.1 4711 443\r\n",
        "PROXY UDP4 192.0.2.1 198.51.100.1 4711 443\r\n", "PROXY \r\n", "PROXY TCP4\r\n",
        "proxy TCP4 192.0.2.1 198.51.100.1 4711 443\r\n",
        "PROXYTCP4 192.0.2.1 198.51.100.1 4711 443\r\n", "GET / HTTP/1.1\r\n"}) {
    EXPECT_EQ(read(text), "refused") << text;
  }
}

TEST(ProxyProtocol, VersionOneHasALengthThatItCanNotExceed) {
  EXPECT_EQ(ProxyPreface::read("PROXY UNKNOWN " + std::string(90, 'x')).outcome, Outcome::NeedMore);
  EXPECT_EQ(ProxyPreface::read("PROXY UNKNOWN " + std::string(93, 'x')).outcome, Outcome::Refused);
}

TEST(ProxyProtocol, VersionTwo) {
  EXPECT_EQ(read(binary(0x21, 0x11, kFourBytes)), "192.0.2.1:443");
  const std::string six = std::string("\x20\x01\x0d\xb8", 4) + std::string(11, '\0') + '\1';
  EXPECT_EQ(read(binary(0x21, 0x21, six + six + number(4711) + number(8443))), "2001:db8::1:8443");
  EXPECT_EQ(read(binary(0x21, 0x31, std::string(216, 'x'))), "unix:0");
  EXPECT_EQ(read(binary(0x20, 0x00, "")), "unnamed");
  EXPECT_EQ(read(binary(0x20, 0x11, kFourBytes)), "unnamed") << "a check of its own";
  EXPECT_EQ(read(binary(0x21, 0x00, "anything")), "unnamed");
}

TEST(ProxyProtocol, VersionTwoSaysWhetherTheClientSpeaksTls) {
  const std::string tls = extra(0x20, std::string("\x01\0\0\0\0", 5));
  const std::string plain = extra(0x20, std::string("\x00\0\0\0\1", 5));
  EXPECT_EQ(read(binary(0x21, 0x11, kFourBytes + tls)), "192.0.2.1+tls:443");
  EXPECT_EQ(read(binary(0x21, 0x11, kFourBytes + plain)), "192.0.2.1:443");
  EXPECT_EQ(
      read(binary(0x21, 0x11, kFourBytes + extra(0x04, "xx") + tls + extra(0x02, "a.example"))),
      "192.0.2.1+tls:443");
}

TEST(ProxyProtocol, VersionTwoIsTakenAsItStandsOnly) {
  EXPECT_EQ(read(binary(0x11, 0x11, kFourBytes)), "refused") << "no such version";
  EXPECT_EQ(read(binary(0x22, 0x11, kFourBytes)), "refused") << "no such command";
  EXPECT_EQ(read(binary(0x21, 0x12, kFourBytes)), "refused") << "datagrams";
  EXPECT_EQ(read(binary(0x21, 0x41, kFourBytes)), "refused");
  EXPECT_EQ(read(binary(0x21, 0x11, kFourBytes.substr(1))), "refused");
  EXPECT_EQ(read(binary(0x21, 0x21, kFourBytes)), "refused");
  EXPECT_EQ(read(binary(0x21, 0x11, kFourBytes + "x")), "refused");
  EXPECT_EQ(read(binary(0x21, 0x11, kFourBytes + std::string("\x20\0\5\1", 4))), "refused");
  EXPECT_EQ(read(binary(0x21, 0x11, kFourBytes + extra(0x20, ""))), "refused");
  EXPECT_EQ(read("\r\n\r\n\r\n"), "refused");
}

}  // namespace

}  // namespace quorvane
