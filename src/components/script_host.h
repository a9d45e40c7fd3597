#pragma once

#include "platform/services.h"
#include "vbscript/values/host.h"

namespace quorvane {

/// The outside of a script: the clock of the services it gets, and the components.
class ScriptHost : public vbs::Host {
 public:
  /// `services` outlive the host.
  explicit ScriptHost(const Services& services) : services_(services) {}

  double now() override;
  double secondsSinceMidnight() override;
  std::chrono::steady_clock::time_point steadyNow() override;
  bool mustEnd() override;
  vbs::Value createObject(std::string_view progId) override;
  /// There are no objects outside the program to be got.
  vbs::Value getObject(std::string_view pathName, std::string_view progId) override;

 private:
  const Services& services_;
};

}  // namespace quorvane
