#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "http/answer_stream.h"
#include "http/http_date.h"
#include "http/status.h"

namespace quorvane {

struct ServerState;

/// Writes the heads of all answers. Each kind has an order of lines of its own, which clients and
/// their users have come to know. A line that is to stand in every head is added where heads are
/// finished.
class ResponseHeads {
 public:
  /// Both outlive the object.
  ResponseHeads(const ServerState& state, const Clock& clock);
  virtual ~ResponseHeads() = default;
  ResponseHeads(const ResponseHeads&) = delete;
  ResponseHeads& operator=(const ResponseHeads&) = delete;

  /// What the head of an ordinary answer says beside what all say. Views last as long as their
  /// sources do.
  struct Ordinary {
    Status status = Status::Ok;
    std::uint64_t contentLength = 0;  ///< bytes, whether the body is sent or not
    bool hasRanges = true;            ///< of which a client may ask for some
    std::string_view extraHeaders;    ///< lines separated by CR LF, or empty
    std::string_view contentType;     ///< written unless the extra headers bring one
    std::string_view lastModified;    ///< date text; empty writes no line
    bool keepAlive = false;
    std::string_view cacheControl;   ///< empty writes no line
    std::int32_t sessionNumber = 0;  ///< cookie line when above 0
    std::string_view cookieLines;    ///< whole lines separated by CR LF, or empty
  };
  virtual std::string ordinary(const Ordinary& head);

  /// Of an answer whose lines, separated by CR LF, are all the server's own. It has no length when
  /// the status has no body.
  std::string own(Status status, std::string_view lines, std::uint64_t contentLength,
                  bool keepAlive);

  /// Of an error's page. The date stands bare, without its name.
  std::string error(Status status, std::size_t contentLength);

  /// Of a page that flushes its first part; the end of the connection ends the body, however it
  /// is asked to be framed.
  virtual std::string flushed(std::int32_t sessionNumber, std::string_view extraHeaders,
                              Framing framing, bool keepAlive);

  /// Of a page that answers with a status and lines of its own, without a length when the status
  /// has no body. What it says itself of the connection and the length doesn't count.
  virtual std::string ofPage(std::string_view status, std::string_view pageLines,
                             std::uint64_t contentLength, bool keepAlive);

  /// The same of a page that sends its first part. The end of the connection ends the body, however
  /// it is asked to be framed; the page may announce its length.
  virtual std::string ofFlushedPage(std::string_view status, std::string_view pageLines,
                                    Framing framing, bool keepAlive);

  /// Lines by which a client finds an answer's end, and those that only the server can know. A page
  /// with others would make the client take the next answer for a piece of this one. Where no other
  /// follows a page may announce its length, which stands first here.
  static constexpr std::array<std::string_view, 5> kFraming{"content-length", "transfer-encoding",
                                                            "connection", "server", "date"};

  /// Whether answers of that status end with their head.
  static bool isBodyless(std::string_view status);

  /// The word to a client that waits before it sends a body.
  static std::string goOn();

  HttpDates& dates() { return dates_; }

 protected:
  const std::string serverName_;
  HttpDates dates_;
};

}  // namespace quorvane
