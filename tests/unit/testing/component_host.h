#pragma once

#include "components/script_host.h"
#include "testing/fake_services.h"

namespace quorvane {

/// An outside of scripts with all components on services of a test's. It is 29 February 2024,
/// 13:45:30; the time that a script takes is real.
class ComponentHost final : private FakeServices<>, public ScriptHost {
 public:
  ComponentHost() : ScriptHost(services) {
    using namespace std::chrono;
    clock.time = sys_days{2024y / February / 29} + 13h + 45min + 30s;
  }

  std::chrono::steady_clock::time_point steadyNow() override {
    return std::chrono::steady_clock::now();
  }
};

}  // namespace quorvane
