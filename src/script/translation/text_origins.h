#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "script/translation/include_expansion.h"

namespace quorvane {

/// Which files the bytes of a text come from that is put together of them, from its beginning on:
/// what is left of it is passed on, or replaced by a file whose text is then left as well.
class TextOrigins {
 public:
  /// One byte that does not follow from the one before it.
  struct Piece {
    std::size_t at;  ///< in the whole text
    std::uint32_t file;
    std::size_t offset;  ///< in that file
  };

  struct Spot {
    std::uint32_t file;
    std::uint32_t line;
    std::uint32_t column;  ///< both from 1
  };

  explicit TextOrigins(const IncludedFile& page);

  /// The next `count` bytes belong to the whole; all that is left when there are fewer.
  void pass(std::size_t count = std::string::npos);
  /// Behind the next `kept` bytes, `length` bytes give way to the file.
  void replace(std::size_t kept, std::size_t length, const IncludedFile& file);

  /// Of what has been passed, one behind the other.
  const std::vector<Piece>& pieces() const { return pieces_; }
  /// Where this byte stands; of no text, where the page begins.
  Spot spot(std::size_t at) const;
  const std::vector<std::string>& files() const { return paths_; }  ///< the page first

 private:
  struct Left {
    std::uint32_t file;
    std::size_t offset;
    std::size_t length;
  };
  std::uint32_t add(const IncludedFile& file);
  std::vector<Left> take(std::size_t count);

  std::vector<std::string> paths_;
  std::vector<std::vector<std::size_t>> lines_;  ///< of each file, where they begin
  std::vector<Left> left_;                       ///< the next one last
  std::vector<Piece> pieces_;
  std::size_t passed_ = 0;
};

}  // namespace quorvane
