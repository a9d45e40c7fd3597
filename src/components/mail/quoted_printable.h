#pragma once

#include <string>
#include <string_view>

namespace quorvane::mail {

/// The bytes of a text as quoted-printable: lines of at most 76 characters with CR LF between them,
/// LF and CR LF of the text among them; no line ends with a blank, and none begins with a dot or
/// "From ", which some that pass mail on would change.
std::string quotedPrintable(std::string_view text);

/// Each byte as two hexadecimal digits behind a mark: "=C3=A4".
std::string escapedBytes(std::string_view bytes, char mark = '=');

}  // namespace quorvane::mail
