#pragma once

#include <string_view>

#include "vbscript/values/value.h"

namespace quorvane {

struct Services;

/// A kind of object that scripts create by name. Each stands in its own files as a constant of
/// this type, and as one row in the list of components.cpp.
struct Component {
  std::string_view progIds;  ///< all its names, in lower case, a blank between two
  vbs::Value (*create)(const Services& services);
};

}  // namespace quorvane
