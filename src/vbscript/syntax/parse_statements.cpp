#include "vbscript/syntax/parser_impl.h"

namespace quorvane::vbs {

void Parser::parseBlock(Block& block) {
  const Nesting nesting(*this);
  for (;;) {
    skipSeparators();
    if (atBlockEnd()) return;
    if (atScriptProcedure()) {
      parseScriptProcedure();
    } else {
      block.push_back(parseStatement());
    }
    endStatement();
  }
}

/// The statements of one line, as a one-line If has them.
void Parser::parseInlineBlock(Block& block) {
  const Nesting nesting(*this);
  for (;;) {
    while (accept(TokenKind::Colon)) {
    }
    if (atLineEnd() || atBlockEnd()) return;
    block.push_back(parseStatement());
    if (!atStatementEnd()) fail(CompileErrorCode::ExpectedEndOfStatement);
  }
}

StatementPtr Parser::parseStatement() {
  switch (token_.kind) {
    case TokenKind::Dot:
    case TokenKind::LeftParen:
      return parseCallOrAssign();
    case TokenKind::Word:
      if (atName()) return parseContextualStatement();
      return parseKeywordStatement();
    default:
      fail(CompileErrorCode::ExpectedStatement);
  }
}

StatementPtr Parser::parseKeywordStatement() {
  switch (token_.keyword) {
    case Keyword::Me:
      return parseCallOrAssign();
    case Keyword::Call:
      return parseCall();
    case Keyword::Const:
      return parseConst();
    case Keyword::Dim:
      advance();
      return parseDim(false);
    case Keyword::Do:
      return parseDo();
    case Keyword::Exit:
      return parseExit();
    case Keyword::For:
      return parseFor();
    case Keyword::If:
      return parseIf();
    case Keyword::On:
      return parseOnError();
    case Keyword::ReDim:
      return parseReDim();
    case Keyword::Select:
      return parseSelect();
    case Keyword::Set:
      return parseSet();
    case Keyword::While:
      return parseWhile();
    case Keyword::With:
      return parseWith();
    case Keyword::Class:
    case Keyword::Function:
    case Keyword::Option:
    case Keyword::Private:
    case Keyword::Public:
    case Keyword::Sub:
      fail(CompileErrorCode::SyntaxError);
    default:
      fail(CompileErrorCode::ExpectedStatement);
  }
}

/// A statement that begins with a name, or with a word that is a keyword here alone.
StatementPtr Parser::parseContextualStatement() {
  const bool takesName = ahead_.kind == TokenKind::Word || ahead_.kind == TokenKind::Dot;
  switch (token_.keyword) {
    case Keyword::Erase:
      if (takesName && (ahead_.kind != TokenKind::Dot || ahead_.blankBefore)) return parseErase();
      break;
    case Keyword::Stop: {
      const SourcePosition position = token_.position;
      if (ahead_.kind == TokenKind::Dot || ahead_.kind == TokenKind::Equal ||
          ahead_.kind == TokenKind::LeftParen) {
        break;
      }
      advance();
      return std::make_unique<StopStatement>(position);
    }
    case Keyword::Property:
      if (isAhead(Keyword::Get) || isAhead(Keyword::Let) || isAhead(Keyword::Set)) {
        fail(CompileErrorCode::MustBeInsideClass);
      }
      break;
    default:
      break;
  }
  return parseCallOrAssign();
}

/// What stands to the left of an assignment; `a.b() = c` is `a.b = c`.
ExpressionPtr Parser::assignable(ExpressionPtr target) const {
  if (target->kind == ExpressionKind::Me) fail(CompileErrorCode::InvalidMe);
  if (target->kind == ExpressionKind::Parenthesized) fail(CompileErrorCode::SyntaxError);
  if (target->kind != ExpressionKind::Call) return target;
  auto& call = static_cast<CallExpression&>(*target);
  if (!call.arguments.empty() || call.callee->kind != ExpressionKind::Member) return target;
  return std::move(call.callee);
}

StatementPtr Parser::parseCallOrAssign() {
  const SourcePosition position = token_.position;
  ExpressionPtr target = parseChain(Chain::Statement);
  if (at(TokenKind::Equal)) {
    target = assignable(std::move(target));
    advance();
    return std::make_unique<AssignStatement>(position, false, std::move(target), parseExpression());
  }
  if (target->kind == ExpressionKind::Parenthesized) {
    failAt(position, CompileErrorCode::ExpectedStatement);
  }
  return parseBareCall(position, std::move(target));
}

/// A call without Call. Parentheses right behind the callee hold the first argument, or its
/// beginning: `f (a + 1) * b` passes one value, `f (a), b` two.
StatementPtr Parser::parseBareCall(SourcePosition position, ExpressionPtr callee) {
  ExpressionPtr first;
  if (callee->kind == ExpressionKind::Call) {
    auto& call = static_cast<CallExpression&>(*callee);
    if (call.arguments.size() > 1) fail(CompileErrorCode::ParenthesesOnSub);
    if (call.arguments.empty()) {
      if (!atStatementEnd()) fail(CompileErrorCode::ExpectedEndOfStatement);
    } else {
      first = make<ParenthesizedExpression>(call.position, std::move(call.arguments.front()));
      first = parseBinaryTail(std::move(first), 1);
    }
    ExpressionPtr inner = std::move(call.callee);
    callee = std::move(inner);
  }
  std::vector<ExpressionPtr> arguments = parseBareArguments(std::move(first));
  return std::make_unique<CallStatement>(position, std::move(callee), std::move(arguments));
}

std::vector<ExpressionPtr> Parser::parseBareArguments(ExpressionPtr first) {
  std::vector<ExpressionPtr> arguments;
  if (first) {
    arguments.push_back(std::move(first));
  } else if (at(TokenKind::Comma)) {
    arguments.push_back(nullptr);
  } else if (!atStatementEnd()) {
    const bool beginsExpression = !at(TokenKind::Word) || atName() || literalKeyword() ||
                                  at(Keyword::Not) || at(Keyword::New) || at(Keyword::Me);
    const bool isOperator =
        token_.kind > TokenKind::Dot && !at(TokenKind::Minus) && !at(TokenKind::Plus);
    if (!beginsExpression || isOperator || at(TokenKind::RightParen)) {
      fail(CompileErrorCode::ExpectedEndOfStatement);
    }
    arguments.push_back(parseExpression());
  }
  while (accept(TokenKind::Comma)) {
    arguments.push_back(at(TokenKind::Comma) ? nullptr : parseExpression());
  }
  return arguments;
}

StatementPtr Parser::parseSet() {
  const SourcePosition position = token_.position;
  advance();
  if (!atName() && !at(Keyword::Me) && !at(TokenKind::Dot) && !at(TokenKind::LeftParen)) {
    fail(CompileErrorCode::ExpectedIdentifier);
  }
  ExpressionPtr target = assignable(parseChain(Chain::Operand));
  expect(TokenKind::Equal, CompileErrorCode::ExpectedEquals);
  return std::make_unique<AssignStatement>(position, true, std::move(target), parseExpression());
}

StatementPtr Parser::parseCall() {
  const SourcePosition position = token_.position;
  advance();
  const SourcePosition calleePosition = token_.position;
  const bool beginsChain = atName() || at(Keyword::Me) || at(Keyword::New) || at(TokenKind::Dot) ||
                           at(TokenKind::LeftParen);
  if (!beginsChain) fail(CompileErrorCode::ExpectedIdentifier);
  ExpressionPtr callee = withoutParentheses(parseChain(Chain::Operand), false);
  if (callee->kind == ExpressionKind::New) {
    failAt(calleePosition, CompileErrorCode::ExpectedIdentifier);
  }
  std::vector<ExpressionPtr> arguments;
  if (callee->kind == ExpressionKind::Call) {
    auto& call = static_cast<CallExpression&>(*callee);
    arguments = std::move(call.arguments);
    ExpressionPtr inner = std::move(call.callee);
    callee = std::move(inner);
  }
  return std::make_unique<CallStatement>(position, std::move(callee), std::move(arguments));
}

void Parser::failUnclosed(CompileErrorCode expected) const {
  if (at(Keyword::Loop) && around_.doLoops == 0) fail(CompileErrorCode::LoopWithoutDo);
  if (at(Keyword::Next) && around_.forLoops == 0) fail(CompileErrorCode::UnexpectedNext);
  fail(expected);
}

void Parser::expectEnd(Keyword keyword, CompileErrorCode otherwise) {
  if (!at(Keyword::End)) failUnclosed(CompileErrorCode::ExpectedEnd);
  advance();
  expect(keyword, otherwise);
}

StatementPtr Parser::parseIf() {
  auto statement = std::make_unique<IfStatement>(token_.position);
  IfStatement::Branch& branch = statement->branches.emplace_back();
  branch.position = token_.position;
  advance();
  branch.condition = parseExpression();
  expect(Keyword::Then, CompileErrorCode::ExpectedThen);
  if (atLineEnd()) {
    parseBlockIf(*statement);
  } else {
    parseInlineIf(*statement);
  }
  return statement;
}

/// `If a Then b : c Else d`, to the line's end or an End If before it.
void Parser::parseInlineIf(IfStatement& statement) {
  parseInlineBlock(statement.branches.back().body);
  while (at(Keyword::ElseIf)) {
    IfStatement::Branch& branch = statement.branches.emplace_back();
    branch.position = token_.position;
    advance();
    branch.condition = parseExpression();
    expect(Keyword::Then, CompileErrorCode::ExpectedThen);
    parseInlineBlock(branch.body);
  }
  if (accept(Keyword::Else)) parseInlineBlock(statement.otherwise);
  if (at(Keyword::End) && isAhead(Keyword::If)) {
    advance();
    advance();
  }
}

void Parser::parseBlockIf(IfStatement& statement) {
  parseBlock(statement.branches.back().body);
  while (at(Keyword::ElseIf)) {
    IfStatement::Branch& branch = statement.branches.emplace_back();
    branch.position = token_.position;
    advance();
    branch.condition = parseExpression();
    expect(Keyword::Then, CompileErrorCode::ExpectedThen);
    parseBlock(branch.body);
  }
  if (accept(Keyword::Else)) parseBlock(statement.otherwise);
  expectEnd(Keyword::If, CompileErrorCode::ExpectedIf);
}

StatementPtr Parser::parseSelect() {
  auto statement = std::make_unique<SelectStatement>(token_.position);
  advance();
  expect(Keyword::Case, CompileErrorCode::ExpectedCase);
  statement->subject = parseExpression();
  endStatement();
  skipSeparators();
  while (at(Keyword::Case) && !isAhead(Keyword::Else)) parseCase(*statement);
  if (accept(Keyword::Case)) {
    advance();
    parseBlock(statement->otherwise);
  } else if (!at(Keyword::End)) {
    failUnclosed(at(TokenKind::End) ? CompileErrorCode::ExpectedEnd
                                    : CompileErrorCode::ExpectedCase);
  }
  expectEnd(Keyword::Select, CompileErrorCode::ExpectedSelect);
  return statement;
}

void Parser::parseCase(SelectStatement& statement) {
  SelectStatement::Case& branch = statement.cases.emplace_back();
  branch.position = token_.position;
  advance();
  do {
    branch.values.push_back(parseExpression());
  } while (accept(TokenKind::Comma));
  parseBlock(branch.body);
}

StatementPtr Parser::parseFor() {
  const SourcePosition position = token_.position;
  advance();
  if (at(Keyword::Each)) return parseForEach(position);
  auto statement = std::make_unique<ForStatement>(position);
  statement->variable = takeName();
  if (at(TokenKind::LeftParen) || at(TokenKind::Dot)) fail(CompileErrorCode::InvalidForVariable);
  expect(TokenKind::Equal, CompileErrorCode::ExpectedEquals);
  statement->from = parseExpression();
  expect(Keyword::To, CompileErrorCode::ExpectedTo);
  statement->to = parseExpression();
  if (accept(Keyword::Step)) statement->step = parseExpression();
  endStatement();
  parseForBody(statement->body, statement->end);
  return statement;
}

StatementPtr Parser::parseForEach(SourcePosition position) {
  advance();
  auto statement = std::make_unique<ForEachStatement>(position);
  statement->variable = takeName();
  if (at(TokenKind::LeftParen) || at(TokenKind::Dot)) fail(CompileErrorCode::InvalidForVariable);
  expect(Keyword::In, CompileErrorCode::ExpectedIn);
  statement->collection = parseExpression();
  endStatement();
  parseForBody(statement->body, statement->end);
  return statement;
}

void Parser::parseForBody(Block& body, SourcePosition& end) {
  ++around_.forLoops;
  parseBlock(body);
  end = token_.position;
  if (!at(Keyword::Next)) failUnclosed(CompileErrorCode::ExpectedNext);
  advance();
  --around_.forLoops;
}

StatementPtr Parser::parseDo() {
  auto statement = std::make_unique<DoStatement>(token_.position);
  advance();
  if (at(Keyword::While) || at(Keyword::Until)) {
    parseDoTest(*statement, DoStatement::Test::Before);
  } else if (!atStatementEnd()) {
    fail(CompileErrorCode::ExpectedWhileUntilOrEnd);
  }
  endStatement();
  ++around_.doLoops;
  parseBlock(statement->body);
  statement->end = token_.position;
  if (!at(Keyword::Loop)) failUnclosed(CompileErrorCode::ExpectedLoop);
  advance();
  --around_.doLoops;
  if (!atStatementEnd() && !at(Keyword::While) && !at(Keyword::Until)) {
    fail(CompileErrorCode::ExpectedWhileOrUntil);
  }
  if (at(Keyword::While) || at(Keyword::Until)) {
    if (statement->test == DoStatement::Test::Before) {
      fail(CompileErrorCode::ExpectedEndOfStatement);
    }
    parseDoTest(*statement, DoStatement::Test::After);
  }
  return statement;
}

void Parser::parseDoTest(DoStatement& statement, DoStatement::Test test) {
  statement.test = test;
  statement.until = at(Keyword::Until);
  advance();
  statement.condition = parseExpression();
}

StatementPtr Parser::parseWhile() {
  auto statement = std::make_unique<DoStatement>(token_.position);
  statement->isWhileWend = true;
  parseDoTest(*statement, DoStatement::Test::Before);
  endStatement();
  parseBlock(statement->body);
  statement->end = token_.position;
  if (!at(Keyword::Wend)) failUnclosed(CompileErrorCode::ExpectedWend);
  advance();
  return statement;
}

StatementPtr Parser::parseWith() {
  auto statement = std::make_unique<WithStatement>(token_.position);
  advance();
  statement->object = parseExpression();
  endStatement();
  ++around_.withs;
  parseBlock(statement->body);
  --around_.withs;
  expectEnd(Keyword::With, CompileErrorCode::ExpectedWith);
  return statement;
}

StatementPtr Parser::parseExit() {
  const SourcePosition position = token_.position;
  advance();
  const auto inProperty = [&] {
    return procedure_ && *procedure_ != ProcedureKind::Sub &&
           *procedure_ != ProcedureKind::Function;
  };
  std::optional<ExitKind> what;
  if (at(Keyword::Do) && around_.doLoops > 0) {
    what = ExitKind::Do;
  } else if (at(Keyword::For) && around_.forLoops > 0) {
    what = ExitKind::For;
  } else if (at(Keyword::Sub) && procedure_ == ProcedureKind::Sub) {
    what = ExitKind::Sub;
  } else if (at(Keyword::Function) && procedure_ == ProcedureKind::Function) {
    what = ExitKind::Function;
  } else if (at(Keyword::Property) && inProperty()) {
    what = ExitKind::Property;
  }
  if (!what) fail(CompileErrorCode::InvalidExit);
  advance();
  return std::make_unique<ExitStatement>(position, *what);
}

StatementPtr Parser::parseOnError() {
  const SourcePosition position = token_.position;
  advance();
  expect(Keyword::Error, CompileErrorCode::SyntaxError);
  const bool resumes = at(Keyword::Resume);
  if (!resumes && !at(Keyword::GoTo)) fail(CompileErrorCode::SyntaxError);
  advance();
  const bool isZero = at(TokenKind::Number) && token_.number == 0;
  if (resumes ? !at(Keyword::Next) : !isZero) fail(CompileErrorCode::SyntaxError);
  advance();
  return std::make_unique<OnErrorStatement>(position, resumes);
}

StatementPtr Parser::parseErase() {
  auto statement = std::make_unique<EraseStatement>(token_.position);
  advance();
  do {
    statement->targets.push_back(parseChain(Chain::Operand));
  } while (accept(TokenKind::Comma));
  return statement;
}

StatementPtr Parser::parseReDim() {
  auto statement = std::make_unique<ReDimStatement>(token_.position);
  advance();
  statement->preserve = accept(Keyword::Preserve);
  do {
    if (!atName() && !at(Keyword::Me) && !at(TokenKind::Dot)) {
      fail(CompileErrorCode::ExpectedIdentifier);
    }
    ExpressionPtr chain = parseChain(Chain::Operand);
    if (chain->kind != ExpressionKind::Call) fail(CompileErrorCode::ExpectedLeftParen);
    auto& call = static_cast<CallExpression&>(*chain);
    if (call.arguments.empty()) fail(CompileErrorCode::ExpectedExpression);
    for (const auto& bound : call.arguments) {
      if (!bound) failAt(call.position, CompileErrorCode::ExpectedExpression);
    }
    statement->targets.push_back({std::move(call.callee), std::move(call.arguments)});
  } while (accept(TokenKind::Comma));
  return statement;
}

}  // namespace quorvane::vbs
