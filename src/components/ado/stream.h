#pragma once

#include <string>

#include "components/component.h"

namespace quorvane {

/// ADODB.Stream.
extern const Component kStream;

/// A stream as components hand it to scripts: open, binary, at its beginning.
vbs::Value openStream(std::string content, const Services& services);

}  // namespace quorvane
