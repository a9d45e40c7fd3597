#include "http/request_collector.h"

#include <algorithm>
#include <utility>

namespace quorvane {

namespace request_collector {
namespace {

constexpr std::size_t kBlankLine = 4;  ///< bytes

/// Looks for the end of the head and notes in the record how far it has looked.
Outcome examineHead(SlotRecord& record, std::string_view request) {
  record.bodyStart = request_text::bodyStart(request, record.searched);
  if (record.bodyStart > kMostHeaderBytes + kBlankLine) return Outcome::TooLarge;
  if (record.bodyStart > 0) return Outcome::Complete;
  if (request.size() > kMostHeaderBytes) return Outcome::TooLarge;
  record.searched = request.size() - std::min(request.size(), kBlankLine - 1);
  return Outcome::NeedMore;
}

/// Looks at the request received so far.
Outcome examine(SlotRecord& record, std::string_view request, RequestClass requestClass) {
  const bool headIsNew = record.bodyStart == 0;
  if (headIsNew) {
    const Outcome head = examineHead(record, request);
    if (head != Outcome::Complete) return head;
  }
  if (requestClass != RequestClass::Post) return Outcome::Complete;
  if (record.expectedBodyLength == 0) {
    record.expectedBodyLength = request_text::announcedLength(request);
  }
  if (record.expectedBodyLength > kMostBodyBytes) return Outcome::TooLarge;
  const auto received = static_cast<std::int64_t>(request.size() - record.bodyStart);
  if (received >= record.expectedBodyLength) return Outcome::Complete;
  const bool clientWaits =
      headIsNew && request_text::waitsToGoOn(request.substr(0, record.bodyStart));
  return clientWaits ? Outcome::TellToGoOn : Outcome::NeedMore;
}

}  // namespace

Collected collect(SlotRecord& record, std::string_view data) {
  Collected result;
  result.requestClass = request_text::classOf(data);
  if (result.requestClass != RequestClass::Other) record.reset();
  const bool continues = !record.pendingText.empty();
  if (continues) record.pendingText += data;
  const std::string_view request = continues ? std::string_view(record.pendingText) : data;
  if (request.empty()) return result;

  if (continues) result.requestClass = request_text::classOf(request);
  result.outcome = examine(record, request, result.requestClass);
  if (result.outcome == Outcome::NeedMore || result.outcome == Outcome::TellToGoOn) {
    if (!continues) record.pendingText = data;
    return result;
  }
  result.bodyStart = record.bodyStart;
  if (continues) {
    result.storage = std::move(record.pendingText);
  } else {
    result.direct = data;
  }
  record.reset();
  return result;
}

}  // namespace request_collector

}  // namespace quorvane
