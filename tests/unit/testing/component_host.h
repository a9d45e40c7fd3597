#pragma once

#include "components/script_host.h"
#include "testing/fake_services.h"
#include "testing/spelling.h"

namespace quorvane {

/// An outside of scripts with all components on services of a test's. It is 29 February 2024,
/// 13:45:30; the time that a script takes is real. Scripts may use files below "/data", where the
/// current folder is, and "/temporary"; there is "/elsewhere/secret.txt" too. Where there are
/// drives, all of it stands on one.
class ComponentHost : private FakeServices<>, public ScriptHost {
 public:
  ComponentHost() : ScriptHost(services) {
    using namespace std::chrono;
    clock.time = sys_days{2024y / February / 29} + 13h + 45min + 30s;
    files.stamp = clock.time;
    files.addFolder(localPath("/data"));
    files.addFolder(localPath("/temporary"));
    files.put(localPath("/elsewhere/secret.txt"), "secret");
    state.MainPath = localPath("/data/");
    state.ScriptsFolder = localPath("/data");
    state.MailFolder = localPath("/data/mail");
    process.current = localPath("/data");
  }

  std::chrono::steady_clock::time_point steadyNow() override {
    return std::chrono::steady_clock::now();
  }
};

}  // namespace quorvane
