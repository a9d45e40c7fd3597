#include <gtest/gtest.h>

#include <chrono>

#include "components/shared_values.h"
#include "member_access.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_random.h"
#include "script/sessions/aspSessionObj.h"
#include "script/sessions/memory_auth_keys.h"
#include "script/sessions/memory_session_store.h"
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
  MemorySessionStore store{clock, random, log};
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

/// A store without a free number, session 0 the first that was made.
class FullStore : public SessionTest {
 protected:
  FullStore() {
    random.fractions.clear();
    for (int i = 0; i <= 10'000; ++i) random.fractions.push_back(i / 10'000.0);
    for (int i = 0; i <= 10'000; ++i) store.getOrCreate(0);
  }

  void visit(std::int32_t number, std::string_view what = {}) {
    const auto found = store.getOrCreate(number);
    ASSERT_EQ(found->SessionID(), number);
    if (!what.empty()) found->setContents("what", vbs::String(what));
    store.noteRun(number);
  }

  std::int32_t dropped() {
    const std::int32_t number = store.getOrCreate(0)->SessionID();
    EXPECT_EQ(store.size(), 10'001u);
    return number;
  }
};

TEST_F(FullStore, DropsStrangersInTheOrderOfTheirComing) {
  EXPECT_EQ(dropped(), 0);
  EXPECT_EQ(dropped(), 1);
}

TEST_F(FullStore, KeepsWhoCameBackAndHoldsSomethingAsLongAsThereAreStrangers) {
  visit(1, "basket");
  visit(2, "basket");
  for (int i = 0; i < 20'000; ++i) dropped();
  EXPECT_EQ(text(vbs::Value(store.getOrCreate(1)->Contents("what"))), "basket");
  EXPECT_EQ(text(vbs::Value(store.getOrCreate(2)->Contents("what"))), "basket");
}

TEST_F(FullStore, DropsWhoHoldsNothingByIdleTime) {
  for (std::int32_t number = 1; number <= 10'000; ++number) visit(number);
  visit(3);
  EXPECT_EQ(dropped(), 0) << "the only one that never came back";
  EXPECT_EQ(dropped(), 1);
  EXPECT_EQ(dropped(), 2);
  EXPECT_EQ(dropped(), 4);
}

TEST_F(FullStore, DropsTheLongestIdleWhenAllHoldSomething) {
  for (std::int32_t number = 1; number <= 10'000; ++number) visit(number, "basket");
  visit(1);
  EXPECT_EQ(dropped(), 2) << "number 0 would be of no use";
  EXPECT_EQ(dropped(), 0) << "two that never came back, the older one first";
  EXPECT_EQ(dropped(), 2);
}

TEST_F(FullStore, CountsAVisitorThatEmptiedItsBasketAsHoldingNothing) {
  for (std::int32_t number = 1; number <= 10'000; ++number) visit(number, "basket");
  store.getOrCreate(9)->values().clear();
  store.noteRun(9);
  EXPECT_EQ(dropped(), 0);
  EXPECT_EQ(dropped(), 9);
}

TEST_F(FullStore, TellsOfTheSessionThatMakesRoom) {
  log.lines.clear();
  const auto latest = store.getOrCreate(0);
  EXPECT_EQ(log.lines, (std::vector<std::string>{"Session 0 destroyed", "Session 0 created"}));
  EXPECT_EQ(latest->SessionID(), 0);
  EXPECT_EQ(store.size(), 10'001u);
}

vbs::Ref<SharedValues> holder() {
  return vbs::make<SharedValues>("Holder");
}

void hold(aspSessionObj& session, const vbs::Ref<SharedValues>& held) {
  put(session, "objects", values("Cart", vbs::Value::object(held.get())), vbs::CallKind::Set);
}

TEST_F(SessionTest, KeepsObjectsAndArraysUntilItIsRemoved) {
  const auto cart = holder();
  const auto visitor = store.getOrCreate(0);
  hold(*visitor, cart);
  put(*visitor, "objects", values("list", vbs::Value::array(vbs::ArrayRep::fromBytes("ab"))));
  EXPECT_EQ(get(*visitor, "objects", values("CART")).asObject(), cart.get());
  EXPECT_TRUE(get(*visitor, "objects", values("list")).isArray());
  EXPECT_EQ(getText(*get(*visitor, "objects").asObject(), "count"), "2");
  EXPECT_EQ(getText(*visitor, "contents", values("cart")), "") << "texts stand apart";
  EXPECT_EQ(cart->references(), 2u);
  store.remove(visitor->SessionID());
  EXPECT_EQ(cart->references(), 1u);
  EXPECT_TRUE(get(*visitor, "objects", values("cart")).isEmpty());
}

TEST_F(SessionTest, DropsItsObjectsWhenAbandoned) {
  const auto cart = holder();
  hold(*session, cart);
  get(*session, "abandon");
  EXPECT_EQ(cart->references(), 1u);
  hold(*session, cart);
  get(*session, "abandon");
  EXPECT_EQ(cart->references(), 1u);
}

TEST_F(SessionTest, LeavesNoCirclesOfObjectsBehind) {
  const vbs::Object* const before = vbs::runContext.newestObject;
  {
    const auto visitor = store.getOrCreate(0);
    put(*visitor, "objects", values("me", vbs::Value::object(visitor.get())), vbs::CallKind::Set);
    const auto circle = holder();
    circle->setItem(vbs::Value("self"), vbs::Value::object(circle.get()));
    hold(*visitor, circle);
  }
  clock.advance(21min);
  store.expire();
  EXPECT_EQ(vbs::runContext.newestObject, before);
}

TEST_F(SessionTest, CountsWhatItsKeysTakeAsLongAsTheyAreThere) {
  const std::int64_t before = vbs::runContext.memory.used;
  for (int i = 0; i < 1000; ++i) session->setContents("k" + std::to_string(i), {});
  EXPECT_GT(vbs::runContext.memory.used, before + 100'000);
  session->Abandon();
  EXPECT_EQ(vbs::runContext.memory.used, before);
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
  MemoryAuthKeys keys(clock, random);
  const std::string key = keys.issue(5min);
  EXPECT_EQ(key, "0AFF0000000000000000000000000001");
  EXPECT_TRUE(keys.validate("0aff0000000000000000000000000001"));
  EXPECT_FALSE(keys.validate("0AFF0000000000000000000000000002"));
}

TEST(AuthKeys, StayValidUntilASweepFindsThemPastTheirTime) {
  FakeClock clock;
  ScriptedRandom random;
  MemoryAuthKeys keys(clock, random);
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
