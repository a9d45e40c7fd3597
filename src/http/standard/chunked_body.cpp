#include "http/standard/chunked_body.h"

#include <algorithm>
#include <charconv>

#include "http/standard/grammar.h"

namespace quorvane {

namespace {

using standard_grammar::trimmed;

constexpr std::size_t kNowhere = std::string_view::npos;
constexpr std::size_t kMostDigits = 15;  ///< of a size that can be added to another

/// A string in quotes; what its backslashes stand before is part of it.
bool isQuoted(std::string_view text) {
  if (text.size() < 2 || text.front() != '"') return false;
  std::size_t i = 1;
  while (i < text.size() && text[i] != '"') i += text[i] == '\\' ? 2 : 1;
  return i + 1 == text.size();
}

/// Where the extension that begins `text` ends: at the next ";" outside of quotes.
std::size_t extensionEnd(std::string_view text) {
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') quoted = !quoted;
    if (quoted && text[i] == '\\') ++i;
    if (!quoted && text[i] == ';') return i;
  }
  return text.size();
}

/// ";name" or ";name=value", any number of them.
bool areExtensions(std::string_view text) {
  if (!standard_grammar::isFieldValue(text)) return false;
  text = trimmed(text);
  while (!text.empty()) {
    if (text.front() != ';') return false;
    text.remove_prefix(1);
    const std::string_view extension = text.substr(0, extensionEnd(text));
    text.remove_prefix(extension.size());
    const std::size_t equals = std::min(extension.find('='), extension.size());
    if (!standard_grammar::isToken(trimmed(extension.substr(0, equals)))) return false;
    if (equals == extension.size()) continue;
    const std::string_view value = trimmed(extension.substr(equals + 1));
    if (!standard_grammar::isToken(value) && !isQuoted(value)) return false;
  }
  return true;
}

}  // namespace

ChunkedBody::State ChunkedBody::take(std::string_view& input, std::string& into,
                                     std::uint64_t most) {
  while (!input.empty()) {
    if (expected_ == Expected::Data) {
      const auto length = static_cast<std::size_t>(std::min<std::uint64_t>(left_, input.size()));
      into.append(input.substr(0, length));
      input.remove_prefix(length);
      left_ -= length;
      if (left_ == 0) expected_ = Expected::DataEnd;
      continue;
    }
    const std::size_t end = input.find('\n');
    const std::string_view piece = input.substr(0, end == kNowhere ? end : end + 1);
    input.remove_prefix(piece.size());
    line_ += piece;
    if (line_.size() > kMostAround) return refuse(Status::HeaderFieldsTooLarge);
    if (end == kNowhere) break;
    if (!line_.ends_with("\r\n")) return refuse(Status::BadRequest);
    line_.resize(line_.size() - 2);
    const State state = takeLine(line_, most);
    line_.clear();
    if (state != State::NeedMore) return state;
  }
  return State::NeedMore;
}

ChunkedBody::State ChunkedBody::takeLine(std::string_view line, std::uint64_t most) {
  if (expected_ == Expected::Size) return takeSize(line, most);
  if (expected_ == Expected::DataEnd) {
    expected_ = Expected::Size;
    return line.empty() ? State::NeedMore : refuse(Status::BadRequest);
  }
  if (line.empty()) return State::Whole;
  around_ += line.size();
  if (around_ > kMostAround) return refuse(Status::HeaderFieldsTooLarge);
  return standard_grammar::fieldOf(line) ? State::NeedMore : refuse(Status::BadRequest);
}

ChunkedBody::State ChunkedBody::takeSize(std::string_view line, std::uint64_t most) {
  const char* const end = line.data() + line.size();
  const auto number = std::from_chars(line.data(), end, left_, 16);
  const auto digits = static_cast<std::size_t>(number.ptr - line.data());
  if (digits == 0 || !areExtensions(line.substr(digits))) return refuse(Status::BadRequest);
  if (number.ec != std::errc() || digits > kMostDigits) return refuse(Status::ContentTooLarge);
  around_ += line.size() - digits;
  if (around_ > kMostAround) return refuse(Status::HeaderFieldsTooLarge);
  total_ += left_;
  if (total_ > most) return refuse(Status::ContentTooLarge);
  expected_ = left_ == 0 ? Expected::Trailer : Expected::Data;
  return State::NeedMore;
}

ChunkedBody::State ChunkedBody::refuse(Status status) {
  refusal_ = status;
  return State::Refused;
}

}  // namespace quorvane
