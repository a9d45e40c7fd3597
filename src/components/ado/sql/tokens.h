#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::ado {

enum class TokenKind : std::uint8_t {
  Word,       ///< a name or keyword without quotes
  Name,       ///< [name] or `name`: never a keyword
  Text,       ///< 'text' or N'text', quotes gone
  Quoted,     ///< "text": a name or a text, as the dialect has it
  Number,     ///< as SQLite writes it
  Binary,     ///< hexadecimal digits of x'..' and 0x..
  Date,       ///< #..#, in the form in which dates are stored
  Parameter,  ///< ?, or @name and :name with the sign
  Variable,   ///< @@name, in lower case
  Symbol,     ///< one operator or mark
  End,
};

struct Token {
  TokenKind kind = TokenKind::End;
  std::string text;
  std::size_t begin = 0;  ///< of its spelling in the source
  std::size_t end = 0;

  bool isSymbol(std::string_view symbol) const {
    return kind == TokenKind::Symbol && text == symbol;
  }
  /// `word` in upper case.
  bool isWord(std::string_view word) const;
};

/// Cuts SQL of any of the usual dialects into tokens; the last one is End. An unfinished text or
/// name ends with the source. Comments are skipped.
std::vector<Token> sqlTokens(std::string_view source);

}  // namespace quorvane::ado
