#include "script/translation/text_origins.h"

#include <algorithm>

namespace quorvane {

namespace {

std::vector<std::size_t> lineStarts(std::string_view text) {
  std::vector<std::size_t> starts{0};
  for (std::size_t end = text.find_first_of("\r\n"); end != std::string_view::npos;
       end = text.find_first_of("\r\n", starts.back())) {
    starts.push_back(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
  }
  return starts;
}

}  // namespace

TextOrigins::TextOrigins(const IncludedFile& page) {
  left_.push_back({add(page), 0, page.text.size()});
}

std::uint32_t TextOrigins::add(const IncludedFile& file) {
  const auto known = std::find(paths_.begin(), paths_.end(), file.path);
  const auto number = static_cast<std::uint32_t>(known - paths_.begin());
  if (known == paths_.end()) {
    paths_.push_back(file.path);
    lines_.push_back(lineStarts(file.text));
  }
  return number;
}

std::vector<TextOrigins::Left> TextOrigins::take(std::size_t count) {
  std::vector<Left> taken;
  while (count > 0 && !left_.empty()) {
    Left& next = left_.back();
    taken.push_back({next.file, next.offset, std::min(count, next.length)});
    const std::size_t length = taken.back().length;
    next.offset += length;
    next.length -= length;
    count -= length;
    if (next.length == 0) left_.pop_back();
  }
  return taken;
}

void TextOrigins::pass(std::size_t count) {
  for (const Left& piece : take(count)) {
    pieces_.push_back({passed_, piece.file, piece.offset});
    passed_ += piece.length;
  }
}

void TextOrigins::replace(std::size_t kept, std::size_t length, const IncludedFile& file) {
  const std::vector<Left> before = take(kept);
  take(length);
  left_.push_back({add(file), 0, file.text.size()});
  left_.insert(left_.end(), before.rbegin(), before.rend());
}

TextOrigins::Spot TextOrigins::spot(std::size_t at) const {
  const auto behind = std::partition_point(pieces_.begin(), pieces_.end(),
                                           [&](const Piece& piece) { return piece.at <= at; });
  const Piece piece = behind == pieces_.begin() ? Piece{at, 0, 0} : *(behind - 1);
  const std::vector<std::size_t>& lines = lines_[piece.file];
  const std::size_t offset = piece.offset + (at - piece.at);
  const auto line = std::upper_bound(lines.begin(), lines.end(), offset);
  return {piece.file, static_cast<std::uint32_t>(line - lines.begin()),
          static_cast<std::uint32_t>(offset - *(line - 1)) + 1};
}

}  // namespace quorvane
