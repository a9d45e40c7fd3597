#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "vbscript/values/value.h"

namespace quorvane {

struct Services;

/// A kind of object that scripts create by name. Each stands in its own files as a constant of
/// this type, and as one row in a list of component_list.cpp or mail_components.cpp.
struct Component {
  std::string_view progIds;  ///< all its names, in lower case, a blank between two
  vbs::Value (*create)(const Services& services);
  /// Belongs to the page that runs, or to the engine: the system's object of that name could not
  /// take its place.
  bool isOurs = false;
};

/// Those of this system.
std::vector<const Component*> allComponents();

/// Those for mail, which allComponents() has too.
std::span<const Component* const> mailComponents();

}  // namespace quorvane
