#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace quorvane {

/// Short-lived keys that pages hand out and check. A key stays valid until a sweep finds it past
/// its time; checking does not use it up. Keys compare without regard to letter case.
class AuthKeys {
 public:
  static constexpr std::size_t kKeyLength = 32;

  virtual ~AuthKeys() = default;

  /// A new key: 32 upper-case hexadecimal digits.
  virtual std::string issue(std::chrono::minutes lifetime) = 0;

  virtual bool validate(std::string_view key) = 0;

  /// Removes the keys whose time lies before now.
  virtual void expire() = 0;

  /// The server has been started: keys of this process alone are lost.
  virtual void clear() = 0;
};

}  // namespace quorvane
