#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "console/mainForm.h"
#include "http/clsHTTPParser.h"
#include "http/script_pages.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_event_loop.h"
#include "platform/fake/fake_random.h"
#include "platform/fake/memory_files.h"

namespace quorvane {

/// Settings that a test writes into `next`; a load takes them over.
class FakeSettings final : public ServerSettings {
 public:
  explicit FakeSettings(ServerState& state) : state_(state) {}

  void LoadSettings() override {
    ++loads;
    if (onLoad) onLoad(state_);
  }
  std::string userLanguage() const override { return language; }

  std::function<void(ServerState&)> onLoad;
  std::string language;
  int loads = 0;

 private:
  ServerState& state_;
};

/// What every script side made in a test tells and is told; outlives them.
struct ScriptStage {
  int alive = 0;
  int made = 0;
  int sessionsExpired = 0;
  int keysExpired = 0;
  int keysForgotten = 0;
  std::vector<std::pair<std::int32_t, bool>> sessions;
  std::function<ScriptPageResult(const ScriptPageRequest&, PageEvents&)> onRun;
  PageEvents* events = nullptr;
  const LanguageTexts* texts = nullptr;
};

class FakeScriptSide final : public ScriptSide, private ScriptPages {
 public:
  FakeScriptSide(ScriptStage& stage, const ScriptSideParts& parts) : stage_(stage) {
    ++stage_.alive;
    ++stage_.made;
    stage_.events = &parts.events;
    stage_.texts = &parts.texts;
  }
  FakeScriptSide(const FakeScriptSide&) = delete;
  FakeScriptSide& operator=(const FakeScriptSide&) = delete;
  ~FakeScriptSide() override { --stage_.alive; }

  ScriptPages& pages() override { return *this; }
  void expireSessions() override { ++stage_.sessionsExpired; }
  void expireKeys() override { ++stage_.keysExpired; }
  void forgetKeys() override { ++stage_.keysForgotten; }
  void forEachSession(const SessionVisitor& visit) const override {
    for (const auto& [number, outOfDate] : stage_.sessions) visit(number, outOfDate);
  }

 private:
  ScriptPageResult run(const ScriptPageRequest& request) override {
    return stage_.onRun ? stage_.onRun(request, *stage_.events) : ScriptPageResult{};
  }

  ScriptStage& stage_;
};

/// A server window on fakes: the test plays the network, the clock and the settings.
class WindowTest : public testing::Test {
 protected:
  WindowTest() {
    state.AppVersion = "1.2.3";
    state.MainPath = "/base/";
    state.ScriptsFolder = "/base/Server/Scripts";
    state.CacheFolder = "/base/Server/Cache";
    state.LogsFolder = "/base/Server/Logs";
    state.DebugMode = true;
    files.addFolder("/base/Server/Scripts");
  }

  mainFormParts parts() {
    return {state,
            loop,
            clock,
            files,
            random,
            settings,
            [this](const ScriptSideParts& side) {
              return std::make_unique<FakeScriptSide>(stage, side);
            },
            nullptr};
  }

  FakeSocket* connect(const std::string& ip = "127.0.0.1") { return loop.listener->connect(ip); }

  /// The status lines without their time stamps.
  std::vector<std::string> lines() {
    std::vector<std::string> texts;
    for (const auto& line : window.form().llist[FormModel::kStatus].lines()) {
      texts.push_back(line.substr(9));
    }
    return texts;
  }
  std::string lastLine() {
    const auto all = lines();
    return all.empty() ? "" : all.back();
  }
  void forgetLines() { window.form().llist[FormModel::kStatus].clear(); }

  ServerState state;
  FakeEventLoop loop;
  FakeClock clock;
  MemoryFiles files;
  CountingRandom random;
  FakeSettings settings{state};
  ScriptStage stage;
  mainForm window{parts()};
};

}  // namespace quorvane
