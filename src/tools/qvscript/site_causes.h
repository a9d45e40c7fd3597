#pragma once

#include <set>
#include <string>
#include <string_view>

#include "script/customary/page_program.h"

namespace quorvane::qvscript {

/// What the code of a page uses that means something else in the default dialect, or nothing there.
struct Causes {
  std::set<std::string> differences;  ///< in words
  std::set<std::string> components;   ///< program identifiers that are not there
};

/// Of the program that the customary dialect makes of a page.
Causes causesIn(const customary::PageProgram& page);

/// Whether a file whose page names no code page holds letters, and in which way.
enum class Letters { Ascii, Utf8, Other };
Letters lettersOf(std::string_view text);

}  // namespace quorvane::qvscript
