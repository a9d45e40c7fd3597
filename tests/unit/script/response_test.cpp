#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "http/cookie_jar.h"
#include "http/http_date.h"
#include "member_access.h"
#include "platform/fake/fake_clock.h"
#include "script/objects/aspResponseObj.h"
#include "script/objects/request_cookie.h"
#include "support/clsWEncode.h"
#include "vbscript/values/host.h"
#include "vbscript/values/time_check.h"

namespace quorvane {

using namespace std::string_literals;

namespace {

class ResponseTest : public ::testing::Test {
 protected:
  using Flushed = std::tuple<std::string, std::string, bool>;

  void write(std::string_view what) { get(*response, "xwrite", values(what)); }
  std::string cookieLines() { return jar.changedHeaderLines(dates); }

  FakeClock clock;
  HttpDates dates{clock};
  clsWEncode encoder;
  CookieJar jar;
  std::vector<Flushed> flushes;
  vbs::Ref<aspResponseObj> response = vbs::make<aspResponseObj>(
      encoder, jar, clock, [this](std::string data, std::string header, bool first) {
        flushes.emplace_back(std::move(data), std::move(header), first);
      });
};

TEST_F(ResponseTest, CollectsWritesInOrder) {
  write("a");
  get(*response, "xwrite", values(vbs::Value::integer(-12)));
  get(*response, "xwrite", values(vbs::Value::number(0.5)));
  get(*response, "xwrite", values(vbs::Value::boolean(true)));
  get(*response, "xwrite", values(vbs::Value()));
  get(*response, "xwrite", values(vbs::Value::null()));
  get(*response, "write", values("z"));
  EXPECT_EQ(response->takeBuffer(), "a-120.5Truez");
}

TEST_F(ResponseTest, NarrowsWhatItWrites) {
  get(*response, "xwrite", values(vbs::String::fromWide(u"\u20ac\u4e2d")));
  EXPECT_EQ(response->takeBuffer(), "\x80?");
}

TEST_F(ResponseTest, WritesWhatAnObjectIsWorth) {
  clsCookieObj cookie("", "tasty", false);
  const auto object = vbs::make<RequestCookie>(std::move(cookie), encoder);
  get(*response, "xwrite", values(vbs::Value::object(object.get())));
  EXPECT_EQ(response->takeBuffer(), "tasty");
}

TEST_F(ResponseTest, BuildsItsHeaderText) {
  EXPECT_EQ(response->Header(), "");
  put(*response, "contenttype", values("text/plain"));
  EXPECT_EQ(response->Header(), "Content-Type: text/plain");
  get(*response, "addheader", values("X:-One:", " 1 "));
  get(*response, "addheader", values("X-One", "2"));
  get(*response, "addheader", values("X-Two", "  "));
  EXPECT_EQ(response->Header(), "X-One: 1\r\nX-One: 2\r\nContent-Type: text/plain");
  get(*response, "addheader", values("CONTENT-Type:", "image/png"));
  EXPECT_EQ(getText(*response, "contenttype"), "image/png");
}

TEST_F(ResponseTest, AddsTheCharacterSetToTheType) {
  put(*response, "charset", values("utf-8"));
  EXPECT_EQ(response->Header(), "Content-Type: text/html; charset=utf-8");
  put(*response, "contenttype", values("text/plain"));
  EXPECT_EQ(response->Header(), "Content-Type: text/plain; charset=utf-8");
}

TEST_F(ResponseTest, ClearDropsHeadersToo) {
  write("a");
  get(*response, "addheader", values("X", "1"));
  put(*response, "contenttype", values("text/plain"));
  get(*response, "clear");
  EXPECT_EQ(response->Header(), "");
  EXPECT_EQ(response->takeBuffer(), "");
}

TEST_F(ResponseTest, HasNoMemberForTheRewrittenClear) {
  EXPECT_EQ(response->findMember("xclear"), vbs::kNoMember);
}

TEST_F(ResponseTest, LeavesAMarkerForARedirect) {
  write("gone");
  get(*response, "redirect", values("/a.qvs"));
  write("dropped");
  get(*response, "clear");
  get(*response, "addheader", values("X", "1"));
  get(*response, "flush");
  EXPECT_TRUE(flushes.empty());
  EXPECT_EQ(response->Header(), "");
  EXPECT_EQ(response->takeBuffer(), "\0[$REDIR$]\0/a.qvs"s);
}

TEST_F(ResponseTest, LeavesAnotherMarkerForARedirectToAFile) {
  get(*response, "redirectto", values("/srv/a.qvs"));
  EXPECT_EQ(response->takeBuffer(), "\0[$REDIRTO$]\0/srv/a.qvs"s);
}

TEST_F(ResponseTest, TellsOfFlushes) {
  write("one");
  put(*response, "contenttype", values("text/plain"));
  get(*response, "flush");
  write("two");
  get(*response, "addheader", values("X", "1"));
  put(*response, "contenttype", values("image/png"));
  get(*response, "flush");
  EXPECT_EQ(flushes,
            (std::vector<Flushed>{{"one", "Content-Type: text/plain", true}, {"two", "", false}}));
  EXPECT_TRUE(response->flushed());
  EXPECT_EQ(getText(*response, "contenttype"), "");
}

TEST_F(ResponseTest, RedirectsNoMoreOnceFlushed) {
  get(*response, "flush");
  get(*response, "redirect", values("/a.qvs"));
  write("more");
  EXPECT_EQ(response->takeBuffer(), "more");
}

TEST_F(ResponseTest, ForgetsTheRunWhenDetached) {
  response->detach();
  write("late");
  get(*response, "flush");
  EXPECT_TRUE(flushes.empty());
  EXPECT_EQ(response->takeBuffer(), "");
}

TEST_F(ResponseTest, CountsItsTextAgainstTheScriptsMemory) {
  const std::int64_t before = vbs::runContext.memory.used;
  write(std::string(1000, 'x'));
  EXPECT_GE(vbs::runContext.memory.used, before + 1000);
  vbs::runContext.memory.limit = before + 1500;
  const std::int32_t error = errorOf([&] { response->XWrite(vbs::Value(vbs::String())); });
  std::int32_t tooMuch = 0;
  try {
    for (int i = 0; i < 10; ++i) response->XWrite(vbs::Value::longInt(100000000));
    for (int i = 0; i < 100; ++i) response->XWrite(vbs::Value::longInt(100000000));
  } catch (const vbs::ScriptError& thrown) {
    tooMuch = thrown.number;
  }
  vbs::runContext.memory.limit = INT64_MAX;
  EXPECT_EQ(error, 0);
  EXPECT_EQ(tooMuch, 7);
  response->takeBuffer();
  EXPECT_EQ(vbs::runContext.memory.used, before);
}

TEST_F(ResponseTest, WritesBytes) {
  get(*response, "binarywrite", values(vbs::Value::array(vbs::ArrayRep::fromBytes("\1\2"))));
  get(*response, "binarywrite", values(vbs::String::fromWideBytes("abc")));
  get(*response, "binarywrite", values("xy"));
  EXPECT_EQ(response->takeBuffer(), "\1\2abcx\0y\0"s);
}

TEST_F(ResponseTest, EndsThePage) {
  write("a");
  EXPECT_THROW(get(*response, "end"), vbs::EndOfRun);
  write("dropped");
  EXPECT_EQ(response->takeBuffer(), "a");
}

TEST_F(ResponseTest, HasCustomaryMembersWithoutEffect) {
  EXPECT_EQ(getText(*response, "status"), "200 OK");
  put(*response, "status", values("404 Not Found"));
  EXPECT_EQ(getText(*response, "status"), "404 Not Found");
  put(*response, "buffer", values(vbs::Value::boolean(false)));
  EXPECT_EQ(getText(*response, "buffer"), "False");
  EXPECT_EQ(getText(*response, "isclientconnected"), "True");
  EXPECT_EQ(getText(*response, "codepage"), "1252");
  put(*response, "codepage", values(vbs::Value::longInt(65001)));
  EXPECT_EQ(getText(*response, "codepage"), "65001");
}

TEST_F(ResponseTest, CountsItsHeaderLinesAgainstTheScriptsMemory) {
  const std::int64_t before = vbs::runContext.memory.used;
  response->AddHeader("X", std::string(999, 'x'));
  EXPECT_GE(vbs::runContext.memory.used, before + 1000);
  response->Clear();
  EXPECT_EQ(vbs::runContext.memory.used, before);
}

TEST_F(ResponseTest, SaysHowLongThePageKeeps) {
  put(*response, "expires", values(vbs::Value::integer(-1)));
  put(*response, "cachecontrol", values("no-cache"));
  get(*response, "addheader", values("X", "1"));
  EXPECT_EQ(response->Header(),
            "X: 1\r\nExpires: Mon, 09 Mar 2026 09:59:00 GMT\r\nCache-Control: no-cache");
  put(*response, "expiresabsolute", values(vbs::Value::date(46090.5)));
  put(*response, "contenttype", values("text/plain"));
  EXPECT_EQ(response->Header(),
            "X: 1\r\nExpires: Mon, 09 Mar 2026 12:00:00 GMT\r\nCache-Control: no-cache\r\n"
            "Content-Type: text/plain");
  get(*response, "clear");
  EXPECT_EQ(response->Header(), "");
  get(*response, "pics", values("(PICS-1.1)"));
  EXPECT_EQ(response->Header(), "PICS-Label: (PICS-1.1)");
  get(*response, "flush");
  put(*response, "expires", values(vbs::Value::integer(5)));
  put(*response, "cachecontrol", values("public"));
  EXPECT_EQ(response->Header(), "");
}

TEST_F(ResponseTest, RecordsTheKeysOfACookie) {
  jar.add(clsCookieObj("p", "old=1", false));
  const vbs::Value handle = get(*response, "cookies", values("p"));
  const auto set = [&](const char* key, const char* value) {
    put(*handle.asObject(), "value", values(key, value));
  };
  set("colour", "dark red");
  set("a&b", "x=y");
  set("Colour", "blue");
  EXPECT_EQ(cookieLines(), "Set-Cookie: p=colour%3Dblue%26a%2526b%3Dx%253Dy; path=/");
  put(*handle.asObject(), "value", values("plain"));
  set("k", "v");
  EXPECT_EQ(cookieLines(), "Set-Cookie: p=k%3Dv; path=/");
  put(*handle.asObject(), "path", values("/x"));
  put(*handle.asObject(), "domain", values("h"));
  put(*handle.asObject(), "secure", values(vbs::Value::boolean(true)));
  EXPECT_EQ(cookieLines(), "Set-Cookie: p=k%3Dv; path=/x; domain=h; secure");
}

TEST_F(ResponseTest, CountsTheKeysOfACookieAsWork) {
  const vbs::Value handle = get(*response, "cookies", values("p"));
  put(*handle.asObject(), "value", values("k", std::string(5000, 'x').c_str()));
  const std::size_t before = vbs::runContext.time.counted;
  put(*handle.asObject(), "value", values("l", "1"));
  EXPECT_GE(vbs::runContext.time.counted, before + 5000);
}

TEST_F(ResponseTest, RecordsCookies) {
  put(*response, "cookies", values("Name", "a b"));
  EXPECT_EQ(cookieLines(), "Set-Cookie: Name=a%20b; path=/");
  const vbs::Value handle = get(*response, "cookies", values("NAME"));
  put(*handle.asObject(), "value", values("c"));
  EXPECT_EQ(cookieLines(), "Set-Cookie: Name=c; path=/");
  auto value = values("d");
  handle.asObject()->invoke(vbs::kDefaultMember, vbs::CallKind::Let, value);
  EXPECT_EQ(cookieLines(), "Set-Cookie: Name=d; path=/");
  EXPECT_EQ(errorOf([&] { get(*handle.asObject(), "value"); }), 438);
}

TEST_F(ResponseTest, RecordsNoCookiesThatCouldOnlyFillTheMemory) {
  const std::string large(100'000, 'x');
  put(*response, "cookies", values("a", large.c_str()));
  put(*response, "cookies", values(large.c_str(), "b"));
  EXPECT_EQ(jar.size(), 0u);
  for (int i = 0; i < 2000; ++i) {
    put(*response, "cookies", values(std::to_string(i).c_str(), "v"));
  }
  EXPECT_EQ(jar.size(), 1024u);
  put(*response, "cookies", values("5", "w"));
  EXPECT_EQ(jar.find("5")->Value(), "w");
}

TEST_F(ResponseTest, DatesCookies) {
  const vbs::Value handle = get(*response, "cookies", values("c"));
  // 9 March 2026 10:30:00.4
  put(*handle.asObject(), "expires", values(vbs::Value::date(46090 + 37800.4 / 86400)));
  EXPECT_EQ(jar.find("c")->expiresText(), "2026-03-09 10:30:00");
  EXPECT_EQ(cookieLines(), "Set-Cookie: c=; path=/; expires=Mon, 09 Mar 2026 10:30:00 GMT");
}

TEST_F(ResponseTest, RecordsNoCookieWithoutAName) {
  put(*response, "cookies", values("", "x"));
  const vbs::Value handle = get(*response, "cookies", values(""));
  put(*handle.asObject(), "expires", values(vbs::Value::date(46090)));
  put(*handle.asObject(), "value", values("k", "x"));
  put(*handle.asObject(), "path", values("/"));
  put(*handle.asObject(), "domain", values("h"));
  put(*handle.asObject(), "secure", values("True"));
  EXPECT_EQ(jar.size(), 0u);
}

TEST_F(ResponseTest, SendsNoCookieBackThatOnlyCameIn) {
  jar.add(clsCookieObj("ID", "1", false));
  get(*response, "cookies", values("id"));
  EXPECT_EQ(cookieLines(), "");
  put(*response, "cookies", values("id", "2"));
  EXPECT_EQ(cookieLines(), "Set-Cookie: ID=2; path=/");
}

}  // namespace

}  // namespace quorvane
