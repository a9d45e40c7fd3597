#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {

/// What the header block of an ordinary response says. The order of its lines is fixed. Views last
/// as long as their sources do.
struct ResponseHead {
  bool partial = false;
  std::uint64_t contentLength = 0;  ///< bytes, whether the body is sent or not
  std::string_view server;
  std::string_view extraHeaders;  ///< lines separated by CR LF, or empty
  std::string_view contentType;   ///< written unless the extra headers bring one
  std::string_view lastModified;  ///< date text; empty writes no line
  bool keepAlive = false;
  std::string_view cacheControl;   ///< empty writes no line
  std::int32_t sessionNumber = 0;  ///< cookie line when above 0
  std::string_view cookieLines;    ///< whole lines separated by CR LF, or empty
  std::string_view date;

  /// The header block with the blank line that ends it.
  std::string text() const;
};

}  // namespace quorvane
