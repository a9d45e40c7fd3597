#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// The target of a request by RFC 9112: where on this server it leads.
struct StandardTarget {
  /// Decoded once, with its dot segments followed and no two "/" in a row. It has no control
  /// character, no backslash and no "/" that was encoded. "*" for the server as a whole.
  std::string path;
  std::string_view query;
  bool hasQuery = false;
  std::string_view authority;  ///< of a target in absolute form; else empty
  std::string_view origin;     ///< path and query as they came; empty for an absolute target's ""

  bool isAsterisk() const { return path == "*"; }

  /// Nothing for what is no target, or leads out of the document root. The views are of `text`.
  static std::optional<StandardTarget> read(std::string_view text);
};

}  // namespace quorvane
