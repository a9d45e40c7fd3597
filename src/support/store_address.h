#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// Where a Redis server is found.
struct StoreAddress {
  std::string host;  ///< name or address; empty with a path
  std::uint16_t port = 6379;
  std::string path;  ///< of the file by which programs of the same machine connect
  std::string user;
  std::string password;  ///< empty: none is asked for
  std::int32_t database = 0;

  /// "redis://[[user]:password@]host[:port][/database]" or "unix:/path". Nothing for other texts.
  static std::optional<StoreAddress> of(std::string_view text);
};

}  // namespace quorvane
