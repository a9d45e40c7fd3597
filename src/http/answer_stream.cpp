#include "http/answer_stream.h"

#include <array>
#include <charconv>
#include <utility>

#include "http/response_heads.h"

namespace quorvane {

std::string AnswerStream::begin(std::int32_t sessionNumber, std::string_view pageLines,
                                std::string data) {
  data = more(std::move(data));
  data.insert(0, heads_.flushed(sessionNumber, pageLines, framing_, keepAlive_));
  return data;
}

std::string AnswerStream::begin(std::string_view status, std::string_view pageLines,
                                std::string data) {
  if (framing_ == Framing::Chunked && ResponseHeads::isBodyless(status)) framing_ = Framing::NoBody;
  data = more(std::move(data));
  data.insert(0, heads_.ofFlushedPage(status, pageLines, framing_, keepAlive_));
  return data;
}

std::string AnswerStream::more(std::string data) const {
  if (framing_ == Framing::NoBody) return {};
  if (framing_ == Framing::UntilClose || data.empty()) return data;  // an empty chunk is the last
  std::array<char, 2 * sizeof(std::size_t) + 2> size{};
  char* end = std::to_chars(size.data(), size.data() + size.size(), data.size(), 16).ptr;
  *end++ = '\r';
  *end++ = '\n';
  data.insert(0, size.data(), static_cast<std::size_t>(end - size.data()));
  return data += "\r\n";
}

Response AnswerStream::end(std::string rest) const {
  std::string last = more(std::move(rest));
  if (framing_ == Framing::Chunked) last += "0\r\n\r\n";
  return {{}, std::move(last), keepAlive_};
}

}  // namespace quorvane
