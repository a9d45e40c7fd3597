#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// From byte `program` of a program on, its text stands for the page's from byte `page` on, as far
/// as both reach until the next one.
struct PageTrace {
  std::size_t program;
  std::size_t page;
};

/// Turns the text of a page, its includes expanded, into one script program: literal text becomes
/// calls that write it to the response, and a few statements are rewritten to the server's own
/// members. Every text gives a program; what is wrong with it shows when it runs. A lone CR or LF
/// ends a line as CR LF does; the program has CR LF only.
///
/// The members behind the rewritten names: `xwrite` and `xcreateobject` exist, `xclear` does not,
/// so that a page calling `Response.Clear` by its full name stops with an error. Pages know it.
///
/// `traces`, if any, grow with the program: one at every line's beginning, and where a line goes on
/// behind what the translation put in.
std::string translatePage(std::string_view page, std::vector<PageTrace>* traces = nullptr);

}  // namespace quorvane
