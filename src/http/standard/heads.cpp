#include "http/standard/heads.h"

#include <algorithm>

#include "http/head_writer.h"
#include "http/header_lines.h"
#include "http/standard/grammar.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

bool isOwn(std::string_view name) {
  const auto& own = ResponseHeads::kFraming;
  return std::any_of(own.begin(), own.end(),
                     [name](std::string_view one) { return equalsNoCase(name, one); });
}

/// A page's lines that may stand in a head.
std::string sendable(std::string_view lines) {
  std::string kept;
  while (!lines.empty()) {
    const std::size_t end = std::min(lines.find(kLineEnd), lines.size());
    const std::string_view line = lines.substr(0, end);
    lines.remove_prefix(std::min(end + kLineEnd.size(), lines.size()));
    const auto field = standard_grammar::fieldOf(line);
    if (field && !isOwn(field->name)) header_lines::add(kept, field->name, field->value);
  }
  return kept;
}

/// With the blank behind its number that stands there even without a reason.
std::string statusLine(std::string_view status) {
  std::string line = header_lines::oneLine(status);
  if (line.find(' ') == std::string::npos) line += ' ';
  return line;
}

}  // namespace

std::string StandardHeads::ordinary(const Ordinary& head) {
  const std::string lines = sendable(head.extraHeaders);
  Ordinary changed = head;
  changed.hasRanges = false;  // of what pages write
  changed.extraHeaders = lines;
  return ResponseHeads::ordinary(changed);
}

std::string StandardHeads::flushed(std::int32_t sessionNumber, std::string_view extraHeaders,
                                   Framing framing, bool keepAlive) {
  std::string lines(extraHeaders);
  if (!header_lines::bring(lines, "content-type")) {
    header_lines::add(lines, "Content-Type", "text/html");
  }
  if (!header_lines::bring(lines, "cache-control")) {
    header_lines::add(lines, "Cache-Control", "private");
  }
  if (sessionNumber > 0) {
    header_lines::add(lines, "Set-Cookie", header_lines::sessionCookie(sessionNumber));
  }
  return ofFlushedPage(statusText(Status::Ok), lines, framing, keepAlive);
}

std::string StandardHeads::ofPage(std::string_view status, std::string_view pageLines,
                                  std::uint64_t contentLength, bool keepAlive) {
  return ResponseHeads::ofPage(statusLine(status), sendable(pageLines), contentLength, keepAlive);
}

std::string StandardHeads::ofFlushedPage(std::string_view status, std::string_view pageLines,
                                         Framing framing, bool keepAlive) {
  HeadWriter writer(statusLine(status), HeadWriter::kUsualRoom + pageLines.size());
  writer.line("Server", serverName_);
  writer.whole(sendable(pageLines));
  if (framing == Framing::Chunked) writer.line("Transfer-Encoding", "chunked");
  writer.connection(keepAlive);
  writer.line("Date", dates_.now());
  return writer.finish();
}

}  // namespace quorvane
