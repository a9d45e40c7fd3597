#pragma once

#include "components/script_host.h"
#include "testing/fake_services.h"

namespace quorvane {

/// An outside of scripts with all components on services of a test's. It is 29 February 2024,
/// 13:45:30; the time that a script takes is real. Scripts may use files below "/data", where the
/// current folder is, and "/temporary"; there is "/elsewhere/secret.txt" too.
class ComponentHost : private FakeServices<>, public ScriptHost {
 public:
  ComponentHost() : ScriptHost(services) {
    using namespace std::chrono;
    clock.time = sys_days{2024y / February / 29} + 13h + 45min + 30s;
    files.stamp = clock.time;
    files.addFolder("/data");
    files.addFolder("/temporary");
    files.put("/elsewhere/secret.txt", "secret");
    state.Components = ComponentSource::Own;
    state.MainPath = "/data/";
    state.ScriptsFolder = "/data";
    state.MailFolder = "/data/mail";
    process.current = "/data";
  }

  std::chrono::steady_clock::time_point steadyNow() override {
    return std::chrono::steady_clock::now();
  }
};

}  // namespace quorvane
