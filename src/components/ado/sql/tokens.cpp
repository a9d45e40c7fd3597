#include "components/ado/sql/tokens.h"

#include <array>
#include <optional>

#include "components/ado/sql/stored_date.h"
#include "support/text.h"

namespace quorvane::ado {

namespace {

bool isWordStart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool isWordPart(char c) {
  return isWordStart(c) || isDigit(c) || c == '$' || c == '#';
}

bool isHexDigit(char c) {
  return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool isBlank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r') || c == '\0';
}

class Cutter {
 public:
  explicit Cutter(std::string_view source) : source_(source) {}

  std::vector<Token> all() {
    std::vector<Token> tokens;
    do {
      skipBlanks();
      const std::size_t begin = at_;
      tokens.push_back(next());
      tokens.back().begin = begin;
      tokens.back().end = at_;
    } while (tokens.back().kind != TokenKind::End);
    return tokens;
  }

 private:
  char peek(std::size_t ahead = 0) const {
    return at_ + ahead < source_.size() ? source_[at_ + ahead] : '\0';
  }
  bool startsWith(std::string_view text) const { return source_.substr(at_).starts_with(text); }

  void skipBlanks() {
    for (;;) {
      while (at_ < source_.size() && isBlank(source_[at_])) ++at_;
      if (startsWith("--")) {
        at_ = std::min(source_.find('\n', at_), source_.size());
      } else if (startsWith("/*")) {
        const std::size_t end = source_.find("*/", at_ + 2);
        at_ = end == source_.npos ? source_.size() : end + 2;
      } else {
        return;
      }
    }
  }

  Token next() {
    if (at_ == source_.size()) return {};
    const char c = peek();
    if (c == '\'') return {TokenKind::Text, quoted('\'')};
    if (c == '"') return {TokenKind::Quoted, quoted('"')};
    if (c == '`') return {TokenKind::Name, quoted('`')};
    if (c == '[') return {TokenKind::Name, quoted(']')};
    if ((c == 'N' || c == 'n') && peek(1) == '\'') {
      ++at_;
      return {TokenKind::Text, quoted('\'')};
    }
    if ((c == 'x' || c == 'X') && peek(1) == '\'') {
      ++at_;
      return {TokenKind::Binary, quoted('\'')};
    }
    if (c == '#') return dateOrName();
    if (c == '?') return {TokenKind::Parameter, take(1)};
    if (c == '@' || (c == ':' && isWordStart(peek(1)))) return variable();
    if (isDigit(c) || (c == '.' && isDigit(peek(1)))) return number();
    if (isWordStart(c)) return {TokenKind::Word, word()};
    return symbol();
  }

  std::string take(std::size_t count) {
    std::string text(source_.substr(at_, count));
    at_ += text.size();
    return text;
  }

  /// What stands up to the closing mark; a doubled mark stands for itself.
  std::string quoted(char close) {
    std::string text;
    for (++at_; at_ < source_.size(); ++at_) {
      if (peek() == close) {
        if (peek(1) != close) break;
        ++at_;
      }
      text += peek();
    }
    if (at_ < source_.size()) ++at_;
    return text;
  }

  std::string word() {
    const std::size_t begin = at_;
    while (at_ < source_.size() && isWordPart(source_[at_])) ++at_;
    return std::string(source_.substr(begin, at_ - begin));
  }

  /// #1/31/2024#, or the name of a passing table.
  Token dateOrName() {
    const std::size_t close = source_.find('#', at_ + 1);
    if (close != source_.npos) {
      if (const auto date = storedDate(source_.substr(at_ + 1, close - at_ - 1))) {
        at_ = close + 1;
        return {TokenKind::Date, *date};
      }
    }
    ++at_;
    if (!isWordStart(peek()) && peek() != '#') return {TokenKind::Symbol, "#"};
    return {TokenKind::Name, "#" + word()};
  }

  Token variable() {
    if (startsWith("@@")) {
      at_ += 2;
      return {TokenKind::Variable, lowerCase(word())};
    }
    const std::string sign = take(1);
    return {TokenKind::Parameter, sign + word()};
  }

  Token number() {
    if (peek() == '0' && (peek(1) == 'x' || peek(1) == 'X')) {
      at_ += 2;
      const std::size_t digits = at_;
      while (isHexDigit(peek())) ++at_;
      return {TokenKind::Binary, std::string(source_.substr(digits, at_ - digits))};
    }
    const std::size_t begin = at_;
    while (isDigit(peek())) ++at_;
    if (peek() == '.') {
      ++at_;
      while (isDigit(peek())) ++at_;
    }
    if (peek() == 'e' || peek() == 'E') {
      const std::size_t sign = peek(1) == '+' || peek(1) == '-' ? 1 : 0;
      if (isDigit(peek(1 + sign))) {
        at_ += 1 + sign;
        while (isDigit(peek())) ++at_;
      }
    }
    return {TokenKind::Number, std::string(source_.substr(begin, at_ - begin))};
  }

  Token symbol() {
    constexpr std::array<std::string_view, 12> kLong = {"<>", "<=", ">=", "!=", "==", "||",
                                                        "!<", "!>", "->", "<<", ">>", "=>"};
    for (const std::string_view one : kLong) {
      if (startsWith(one)) return {TokenKind::Symbol, take(2)};
    }
    return {TokenKind::Symbol, take(1)};
  }

  std::string_view source_;
  std::size_t at_ = 0;
};

}  // namespace

bool Token::isWord(std::string_view word) const {
  return kind == TokenKind::Word && equalsNoCase(text, word);
}

std::vector<Token> sqlTokens(std::string_view source) {
  return Cutter(source).all();
}

}  // namespace quorvane::ado
