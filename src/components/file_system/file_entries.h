#pragma once

#include <string>

#include "vbscript/values/value.h"

namespace quorvane {

struct Services;

/// Files and folders as scripts see them. Each holds a full path, and looks at what is there
/// whenever it is asked. `services` outlive what is made.
namespace file_entries {

vbs::Value file(const Services& services, std::string path);
vbs::Value folder(const Services& services, std::string path);

/// A size in bytes, as a number that holds it.
vbs::Value size(std::uint64_t bytes);

}  // namespace file_entries

}  // namespace quorvane
