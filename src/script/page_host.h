#pragma once

#include "platform/clock.h"
#include "vbscript/host.h"

/// The outside as scripts of pages may reach it.
class PageHost final : public vbs::Host {
 public:
  /// `clock` outlives the host.
  explicit PageHost(const Clock& clock) : clock_(clock) {}

  double now() override;
  double secondsSinceMidnight() override;
  std::chrono::steady_clock::time_point steadyNow() override;
  vbs::Value createObject(std::string_view progId) override;
  /// Pages reach no objects outside the server.
  vbs::Value getObject(std::string_view pathName, std::string_view progId) override;

 private:
  const Clock& clock_;
};
