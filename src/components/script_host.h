#pragma once

#include <chrono>
#include <optional>

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
  /// When the program is asked to end and does not wait for what is under way, or not any longer.
  bool mustEnd() override;
  vbs::Value createObject(std::string_view progId) override;
  vbs::Value getObject(std::string_view pathName, std::string_view progId) override;

 private:
  const Services& services_;
  std::optional<std::chrono::steady_clock::time_point>
      ends_;  ///< the program has been asked to end
};

}  // namespace quorvane
