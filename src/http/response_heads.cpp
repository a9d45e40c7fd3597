#include "http/response_heads.h"

#include <span>

#include "http/head_writer.h"
#include "http/header_lines.h"
#include "http/serverMod.h"

namespace quorvane {

ResponseHeads::ResponseHeads(const ServerState& state, const Clock& clock)
    : serverName_(serverName(state)), dates_(clock) {}

std::string ResponseHeads::ordinary(const Ordinary& head) {
  const std::string_view extra = head.extraHeaders;
  HeadWriter writer(head.status, HeadWriter::kUsualRoom + extra.size() + head.cookieLines.size());
  writer.length(head.contentLength);
  writer.line("Server", serverName_);
  if (head.hasRanges) writer.line("Accept-Ranges", "bytes");
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

std::string ResponseHeads::own(Status status, std::string_view lines, std::uint64_t contentLength,
                               bool keepAlive) {
  HeadWriter writer(status, HeadWriter::kUsualRoom + lines.size());
  if (!isBodyless(statusText(status))) writer.length(contentLength);
  writer.line("Server", serverName_);
  writer.whole(lines);
  writer.connection(keepAlive);
  writer.line("Date", dates_.now());
  return writer.finish();
}

std::string ResponseHeads::error(Status status, std::size_t contentLength) {
  // Clients have come to know the one without its letter.
  HeadWriter writer(status == Status::NotFound ? "404 No Found" : statusText(status));
  writer.whole(dates_.now());
  writer.line("Server", serverName_);
  writer.connection(false);
  writer.line("Content-Type", "text/html");
  writer.length(contentLength);
  return writer.finish();
}

std::string ResponseHeads::flushed(std::int32_t sessionNumber, std::string_view extraHeaders,
                                   Framing, bool) {
  HeadWriter writer(Status::Ok, HeadWriter::kUsualRoom + extraHeaders.size());
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
  HeadWriter writer(header_lines::oneLine(status), HeadWriter::kUsualRoom + pageLines.size());
  if (!isBodyless(status)) writer.length(contentLength);
  writer.line("Server", serverName_);
  writer.whole(header_lines::without(pageLines, kFraming));
  writer.connection(keepAlive);
  writer.line("Date", dates_.now());
  return writer.finish();
}

std::string ResponseHeads::ofFlushedPage(std::string_view status, std::string_view pageLines,
                                         Framing, bool) {
  HeadWriter writer(header_lines::oneLine(status), HeadWriter::kUsualRoom + pageLines.size());
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
