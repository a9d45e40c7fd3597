#include "proxies/proxy_headers.h"

#include <gtest/gtest.h>

#include <utility>

#include "proxies/host_text.h"

namespace quorvane {

namespace {

using Lines = std::vector<std::pair<std::string, std::string>>;

/// Who asks by a head with these lines, at a proxy of this machine: the address, "+tls", and what
/// it asked for; or what is wrong with the lines.
std::string visitor(const Lines& lines,
                    std::string_view trustedText = "127.0.0.1 10.0.0.0/8 unix") {
  const AddressRanges trusted = AddressRanges::parse(trustedText);
  ProxyHeaders headers;
  for (const auto& [name, value] : lines) headers.take(name, value);
  Visitor named{"127.0.0.1", false, {}, 0};
  const std::string_view fault = nameVisitor(headers, trusted, named);
  if (!fault.empty()) return std::string(fault);
  return named.address + (named.isSecure ? "+tls" : "") +
         (named.host.empty() ? "" : " " + named.host) +
         (named.port > 0 ? ":" + std::to_string(named.port) : "");
}

constexpr const char* kBadForwarded = "Forwarded is not to be understood";
constexpr const char* kBadCustomary = "X-Forwarded is not to be understood";
constexpr const char* kContradiction = "Forwarded and X-Forwarded contradict each other";

TEST(ProxyHeaders, WithoutAnyTheProxyAsksItself) {
  EXPECT_EQ(visitor({}), "127.0.0.1");
  EXPECT_EQ(visitor({{"Host", "example.org:8080"}, {"X-Real-IP", "9.9.9.9"}}), "127.0.0.1");
  EXPECT_EQ(visitor({{"X-Forwarded-For", " , "}, {"Forwarded", " , ;,"}}), "127.0.0.1");
}

TEST(ProxyHeaders, TheRightmostUntrustedAddressIsTheClient) {
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1"}}), "192.0.2.1");
  EXPECT_EQ(visitor({{"x-forwarded-for", "1.1.1.1, 192.0.2.1"}}), "192.0.2.1");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "1.1.1.1,192.0.2.1 ,10.0.0.7,\t10.0.0.8"}}), "192.0.2.1");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "1.1.1.1"}, {"X-Forwarded-For", "192.0.2.1"}}),
            "192.0.2.1");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "garbage, 192.0.2.1"}}), "192.0.2.1")
      << "what the client wrote is not even looked at";
  EXPECT_EQ(visitor({{"Forwarded", "for=1.1.1.1, for=192.0.2.1;by=x, for=10.0.0.7"}}), "192.0.2.1");
}

TEST(ProxyHeaders, WhereAllAreTrustedTheFarthestIsTheClient) {
  EXPECT_EQ(visitor({{"X-Forwarded-For", "10.0.0.9, 10.0.0.7"}}), "10.0.0.9");
  EXPECT_EQ(visitor({{"Forwarded", "for=10.0.0.9, for=unix"}}), "10.0.0.9");
}

TEST(ProxyHeaders, AddressesAreWrittenInManyWays) {
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1:4711"}}), "192.0.2.1");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "2001:DB8:0::1"}}), "2001:db8::1");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "[2001:db8::1]:4711"}}), "2001:db8::1");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "[2001:db8::1]"}}), "2001:db8::1");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "::ffff:192.0.2.1"}}), "192.0.2.1");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1, unix:"}}), "192.0.2.1");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1, unix:"}}, "127.0.0.1"), "unix");
  EXPECT_EQ(visitor({{"Forwarded", "FOR=\"[2001:db8::1]:4711\""}}), "2001:db8::1");
  EXPECT_EQ(visitor({{"Forwarded", "for=\"192.0.2.\\1\""}}), "192.0.2.1");
  EXPECT_EQ(visitor({{"Forwarded", "for=[2001:db8::1]"}}), "2001:db8::1");
}

TEST(ProxyHeaders, WhoIsKeptSecretIsUnknown) {
  EXPECT_EQ(visitor({{"Forwarded", "for=192.0.2.1, for=unknown"}}), "unknown");
  EXPECT_EQ(visitor({{"Forwarded", "for=192.0.2.1, for=\"_hidden\""}}), "unknown");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "127.0.0.1, unknown"}}), "unknown");
  EXPECT_EQ(visitor({{"Forwarded", "for=192.0.2.1, proto=https"}}), "127.0.0.1+tls:443")
      << "a proxy that names nobody speaks for itself";
}

TEST(ProxyHeaders, GarbageInTheClientsPlaceIsRefused) {
  for (const auto* text :
       {"localhost", "192.0.2", "192.0.2.1:", "192.0.2.1:x", "192.0.2.1:99999", "[192.0.2.1]:80",
        "[2001:db8::1", "2001:db8::1]", "[2001:db8::1]80", "1.2.3.4 x", "\"1.2.3.4\"", "_"}) {
    EXPECT_EQ(visitor({{"X-Forwarded-For", std::string("192.0.2.1, ") + text}}), kBadCustomary)
        << text;
  }
  for (const auto* text :
       {"for", "for=", "=1.2.3.4", "for=1.2.3.4 for=1.2.3.4", "for=\"1.2.3.4", "for=\"1.2.3.4\"x",
        "for=\"\"", "for=\"1.2.3.4\\", "for=1.2.3.4;for=1.2.3.5", "for=nobody", "1.2.3.4",
        "for =1.2.3.4", "for=1.2.3.4;proto=gopher", "for=1.2.3.4;host=\"a/b\"", "for=1.2.3.4;;x"}) {
    EXPECT_EQ(visitor({{"Forwarded", text}}), kBadForwarded) << text;
  }
}

TEST(ProxyHeaders, AQuoteThatTheClientOpensSwallowsNothing) {
  EXPECT_EQ(visitor({{"Forwarded", "for=\"6.6.6.6, for=192.0.2.1"}}), kBadForwarded);
  EXPECT_EQ(visitor({{"Forwarded", "for=\"6.6.6.6, for=\"[2001:db8::1]\""}}), kBadForwarded);
  EXPECT_EQ(visitor({{"Forwarded", "for=\"6.6.6.6"}, {"Forwarded", "for=192.0.2.1"}}),
            kBadForwarded);
}

TEST(ProxyHeaders, SchemeAndHostAreThoseOfTheClientsOwnHop) {
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1"}, {"X-Forwarded-Proto", "https"}}),
            "192.0.2.1+tls:443");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1"}, {"X-Forwarded-Proto", "HTTP"}}),
            "192.0.2.1:80");
  EXPECT_EQ(
      visitor({{"X-Forwarded-For", "192.0.2.1, 10.0.0.7"}, {"X-Forwarded-Proto", "https, http"}}),
      "192.0.2.1+tls:443");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1"}, {"X-Forwarded-Proto", "https, http"}}),
            "192.0.2.1:80")
      << "the first was the client's";
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1, 10.0.0.7"}, {"X-Forwarded-Proto", "https"}}),
            "192.0.2.1+tls:443");
  EXPECT_EQ(
      visitor({{"Forwarded", "for=192.0.2.1;proto=https;host=a.example, for=10.0.0.7;proto=http"}}),
      "192.0.2.1+tls a.example:443");
  EXPECT_EQ(visitor({{"Forwarded", "for=1.1.1.1;proto=https, for=192.0.2.1;proto=http"}}),
            "192.0.2.1:80");
}

TEST(ProxyHeaders, ThePortIsTheOneThatTheClientAskedFor) {
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1"}, {"X-Forwarded-Host", "a.example:8443"}}),
            "192.0.2.1 a.example:8443:8443");
  EXPECT_EQ(visitor({{"Host", "a.example:8443"}, {"X-Forwarded-Proto", "https"}}),
            "127.0.0.1+tls:8443");
  EXPECT_EQ(visitor({{"Host", "[::1]:8443"}, {"X-Forwarded-Proto", "https"}}),
            "127.0.0.1+tls:8443");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1"}, {"X-Forwarded-Host", "a/../b"}}),
            kBadCustomary);
  EXPECT_EQ(visitor({{"X-Forwarded-Proto", "gopher"}}), kBadCustomary);
}

TEST(ProxyHeaders, WhereBothKindsStandTheyHaveToAgree) {
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1"}, {"Forwarded", "for=192.0.2.1"}}),
            "192.0.2.1");
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1"}, {"Forwarded", "for=6.6.6.6"}}),
            kContradiction);
  EXPECT_EQ(visitor({{"X-Forwarded-For", "6.6.6.6"}, {"Forwarded", "for=192.0.2.1"}}),
            kContradiction);
  EXPECT_EQ(visitor({{"X-Forwarded-Proto", "https"}, {"Forwarded", "for=6.6.6.6"}}),
            kContradiction);
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1"}, {"Forwarded", "for=192.0.2.1;proto=https"}}),
            "192.0.2.1")
      << "what only one says may be the client's own";
  EXPECT_EQ(visitor({{"X-Forwarded-For", "192.0.2.1"},
                     {"X-Forwarded-Proto", "http"},
                     {"Forwarded", "for=192.0.2.1;proto=https"}}),
            kContradiction);
}

TEST(ProxyHeaders, ALongListIsReadInNoTime) {
  std::string list = "192.0.2.1";
  for (int i = 0; i < 100'000; ++i) list += ",10.0.0.1";
  EXPECT_EQ(visitor({{"X-Forwarded-For", list}}), "192.0.2.1");
}

TEST(HostText, HasANameAndAPort) {
  EXPECT_EQ(host_text::name("example.org:8080"), "example.org");
  EXPECT_EQ(host_text::name("example.org"), "example.org");
  EXPECT_EQ(host_text::name("[::1]:7007"), "[::1]");
  EXPECT_EQ(host_text::name("[::1]"), "[::1]");
  EXPECT_EQ(host_text::port("[::1]:7007"), 7007);
  EXPECT_EQ(host_text::port("[::1]"), 0);
  EXPECT_EQ(host_text::port("a:"), 0);
  EXPECT_EQ(host_text::port("a:8x"), 0);
  EXPECT_EQ(host_text::port("[::1"), 0);
}

}  // namespace

}  // namespace quorvane
