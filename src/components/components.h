#pragma once

#include <string_view>
#include <vector>

#include "vbscript/values/value.h"

namespace quorvane {

struct Services;

/// The object that CreateObject makes for a program identifier, in any letter case. A version at
/// its end ("ADODB.Connection.2.8") is passed over unless it has an object of its own. Error 429
/// for one that is not known. `services` outlive what is made.
vbs::Value createComponent(std::string_view progId, const Services& services);

/// Whether there is such an object.
bool isComponent(std::string_view progId);

/// All of them, in lower case.
std::vector<std::string_view> componentNames();

}  // namespace quorvane
