#include "script/creatable_objects.h"

#include <utility>

void CreatableObjects::offer(std::string progId, Maker make) {
  makers_.put(std::move(progId), std::move(make));
}

std::optional<vbs::Value> CreatableObjects::create(std::string_view progId) const {
  const Maker* make = makers_.find(progId);
  if (!make) return std::nullopt;
  vbs::Value made = (*make)();
  if (!made.isObject() || !made.asObject()) return std::nullopt;
  return made;
}
