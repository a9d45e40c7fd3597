#include "tools/qvsctl.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace quorvane {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Outcome = DatagramExchange::Outcome;
using namespace std::chrono_literals;

/// A server that answers like the real one.
struct FakeServer {
  bool running = false;
  bool canStart = true;
  bool reachable = true;
  std::vector<std::string> questions;
  std::string host;
  std::uint16_t port = 0;
  std::chrono::milliseconds timeout{};

  std::string answerTo(const std::string& question) {
    if (question == "[>stop]" || question == "[>quit]") running = false;
    if (question == "[>start]" || question == "[>restart]") running = canStart;
    if (question == "[?state]") return running ? "1" : "0";
    if (question == "[?uptime]") return "1 days, 02:00:00";
    if (question == "[?version]") return "1.2.3 (Beta)\x1B";
    return "OK";
  }

  AskServer asker() {
    return [this](const std::string& toHost, std::uint16_t toPort, std::string_view question,
                  std::chrono::milliseconds atMost,
                  const std::function<bool(std::string_view)>& accept) -> DatagramExchange {
      host = toHost;
      port = toPort;
      timeout = atMost;
      questions.emplace_back(question);
      if (!reachable) return {Outcome::Silence, {}};
      const std::string answer = std::string(question) + ':' + answerTo(std::string(question));
      EXPECT_FALSE(accept("[?other]:1")) << "the answer to another question";
      EXPECT_FALSE(accept(""));
      EXPECT_TRUE(accept(answer));
      return {Outcome::Answered, answer};
    };
  }
};

class ControlToolTest : public testing::Test {
 protected:
  ExitCode run(const std::vector<std::string>& arguments) {
    out.str("");
    err.str("");
    return runControlTool(arguments, {server.asker(), check, import, out, err});
  }

  FakeServer server;
  std::vector<std::string> untaken;
  CheckSettings check = [this] { return untaken; };
  std::vector<std::string> imported;
  ImportFile import = [this](const std::string& path) {
    imported.push_back(path);
    return path != "bad.mdb";
  };
  std::ostringstream out;
  std::ostringstream err;
};

TEST_F(ControlToolTest, ImportsAFile) {
  EXPECT_EQ(run({"import", "state"}), ExitCode::Done);
  EXPECT_EQ(run({"import", "bad.mdb"}), ExitCode::Finding);
  EXPECT_THAT(imported, ElementsAre("state", "bad.mdb"));
  EXPECT_EQ(run({"import"}), ExitCode::Usage);
  EXPECT_EQ(run({"import", "a", "b"}), ExitCode::Usage);
  EXPECT_EQ(run({"state", "a"}), ExitCode::Usage);
  EXPECT_THAT(server.questions, ElementsAre());
}

TEST_F(ControlToolTest, StartsAndMakesSure) {
  EXPECT_EQ(run({"start"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "running\n");
  EXPECT_THAT(server.questions, ElementsAre("[>start]", "[?state]"));
  server.canStart = false;
  server.running = false;
  EXPECT_EQ(run({"start"}), ExitCode::Finding);
  EXPECT_THAT(err.str(), HasSubstr("still stopped"));
  EXPECT_EQ(run({"restart"}), ExitCode::Finding);
}

TEST_F(ControlToolTest, StopsRestartsAndQuits) {
  server.running = true;
  EXPECT_EQ(run({"restart"}), ExitCode::Done);
  EXPECT_EQ(run({"stop"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "stopped\n");
  EXPECT_EQ(run({"quit"}), ExitCode::Done);
  EXPECT_THAT(server.questions,
              ElementsAre("[>restart]", "[?state]", "[>stop]", "[?state]", "[>quit]"));
}

TEST_F(ControlToolTest, TellsTheState) {
  EXPECT_EQ(run({"state"}), ExitCode::Finding);
  EXPECT_EQ(out.str(), "stopped\n");
  server.running = true;
  EXPECT_EQ(run({"state"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "running\n");
}

TEST_F(ControlToolTest, TellsTheUptimeOfARunningServerOnly) {
  EXPECT_EQ(run({"uptime"}), ExitCode::Finding);
  EXPECT_EQ(out.str(), "stopped\n");
  EXPECT_THAT(server.questions, ElementsAre("[?state]")) << "no wait for an answer that can't come";
  server.running = true;
  EXPECT_EQ(run({"uptime"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "1 days, 02:00:00\n");
}

TEST_F(ControlToolTest, TellsTheVersionInPrintableCharacters) {
  EXPECT_EQ(run({"version"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "1.2.3 (Beta)?\n");
}

TEST_F(ControlToolTest, AsksWhereItIsTold) {
  EXPECT_EQ(run({"version"}), ExitCode::Done);
  EXPECT_EQ(server.host, "127.0.0.1");
  EXPECT_EQ(server.port, 7008);
  EXPECT_EQ(server.timeout, 5000ms);
  EXPECT_EQ(run({"--host=box", "version", "--port", "9", "--timeout", "0.25"}), ExitCode::Done);
  EXPECT_EQ(server.host, "box");
  EXPECT_EQ(server.port, 9);
  EXPECT_EQ(server.timeout, 250ms);
}

TEST_F(ControlToolTest, WithoutAnAnswerItFails) {
  server.reachable = false;
  for (const char* command : {"start", "stop", "restart", "quit", "state", "uptime", "version"}) {
    EXPECT_EQ(run({command}), ExitCode::Failed) << command;
    EXPECT_EQ(err.str(), "qvsctl: no answer from 127.0.0.1 port 7008\n");
    EXPECT_EQ(out.str(), "");
  }
}

TEST_F(ControlToolTest, ChecksSettingsWithoutAskingTheServer) {
  EXPECT_EQ(run({"check"}), ExitCode::Done);
  EXPECT_EQ(out.str(), "every line of the settings counts\n");
  untaken = {"one", "two\x1b"};
  EXPECT_EQ(run({"check"}), ExitCode::Finding);
  EXPECT_EQ(out.str(), "one\ntwo?\n");
  EXPECT_TRUE(server.questions.empty());
}

TEST_F(ControlToolTest, HelpAndMistakes) {
  EXPECT_EQ(run({"--help"}), ExitCode::Done);
  EXPECT_THAT(out.str(), HasSubstr("qvsctl restart"));
  for (const std::vector<std::string>& wrong :
       std::vector<std::vector<std::string>>{{},
                                             {"sleep"},
                                             {"STATE"},
                                             {"start", "stop"},
                                             {"state", "--port"},
                                             {"state", "--port", "0"},
                                             {"state", "--port=65536"},
                                             {"state", "--port=-1"},
                                             {"state", "--port=7008x"},
                                             {"state", "--timeout=0"},
                                             {"state", "--timeout=nan"},
                                             {"state", "--timeout=3601"},
                                             {"state", "--verbose"}}) {
    EXPECT_EQ(run(wrong), ExitCode::Usage);
    EXPECT_THAT(err.str(), HasSubstr("--help"));
  }
  EXPECT_TRUE(server.questions.empty());
}

}  // namespace

}  // namespace quorvane
