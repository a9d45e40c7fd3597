#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane::customary {

/// Attributes as tags and directives have them: `name=value`, the value bare or in either kind of
/// quotation marks. Names are in lower case.
class Attributes {
 public:
  explicit Attributes(std::string_view text);

  /// The first of that name; nothing when there is none, empty for one without a value.
  std::optional<std::string> find(std::string_view name) const;

 private:
  std::vector<std::pair<std::string, std::string>> rows_;
};

/// Bytes. A page full of tags that never end must not cost the square of its length.
inline constexpr std::size_t kLongestTag = 4096;

/// The place of the ">" that ends a tag whose name has been read, quotation marks heeded; npos for
/// a tag that does not end or has code inside.
std::size_t endOfTag(std::string_view text);

}  // namespace quorvane::customary
