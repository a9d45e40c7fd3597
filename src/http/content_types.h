#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvane {

/// Content types by extension, with a memo of the last one found: neighbouring requests mostly ask
/// for the same kind of file.
class ContentTypes {
 public:
  static constexpr std::string_view kUnknown = "application/octet-stream";

  enum class Tables {
    Fixed,   ///< what clients of this server have always been told
    Todays,  ///< and behind it what has come up since
  };

  explicit ContentTypes(Tables tables = Tables::Fixed) : tables_(tables) {}

  /// The type of the path's extension (from the last "." on, letter case aside), or `fallback`.
  std::string_view typeOf(std::string_view path, std::string_view fallback = kUnknown);

  /// How many extensions the fixed table has.
  static std::size_t size();

 private:
  const Tables tables_;
  std::string memoExtension_;
  std::string_view memoType_;
};

}  // namespace quorvane
