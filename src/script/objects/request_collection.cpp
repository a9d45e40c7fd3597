#include "script/objects/request_collection.h"

#include <array>
#include <cstdint>

#include "script/script_values.h"
#include "vbscript/values/value_walk.h"

namespace quorvane {

std::unique_ptr<vbs::Enumerator> RequestCollection::enumerate() {
  std::vector<vbs::Value> names;
  for (const std::string& name : names_) names.emplace_back(std::string_view(name));
  return std::make_unique<vbs::ValueWalk>(std::move(names));
}

std::size_t RequestCollection::bytes() const {
  std::size_t bytes = sizeof *this;
  for (const std::string& name : names_) bytes += sizeof(std::string) + name.size();
  return bytes;
}

std::span<const vbs::Member<RequestCollection>> RequestCollection::members() {
  using Self = RequestCollection;
  static constexpr std::array<vbs::Member<Self>, 3> kMembers{{
      {"item", 0, 1, &Self::getItem, nullptr, true},
      {"count", 0, 0, &Self::getCount},
      {"key", 1, 1, &Self::getKey},
  }};
  return kMembers;
}

/// By name or, unlike the member itself, by number.
vbs::Value RequestCollection::getItem(vbs::Args args) {
  if (!script_values::hasArgument(args, 0) || args[0].deref().isString()) {
    return (*request_.*item_)(args);
  }
  vbs::Value name = getKey(args);
  return (*request_.*item_)({&name, 1});
}

vbs::Value RequestCollection::getKey(vbs::Args args) {
  return vbs::Value(std::string_view(names_[script_values::place(args[0], names_.size())]));
}

vbs::Value RequestCollection::getCount(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(names_.size()));
}

}  // namespace quorvane
