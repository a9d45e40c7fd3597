#pragma once

#include <string>
#include <string_view>

namespace quorvane {

struct ServerState;

/// The small rules of serving: which files may be served at all, and which of them compressed.

/// Whether the extension is one of those that are served; all others are refused, whatever stands
/// on the disk.
bool isAllowedExtension(std::string_view path);

/// Whether a static file is answered compressed to clients that accept it.
bool isGzipEligible(std::string_view path, const ServerState& state);

/// Whether the pictures' parameters apply.
bool isResizableImage(std::string_view path);

/// The value of the "Server" header line.
std::string serverName(const ServerState& state);

}  // namespace quorvane
