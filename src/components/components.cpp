#include "components/components.h"

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "automation/system_objects.h"
#include "components/component.h"
#include "platform/services.h"
#include "support/text.h"

namespace quorvane {

namespace {

using Names = std::unordered_map<std::string_view, const Component*>;

Names allNames() {
  Names names;
  for (const Component* component : allComponents()) {
    for (const std::string_view name : split(component->progIds, ' ')) {
      VBS_ASSERT(!names.contains(name) && lowerCase(name) == name);
      names[name] = component;
    }
  }
  return names;
}

const Component* componentOf(std::string_view lowerName) {
  static const Names names = allNames();
  const auto found = names.find(lowerName);
  return found == names.end() ? nullptr : found->second;
}

std::string_view withoutVersion(std::string_view progId) {
  for (;;) {
    const std::size_t end = progId.find_last_not_of("0123456789");
    if (end == progId.npos || end + 1 == progId.size() || progId[end] != '.') return progId;
    progId = progId.substr(0, end);
  }
}

/// Null when there is none.
const Component* findComponent(std::string_view progId) {
  const std::string lowerName = lowerCase(progId);
  const Component* component = componentOf(lowerName);
  return component ? component : componentOf(withoutVersion(lowerName));
}

}  // namespace

bool isComponent(std::string_view progId) {
  return findComponent(progId) != nullptr || automation::hasClass(progId);
}

std::vector<std::string_view> componentNames() {
  std::vector<std::string_view> names;
  for (const Component* component : allComponents()) {
    for (const std::string_view name : split(component->progIds, ' ')) names.push_back(name);
  }
  return names;
}

vbs::Value createComponent(std::string_view progId, const Services& services) {
  const ComponentSource source = services.state.Components;
  if (source == ComponentSource::None) {
    vbs::throwError(vbs::ErrorCode::CannotCreateObject, progId);
  }
  const Component* own = findComponent(progId);
  const bool ownFirst = own && (own->isOurs || source == ComponentSource::Own);
  if (!ownFirst) {
    if (auto made = automation::createObject(progId)) return *std::move(made);
  }
  return createOwnComponent(progId, services);
}

vbs::Value createOwnComponent(std::string_view progId, const Services& services) {
  const Component* component = findComponent(progId);
  if (!component) vbs::throwError(vbs::ErrorCode::CannotCreateObject, progId);
  return component->create(services);
}

vbs::Value getSystemObject(std::string_view pathName, std::string_view progId,
                           const Services& services) {
  if (services.state.Components == ComponentSource::None) {
    vbs::throwError(vbs::ErrorCode::CannotCreateObject);
  }
  return automation::getObject(pathName, progId);
}

std::optional<ComponentSource> componentSourceOf(std::string_view text) {
  if (text == "system") return ComponentSource::System;
  if (text == "own") return ComponentSource::Own;
  if (text == "none") return ComponentSource::None;
  return std::nullopt;
}

}  // namespace quorvane
