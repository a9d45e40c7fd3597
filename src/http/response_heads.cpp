#include "http/response_heads.h"

#include <array>
#include <charconv>
#include <span>

#include "http/header_lines.h"
#include "http/serverMod.h"

namespace quorvane {

namespace {

constexpr std::size_t kUsualRoom = 384;  ///< bytes
constexpr std::string_view kLineEnd = "\r\n";

/// Lines by which a client finds an answer's end, and those that only the server can know. A page
/// with others would make the client take the next answer for a piece of this one. Where no other
/// follows a page may announce its length, which stands first here.
constexpr std::array<std::string_view, 5> kFraming{"content-length", "transfer-encoding",
                                                   "connection", "server", "date"};

std::string_view textOf(Status status) {
  switch (status) {
    case Status::Continue:
      return "100 Continue";
    case Status::Ok:
      return "200 OK";
    case Status::PartialContent:
      return "206 Partial Content";
    case Status::BadRequest:
      return "400 Bad Request";
    case Status::NotFound:
      return "404 No Found";
  }
  return {};
}

/// Writes one head line by line. What it is given is the server's own or made by `header_lines`.
class HeadWriter {
 public:
  explicit HeadWriter(Status status, std::size_t room = kUsualRoom)
      : HeadWriter(textOf(status), room) {}
  explicit HeadWriter(std::string_view status, std::size_t room = kUsualRoom) {
    text_.reserve(room);
    text_ += "HTTP/1.1 ";
    whole(status);
  }

  void line(std::string_view name, std::string_view value) {
    header_lines::writeOwn(text_, name, value);
    text_ += kLineEnd;
  }
  /// A value with a number in it.
  void numberLine(std::string_view name, std::string_view before, std::uint64_t number,
                  std::string_view behind = {}) {
    std::array<char, 24> digits{};
    const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    header_lines::writeOwn(text_, name, before);
    text_.append(std::string_view(digits.data(), end)).append(behind).append(kLineEnd);
  }
  void length(std::uint64_t bytes) { numberLine("Content-Length", {}, bytes); }
  void connection(bool keepAlive) { line("Connection", keepAlive ? "Keep-Alive" : "Close"); }
  void session(std::int32_t number) {
    if (number <= 0) return;
    numberLine("Set-Cookie", "QVS_SESSIONID=", static_cast<std::uint64_t>(number), "; path=/");
  }
  /// A line, or several, that others have made.
  void whole(std::string_view lines) {
    if (!lines.empty()) text_.append(lines).append(kLineEnd);
  }

  std::string finish() {
    text_ += kLineEnd;
    return std::move(text_);
  }

 private:
  std::string text_;
};

}  // namespace

ResponseHeads::ResponseHeads(const ServerState& state, const Clock& clock)
    : serverName_(serverName(state)), dates_(clock) {}

std::string ResponseHeads::ordinary(const Ordinary& head) {
  const std::string_view extra = head.extraHeaders;
  HeadWriter writer(head.status, kUsualRoom + extra.size() + head.cookieLines.size());
  writer.length(head.contentLength);
  writer.line("Server", serverName_);
  writer.line("Accept-Ranges", "bytes");
  writer.whole(extra);
  if (!header_lines::bring(extra, "content-type")) writer.line("Content-Type", head.contentType);
  if (!head.lastModified.empty() && !header_lines::bring(extra, "last-modified")) {
    writer.line("Last-Modified", head.lastModified);
  }
  writer.connection(head.keepAlive);
  if (!head.cacheControl.empty()) writer.line("Cache-Control", head.cacheControl);
  writer.session(head.sessionNumber);
  writer.whole(head.cookieLines);
  writer.line("Date", dates_.now());
  return writer.finish();
}

std::string ResponseHeads::error(Status status, std::size_t contentLength) {
  HeadWriter writer(status);
  writer.whole(dates_.now());
  writer.line("Server", serverName_);
  writer.connection(false);
  writer.line("Content-Type", "text/html");
  writer.length(contentLength);
  return writer.finish();
}

std::string ResponseHeads::flushed(std::int32_t sessionNumber, std::string_view extraHeaders) {
  HeadWriter writer(Status::Ok, kUsualRoom + extraHeaders.size());
  writer.line("Server", serverName_);
  writer.line("Date", dates_.now());
  writer.line("Cache-Control", "private");
  writer.connection(false);
  writer.session(sessionNumber);
  if (!header_lines::bring(extraHeaders, "content-type")) writer.line("Content-Type", "text/html");
  writer.whole(extraHeaders);
  return writer.finish();
}

std::string ResponseHeads::ofPage(std::string_view status, std::string_view pageLines,
                                  std::uint64_t contentLength, bool keepAlive) {
  HeadWriter writer(header_lines::oneLine(status), kUsualRoom + pageLines.size());
  if (!isBodyless(status)) writer.length(contentLength);
  writer.line("Server", serverName_);
  writer.whole(header_lines::without(pageLines, kFraming));
  writer.connection(keepAlive);
  writer.line("Date", dates_.now());
  return writer.finish();
}

std::string ResponseHeads::ofFlushedPage(std::string_view status, std::string_view pageLines) {
  HeadWriter writer(header_lines::oneLine(status), kUsualRoom + pageLines.size());
  writer.line("Server", serverName_);
  writer.whole(header_lines::without(pageLines, std::span(kFraming).subspan(1)));
  writer.connection(false);
  writer.line("Date", dates_.now());
  return writer.finish();
}

bool ResponseHeads::isBodyless(std::string_view status) {
  return status.starts_with("204") || status.starts_with("304");
}

std::string ResponseHeads::goOn() {
  return HeadWriter(Status::Continue).finish();
}

}  // namespace quorvane
