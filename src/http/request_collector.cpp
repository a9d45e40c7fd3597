#include "http/request_collector.h"

#include <limits>
#include <utility>

#include "http/serverMod.h"
#include "support/text.h"

namespace quorvane {

namespace request_collector {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;
constexpr std::string_view kBlankLine = "\r\n\r\n";
constexpr std::string_view kLengthName = "content-length: ";
constexpr std::string_view kExpectation = "\r\nexpect: 100-continue\r\n";

/// The announced body length of a request; 0 when none is announced in numbers. A number too large
/// for 32 bits counts as the largest.
std::int32_t announcedLength(std::string_view request) {
  const std::size_t found = findNoCase(request, kLengthName);
  if (found == kNowhere) return 0;
  const std::size_t start = found + kLengthName.size();
  const std::string_view text = request.substr(start, request.find("\r\n", start) - start);
  if (const auto length = numericLong(text)) return *length;
  const auto value = numericValue(text);
  return value && *value > 0 ? std::numeric_limits<std::int32_t>::max() : 0;
}

/// Looks at the request received so far and notes in the record how far it has looked.
Outcome examine(SlotRecord& record, std::string_view request) {
  const bool headIsNew = record.bodyStart == 0;
  if (headIsNew) {
    const std::size_t end = request.find(kBlankLine, record.searched);
    if (end == kNowhere) {
      if (request.size() > kMostHeaderBytes) return Outcome::TooLarge;
      record.searched = request.size() < 3 ? 0 : request.size() - 3;
      return Outcome::NeedMore;
    }
    if (end > kMostHeaderBytes) return Outcome::TooLarge;
    record.bodyStart = end + kBlankLine.size();
  }
  if (classifyRequest(request) != RequestClass::Post) return Outcome::Complete;
  if (record.expectedBodyLength == 0) record.expectedBodyLength = announcedLength(request);
  if (record.expectedBodyLength > kMostBodyBytes) return Outcome::TooLarge;
  const auto received = static_cast<std::int64_t>(request.size() - record.bodyStart);
  if (received >= record.expectedBodyLength) return Outcome::Complete;
  const bool clientWaits =
      headIsNew && findNoCase(request.substr(0, record.bodyStart), kExpectation) != kNowhere;
  return clientWaits ? Outcome::TellToGoOn : Outcome::NeedMore;
}

}  // namespace

Collected collect(SlotRecord& record, std::string_view data) {
  if (classifyRequest(data) != RequestClass::Other) record.reset();
  Collected result;
  const bool continues = !record.pendingText.empty();
  if (continues) record.pendingText += data;
  const std::string_view request = continues ? std::string_view(record.pendingText) : data;
  if (request.empty()) return result;

  result.outcome = examine(record, request);
  if (result.outcome == Outcome::NeedMore || result.outcome == Outcome::TellToGoOn) {
    if (!continues) record.pendingText = data;
    return result;
  }
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
