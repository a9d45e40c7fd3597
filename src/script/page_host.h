#pragma once

#include "platform/clock.h"
#include "vbscript/host.h"

class CreatableObjects;

/// The outside as scripts of pages may reach it.
class PageHost final : public vbs::Host {
 public:
  /// Both outlive the host.
  PageHost(const Clock& clock, const CreatableObjects& creatable)
      : clock_(clock), creatable_(creatable) {}

  double now() override;
  double secondsSinceMidnight() override;
  std::chrono::steady_clock::time_point steadyNow() override;
  vbs::Value createObject(std::string_view progId) override;
  /// Pages reach no objects outside the server.
  vbs::Value getObject(std::string_view pathName, std::string_view progId) override;

 private:
  const Clock& clock_;
  const CreatableObjects& creatable_;
};
