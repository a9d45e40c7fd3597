#include "http/request_head.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::size_t kNowhere = std::string_view::npos;
constexpr std::string_view kBlankLine = "\r\n\r\n";
constexpr std::string_view kLengthName = "content-length: ";
constexpr std::string_view kExpectation = "\r\nexpect: 100-continue\r\n";

}  // namespace

namespace request_text {

RequestClass classOf(std::string_view text) {
  if (text.starts_with("GET ")) return RequestClass::Get;
  if (text.starts_with("HEAD ")) return RequestClass::Head;
  if (text.starts_with("POST ")) return RequestClass::Post;
  return RequestClass::Other;
}

std::size_t bodyStart(std::string_view text, std::size_t from) {
  const std::size_t end = text.find(kBlankLine, from);
  return end == kNowhere ? 0 : end + kBlankLine.size();
}

std::int32_t announcedLength(std::string_view text) {
  const std::size_t found = findNoCase(text, kLengthName);
  if (found == kNowhere) return 0;
  const std::size_t start = found + kLengthName.size();
  const std::string_view number = text.substr(start, text.find("\r\n", start) - start);
  if (const auto length = numericLong(number)) return *length;
  const auto value = numericValue(number);
  return value && *value > 0 ? std::numeric_limits<std::int32_t>::max() : 0;
}

bool waitsToGoOn(std::string_view head) {
  return findNoCase(head, kExpectation) != kNowhere;
}

}  // namespace request_text

void RequestHead::assign(std::string_view text, std::size_t bodyStart) {
  text_.assign(text);
  read(bodyStart);
}

void RequestHead::adopt(std::string&& text, std::size_t bodyStart) {
  text_ = std::move(text);
  read(bodyStart);
}

std::string RequestHead::take() {
  std::string text = std::exchange(text_, {});
  read(0);
  return text;
}

void RequestHead::release() {
  take();
}

void RequestHead::read(std::size_t bodyStart) {
  bodyStart_ = bodyStart > 0 ? bodyStart : request_text::bodyStart(text_);
  readRequestLine();
}

void RequestHead::readRequestLine() {
  method_ = target_ = version_ = {};
  const std::size_t end = text_.find(kLineEnd);
  const std::string_view line = std::string_view(text_).substr(0, end);
  const std::size_t first = line.find(' ');
  const std::size_t second = first == kNowhere ? kNowhere : line.find(' ', first + 1);
  wellFormed_ = end != kNowhere && second != kNowhere && line.find(' ', second + 1) == kNowhere;
  if (!wellFormed_) return;
  method_ = {0, first};
  target_ = {first + 1, second - first - 1};
  version_ = {second + 1, end - second - 1};
}

template <class Visit>
void RequestHead::forEachHeader(Visit visit) const {
  std::string_view rest = std::string_view(text_).substr(0, text_.find(kBlankLine));
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(kLineEnd), rest.size());
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + kLineEnd.size(), rest.size()));

    const std::size_t colon = line.find(':');
    if (colon == kNowhere) continue;
    const std::size_t value = std::min(line.find_first_not_of(' ', colon + 1), line.size());
    if (!visit(Header{trimBlanks(line.substr(0, colon)), line.substr(value)})) return;
  }
}

std::vector<RequestHead::Header> RequestHead::headers() const {
  std::vector<Header> all;
  forEachHeader([&](const Header& line) {
    all.push_back(line);
    return true;
  });
  return all;
}

std::string_view RequestHead::header(std::string_view name) const {
  std::string_view value;
  forEachHeader([&](const Header& line) {
    const bool isIt = equalsNoCase(line.name, name);
    if (isIt) value = line.value;
    return !isIt;
  });
  return value;
}

}  // namespace quorvane
