#include "script/customary/memory_session_table.h"

#include <gtest/gtest.h>

#include "platform/system.h"
#include "testing/fake_services.h"

namespace quorvane::customary {

using namespace std::chrono_literals;

namespace {

class SessionTableTest : public ::testing::Test, protected FakeServices<ScriptedRandom> {
 protected:
  /// A visitor that came back; with something in its session if it is `keeping`.
  std::shared_ptr<Session> visitor(bool keeping) {
    auto session = table.create();
    if (keeping) session->contents->setItem(vbs::Value("basket"), vbs::Value::longInt(1));
    table.noteRun(*table.find(session->id));
    return session;
  }
  bool isThere(const std::shared_ptr<Session>& session) {
    return table.find(session->id) != nullptr;
  }

  MemorySessionTable table{clock, random, log, 3};
};

TEST_F(SessionTableTest, FindsSessionsByTextsThatItMadeItself) {
  const auto session = table.create();
  EXPECT_EQ(session->id.size(), 32u);
  EXPECT_EQ(session->id.find_first_not_of("0123456789abcdef"), std::string::npos);
  EXPECT_EQ(table.find(session->id), session);
  EXPECT_EQ(table.find(std::string(32, 'a')), nullptr);
  EXPECT_EQ(table.find(""), nullptr);
  EXPECT_EQ(table.size(), 1u);
}

TEST_F(SessionTableTest, LeavesNoBitOfATextAlone) {
  const auto chance = makeRandom();
  MemorySessionTable real(clock, *chance, log);
  std::string seen(32, '0');
  std::string clear(32, '0');
  // A bit that is the same in 200 texts by chance: once in 10^58 times.
  for (int i = 0; i < 200; ++i) {
    const std::string id = real.create()->id;
    for (std::size_t at = 0; at < id.size(); ++at) {
      const int digit = std::stoi(id.substr(at, 1), nullptr, 16);
      seen[at] = static_cast<char>(seen[at] | digit);
      clear[at] = static_cast<char>(clear[at] | (~digit & 15));
    }
  }
  EXPECT_EQ(seen, std::string(32, '0' | 15));
  EXPECT_EQ(clear, std::string(32, '0' | 15));
}

TEST_F(SessionTableTest, NumbersThemApart) {
  const auto first = table.create();
  const auto second = table.create();
  EXPECT_NE(first->number, second->number);
  EXPECT_EQ(std::to_string(first->number).size(), 9u);
}

TEST_F(SessionTableTest, EndsThemWhenTheyHaveBeenIdleTooLong) {
  const auto brief = table.create();
  const auto lasting = table.create();
  lasting->timeout = 60min;
  clock.advance(20min);
  EXPECT_TRUE(isThere(brief)) << "and its time begins anew";
  clock.advance(21min);
  EXPECT_FALSE(isThere(brief));
  EXPECT_EQ(table.size(), 2u);
  table.expire();
  EXPECT_EQ(table.size(), 1u);
  EXPECT_TRUE(isThere(lasting));
  EXPECT_EQ(table.takeEnded(), brief);
  EXPECT_EQ(table.takeEnded(), nullptr);
}

TEST_F(SessionTableTest, EndsAnAbandonedOneWithItsPage) {
  const auto session = table.create();
  session->isAbandoned = true;
  EXPECT_EQ(table.size(), 1u);
  table.noteRun(*session);
  EXPECT_EQ(table.size(), 0u);
  EXPECT_EQ(table.takeEnded(), session);
  table.noteRun(*session);
  EXPECT_EQ(table.takeEnded(), nullptr);
}

TEST_F(SessionTableTest, DropsStrangersBeforeVisitors) {
  const auto keeping = visitor(true);
  const auto empty = visitor(false);
  const auto stranger = table.create();
  stranger->contents->setItem(vbs::Value("x"), vbs::Value::longInt(1));
  table.noteRun(*stranger);
  table.create();
  EXPECT_EQ(table.takeEnded(), empty) << "idle longest of those that nobody misses";
  table.create();
  EXPECT_EQ(table.takeEnded(), stranger);
  EXPECT_TRUE(isThere(keeping));
  EXPECT_EQ(table.size(), 3u);
}

TEST_F(SessionTableTest, DropsTheLongestIdleOfTheVisitors) {
  const auto first = visitor(true);
  const auto second = visitor(true);
  const auto third = visitor(true);
  EXPECT_TRUE(isThere(first));
  table.create();
  EXPECT_EQ(table.takeEnded(), second);
  EXPECT_TRUE(isThere(third));
}

TEST_F(SessionTableTest, SurvivesARandomThatRepeatsItself) {
  const auto first = table.create();
  random.guids = 0;
  const auto second = table.create();
  EXPECT_EQ(first->id, second->id);
  EXPECT_EQ(table.find(second->id), second);
  EXPECT_EQ(table.size(), 1u);
  table.endAll();
  EXPECT_EQ(table.size(), 0u);
}

TEST_F(SessionTableTest, TellsOfThem) {
  const auto session = table.create();
  table.endAll();
  const std::string number = std::to_string(session->number);
  EXPECT_EQ(log.lines, (std::vector<std::string>{"Session " + number + " created",
                                                 "Session " + number + " destroyed"}));
}

TEST_F(SessionTableTest, CountsThemAgainstTheMemory) {
  const std::int64_t before = vbs::runContext.memory.used;
  table.create();
  EXPECT_GT(vbs::runContext.memory.used, before + 100);
  table.endAll();
  table.takeEnded();
  EXPECT_EQ(vbs::runContext.memory.used, before);
}

}  // namespace

}  // namespace quorvane::customary
