#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// The plain form of a language table: a first line that says which language this is, then a line
/// "key=text" for each text. Lines end in CR LF; those that begin with ";" are comments.

struct LanguageHeading {
  std::int32_t lcid = 0;
  std::string name;  ///< the language's name for itself; empty when the line has none
};

struct LanguageEntry {
  std::string key;
  std::string text;  ///< with its line breaks
};

/// What every language text begins with; the format's version follows.
inline constexpr std::string_view kLanguageTag = "QVLF V";
inline constexpr std::string_view kLanguageVersion = "1.0";

/// The heading without its line end.
std::string languageHeading(std::int32_t lcid, std::string_view name);

/// Nothing when the text doesn't begin as a language text does or names no number.
std::optional<LanguageHeading> parseLanguageHeading(std::string_view text);

/// The text's lines, the heading first. Views into `text`.
std::vector<std::string_view> languageLines(std::string_view text);

/// A line without its line end; line breaks in the text become "||".
std::string languageLine(std::string_view key, std::string_view text);

/// Nothing for comments and lines without "=".
std::optional<LanguageEntry> parseLanguageLine(std::string_view line);

/// The key of a numbered text: "$007" for 7.
std::string numberedTextKey(std::int32_t number);

}  // namespace quorvane
