#include "vbscript/dumps/dumps.h"

#include <array>
#include <string>

#include "vbscript/syntax/lexer.h"
#include "vbscript/syntax/parser.h"

namespace quorvane::vbs {

namespace {

constexpr std::array<std::string_view, 7> kKindTexts = {"end",    "newline", "colon", "name",
                                                        "number", "string",  "date"};

std::string_view kindText(const Token& token) {
  if (token.kind == TokenKind::Word && token.keyword != Keyword::None) return "keyword";
  const auto kind = static_cast<std::size_t>(token.kind);
  return kind < kKindTexts.size() ? kKindTexts[kind] : "symbol";
}

bool hasText(TokenKind kind) {
  return kind != TokenKind::End && kind != TokenKind::NewLine && kind != TokenKind::Colon;
}

}  // namespace

std::string dumpTokens(std::string_view source) {
  NameTable names;
  Lexer lexer(source, names);
  std::string out;
  Token token;
  try {
    do {
      lexer.next(token);
      out += std::to_string(token.position.line) + ':' + std::to_string(token.position.column) +
             ' ' + std::string(kindText(token));
      if (hasText(token.kind)) (out += ' ') += token.text;
      out += '\n';
    } while (token.kind != TokenKind::End);
  } catch (const CompileError& error) {
    out += std::to_string(error.position.line) + ':' + std::to_string(error.position.column) +
           " error " + error.description + '\n';
  }
  return out;
}

}  // namespace quorvane::vbs
