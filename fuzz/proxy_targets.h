#pragma once

#include <string_view>

namespace quorvane {

/// Any bytes as what is said of a client: the beginning of a connection, the lines of a head in
/// front of one that a proxy adds, addresses. Ends the process when a client could name itself, or
/// a text means something else when it is read again.
void fuzzProxies(std::string_view bytes);

}  // namespace quorvane
