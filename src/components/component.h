#pragma once

#include <span>
#include <string_view>

#include "vbscript/values/value.h"

namespace quorvane {

struct Services;

/// A kind of object that scripts create by name. Each stands in its own files as a constant of
/// this type, and as one row in the lists of
/// allComponents().
struct Component {
  std::string_view progIds;  ///< all its names, in lower case, a blank between two
  vbs::Value (*create)(const Services& services);
  /// Belongs to the page that runs, or to the engine: the system's object of that name could not
  /// take its place.
  bool isOurs = false;
};

/// Those of this system.
std::span<const Component* const> allComponents();

}  // namespace quorvane
