#pragma once

#include <cstdint>

#include "platform/clock.h"
#include "vbscript/values/host.h"

namespace quorvane {

/// The error with which a translated page ends itself early.
inline constexpr std::int32_t kEndOfPage = 6006;

/// The outside as scripts of pages may reach it.
class PageHost final : public vbs::Host {
 public:
  /// `clock` outlives the host.
  explicit PageHost(const Clock& clock) : clock_(clock) {}

  double now() override;
  double secondsSinceMidnight() override;
  std::chrono::steady_clock::time_point steadyNow() override;
  /// A page ends although the caller of its last procedure traps errors.
  bool canTrap(std::int32_t number) override { return number != kEndOfPage; }
  std::int32_t locale() override { return locale_; }
  void setLocale(std::int32_t id) { locale_ = id; }
  vbs::Value createObject(std::string_view progId) override;
  /// Pages reach no objects outside the server.
  vbs::Value getObject(std::string_view pathName, std::string_view progId) override;

 private:
  const Clock& clock_;
  std::int32_t locale_ = 0;
};

}  // namespace quorvane
