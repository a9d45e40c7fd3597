#pragma once

#include <cstdint>
#include <string_view>

#include "vbscript/syntax/ast.h"
#include "vbscript/syntax/compile_errors.h"
#include "vbscript/syntax/keywords.h"
#include "vbscript/syntax/name_table.h"

namespace quorvane::vbs {

enum class TokenKind : std::uint8_t {
  End,  ///< of the text
  NewLine,
  Colon,
  Word,  ///< a name or a keyword
  Number,
  String,
  Date,
  LeftParen,
  RightParen,
  Comma,
  Dot,
  Plus,
  Minus,
  Star,
  Slash,
  Backslash,
  Caret,
  Ampersand,
  Equal,
  NotEqual,
  Less,
  LessOrEqual,
  Greater,
  GreaterOrEqual,
};

/// One token; its views live as long as the source text and the name table.
struct Token {
  TokenKind kind = TokenKind::End;
  Keyword keyword = Keyword::None;  ///< of a Word; None in brackets and behind a dot
  bool blankBefore = false;         ///< a blank or a continued line stands before it
  bool doubledQuotes = false;       ///< of a String: its text holds "" for a quote
  Type numberType = Type::Empty;    ///< of a Number: Integer, Long or Double
  SourcePosition position;
  std::string_view text;  ///< a word without brackets, a string or date without delimiters
  double number = 0;      ///< of a Number
  const NameTable::Entry* name = nullptr;  ///< of a Word
};

/// In front of a script: the bytes of its strings are UTF-8.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// Splits a script (bytes of Windows-1252, or of UTF-8 behind the mark) into tokens,
/// one at a call. Comments, blanks and continued line ends vanish here. Throws CompileError. After
/// the end it returns End for ever.
class Lexer {
 public:
  /// Both outlive the lexer and its tokens.
  Lexer(std::string_view source, NameTable& names);

  void next(Token& token);

 private:
  char peek(std::size_t distance = 0) const {
    return distance < static_cast<std::size_t>(end_ - at_) ? at_[distance] : '\0';
  }
  SourcePosition here() const;
  [[noreturn]] void fail(CompileErrorCode code) const;

  bool skipBlanks();
  bool skipContinuation();
  void newLine();
  void scan(Token& token);
  void scanComment(Token& token);
  void scanWord(Token& token);
  void scanBracketed(Token& token);
  void scanString(Token& token);
  void scanDate(Token& token);
  void scanNumber(Token& token);
  bool scanBased(Token& token);
  void scanSymbol(Token& token);
  void name(Token& token, std::string_view text);

  const char* at_;
  const char* end_;
  const char* lineStart_;
  std::uint32_t line_ = 1;
  NameTable& names_;
  TokenKind previous_ = TokenKind::NewLine;
  bool previousIsOperand_ = false;
};

}  // namespace quorvane::vbs
