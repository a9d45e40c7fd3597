#pragma once

#include <string>
#include <string_view>

#include "vbscript/values/value.h"

namespace quorvane {

struct Services;

/// Drives as scripts see them. Where the system has none, everything is on one called "C:".
namespace drives {

/// "c:" of a path that begins so; of other absolute paths the one drive, where there is one only.
std::string nameOf(std::string_view path);

/// By a letter, "c:", "c:\\" or any path on it. Error 5 for what is none, 68 when it is not there.
vbs::Value drive(const Services& services, std::string_view name);
bool exists(const Services& services, std::string_view name);

/// The collection of all that are there.
vbs::Value all(const Services& services);

}  // namespace drives

}  // namespace quorvane
