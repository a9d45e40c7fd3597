#include "http/standard/collector.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quorvane {

namespace {

using request_collector::Collected;
using request_collector::kMostBodyBytes;
using request_collector::Outcome;

constexpr std::size_t kNowhere = std::string_view::npos;

/// As much of a head as has come.
struct HeadSearch {
  std::size_t end = 0;        ///< behind its blank line; 0 when that has not come
  std::size_t lineStart = 0;  ///< of the line that has not come whole
  std::optional<Status> refusal;
};

/// Looks at the lines from `start` on, where one begins. A line feed alone ends none.
HeadSearch search(std::string_view text, std::size_t start) {
  HeadSearch result;
  result.lineStart = start;
  const auto refuse = [&](Status status) {
    result.refusal = status;
    return result;
  };
  for (;;) {
    const std::size_t lineStart = result.lineStart;
    const Status tooLong = lineStart == 0 ? Status::UriTooLong : Status::HeaderFieldsTooLarge;
    const std::size_t end = text.find('\n', lineStart);
    if (std::min(end, text.size()) - lineStart > StandardHead::kMostLine) return refuse(tooLong);
    if (std::min(end, text.size()) > StandardHead::kMostBytes) return refuse(tooLong);
    if (end == kNowhere) return result;
    if (end == lineStart || text[end - 1] != '\r') return refuse(Status::BadRequest);
    result.lineStart = end + 1;
    if (end - lineStart > 1) continue;
    result.end = end + 1;
    return result;
  }
}

RequestRest& restOf(SlotRecord& record) {
  if (!record.rest) record.rest = std::make_unique<RequestRest>();
  return *record.rest;
}

/// The length of those that clients may send in front of a request.
std::size_t emptyLines(std::string_view text) {
  std::size_t length = 0;
  while (text.substr(length).starts_with("\r\n")) length += 2;
  return length;
}

}  // namespace

Collected StandardCollector::collect(SlotRecord& record, std::string_view data) {
  if (record.isWhole) return waited(record);
  if (record.hasNext()) {
    source_ = std::exchange(record.rest->next, {});
    data = source_ += data;
  }
  Collected result = record.bodyStart == 0 ? readHead(record, data) : readBody(record, data);
  if (!data.empty()) restOf(record).next = data;
  return result;
}

/// The request has been complete before and was put back.
Collected StandardCollector::waited(SlotRecord& record) {
  record.isWhole = false;
  record.bodyStart = request_text::bodyStart(record.pendingText);
  return complete(record);
}

Collected StandardCollector::readHead(SlotRecord& record, std::string_view& input) {
  const bool continues = !record.pendingText.empty();
  if (continues) {
    record.pendingText += input;
    if (record.searched == 0) record.pendingText.erase(0, emptyLines(record.pendingText));
  } else {
    input.remove_prefix(emptyLines(input));
  }
  const std::string_view text = continues ? std::string_view(record.pendingText) : input;
  const HeadSearch found = search(text, record.searched);
  if (found.refusal) return refused(record, text, input, *found.refusal);
  if (found.end == 0) {
    if (!continues) record.pendingText = text;
    record.searched = found.lineStart;
    input = {};
    return {};
  }
  if (const auto refusal = head_.read(text.substr(0, found.end))) {
    return refused(record, text, input, *refusal);
  }
  if (head_.length() > static_cast<std::uint64_t>(kMostBodyBytes)) {
    return refused(record, text, input, Status::ContentTooLarge);
  }
  const auto length = static_cast<std::size_t>(head_.length());
  const std::size_t behind = text.size() - found.end;
  if (continues || !head_.isPlain() || behind < length) {
    input.remove_prefix(input.size() - behind);  // the head was not whole before they came
    return beginBody(record, text.substr(0, found.end), input);
  }
  Collected result;
  result.outcome = Outcome::Complete;
  result.direct = text.substr(0, found.end + length);
  result.requestClass = request_text::classOf(result.direct);
  result.bodyStart = found.end;
  input.remove_prefix(result.direct.size());
  return result;
}

Collected StandardCollector::beginBody(SlotRecord& record, std::string_view head,
                                       std::string_view& input) {
  const bool hasNothingYet = input.empty();
  record.bodyStart = head.size();
  record.expectedBodyLength = static_cast<std::int32_t>(head_.length());
  if (head_.framing() == StandardHead::BodyFraming::Chunked) {
    restOf(record).chunks.emplace();
  }
  record.pendingText = std::string(head);  // perhaps its own beginning
  Collected result = readBody(record, input);
  if (result.outcome == Outcome::NeedMore && hasNothingYet && head_.expectsContinue()) {
    result.outcome = Outcome::TellToGoOn;
  }
  return result;
}

Collected StandardCollector::readBody(SlotRecord& record, std::string_view& input) {
  if (record.rest && record.rest->chunks) return readChunks(record, input);
  const std::size_t whole = record.bodyStart + static_cast<std::size_t>(record.expectedBodyLength);
  const std::size_t wanted = std::min(whole - record.pendingText.size(), input.size());
  record.pendingText += input.substr(0, wanted);
  input.remove_prefix(wanted);
  return record.pendingText.size() < whole ? Collected{} : complete(record);
}

Collected StandardCollector::readChunks(SlotRecord& record, std::string_view& input) {
  ChunkedBody& chunks = *record.rest->chunks;
  const auto state = chunks.take(input, record.pendingText, kMostBodyBytes);
  if (state == ChunkedBody::State::NeedMore) return {};
  if (state == ChunkedBody::State::Whole) return complete(record);
  return refused(record, record.pendingText, input, chunks.refusal());
}

/// The record holds the request with its body.
Collected StandardCollector::complete(SlotRecord& record) {
  Collected result;
  result.outcome = Outcome::Complete;
  result.bodyStart = record.bodyStart;
  result.storage = std::move(record.pendingText);
  auto rest = std::move(record.rest);
  record.reset();
  if (rest && !rest->next.empty()) restOf(record).next = std::move(rest->next);

  const auto readHeadAgain = [&] {
    head_.read(std::string_view(result.storage).substr(0, result.bodyStart));
  };
  readHeadAgain();
  if (!head_.isPlain()) {
    const std::string head = head_.plain(result.storage.size() - result.bodyStart);
    result.storage.replace(0, result.bodyStart, head);
    result.bodyStart = head.size();
    readHeadAgain();
  }
  result.requestClass = request_text::classOf(result.storage);
  return result;
}

Collected StandardCollector::refused(SlotRecord& record, std::string_view text,
                                     std::string_view& input, Status status) {
  Collected result;
  result.outcome = Outcome::Refused;
  result.refusal = status;
  result.storage = text;
  result.requestClass = request_text::classOf(text);
  record.reset();
  input = {};
  return result;
}

}  // namespace quorvane
