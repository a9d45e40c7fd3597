#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// What is wrong with a plain language text, a sentence each; empty when all is well. Everything
/// that the server would pass over in silence is a finding.
std::vector<std::string> checkLanguageText(std::string_view text);

/// What differs from a text in another language: keys missing or unknown there, and texts that
/// take other values ("%1", "%2", ...).
std::vector<std::string> compareLanguageTexts(std::string_view text, std::string_view reference);

}  // namespace quorvane
