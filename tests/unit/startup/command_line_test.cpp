#include "startup/command_line.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

std::string answer(const char* line) {
  return answerAbout(CommandLine(line), "1.2.3 (Beta)").value_or("nothing");
}

TEST(CommandLineTest, AnswersAQuestionThatStandsAlone) {
  EXPECT_EQ(answer("--version"), "Quorvane Server 1.2.3 (Beta)\n");
  EXPECT_TRUE(answer("--help").starts_with("Quorvane Server 1.2.3 (Beta) - "));
  EXPECT_EQ(answer("/?"), answer("--help"));
}

TEST(CommandLineTest, EverythingElseStartsSomething) {
  for (const char* line : {"", " ", "/debug", "/debug --help", "--version /idle", "--helpful"}) {
    EXPECT_EQ(answer(line), "nothing") << line;
  }
}

}  // namespace

}  // namespace quorvane
