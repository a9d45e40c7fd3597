#include "script/objects/request_values.h"

#include <array>
#include <cstdint>

#include "script/script_values.h"
#include "vbscript/values/value_walk.h"

namespace quorvane {

std::unique_ptr<vbs::Enumerator> RequestValues::enumerate() {
  return std::make_unique<vbs::ValueWalk>(values_);
}

std::span<const vbs::Member<RequestValues>> RequestValues::members() {
  using Self = RequestValues;
  static constexpr std::array<vbs::Member<Self>, 2> kMembers{{
      {"item", 0, 1, &Self::getItem, nullptr, true},
      {"count", 0, 0, &Self::getCount},
  }};
  return kMembers;
}

vbs::Value RequestValues::getItem(vbs::Args args) {
  if (!script_values::hasArgument(args, 0)) return plain_;
  return values_[script_values::place(args[0], values_.size())];
}

vbs::Value RequestValues::getCount(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(values_.size()));
}

}  // namespace quorvane
