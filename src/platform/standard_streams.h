#pragma once

#include <cstddef>
#include <string_view>

namespace quorvane {

/// What the program says to whoever started it.
enum class StandardStream { Output, Error };

/// Writes what is taken at once and never waits: a frozen terminal and a pipe that nobody empties
/// take nothing. The number of bytes that are done with, which are all of them when nobody will
/// ever read them.
std::size_t writeAtOnce(StandardStream stream, std::string_view bytes);

/// Has what the C library writes to standard output gathered where it would hand on byte by byte.
/// Before anything is written there. Whether somebody may be watching to whom only a flush shows
/// what was written: nothing else does it before the end.
bool gatherStandardOutput();

}  // namespace quorvane
