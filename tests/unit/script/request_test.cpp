#include <gtest/gtest.h>

#include <string>

#include "http/clsHTTPParser.h"
#include "http/cookie_jar.h"
#include "member_access.h"
#include "script/objects/aspRequestObj.h"
#include "support/clsWEncode.h"
#include "support/server_state.h"
#include "testing/spelling.h"
#include "vbscript/values/time_check.h"

namespace quorvane {

namespace {

class RequestTest : public ::testing::Test {
 protected:
  void receive(const std::string& text) {
    parser.setHTTPData(text);
    parser.setRemoteIP("10.0.0.9");
    request->attach(parser, jar);
  }

  /// What `For Each` goes through, a blank behind each item.
  static std::string walked(const vbs::Value& collection) {
    std::string items;
    vbs::Value item;
    for (const auto walk = collection.asObject()->enumerate(); walk->next(item);) {
      items += text(item) + ' ';
    }
    return items;
  }

  clsWEncode encoder;
  CookieJar jar;
  clsHTTPParser parser{encoder, jar};
  ServerState state;
  vbs::Ref<aspRequestObj> request = vbs::make<aspRequestObj>(state, encoder);
};

TEST_F(RequestTest, ReadsQueryAndForm) {
  receive(
      "POST /dir/p.qvs?a=1&B=q+2 HTTP/1.1\r\nHost: h:7007\r\nContent-Length: 7\r\n\r\n"
      "a=f&c=3");
  EXPECT_EQ(getText(*request, "querystring"), "a=1&B=q+2");
  EXPECT_EQ(getText(*request, "querystring", values("")), "a=1&B=q+2");
  EXPECT_EQ(getText(*request, "querystring", values("b")), "q 2");
  EXPECT_EQ(getText(*request, "form", values("A")), "f");
  EXPECT_EQ(getText(*request, "form"), "");
  EXPECT_EQ(getText(*request, "default", values("a")), "1");
  EXPECT_EQ(getText(*request, "default", values("c")), "3");
  EXPECT_EQ(getText(*request, "default"), "");
  auto key = values("c");
  EXPECT_EQ(text(request->invoke(vbs::kDefaultMember, vbs::CallKind::Get, key)), "3");
  EXPECT_EQ(getText(*request, "totalbytes"), "7");
}

TEST_F(RequestTest, GivesCopiesOfCookies) {
  receive("GET / HTTP/1.1\r\nCookie: ID=a%20b; QVS_SESSIONID=5\r\n\r\n");
  const vbs::Value cookie = get(*request, "cookies", values("id"));
  EXPECT_EQ(getText(*cookie.asObject(), "value"), "a b");
  EXPECT_EQ(getText(*cookie.asObject(), "name"), "");
  EXPECT_EQ(text(cookie), "a b");
  put(*cookie.asObject(), "value", values("changed"));
  EXPECT_FALSE(jar.find("ID")->changed());
  EXPECT_EQ(text(get(*request, "cookies", values("ID"))), "a b");
}

TEST_F(RequestTest, GivesAnEmptyCookieForAMissingOne) {
  receive("GET / HTTP/1.1\r\n\r\n");
  const vbs::Value cookie = get(*request, "cookies", values("none"));
  EXPECT_EQ(text(cookie), "");
  EXPECT_EQ(get(*cookie.asObject(), "expires").asDouble(), 0);
  put(*cookie.asObject(), "expires", values(vbs::Value::date(46090.25)));
  EXPECT_EQ(get(*cookie.asObject(), "expires").asDouble(), 46090.25);
}

TEST_F(RequestTest, ReadsTheKeysOfACookie) {
  receive("GET / HTTP/1.1\r\nCookie: p=colour%3Ddark%2520red%26a%2526b%3Dx%253Dy; q=r=1&s\r\n\r\n");
  const vbs::Value cookie = get(*request, "cookies", values("p"));
  EXPECT_EQ(getText(*cookie.asObject(), "value", values("Colour")), "dark red");
  EXPECT_EQ(getText(*cookie.asObject(), "value", values("a&b")), "x=y");
  EXPECT_EQ(getText(*cookie.asObject(), "value", values("none")), "");
  EXPECT_EQ(getText(*cookie.asObject(), "haskeys"), "True");
  EXPECT_EQ(walked(cookie), "colour a&b ");
  EXPECT_EQ(errorOf([&] { put(*cookie.asObject(), "value", values("k", "v")); }), 450);
  EXPECT_EQ(getText(*get(*request, "cookies", values("q")).asObject(), "value", values("r")), "1");
  const vbs::Value none = get(*request, "cookies", values("none"));
  EXPECT_EQ(getText(*none.asObject(), "haskeys"), "False");
  EXPECT_EQ(walked(none), "");
}

TEST_F(RequestTest, GivesItsCookiesAndServerVariablesAsCollections) {
  receive("GET / HTTP/1.1\r\nX-One: 1\r\nCookie: a=1; b=x%20y\r\n\r\n");
  const vbs::Value cookies = get(*request, "cookies");
  EXPECT_EQ(walked(cookies), "A B ");
  EXPECT_EQ(getText(*cookies.asObject(), "count"), "2");
  EXPECT_EQ(getText(*cookies.asObject(), "item", values("b")), "x y");
  const vbs::Value variables = get(*request, "servervariables");
  EXPECT_NE(walked(variables).find(" URL HTTP_X_ONE HTTP_COOKIE "), std::string::npos);
  EXPECT_EQ(getText(*variables.asObject(), "item", values("http_x_one")), "1");
  request->detach();
  EXPECT_EQ(getText(*variables.asObject(), "item", values("http_x_one")), "");
}

TEST_F(RequestTest, CountsTheReadingOfAllVariablesAsWork) {
  receive("POST / HTTP/1.1\r\n\r\na=" + std::string(5000, 'x'));
  const std::size_t before = vbs::runContext.time.counted;
  const vbs::MemberId form = request->objectMember(request->findMember("form"));
  EXPECT_TRUE(request->invoke(form, vbs::CallKind::Get, {}).isObject());
  EXPECT_GE(vbs::runContext.time.counted, before + 5000);
}

TEST_F(RequestTest, IsEmptyWithoutARequest) {
  EXPECT_EQ(getText(*request, "querystring"), "");
  EXPECT_EQ(getText(*request, "form", values("a")), "");
  EXPECT_EQ(getText(*request, "default", values("a")), "");
  EXPECT_EQ(getText(*request, "cookies", values("a")), "");
  EXPECT_EQ(getText(*request, "servervariables", values("URL")), "");
  receive("GET /?a=1 HTTP/1.1\r\n\r\n");
  request->detach();
  EXPECT_EQ(getText(*request, "querystring"), "");
}

TEST_F(RequestTest, KnowsServerVariables) {
  state.ScriptsFolder = "/srv";
  state.AppVersion = "1.2.3";
  receive(
      "GET /dir/p.qvs?x=1 HTTP/1.1\r\nHost: Example:7007\r\nUser-Agent: test\r\n"
      "Cookie: QVS_SESSIONID=5\r\n\r\n");
  const auto variable = [&](const char* name) {
    return getText(*request, "servervariables", values(name));
  };
  EXPECT_EQ(variable("REQUEST_METHOD"), "GET");
  EXPECT_EQ(variable("script_name"), "/dir/p.qvs");
  EXPECT_EQ(spelled(variable("PATH_TRANSLATED")), "/srv/dir/p.qvs");
  EXPECT_EQ(variable("QUERY_STRING"), "x=1");
  EXPECT_EQ(variable("REMOTE_ADDR"), "10.0.0.9");
  EXPECT_EQ(variable("SERVER_NAME"), "example");
  EXPECT_EQ(variable("SERVER_PORT"), "7007");
  EXPECT_EQ(variable("SERVER_PROTOCOL"), "HTTP/1.1");
  EXPECT_EQ(variable("SERVER_SOFTWARE"), "Quorvane-Server/1.2.3");
  EXPECT_EQ(variable("HTTP_USER_AGENT"), "test");
  EXPECT_EQ(variable("HTTP_COOKIE"), "");
  EXPECT_EQ(variable("ALL_HTTP"), "HTTP_HOST:Example:7007\r\nHTTP_USER_AGENT:test\r\n");
  EXPECT_EQ(variable("UNKNOWN"), "");
}

TEST_F(RequestTest, GivesItsBodyAsBytes) {
  receive("POST / HTTP/1.1\r\n\r\nabcdef");
  const auto read = [&](int count) {
    const vbs::Value bytes = get(*request, "binaryread", values(vbs::Value::longInt(count)));
    return std::string(bytes.asArray()->bytes.raw());
  };
  EXPECT_EQ(read(4), "abcd");
  EXPECT_EQ(read(4), "ef");
  EXPECT_EQ(read(-1), "");
}

}  // namespace

}  // namespace quorvane
