#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "http/response.h"

namespace quorvane {

class ResponseHeads;

/// How the client finds the end of an answer that is sent in parts.
enum class Framing : std::uint8_t {
  UntilClose,  ///< where the connection ends
  Chunked,     ///< each part says its length
  NoBody,      ///< it has only a head
};

/// The answer of a page that sends it in parts while it runs, as it goes on the wire.
class AnswerStream {
 public:
  /// `heads` outlives the stream. A connection that tells the end can't be kept.
  AnswerStream(ResponseHeads& heads, Framing framing, bool keepAlive)
      : heads_(heads), framing_(framing), keepAlive_(keepAlive && framing != Framing::UntilClose) {}

  /// The head and the first part, with the header lines that the page brings: in the server's own
  /// dialect, and of a page that says its status itself.
  std::string begin(std::int32_t sessionNumber, std::string_view pageLines, std::string data);
  std::string begin(std::string_view status, std::string_view pageLines, std::string data);

  /// A further part; may be empty.
  std::string more(std::string data) const;

  /// What is left to send when the page has ended.
  Response end(std::string rest) const;

 private:
  ResponseHeads& heads_;
  Framing framing_;
  bool keepAlive_;
};

}  // namespace quorvane
