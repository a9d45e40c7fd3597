#include <sqlite3.h>

#include <algorithm>
#include <array>

#include "components/ado/sql/grammar.h"
#include "support/text.h"

namespace quorvane::ado {

namespace {

constexpr int kDeepest = 100;

bool isPlainName(std::string_view name) {
  if (name.empty() || (name[0] >= '0' && name[0] <= '9')) return false;
  for (const char c : name) {
    const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
                       (c >= '0' && c <= '9') || static_cast<unsigned char>(c) >= 0x80;
    if (!plain) return false;
  }
  return sqlite3_keyword_check(name.data(), static_cast<int>(name.size())) == 0;
}

std::string doubled(std::string_view text, char mark) {
  std::string result(1, mark);
  for (const char c : text) {
    if (c == '\0') continue;  // would end the statement
    result += c;
    if (c == mark) result += c;
  }
  return result + mark;
}

}  // namespace

std::string quotedName(std::string_view name) {
  return isPlainName(name) ? std::string(name) : doubled(name, '"');
}

std::string quotedText(std::string_view text) {
  return doubled(text, '\'');
}

SqlParser::SqlParser(std::string_view source, const SqlOptions& options)
    : source_(source), tokens_(sqlTokens(source)), options_(options) {
  if (!options.schema) return;
  for (const Token& token : tokens_) {
    const bool mayName = token.kind == TokenKind::Word || token.kind == TokenKind::Name ||
                         token.kind == TokenKind::Quoted;
    if (!mayName || !options.schema->hasTable(token.text)) continue;
    const auto same = [&](const std::string& t) { return equalsNoCase(t, token.text); };
    if (std::none_of(tables_.begin(), tables_.end(), same)) tables_.push_back(token.text);
  }
}

const Token& SqlParser::peek(std::size_t ahead) const {
  return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

const Token& SqlParser::take() {
  const Token& token = peek();
  if (at_ + 1 < tokens_.size()) ++at_;
  return token;
}

bool SqlParser::acceptWord(std::string_view word) {
  if (!isWord(word)) return false;
  take();
  return true;
}

bool SqlParser::acceptWords(std::string_view first, std::string_view second) {
  if (!isWord(first) || !isWord(second, 1)) return false;
  take();
  take();
  return true;
}

bool SqlParser::acceptSymbol(std::string_view symbol) {
  if (!isSymbol(symbol)) return false;
  take();
  return true;
}

void SqlParser::expectWord(std::string_view word) {
  if (!acceptWord(word)) refuseHere();
}

void SqlParser::expectSymbol(std::string_view symbol) {
  if (!acceptSymbol(symbol)) refuseHere();
}

void SqlParser::skipParentheses() {
  if (!isSymbol("(")) return;
  int open = 0;
  do {
    if (atEnd()) refuseHere();
    if (isSymbol("(")) ++open;
    if (isSymbol(")")) --open;
    take();
  } while (open > 0);
}

std::string SqlParser::name() {
  const Token& token = peek();
  const bool mayName = token.kind == TokenKind::Word || token.kind == TokenKind::Name ||
                       token.kind == TokenKind::Quoted || token.kind == TokenKind::Text;
  if (!mayName || token.text.empty()) refuseHere();
  return take().text;
}

std::string SqlParser::tableName() {
  std::string last = name();
  while (isSymbol(".") && !isSymbol("*", 1)) {
    while (acceptSymbol(".")) {
    }
    last = name();
  }
  return last;
}

std::string SqlParser::parameter(const std::string& name) {
  constexpr std::size_t kMost = 30'000;
  const auto same = [&](const std::string& p) { return p != "?" && equalsNoCase(p, name); };
  const auto found = std::find_if(parameters_.begin(), parameters_.end(), same);
  const auto index = static_cast<std::size_t>(found - parameters_.begin());
  if (found == parameters_.end()) parameters_.push_back(name);
  if (index >= kMost) throw SqlRefused{"Too many parameters."};
  return "?" + std::to_string(index + 1);
}

ColumnKind SqlParser::kindOf(std::string_view table, std::string_view column) const {
  return options_.schema ? options_.schema->kindOf(table, column) : ColumnKind::Unknown;
}

Piece SqlParser::columnPiece(const std::vector<std::string>& path) const {
  Piece piece;
  piece.column = true;
  const std::size_t first = path.size() > 2 ? path.size() - 2 : 0;  // owners in front mean nothing
  for (std::size_t i = first; i < path.size(); ++i) {
    if (i > first) piece.text += '.';
    piece.text += quotedName(path[i]);
  }
  if (!options_.schema) return piece;
  const auto learn = [&](std::string_view table) {
    if (!options_.schema->hasColumn(table, path.back())) return false;
    piece.kind = options_.schema->kindOf(table, path.back());
    piece.folds = options_.schema->heedsCase(table, path.back());
    return true;
  };
  if (path.size() > 1 && learn(path[path.size() - 2])) return piece;
  for (const std::string& table : tables_) {
    if (learn(table)) break;
  }
  return piece;
}

bool SqlParser::isKnownName(std::string_view name) const {
  if (!options_.schema) return false;
  for (const std::string& table : tables_) {
    if (equalsNoCase(table, name) || options_.schema->hasColumn(table, name)) return true;
  }
  return false;
}

void SqlParser::refuseHere() const {
  if (atEnd()) throw SqlRefused{"Syntax error: incomplete query clause."};
  constexpr std::size_t kShown = 40;
  const std::size_t begin = peek().begin;
  throw SqlRefused{"Syntax error in query expression near '" +
                   std::string(source_.substr(begin, kShown)) + "'."};
}

SqlParser::Level::Level(SqlParser& parser) : parser_(parser) {
  if (++parser_.depth_ > kDeepest) {
    --parser_.depth_;
    throw SqlRefused{"Query is too complex."};
  }
}

bool isClauseWord(const Token& token) {
  static constexpr std::array<std::string_view, 45> kWords = {
      "and",   "as",     "asc",    "between", "by",    "cross",  "delete", "desc",   "else",
      "end",   "escape", "except", "for",     "from",  "full",   "group",  "having", "in",
      "inner", "insert", "into",   "is",      "join",  "left",   "like",   "limit",  "natural",
      "not",   "offset", "on",     "option",  "or",    "order",  "outer",  "right",  "select",
      "set",   "then",   "union",  "update",  "using", "values", "when",   "where",  "with"};
  if (token.kind != TokenKind::Word) return false;
  return std::binary_search(kWords.begin(), kWords.end(), lowerCase(token.text));
}

}  // namespace quorvane::ado
