#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "http/http_date.h"

namespace quorvane {

struct ServerState;

enum class Status { Continue, Ok, PartialContent, BadRequest, NotFound };

/// Writes the heads of all answers. Each kind has an order of lines of its own, which clients and
/// their users have come to know. A line that is to stand in every head is added where heads are
/// finished.
class ResponseHeads {
 public:
  /// Both outlive the object.
  ResponseHeads(const ServerState& state, const Clock& clock);

  /// What the head of an ordinary answer says beside what all say. Views last as long as their
  /// sources do.
  struct Ordinary {
    Status status = Status::Ok;
    std::uint64_t contentLength = 0;  ///< bytes, whether the body is sent or not
    std::string_view extraHeaders;    ///< lines separated by CR LF, or empty
    std::string_view contentType;     ///< written unless the extra headers bring one
    std::string_view lastModified;    ///< date text; empty writes no line
    bool keepAlive = false;
    std::string_view cacheControl;   ///< empty writes no line
    std::int32_t sessionNumber = 0;  ///< cookie line when above 0
    std::string_view cookieLines;    ///< whole lines separated by CR LF, or empty
  };
  std::string ordinary(const Ordinary& head);

  /// Of an error's page. The date stands bare, without its name.
  std::string error(Status status, std::size_t contentLength);

  /// Of a page that flushes its first part; the end of the connection ends the body.
  std::string flushed(std::int32_t sessionNumber, std::string_view extraHeaders);

  /// The word to a client that waits before it sends a body.
  static std::string goOn();

  HttpDates& dates() { return dates_; }

 private:
  const std::string serverName_;
  HttpDates dates_;
};

}  // namespace quorvane
