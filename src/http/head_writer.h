#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "http/header_lines.h"
#include "http/status.h"

namespace quorvane {

/// Writes one head line by line. What it is given is the server's own or made by `header_lines`.
class HeadWriter {
 public:
  static constexpr std::size_t kUsualRoom = 384;  ///< bytes

  explicit HeadWriter(Status status, std::size_t room = kUsualRoom)
      : HeadWriter(statusText(status), room) {}
  explicit HeadWriter(std::string_view status, std::size_t room = kUsualRoom) {
    text_.reserve(room);
    text_ += "HTTP/1.1 ";
    whole(status);
  }

  void line(std::string_view name, std::string_view value) {
    header_lines::writeOwn(text_, name, value);
    text_ += kLineEnd;
  }
  void length(std::uint64_t bytes) {
    std::array<char, 24> digits{};
    const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), bytes).ptr;
    line("Content-Length", std::string_view(digits.data(), end));
  }
  void connection(bool keepAlive) { line("Connection", keepAlive ? "Keep-Alive" : "Close"); }
  void session(std::int32_t number) {
    if (number > 0) line("Set-Cookie", header_lines::sessionCookie(number));
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
  static constexpr std::string_view kLineEnd = "\r\n";

  std::string text_;
};

}  // namespace quorvane
