#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "components/application.h"
#include "http/clsHTTPParser.h"
#include "http/cookie_jar.h"
#include "member_access.h"
#include "script/objects/aspServerObj.h"
#include "script/sessions/memory_auth_keys.h"
#include "support/base64.h"
#include "support/clsWEncode.h"
#include "support/file_aliases.h"
#include "testing/fake_services.h"
#include "vbscript/values/host.h"

namespace quorvane {

namespace {

class ServerTest : public ::testing::Test,
                   protected FakeServices<ScriptedRandom>,
                   protected aspServerObj::Page {
 protected:
  ServerTest() {
    state.AppVersion = "1.2.3";
    server->setRequest(parser);
  }

  void objServer_DebugOutput(const std::string& dbgData) override { debugged.push_back(dbgData); }
  void execute(const std::string& target) override { executed.push_back(target); }
  std::chrono::seconds timeLimit() const override { return limit; }
  void setTimeLimit(std::chrono::seconds wanted) override { limit = wanted; }
  void endPage() override { throw vbs::EndOfRun{}; }

  std::string call(const char* member, std::string_view argument) {
    return getText(*server, member, values(argument));
  }

  std::chrono::seconds limit{10};
  clsWEncode encoder;
  MemoryAuthKeys keys{clock, random};
  CookieJar jar;
  clsHTTPParser parser{encoder, jar};
  FileAliases aliases;
  vbs::Ref<ApplicationComponent> application = vbs::make<ApplicationComponent>(services, aliases);
  PageParts parts{encoder, keys, *application};
  vbs::Ref<aspServerObj> server =
      vbs::make<aspServerObj>(services, parts, static_cast<aspServerObj::Page&>(*this));
  std::vector<std::string> debugged;
  std::vector<std::string> executed;
};

TEST_F(ServerTest, ListsHeaderLines) {
  parser.setHTTPData(
      "GET / HTTP/1.1\r\nHost: h\r\nX-Two :   two \r\nCookie: qvs_SessionID=5\r\nx-two: again\r\n"
      "no colon\r\nX-Last:\r\n\r\nbody: no");
  EXPECT_EQ(getText(*server, "headervarcount"), "3");
  EXPECT_EQ(text(get(*server, "headervar", values("x-TWO"))), "two ");
  const vbs::Value second = get(*server, "headervar", values(vbs::Value::integer(2)));
  EXPECT_EQ(getText(*second.asObject(), "name"), "X-Two");
  EXPECT_EQ(text(get(*server, "headervar", values("1"))), "h");
  EXPECT_EQ(text(get(*server, "headervar", values("X-Last"))), "");
  for (const char* missing : {"cookie", "body", "0", "4", "-1"}) {
    const vbs::Value none = get(*server, "headervar", values(missing));
    EXPECT_TRUE(none.isObject() && none.asObject() == nullptr) << missing;
  }
}

TEST_F(ServerTest, KnowsItselfAndTheClient) {
  parser.setHTTPData("GET / HTTP/1.1\r\nHost: Example\r\n\r\n");
  parser.setRemoteIP("10.1.2.3");
  EXPECT_EQ(getText(*server, "version"), "1.2.3 (Beta)");
  EXPECT_EQ(getText(*server, "hostaddr"), "example");
  EXPECT_EQ(getText(*server, "clientip"), "10.1.2.3");
}

TEST_F(ServerTest, MapsFoldersAndLeavesTheProcessThere) {
  process.folders = {"/", "/srv/site", "/srv/site/img", "/tmp"};
  server->setPageFolder(" /srv/site/ ");
  EXPECT_EQ(getText(*server, "mappath"), "/srv/site");
  EXPECT_EQ(call("mappath", ""), "/srv/site");
  EXPECT_EQ(call("mappath", "img"), "/srv/site/img");
  EXPECT_EQ(process.current, "/srv/site/img");
  EXPECT_EQ(call("mappath", "img\\"), "/srv/site/img");
  EXPECT_EQ(call("mappath", "missing"), "/srv/site");
  EXPECT_EQ(call("mappath", "/tmp"), "/tmp");
  EXPECT_EQ(process.current, "/tmp");
}

TEST_F(ServerTest, MapsFoldersWithoutRegardToCase) {
  process.folders = {"/srv", "/srv/Images"};
  files.put("/srv/Images/a.png", "x");
  server->setPageFolder("/srv");
  EXPECT_EQ(call("mappath", "images"), "/srv/Images");
}

TEST_F(ServerTest, MapsFoldersOutsideThePagesWithoutRegardToCase) {
  process.folders = {"/", "/Data", "/Data/In", "/srv/site"};
  files.put("/Data/In/a.txt", "x");
  files.addFolder("/srv/site");
  server->setPageFolder("/srv/site");
  EXPECT_EQ(call("mappath", "../../data"), "/Data");
  EXPECT_EQ(call("mappath", "..\\..\\DATA\\.\\in"), "/Data/In");
  EXPECT_EQ(call("mappath", "/data/in"), "/Data/In");
  EXPECT_EQ(call("mappath", "../../data/a.txt"), "/srv/site") << "folders only";
  EXPECT_EQ(call("mappath", "../data"), "/srv/site");
}

TEST_F(ServerTest, KeepsTheRootAsPageFolder) {
  process.folders = {"/"};
  server->setPageFolder("/");
  EXPECT_EQ(getText(*server, "mappath"), "/");
}

TEST_F(ServerTest, MakesComponentsByName) {
  EXPECT_NE(get(*server, "xcreateobject", values("scripting.DICTIONARY")).asObject(), nullptr);
  EXPECT_EQ(get(*server, "createobject", values("Unknown.Thing")).asObject(), nullptr);
}

TEST_F(ServerTest, IssuesAndChecksKeys) {
  const std::string key = getText(*server, "issueauthkey");
  EXPECT_EQ(key.size(), 32u);
  EXPECT_EQ(call("validateauthkey", key), "True");
  EXPECT_EQ(call("validateauthkey", "nonsense"), "False");
  clock.advance(std::chrono::seconds{1});
  keys.expire();
  EXPECT_EQ(call("validateauthkey", key), "False");
  const std::string lasting = getText(*server, "issueauthkey", values(vbs::Value::integer(5)));
  keys.expire();
  EXPECT_EQ(call("validateauthkey", lasting), "True");
}

TEST_F(ServerTest, EncodesAndDecodes) {
  EXPECT_EQ(call("urlencode", "a-b c"), "a%2Db%20c");
  EXPECT_EQ(call("urldecode", "a+b%20c"), "a b c");
  EXPECT_EQ(errorOf([&] { call("urldecode", "%zz"); }), 13);
  EXPECT_EQ(call("htmlencode", "<a b>"), "&lt;a&nbsp;b&gt;");
  EXPECT_EQ(call("htmldecode", "&amp;lt;"), "<");
  EXPECT_EQ(call("b64encode", "hello\xFF"), "aGVsbG//");
  EXPECT_EQ(call("b64decode", "aGVsbG//"), "hello\xFF");
}

TEST_F(ServerTest, PassesDebugOutputOn) {
  get(*server, "debugout", values("look"));
  EXPECT_EQ(debugged, std::vector<std::string>{"look"});
}

TEST_F(ServerTest, RunsOtherPages) {
  get(*server, "execute", values("a.qvs"));
  EXPECT_THROW(get(*server, "transfer", values("b.qvs")), vbs::EndOfRun);
  EXPECT_EQ(executed, (std::vector<std::string>{"a.qvs", "b.qvs"}));
}

TEST_F(ServerTest, OutlivesItsRunWithoutReachingIt) {
  server->detach();
  EXPECT_EQ(errorOf([&] { get(*server, "debugout", values("x")); }), 91);
  EXPECT_EQ(errorOf([&] { get(*server, "hostaddr"); }), 91);
  EXPECT_EQ(getText(*server, "version"), "1.2.3 (Beta)");
}

TEST(Base64, FollowsTheStandardsTestVectors) {
  const std::vector<std::pair<std::string, std::string>> vectors{{"", ""},
                                                                 {"f", "Zg=="},
                                                                 {"fo", "Zm8="},
                                                                 {"foo", "Zm9v"},
                                                                 {"foob", "Zm9vYg=="},
                                                                 {"fooba", "Zm9vYmE="},
                                                                 {"foobar", "Zm9vYmFy"}};
  for (const auto& [bytes, encoded] : vectors) {
    EXPECT_EQ(encodeBase64(bytes), encoded);
    EXPECT_EQ(decodeBase64(encoded), bytes);
  }
  EXPECT_EQ(decodeBase64("Zm9v\r\nYm Fy"), "foobar");
}

}  // namespace

}  // namespace quorvane
