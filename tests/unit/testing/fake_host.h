#pragma once

#include <chrono>
#include <string_view>

#include "vbscript/values/error.h"
#include "vbscript/values/host.h"

namespace quorvane {

/// An outside of scripts where there is nothing but clocks, set by hand.
class FakeHost final : public vbs::Host {
 public:
  double today = 37986.5;  ///< 31 December 2003, noon
  double seconds = 43200.25;
  std::chrono::steady_clock::time_point time{};
  std::chrono::milliseconds step{0};  ///< how far each look at `time` moves it

  double now() override { return today; }
  double secondsSinceMidnight() override { return seconds; }
  std::chrono::steady_clock::time_point steadyNow() override { return time += step; }
  vbs::Value createObject(std::string_view progId) override {
    vbs::throwError(vbs::ErrorCode::CannotCreateObject, progId);
  }
  vbs::Value getObject(std::string_view, std::string_view) override {
    vbs::throwError(vbs::ErrorCode::CannotCreateObject);
  }
};

}  // namespace quorvane
