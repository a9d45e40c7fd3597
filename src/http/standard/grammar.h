#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace quorvane {

/// The words that heads, targets and chunks are made of by RFC 9110 and 9112. Everything here goes
/// by the letter: nothing is trimmed that the grammar does not allow.
namespace standard_grammar {

bool isTokenChar(char c);
bool isToken(std::string_view text);  ///< never empty

/// Visible characters, blanks, tabs and bytes beyond ASCII.
bool isFieldValue(std::string_view text);

/// Without blanks and tabs at both ends.
std::string_view trimmed(std::string_view text);

/// A field line without its end: the name and the trimmed value. Nothing for what is none, such as
/// a folded line or one with a blank before its colon.
struct Field {
  std::string_view name;
  std::string_view value;
};
std::optional<Field> fieldOf(std::string_view line);

/// A host, in brackets where it is an address of version 6, and perhaps a port.
bool isAuthority(std::string_view text);

/// What stands between commas, trimmed, empty elements left out; commas in quotes end none.
template <class Visit>
void forEachElement(std::string_view list, Visit visit) {
  std::size_t start = 0;
  bool quoted = false;
  for (std::size_t i = 0; i <= list.size(); ++i) {
    if (i < list.size() && list[i] == '"') quoted = !quoted;
    if (i < list.size() && quoted && list[i] == '\\') ++i;
    if (i < list.size() && (quoted || list[i] != ',')) continue;
    const std::string_view element = trimmed(list.substr(start, std::min(i, list.size()) - start));
    if (!element.empty()) visit(element);
    start = i + 1;
  }
}

}  // namespace standard_grammar

}  // namespace quorvane
