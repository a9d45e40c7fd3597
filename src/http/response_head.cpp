#include "http/response_head.h"

#include <array>
#include <charconv>

#include "support/text.h"

namespace quorvane {

namespace {

class HeadWriter {
 public:
  explicit HeadWriter(std::size_t room) { text_.reserve(room); }

  void line(std::string_view a, std::string_view b = {}, std::string_view c = {}) {
    text_.append(a).append(b).append(c).append("\r\n");
  }
  void numberLine(std::string_view name, std::uint64_t number, std::string_view behind = {}) {
    std::array<char, 24> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    line(name, std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())),
         behind);
  }
  std::string finish() {
    text_ += "\r\n";
    return std::move(text_);
  }

 private:
  std::string text_;
};

bool brings(std::string_view headers, std::string_view name) {
  return findNoCase(headers, name) != std::string_view::npos;
}

}  // namespace

std::string ResponseHead::text() const {
  HeadWriter head(384 + extraHeaders.size() + cookieLines.size());
  head.line(partial ? "HTTP/1.1 206 Partial Content" : "HTTP/1.1 200 OK");
  head.numberLine("Content-Length: ", contentLength);
  head.line("Server: ", server);
  head.line("Accept-Ranges: bytes");
  if (!extraHeaders.empty()) head.line(extraHeaders);
  if (!brings(extraHeaders, "content-type: ")) head.line("Content-Type: ", contentType);
  if (!lastModified.empty() && !brings(extraHeaders, "last-modified: ")) {
    head.line("Last-Modified: ", lastModified);
  }
  head.line("Connection: ", keepAlive ? "Keep-Alive" : "Close");
  if (!cacheControl.empty()) head.line("Cache-Control: ", cacheControl);
  if (sessionNumber > 0) {
    head.numberLine("Set-Cookie: QVS_SESSIONID=", static_cast<std::uint64_t>(sessionNumber),
                    "; path=/");
  }
  if (!cookieLines.empty()) head.line(cookieLines);
  head.line("Date: ", date);
  return head.finish();
}

}  // namespace quorvane
