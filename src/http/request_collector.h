#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "http/request_head.h"
#include "http/standard/chunked_body.h"
#include "http/status.h"

namespace quorvane {

/// What else a slot holds under standard HTTP, where requests may follow each other at once.
struct RequestRest {
  std::string next;                   ///< what came behind the request
  std::optional<ChunkedBody> chunks;  ///< of a body whose data stand behind the head by now
};

/// Receive state of one slot. Reset for every new connection.
struct SlotRecord {
  std::string pendingText;              ///< request text received and not yet handled
  std::int32_t expectedBodyLength = 0;  ///< announced length of a POST body; 0 while not known

  std::size_t searched = 0;   ///< no header block ends before this place of `pendingText`
  std::size_t bodyStart = 0;  ///< where the body begins; 0 while the header block is incomplete
  bool isWhole = false;       ///< the request is complete and waits for its turn

  std::unique_ptr<RequestRest> rest;  ///< null mostly

  /// Whether the next request may be there already.
  bool hasNext() const { return rest && !rest->next.empty(); }

  std::size_t heldBytes() const { return pendingText.size() + (rest ? rest->next.size() : 0); }

  /// Empties the record and gives its memory back.
  void reset() {
    if (pendingText.capacity() > std::string().capacity()) std::string().swap(pendingText);
    pendingText.clear();
    expectedBodyLength = 0;
    searched = bodyStart = 0;
    isWhole = false;
    rest.reset();
  }
};

/// Puts a request together from the pieces in which it arrives. Work is linear in the bytes: no
/// piece is searched or copied again when the next one comes.
namespace request_collector {

inline constexpr std::size_t kMostHeaderBytes = std::size_t{1} << 20;
inline constexpr std::int32_t kMostBodyBytes = std::int32_t{256} << 20;

enum class Outcome {
  NeedMore,
  TellToGoOn,  ///< more is needed, and the client waits for a word before it sends the body
  Complete,
  TooLarge,  ///< over one of the bounds; the result holds what has come so far
  Refused,   ///< no request by the standard, see `refusal`; the result holds the same
};

struct Collected {
  Outcome outcome = Outcome::NeedMore;
  std::string storage;      ///< the request when it came in several pieces
  std::string_view direct;  ///< the request when `data` held it whole; lasts as long as `data`
  RequestClass requestClass = RequestClass::Other;
  std::size_t bodyStart = 0;  ///< 0 without a whole head
  Status refusal = Status::BadRequest;

  std::string_view request() const { return direct.empty() ? storage : direct; }
};

/// Takes the next piece of a slot. A piece that begins with a known method and a blank starts a
/// new request and discards an unfinished one. Unless more is needed, the record is empty again
/// afterwards.
Collected collect(SlotRecord& record, std::string_view data);

}  // namespace request_collector

}  // namespace quorvane
