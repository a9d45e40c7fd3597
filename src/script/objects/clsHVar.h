#pragma once

#include <array>
#include <string>
#include <string_view>

#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"

namespace quorvane {

/// One header line of the request, as `Server.HeaderVar` gives it.
class clsHVar final : public vbs::NativeObject<clsHVar> {
 public:
  clsHVar(std::string name, std::string value)
      : name_(std::move(name)),
        value_(std::move(value)),
        charge_(sizeof *this + name_.size() + value_.size()) {}

  std::string_view typeName() const override { return "clsHVar"; }

  static std::span<const vbs::Member<clsHVar>> members() {
    static constexpr std::array<vbs::Member<clsHVar>, 2> kMembers{{
        {"name", 0, 0, &clsHVar::getName},
        {"value", 0, 0, &clsHVar::getValue, nullptr, true},
    }};
    return kMembers;
  }

 private:
  vbs::Value getName(vbs::Args) { return vbs::Value(std::string_view(name_)); }
  vbs::Value getValue(vbs::Args) { return vbs::Value(std::string_view(value_)); }

  std::string name_;
  std::string value_;
  vbs::MemoryCharge charge_;  ///< pages may hold many
};

}  // namespace quorvane
