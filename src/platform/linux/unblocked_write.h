#pragma once

#include <cstddef>
#include <string_view>

namespace quorvane {

/// Writes what `descriptor` takes at once. Whatever made it non-blocking for good would do so for
/// every program that shares it, so it is non-blocking for the moment of each write. The number of
/// bytes that are done with: written, or never to be written.
std::size_t writeUnblocked(int descriptor, std::string_view bytes);

/// The same, waiting up to `milliseconds` in all for a reader to make room.
void writePatiently(int descriptor, std::string_view bytes, int milliseconds);

}  // namespace quorvane
