#include "vbscript/syntax/lexer.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <string>

#include "vbscript/syntax/parser.h"
#include "vbscript/values/digits.h"

namespace quorvane::vbs {

namespace {

constexpr std::size_t kMaxNameLength = 255;

enum CharClass : std::uint8_t {
  kOther = 0,
  kBlank = 1,
  kLineEnd = 2,
  kLetter = 4,  ///< may begin a name
  kDigit = 8,
  kUnderscore = 16,
  kHex = 32,
  kNamePart = kLetter | kDigit | kUnderscore,
};

constexpr std::array<std::uint8_t, 256> makeClasses() {
  std::array<std::uint8_t, 256> table{};
  for (const unsigned char c : {' ', '\t', '\v', '\f'}) table[c] = kBlank;
  for (const unsigned char c : {'\r', '\n'}) table[c] = kLineEnd;
  for (int c = '0'; c <= '9'; ++c) table[c] = kDigit | kHex;
  for (int c = 0; c < 26; ++c) {
    table['a' + c] = table['A' + c] = static_cast<std::uint8_t>(kLetter | (c < 6 ? kHex : 0));
  }
  table['_'] = kUnderscore;
  return table;
}

constexpr auto kClasses = makeClasses();

bool isA(char c, int classes) {
  return (kClasses[static_cast<unsigned char>(c)] & classes) != 0;
}

bool isValueKeyword(Keyword keyword) {
  return keyword == Keyword::Me || keyword == Keyword::Nothing || keyword == Keyword::Null ||
         keyword == Keyword::Empty || keyword == Keyword::True || keyword == Keyword::False ||
         !isReserved(keyword);
}

}  // namespace

Lexer::Lexer(std::string_view source, NameTable& names)
    : at_(source.data()), end_(at_ + source.size()), lineStart_(at_), names_(names) {
  if (source.starts_with(kUtf8Mark)) at_ += kUtf8Mark.size();
}

SourcePosition Lexer::here() const {
  return {line_, static_cast<std::uint32_t>(at_ - lineStart_) + 1};
}

void Lexer::fail(CompileErrorCode code) const {
  throw CompileError{static_cast<std::int32_t>(code), std::string(compileErrorText(code)), here()};
}

void Lexer::next(Token& token) {
  token.keyword = Keyword::None;
  token.blankBefore = skipBlanks();
  token.position = here();
  scan(token);
  previous_ = token.kind;
  previousIsOperand_ = token.kind == TokenKind::Number || token.kind == TokenKind::String ||
                       token.kind == TokenKind::Date || token.kind == TokenKind::RightParen ||
                       (token.kind == TokenKind::Word && isValueKeyword(token.keyword));
}

bool Lexer::skipBlanks() {
  const char* start = at_;
  for (;;) {
    while (at_ < end_ && isA(*at_, kBlank)) ++at_;
    if (at_ == end_ || *at_ != '_' || !skipContinuation()) return at_ != start;
  }
}

/// At an underscore: steps over it and its line end when nothing else stands between, and over
/// blank lines behind.
bool Lexer::skipContinuation() {
  const char* p = at_ + 1;
  while (p < end_ && isA(*p, kBlank)) ++p;
  if (p < end_ && !isA(*p, kLineEnd)) return false;
  for (at_ = p; at_ < end_ && isA(*at_, kLineEnd); at_ = p) {
    newLine();
    p = at_;
    while (p < end_ && isA(*p, kBlank)) ++p;
    if (p < end_ && !isA(*p, kLineEnd)) break;
  }
  return true;
}

/// A comment's token is the line end behind it.
void Lexer::scanComment(Token& token) {
  while (at_ < end_ && !isA(*at_, kLineEnd)) ++at_;
  token.position = here();
  scan(token);
}

void Lexer::newLine() {
  at_ += peek() == '\r' && peek(1) == '\n' ? 2 : 1;
  ++line_;
  lineStart_ = at_;
}

void Lexer::scan(Token& token) {
  if (at_ == end_) {
    token.kind = TokenKind::End;
    return;
  }
  const char c = *at_;
  if (isA(c, kLetter)) return scanWord(token);
  if (isA(c, kDigit) || (c == '.' && isA(peek(1), kDigit))) return scanNumber(token);
  if (isA(c, kLineEnd)) {
    token.kind = TokenKind::NewLine;
    newLine();
    return;
  }
  switch (c) {
    case '"':
      return scanString(token);
    case '[':
      return scanBracketed(token);
    case '#':
      return scanDate(token);
    case '\'':
      return scanComment(token);
    case '&':
      if (scanBased(token)) return;
      break;
    default:
      break;
  }
  scanSymbol(token);
}

void Lexer::name(Token& token, std::string_view text) {
  if (text.size() > kMaxNameLength) fail(CompileErrorCode::IdentifierTooLong);
  token.kind = TokenKind::Word;
  token.text = text;
  token.name = &names_.intern(text);
}

void Lexer::scanWord(Token& token) {
  const char* start = at_;
  const char* p = at_;
  while (p < end_ && isA(*p, kNamePart)) ++p;
  name(token, {start, static_cast<std::size_t>(p - start)});
  at_ = p;
  if (previous_ == TokenKind::Dot || token.name->id >= kKeywordTexts.size()) return;
  token.keyword = static_cast<Keyword>(token.name->id);
  if (token.keyword == Keyword::Rem) {
    token.keyword = Keyword::None;
    scanComment(token);
  }
}

void Lexer::scanBracketed(Token& token) {
  const char* p = at_ + 1;
  while (p < end_ && *p != ']' && !isA(*p, kLineEnd)) ++p;
  if (p == end_ || *p != ']') {
    at_ = p;
    fail(CompileErrorCode::ExpectedRightBracket);
  }
  name(token, {at_ + 1, static_cast<std::size_t>(p - at_ - 1)});
  at_ = p + 1;
}

void Lexer::scanString(Token& token) {
  const char* start = at_ + 1;
  const char* p = start;
  token.kind = TokenKind::String;
  token.doubledQuotes = false;
  while (true) {
    while (p < end_ && *p != '"' && !isA(*p, kLineEnd)) ++p;
    if (p == end_ || *p != '"') {
      at_ = p;
      fail(CompileErrorCode::UnterminatedString);
    }
    if (p + 1 == end_ || p[1] != '"') break;
    token.doubledQuotes = true;
    p += 2;
  }
  token.text = {start, static_cast<std::size_t>(p - start)};
  at_ = p + 1;
}

void Lexer::scanDate(Token& token) {
  const char* p = at_ + 1;
  while (p < end_ && *p != '#' && !isA(*p, kLineEnd)) ++p;
  if (p == end_ || *p != '#') fail(CompileErrorCode::SyntaxError);
  token.kind = TokenKind::Date;
  token.text = {at_ + 1, static_cast<std::size_t>(p - at_ - 1)};
  at_ = p + 1;
}

void Lexer::scanNumber(Token& token) {
  const char* p = at_;
  bool isWhole = true;
  while (p < end_ && isA(*p, kDigit)) ++p;
  if (p < end_ && *p == '.') {
    isWhole = false;
    for (++p; p < end_ && isA(*p, kDigit);) ++p;
  }
  if (p < end_ && (*p == 'e' || *p == 'E')) {
    const char* exponent = p + 1;
    if (exponent < end_ && (*exponent == '+' || *exponent == '-')) ++exponent;
    if (exponent < end_ && isA(*exponent, kDigit)) {  // else a word is glued on: 1Else
      isWhole = false;
      for (p = exponent; p < end_ && isA(*p, kDigit);) ++p;
    }
  }
  token.kind = TokenKind::Number;
  token.text = {at_, static_cast<std::size_t>(p - at_)};
  token.number = 0;
  // Out of range may mean above or below; what is too small is a zero.
  if (std::from_chars(at_, p, token.number).ec == std::errc::result_out_of_range &&
      std::strtod(std::string(token.text).c_str(), nullptr) > 1) {
    fail(CompileErrorCode::InvalidNumber);
  }
  token.numberType = !isWhole || token.number > INT32_MAX ? Type::Double
                     : token.number > INT16_MAX           ? Type::Long
                                                          : Type::Integer;
  at_ = p;
}

/// &HFF, &O17 and &17. Up to four hexadecimal digits are the bits of an Integer, unless an & stands
/// behind; then the smallest subtype that holds the number is taken. What follows an operand is the
/// operator, and so is an & before a name: `x&hour(y)`.
bool Lexer::scanBased(Token& token) {
  const char* p = at_ + 1;
  int bits = 3;
  if (p < end_ && (*p | 0x20) == 'h') {
    bits = 4;
    ++p;
  } else if (p < end_ && (*p | 0x20) == 'o') {
    ++p;
  } else if (previousIsOperand_) {
    return false;
  }
  const char* digits = p;
  std::uint64_t value = 0;
  while (p < end_ && isA(*p, kHex) && digitValue(*p) < (1 << bits)) {
    if (value >> 32 == 0) value = (value << bits) | static_cast<unsigned>(digitValue(*p));
    ++p;
  }
  if (p == digits || (previousIsOperand_ && p < end_ && isA(*p, kNamePart))) return false;
  if (value > UINT32_MAX) fail(CompileErrorCode::InvalidNumber);
  const bool isWide = p < end_ && *p == '&';
  if (isWide) ++p;
  const std::int32_t number = isWide || value > UINT16_MAX ? static_cast<std::int32_t>(value)
                                                           : static_cast<std::int16_t>(value);
  token.kind = TokenKind::Number;
  token.text = {at_, static_cast<std::size_t>(p - at_)};
  // The least Integer passes for a Long.
  token.numberType = number > INT16_MIN && number <= INT16_MAX ? Type::Integer : Type::Long;
  token.number = number;
  at_ = p;
  return true;
}

void Lexer::scanSymbol(Token& token) {
  const auto take = [&](TokenKind kind, int length) {
    token.kind = kind;
    token.text = {at_, static_cast<std::size_t>(length)};
    at_ += length;
  };
  const char second = peek(1);
  switch (*at_) {
    case ':':
      return take(TokenKind::Colon, 1);
    case '(':
      return take(TokenKind::LeftParen, 1);
    case ')':
      return take(TokenKind::RightParen, 1);
    case ',':
      return take(TokenKind::Comma, 1);
    case '.':
      return take(TokenKind::Dot, 1);
    case '+':
      return take(TokenKind::Plus, 1);
    case '-':
      return take(TokenKind::Minus, 1);
    case '*':
      return take(TokenKind::Star, 1);
    case '/':
      return take(TokenKind::Slash, 1);
    case '\\':
      return take(TokenKind::Backslash, 1);
    case '^':
      return take(TokenKind::Caret, 1);
    case '&':
      return take(TokenKind::Ampersand, 1);
    case '=':
      return second == '<'   ? take(TokenKind::LessOrEqual, 2)
             : second == '>' ? take(TokenKind::GreaterOrEqual, 2)
                             : take(TokenKind::Equal, 1);
    case '<':
      return second == '='   ? take(TokenKind::LessOrEqual, 2)
             : second == '>' ? take(TokenKind::NotEqual, 2)
                             : take(TokenKind::Less, 1);
    case '>':
      return second == '='   ? take(TokenKind::GreaterOrEqual, 2)
             : second == '<' ? take(TokenKind::NotEqual, 2)
                             : take(TokenKind::Greater, 1);
    default:
      fail(CompileErrorCode::InvalidCharacter);
  }
}

}  // namespace quorvane::vbs
