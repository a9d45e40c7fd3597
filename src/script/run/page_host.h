#pragma once

#include <cstdint>

#include "components/script_host.h"

namespace quorvane {

/// The error with which a translated page ends itself early.
inline constexpr std::int32_t kEndOfPage = 6006;

/// The outside as scripts of pages may reach it.
class PageHost final : public ScriptHost {
 public:
  using ScriptHost::ScriptHost;

  /// A page ends although the caller of its last procedure traps errors.
  bool canTrap(std::int32_t number) override { return number != kEndOfPage; }
  std::int32_t locale() override { return locale_; }
  void setLocale(std::int32_t id) { locale_ = id; }

 private:
  std::int32_t locale_ = 0;
};

}  // namespace quorvane
