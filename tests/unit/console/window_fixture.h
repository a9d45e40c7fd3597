#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "console/mainForm.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_event_loop.h"
#include "platform/fake/fake_process.h"
#include "platform/fake/fake_random.h"
#include "platform/fake/memory_files.h"
#include "platform/image_library.h"

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

/// Fails as nothing should.
class BrokenImages final : public ImageLibrary {
 public:
  bool render(const std::string&, const std::string&, const ImageRendering&) override {
    throw std::runtime_error("out of luck");
  }
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

  mainFormParts parts() { return {services, loop, form, status, settings}; }

  FakeSocket* connect(const std::string& ip = "127.0.0.1") { return loop.listener->connect(ip); }

  /// What a page with this source writes, to a client that comes for it.
  std::string output(const std::string& source) {
    files.put("/base/Server/Scripts/page.qvs", source);
    FakeSocket* client = connect();
    client->arrive("GET /page.qvs HTTP/1.1\r\nConnection: close\r\n\r\n");
    client->completeSend();
    return client->sent.substr(client->sent.find("\r\n\r\n") + 4);
  }

  /// The numbers in the list of sessions, with their marks.
  std::vector<std::string> sessions() {
    loop.timer(std::chrono::milliseconds(1'000))->tick();
    const auto& list = window.form().llist[FormModel::kSessions].lines();
    return {list.begin(), list.end()};
  }

  void tickSlowTimers() {
    for (FakeTimer* timer : std::vector(loop.timers)) {
      if (timer->interval == std::chrono::seconds(30)) timer->tick();
    }
  }

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
  FakeProcess process;
  BrokenImages images;
  FormModel form;
  StatusLists status{state, clock, form};
  Services services{state, status, clock, files, random, process, &images};
  mainForm window{parts()};
};

}  // namespace quorvane
