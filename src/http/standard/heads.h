#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "http/response_heads.h"

namespace quorvane {

/// Heads by RFC 9110 and 9112: lines of pages stand in them as far as they are header lines and not
/// the server's own to say, and what is sent in parts tells its end.
class StandardHeads final : public ResponseHeads {
 public:
  using ResponseHeads::ResponseHeads;

  std::string ordinary(const Ordinary& head) override;
  std::string flushed(std::int32_t sessionNumber, std::string_view extraHeaders, Framing framing,
                      bool keepAlive) override;
  std::string ofPage(std::string_view status, std::string_view pageLines,
                     std::uint64_t contentLength, bool keepAlive) override;
  std::string ofFlushedPage(std::string_view status, std::string_view pageLines, Framing framing,
                            bool keepAlive) override;
};

}  // namespace quorvane
