#pragma once

#include "vbscript/values/host.h"

namespace quorvane::qvscript {

/// The outside of a script run from the command line: the system's clocks and the components that
/// need no server.
class ConsoleHost final : public vbs::Host {
 public:
  double now() override;
  double secondsSinceMidnight() override;
  std::chrono::steady_clock::time_point steadyNow() override;
  vbs::Value createObject(std::string_view progId) override;
  vbs::Value getObject(std::string_view pathName, std::string_view progId) override;
};

}  // namespace quorvane::qvscript
