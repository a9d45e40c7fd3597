#include "script/request_collection.h"

#include <array>
#include <cstdint>

#include "vbscript/value_walk.h"

std::unique_ptr<vbs::Enumerator> RequestCollection::enumerate() {
  std::vector<vbs::Value> names;
  for (const std::string& name : names_) names.emplace_back(std::string_view(name));
  return std::make_unique<vbs::ValueWalk>(std::move(names));
}

std::span<const vbs::Member<RequestCollection>> RequestCollection::members() {
  using Self = RequestCollection;
  static constexpr std::array<vbs::Member<Self>, 2> kMembers{{
      {"item", 1, 1, &Self::getItem, nullptr, true},
      {"count", 0, 0, &Self::getCount},
  }};
  return kMembers;
}

vbs::Value RequestCollection::getItem(vbs::Args args) {
  return (*request_.*item_)(args);
}

vbs::Value RequestCollection::getCount(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(names_.size()));
}
