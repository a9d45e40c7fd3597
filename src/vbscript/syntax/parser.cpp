#include "vbscript/syntax/parser.h"

#include "vbscript/syntax/parser_impl.h"

namespace quorvane::vbs {

DeclaredNames::Kind DeclaredNames::find(Level level, std::uint32_t id) const {
  const std::size_t at = std::size_t{id} * kLevels + level;
  if (at >= marks_.size() || marks_[at].serial != serials_[level]) return Kind::None;
  return marks_[at].kind;
}

void DeclaredNames::add(Level level, std::uint32_t id, Kind kind) {
  const std::size_t at = std::size_t{id} * kLevels + level;
  if (at >= marks_.size()) marks_.resize((at + 1) * 2);
  marks_[at] = {serials_[level], kind};
}

Parser::Parser(std::string_view source, NameTable& names)
    : lexer_(source, names), isUtf8_(source.starts_with(kUtf8Mark)) {
  lexer_.next(token_);
  lookAhead();
}

/// A fault of the token ahead is told when it is its turn: the one in hand may not fit either.
void Parser::lookAhead() {
  try {
    lexer_.next(ahead_);
  } catch (const CompileError& fault) {
    aheadFault_ = fault;
    ahead_ = Token();
  }
}

void Parser::advance() {
  isAfterColon_ = token_.kind == TokenKind::Colon;
  if (aheadFault_) throw CompileError(*aheadFault_);
  token_ = ahead_;
  if (token_.kind != TokenKind::End) lookAhead();
}

bool Parser::atBlockEnd() const {
  if (at(TokenKind::End)) return true;
  if (!at(TokenKind::Word)) return false;
  switch (token_.keyword) {
    case Keyword::End:
    case Keyword::Else:
    case Keyword::ElseIf:
    case Keyword::Case:
    case Keyword::Loop:
    case Keyword::Next:
    case Keyword::Wend:
      return true;
    default:
      return false;
  }
}

bool Parser::atStatementEnd() const {
  return at(TokenKind::NewLine) || at(TokenKind::Colon) || atBlockEnd();
}

void Parser::endStatement() {
  if (accept(TokenKind::NewLine) || accept(TokenKind::Colon) || at(TokenKind::End)) return;
  // A one-line If takes the colons of its line: `If a Then b : Next`.
  if (isAfterColon_) return;
  if (!at(Keyword::End)) fail(CompileErrorCode::ExpectedEndOfStatement);
  // `Sub s x = 1 End Sub` may stand on one line.
  if (isAhead(Keyword::If) || isAhead(Keyword::Select)) fail(CompileErrorCode::MustBeFirst);
}

void Parser::skipSeparators() {
  while (at(TokenKind::NewLine) || at(TokenKind::Colon)) advance();
}

Identifier Parser::takeName() {
  if (!atName()) fail(CompileErrorCode::ExpectedIdentifier);
  const Identifier name{token_.text, token_.name->lower, token_.name->id};
  advance();
  return name;
}

void Parser::failAt(SourcePosition position, CompileErrorCode code) {
  throw CompileError{static_cast<std::int32_t>(code), std::string(compileErrorText(code)),
                     position};
}

ExpressionPtr Parser::parseWholeExpression() {
  skipSeparators();
  ExpressionPtr expression = parseExpression();
  skipSeparators();
  if (!at(TokenKind::End)) fail(CompileErrorCode::ExpectedEndOfStatement);
  return expression;
}

std::unique_ptr<Script> parseScript(std::string_view source) {
  auto script = std::make_unique<Script>();
  Parser(source, script->names).parseScript(*script);
  return script;
}

ParsedExpression parseExpression(std::string_view source) {
  ParsedExpression parsed;
  parsed.names = std::make_unique<NameTable>();
  parsed.expression = Parser(source, *parsed.names).parseWholeExpression();
  return parsed;
}

}  // namespace quorvane::vbs
