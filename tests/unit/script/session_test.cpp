#include <gtest/gtest.h>

#include <chrono>

#include "member_access.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_random.h"
#include "script/sessions/aspSessionObj.h"
#include "script/sessions/auth_keys.h"
#include "script/sessions/session_store.h"
#include "testing/recorded_lines.h"
#include "vbscript/values/convert.h"

namespace quorvane {

using namespace std::chrono_literals;

namespace {

class SessionTest : public ::testing::Test {
 protected:
  FakeClock clock;
  ScriptedRandom random;
  RecordedLines log;
  SessionStore store{clock, random, log};
  vbs::Ref<aspSessionObj> session = vbs::make<aspSessionObj>(clock);
};

TEST_F(SessionTest, KeepsTextsUnderKeysOfAnyCase) {
  put(*session, "contents", values("A", vbs::Value::integer(5)));
  EXPECT_EQ(getText(*session, "contents", values("a")), "5");
  EXPECT_TRUE(get(*session, "contents", values("a")).isString());
  put(*session, "contents", values("a", "x"));
  EXPECT_EQ(getText(*session, "contents", values("A")), "x");
  EXPECT_EQ(getText(*session, "contents", values("missing")), "");
}

TEST_F(SessionTest, KeepsCharactersOutsideTheAnsiCodePage) {
  put(*session, "contents", values("k", vbs::String::fromWide(u"\u4e2d")));
  EXPECT_EQ(vbs::toString(get(*session, "contents", values("k"))).wide(), u"\u4e2d");
}

TEST_F(SessionTest, HasContentsAsDefaultMember) {
  auto args = values("k", "v");
  session->invoke(vbs::kDefaultMember, vbs::CallKind::Let, args);
  auto key = values("K");
  EXPECT_EQ(text(session->invoke(vbs::kDefaultMember, vbs::CallKind::Get, key)), "v");
}

TEST_F(SessionTest, TakesNoObjectsAndNoKeylessValues) {
  EXPECT_EQ(errorOf([&] {
              put(*session, "contents", values("k", vbs::Value::object(session.get())),
                  vbs::CallKind::Set);
            }),
            438);
  EXPECT_EQ(errorOf([&] { put(*session, "contents", values("v")); }), 450);
  try {
    put(*session, "contents", values("k", vbs::Value::array(vbs::ArrayRep::fromBytes("a"))));
    FAIL();
  } catch (const vbs::ScriptError& error) {
    EXPECT_EQ(error.number, 13);
    EXPECT_EQ(error.description, "A session keeps texts only");
  }
}

TEST_F(SessionTest, GivesItsContentsAsACollection) {
  put(*session, "contents", values("one", "1"));
  put(*session, "contents", values("two", "2"));
  const vbs::Value contents = get(*session, "contents");
  vbs::Object& all = *contents.asObject();
  EXPECT_EQ(getText(all, "count"), "2");
  EXPECT_EQ(getText(all, "item", values("ONE")), "1");
  std::string keys;
  vbs::Value key;
  for (const auto walk = all.enumerate(); walk->next(key);) keys += text(key) + ' ';
  EXPECT_EQ(keys, "one two ");
  get(all, "remove", values("One"));
  EXPECT_EQ(getText(all, "count"), "1");
  get(all, "removeall");
  EXPECT_EQ(getText(*session, "contents", values("two")), "");
}

TEST_F(SessionTest, IsOutOfDateWhenIdleLongerThanItsTimeout) {
  EXPECT_EQ(getText(*session, "timeout"), "20");
  clock.advance(20min);
  EXPECT_FALSE(session->OutOfDate());
  clock.advance(1ms);
  EXPECT_TRUE(session->OutOfDate());
  get(*session, "refresh");
  EXPECT_EQ(getText(*session, "outofdate"), "False");
}

TEST_F(SessionTest, WithTimeoutZeroLastsNoTimeAtAll) {
  put(*session, "timeout", values(vbs::Value::integer(0)));
  EXPECT_FALSE(session->OutOfDate());
  clock.advance(1ms);
  EXPECT_TRUE(session->OutOfDate());
  EXPECT_EQ(errorOf([&] { put(*session, "timeout", values(vbs::Value::longInt(40000))); }), 6);
}

TEST_F(SessionTest, ForgetsEverythingWhenAbandoned) {
  put(*session, "contents", values("k", "v"));
  get(*session, "abandon");
  EXPECT_EQ(getText(*session, "contents", values("k")), "");
  put(*session, "contents", values("k", "v"));
  EXPECT_EQ(getText(*session, "contents", values("k")), "");
  EXPECT_TRUE(session->OutOfDate());
}

TEST_F(SessionTest, DrawsNumbersRoundedToEven) {
  random.fractions = {0.47110, 0.00005, 0.00025, 0.99996};
  EXPECT_EQ(store.getOrCreate(0)->SessionID(), 4711);
  EXPECT_EQ(store.getOrCreate(0)->SessionID(), 0);
  EXPECT_EQ(store.getOrCreate(0)->SessionID(), 2);
  EXPECT_EQ(store.getOrCreate(0)->SessionID(), 10000);
  EXPECT_EQ(log.lines.front(), "Session 4711 created");
}

TEST_F(SessionTest, DrawsAgainWhenANumberIsTaken) {
  random.fractions = {0.1, 0.1, 0.2};
  EXPECT_EQ(store.getOrCreate(0)->SessionID(), 1000);
  EXPECT_EQ(store.getOrCreate(0)->SessionID(), 2000);
  EXPECT_EQ(log.lines.size(), 2u);
}

TEST_F(SessionTest, FindsASessionAgainAndRefreshesIt) {
  const auto made = store.getOrCreate(0);
  clock.advance(19min);
  EXPECT_EQ(store.getOrCreate(5000).get(), made.get());
  clock.advance(19min);
  EXPECT_EQ(store.getOrCreate(5000).get(), made.get());
}

TEST_F(SessionTest, ReplacesASessionOutOfDateWithoutALine) {
  const auto made = store.getOrCreate(0);
  clock.advance(21min);
  random.fractions = {0.6};
  EXPECT_EQ(store.getOrCreate(5000)->SessionID(), 6000);
  EXPECT_EQ(store.size(), 1u);
  EXPECT_EQ(log.lines, (std::vector<std::string>{"Session 5000 created", "Session 6000 created"}));
}

TEST_F(SessionTest, NeverLooksUpNumberZero) {
  random.fractions = {0.0, 0.3};
  EXPECT_EQ(store.getOrCreate(0)->SessionID(), 0);
  EXPECT_EQ(store.getOrCreate(0)->SessionID(), 3000);
  EXPECT_EQ(store.getOrCreate(-7)->SessionID(), 3001);
}

TEST_F(SessionTest, SweepsOutSessionsOutOfDate) {
  store.getOrCreate(0);
  random.fractions = {0.0017};
  const auto abandoned = store.getOrCreate(0);
  abandoned->Abandon();
  log.lines.clear();
  store.expire();
  EXPECT_EQ(log.lines, std::vector<std::string>{"Session 17 destroyed"});
  EXPECT_EQ(store.size(), 1u);
}

TEST_F(SessionTest, DropsTheOldestWhenEveryNumberIsTaken) {
  random.fractions.clear();
  for (int i = 0; i <= 10'000; ++i) random.fractions.push_back(i / 10'000.0);
  for (int i = 0; i <= 10'000; ++i) store.getOrCreate(0);
  EXPECT_EQ(store.size(), 10'001u);
  log.lines.clear();
  const auto latest = store.getOrCreate(0);
  EXPECT_EQ(log.lines, (std::vector<std::string>{"Session 0 destroyed", "Session 0 created"}));
  EXPECT_EQ(latest->SessionID(), 0);
  EXPECT_EQ(store.size(), 10'001u);
}

TEST_F(SessionTest, ShowsItsSessionsOldestFirst) {
  random.fractions = {0.9, 0.1};
  store.getOrCreate(0);
  store.getOrCreate(0);
  std::string numbers;
  store.forEach(
      [&](const aspSessionObj& each) { numbers += std::to_string(each.SessionID()) + ' '; });
  EXPECT_EQ(numbers, "9000 1000 ");
}

TEST(AuthKeys, AreGuidsInUpperCaseHexadecimal) {
  FakeClock clock;
  ScriptedRandom random;
  AuthKeys keys(clock, random);
  const std::string key = keys.issue(5min);
  EXPECT_EQ(key, "0AFF0000000000000000000000000001");
  EXPECT_TRUE(keys.validate("0aff0000000000000000000000000001"));
  EXPECT_FALSE(keys.validate("0AFF0000000000000000000000000002"));
}

TEST(AuthKeys, StayValidUntilASweepFindsThemPastTheirTime) {
  FakeClock clock;
  ScriptedRandom random;
  AuthKeys keys(clock, random);
  const std::string brief = keys.issue(0min);
  const std::string lasting = keys.issue(2min);
  keys.expire();
  EXPECT_TRUE(keys.validate(brief));
  clock.advance(1s);
  EXPECT_TRUE(keys.validate(brief));
  keys.expire();
  EXPECT_FALSE(keys.validate(brief));
  EXPECT_TRUE(keys.validate(lasting));
  clock.advance(2min);
  keys.expire();
  EXPECT_EQ(keys.size(), 0u);
}

}  // namespace

}  // namespace quorvane
