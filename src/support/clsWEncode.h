#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// Turns text into HTML-safe or URL-encoded text and back. Two tables built on creation make the
/// encoding of a character one look-up. Immutable afterwards.
class clsWEncode {
 public:
  clsWEncode();

  /// A blank becomes "&nbsp;", and character 237 "&iacute" without its semicolon: texts stored by
  /// pages rely on both.
  std::string afText2HTML(std::string_view strData) const;

  /// Replaces the named entities one after another in the order of the entity list, so that
  /// "&amp;lt;" ends as "<". Numeric references stay. Takes time in proportion to the text.
  std::string afHTML2Text(std::string_view htmlData) const;

  /// How long the texts become, for those who must know before.
  std::size_t lengthAsHTML(std::string_view strData) const;
  std::size_t lengthAsURL(std::string_view strData) const;

  /// Everything but ASCII letters and digits becomes "%XX".
  std::string afEncodeURL(std::string_view strData) const;

  /// "+" becomes a blank, "%XX" its character; a "%" with fewer than two characters before the
  /// next one disappears. Nothing when two characters after a "%" are no hexadecimal number.
  std::optional<std::string> afDecodeURL(std::string_view strData) const;

 private:
  std::array<std::string, 256> url_;
  std::array<std::string, 256> html_;
};

}  // namespace quorvane
