#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Turns the text of a page, its includes expanded, into one script program: literal text becomes
/// calls that write it to the response, and a few statements are rewritten to the server's own
/// members. Every text gives a program; what is wrong with it shows when it runs. A lone CR or LF
/// ends a line as CR LF does; the program has CR LF only.
///
/// The members behind the rewritten names: `xwrite` and `xcreateobject` exist, `xclear` does not,
/// so that a page calling `Response.Clear` by its full name stops with an error. Pages know it.
std::string translatePage(std::string_view page);

}  // namespace quorvane
