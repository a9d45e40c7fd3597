#include "components/uploads/multipart_parser.h"

#include <algorithm>
#include <optional>

#include "support/text.h"

namespace quorvane::uploads {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kHeadEnd = "\r\n\r\n";

/// A parameter of a header's value: `; name="text"` or `; name=text`. Browsers write quotes inside
/// as %22; a backslash is part of a path.
std::optional<std::string> parameter(std::string_view value, std::string_view name) {
  std::size_t at = value.find(';');
  while (at != value.npos) {
    value.remove_prefix(at + 1);
    const std::size_t equals = value.find('=');
    if (equals == value.npos) return std::nullopt;
    const bool isWanted = equalsNoCase(trimBlanks(value.substr(0, equals)), name);
    value.remove_prefix(equals + 1);
    const bool quoted = value.starts_with('"');
    if (quoted) value.remove_prefix(1);
    const std::size_t end = value.find(quoted ? '"' : ';');
    if (isWanted)
      return std::string(quoted ? value.substr(0, end) : trimBlanks(value.substr(0, end)));
    if (end == value.npos) return std::nullopt;
    value.remove_prefix(end);
    at = value.find(';');
  }
  return std::nullopt;
}

PartHead headOf(std::string_view text) {
  PartHead head;
  while (!text.empty()) {
    const std::size_t end = text.find(kLineEnd);
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == text.npos ? text.size() : end + kLineEnd.size());
    const std::size_t colon = line.find(':');
    if (colon == line.npos) continue;
    const std::string_view name = trimBlanks(line.substr(0, colon));
    const std::string_view value = trimBlanks(line.substr(colon + 1));
    if (equalsNoCase(name, "Content-Type")) head.contentType = value;
    if (!equalsNoCase(name, "Content-Disposition")) continue;
    head.name = parameter(value, "name").value_or(std::string());
    const auto file = parameter(value, "filename");
    head.isFile = file.has_value();
    head.fileName = file.value_or(std::string());
  }
  return head;
}

}  // namespace

std::string MultipartParser::boundaryOf(std::string_view contentType) {
  constexpr std::size_t kLongest = 200;
  if (!startsWithNoCase(contentType, "multipart/form-data")) return {};
  std::string boundary = parameter(contentType, "boundary").value_or(std::string());
  return boundary.size() <= kLongest ? boundary : std::string();
}

void MultipartParser::take(std::string_view bytes) {
  if (isComplete() || isMalformed()) return;
  buffer_.erase(0, at_);
  at_ = 0;
  buffer_ += bytes;
  while (step()) {
  }
}

/// False when more bytes are needed, or nothing more is.
bool MultipartParser::step() {
  switch (state_) {
    case State::Preamble:
    case State::Body:
      return takeBody();
    case State::AfterBoundary:
      return passBoundary();
    case State::Head:
      return takeHead();
    case State::Complete:
    case State::Malformed:
      break;
  }
  return false;
}

/// What stands in front of the first boundary is read like a part that nobody is told of.
bool MultipartParser::takeBody() {
  const std::size_t found = ahead().find(delimiter_);
  const bool ends = found != std::string_view::npos;
  const std::size_t held = std::min(ahead().size(), delimiter_.size() - 1);
  const std::string_view bytes = ahead().substr(0, ends ? found : ahead().size() - held);
  if (state_ == State::Body) {
    if (!bytes.empty()) receiver_.partBytes(bytes);
    if (ends) receiver_.endPart();
  }
  drop(bytes.size() + (ends ? delimiter_.size() : 0));
  if (ends) state_ = State::AfterBoundary;
  return ends;
}

/// Two hyphens end the form; else blanks may follow, and the line's end.
bool MultipartParser::passBoundary() {
  constexpr std::size_t kMostBlanks = 100;
  if (ahead().size() < 2) return false;
  if (ahead().starts_with("--")) {
    state_ = State::Complete;
    return false;
  }
  const std::size_t text = ahead().find_first_not_of(" \t");
  if (text == std::string_view::npos ? ahead().size() > kMostBlanks : text > kMostBlanks) {
    state_ = State::Malformed;
    return false;
  }
  if (text == std::string_view::npos || ahead().size() - text < kLineEnd.size()) return false;
  const bool isLine = ahead().substr(text).starts_with(kLineEnd);
  state_ = isLine && parts_ < kMostParts ? State::Head : State::Malformed;
  drop(text);  // the line's end stays: an empty head is two of them
  return isLine;
}

bool MultipartParser::takeHead() {
  const std::size_t end = ahead().find(kHeadEnd);
  const bool hasEnd = end != std::string_view::npos;
  if (hasEnd ? end > kMostHead : ahead().size() > kMostHead + kHeadEnd.size()) {
    state_ = State::Malformed;
    return false;
  }
  if (!hasEnd) return false;
  receiver_.beginPart(headOf(ahead().substr(0, end)));
  ++parts_;
  drop(end + kHeadEnd.size());
  state_ = State::Body;
  return true;
}

}  // namespace quorvane::uploads
