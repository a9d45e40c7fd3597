#include <algorithm>

#include "vbscript/syntax/parser_impl.h"
#include "vbscript/values/operators.h"

namespace quorvane::vbs {

namespace {

using Kind = DeclaredNames::Kind;

bool isProperty(ProcedureKind kind) {
  return kind != ProcedureKind::Sub && kind != ProcedureKind::Function;
}

/// The parameters that Property Get, Let and Set of one name must agree on.
std::size_t indexCount(const Procedure& property) {
  return property.parameters.size() - (property.kind == ProcedureKind::PropertyGet ? 0 : 1);
}

}  // namespace

void Parser::parseScript(Script& script) {
  const Nesting nesting(*this);
  for (;;) {
    skipSeparators();
    if (at(TokenKind::End)) return;
    parseScriptLevel(script);
    endStatement();
  }
}

void Parser::parseScriptLevel(Script& script) {
  if (at(Keyword::Option)) return parseOption(script);
  if (at(Keyword::Class)) return parseClass(script);
  if (at(Keyword::Public) || at(Keyword::Private)) return parseVisible(script);
  if (at(Keyword::Sub) || at(Keyword::Function)) {
    const bool isSub = at(Keyword::Sub);
    script.procedures.push_back(
        parseProcedure(isSub ? ProcedureKind::Sub : ProcedureKind::Function, false));
    return;
  }
  if (atBlockEnd()) failUnclosed(CompileErrorCode::ExpectedStatement);
  script.body.push_back(parseStatement());
}

/// What follows Public or Private outside classes.
void Parser::parseVisible(Script& script) {
  const bool isPrivate = at(Keyword::Private);
  advance();
  if (at(Keyword::Default) &&
      (isAhead(Keyword::Function) || isAhead(Keyword::Sub) || isAhead(Keyword::Property))) {
    fail(CompileErrorCode::MustBeInsideClass);
  }
  if (at(Keyword::Sub) || at(Keyword::Function)) {
    const bool isSub = at(Keyword::Sub);
    script.procedures.push_back(
        parseProcedure(isSub ? ProcedureKind::Sub : ProcedureKind::Function, isPrivate));
  } else if (at(Keyword::Const)) {
    script.body.push_back(parseConst());
  } else {
    script.body.push_back(parseDim(isPrivate));
  }
}

/// Accepted behind other statements too: a page's text may stand before its first code.
void Parser::parseOption(Script& script) {
  advance();
  expect(Keyword::Explicit, CompileErrorCode::SyntaxError);
  script.optionExplicit = true;
}

void Parser::declare(const Identifier& name, SourcePosition position, Kind kind) {
  const Kind before = declared_.find(level_, name.id);
  const bool isAllowed =
      before == Kind::None ||
      (level_ == DeclaredNames::kScript && before == Kind::Procedure && kind == Kind::Procedure);
  if (!isAllowed) failAt(position, CompileErrorCode::NameRedefined);
  declared_.add(level_, name.id, kind);
}

/// The names behind Dim, Public or Private.
StatementPtr Parser::parseDim(bool isPrivate) {
  auto statement = std::make_unique<DimStatement>(token_.position);
  do {
    Declarator declarator = parseDeclarator();
    declarator.isPrivate = isPrivate;
    statement->names.push_back(std::move(declarator));
  } while (accept(TokenKind::Comma));
  return statement;
}

Declarator Parser::parseDeclarator() {
  Declarator declarator;
  declarator.position = token_.position;
  declarator.name = takeName();
  declare(declarator.name, declarator.position, Kind::Variable);
  if (accept(TokenKind::LeftParen)) {
    declarator.isArray = true;
    declarator.bounds = parseDeclaredBounds();
  }
  return declarator;
}

std::vector<std::int32_t> Parser::parseDeclaredBounds() {
  std::vector<std::int32_t> bounds;
  if (accept(TokenKind::RightParen)) return bounds;
  do {
    const bool isWhole = at(TokenKind::Number) && token_.numberType != Type::Double;
    if (!isWhole || token_.number < 0) fail(CompileErrorCode::ExpectedIntegerConstant);
    bounds.push_back(static_cast<std::int32_t>(token_.number));
    advance();
  } while (accept(TokenKind::Comma));
  expect(TokenKind::RightParen, CompileErrorCode::ExpectedRightParen);
  return bounds;
}

StatementPtr Parser::parseConst() {
  auto statement = std::make_unique<ConstStatement>(token_.position);
  advance();
  do {
    statement->items.push_back(parseConstItem());
  } while (accept(TokenKind::Comma));
  return statement;
}

ConstStatement::Item Parser::parseConstItem() {
  ConstStatement::Item item;
  item.position = token_.position;
  item.name = takeName();
  declare(item.name, item.position, Kind::Variable);
  expect(TokenKind::Equal, CompileErrorCode::ExpectedEquals);
  item.value = parseConstant();
  return item;
}

/// A literal, with signs and parentheses around it.
Value Parser::parseConstant() {
  const Nesting nesting(*this);
  const SourcePosition position = token_.position;
  if (accept(TokenKind::LeftParen)) {
    Value value = parseConstant();
    expect(TokenKind::RightParen, CompileErrorCode::ExpectedRightParen);
    return value;
  }
  if (at(TokenKind::Minus) || at(TokenKind::Plus)) {
    const bool isNegative = at(TokenKind::Minus);
    advance();
    const Value value = parseConstant();
    try {
      return isNegative ? negate(value) : identity(value);
    } catch (const ScriptError&) {
      failAt(position, CompileErrorCode::ExpectedLiteral);
    }
  }
  const bool isLiteral = at(TokenKind::Number) || at(TokenKind::String) || at(TokenKind::Date) ||
                         (at(TokenKind::Word) && literalKeyword());
  if (!isLiteral) fail(CompileErrorCode::ExpectedLiteral);
  Value value = literalValue();
  advance();
  return value;
}

/// From the word Sub or Function to behind its End.
Procedure Parser::parseProcedure(ProcedureKind kind, bool isPrivate) {
  Procedure procedure;
  procedure.kind = kind;
  procedure.isPrivate = isPrivate;
  procedure.position = token_.position;
  advance();
  const SourcePosition namePosition = token_.position;
  procedure.name = takeName();
  if (level_ == DeclaredNames::kScript) declare(procedure.name, namePosition, Kind::Procedure);
  parseProcedureBody(procedure);
  return procedure;
}

void Parser::parseProcedureBody(Procedure& procedure) {
  const auto outerLevel = std::exchange(level_, DeclaredNames::kProcedure);
  declared_.open(level_);
  procedure_ = procedure.kind;
  const bool hasResult =
      procedure.kind == ProcedureKind::Function || procedure.kind == ProcedureKind::PropertyGet;
  if (hasResult) declare(procedure.name, procedure.position, Kind::Procedure);

  if (at(TokenKind::LeftParen)) {
    procedure.parameters = parseParameters();
  } else if (!atStatementEnd()) {
    fail(CompileErrorCode::ExpectedEndOfStatement);
  }
  parseBlock(procedure.body);
  procedure.end = token_.position;
  if (procedure.kind == ProcedureKind::Sub) {
    expectEnd(Keyword::Sub, CompileErrorCode::ExpectedSub);
  } else if (procedure.kind == ProcedureKind::Function) {
    expectEnd(Keyword::Function, CompileErrorCode::ExpectedFunction);
  } else {
    expectEnd(Keyword::Property, CompileErrorCode::ExpectedProperty);
  }

  procedure_.reset();
  level_ = outerLevel;
}

std::vector<Parameter> Parser::parseParameters() {
  std::vector<Parameter> parameters;
  advance();
  if (accept(TokenKind::RightParen)) return parameters;
  do {
    Parameter& parameter = parameters.emplace_back();
    parameter.byValue = accept(Keyword::ByVal);
    if (!parameter.byValue) accept(Keyword::ByRef);
    const SourcePosition position = token_.position;
    parameter.name = takeName();
    declare(parameter.name, position, Kind::Variable);
    if (accept(TokenKind::LeftParen)) {
      parameter.isArray = true;
      expect(TokenKind::RightParen, CompileErrorCode::ExpectedRightParen);
    }
  } while (accept(TokenKind::Comma));
  expect(TokenKind::RightParen, CompileErrorCode::ExpectedRightParen);
  return parameters;
}

void Parser::parseClass(Script& script) {
  ClassDeclaration declaration;
  declaration.position = token_.position;
  advance();
  const SourcePosition namePosition = token_.position;
  declaration.name = takeName();
  declare(declaration.name, namePosition, Kind::Variable);
  endStatement();

  level_ = DeclaredNames::kClass;
  declared_.open(level_);
  properties_.clear();
  for (skipSeparators(); !at(Keyword::End); skipSeparators()) {
    parseClassMember(declaration);
    endStatement();
  }
  level_ = DeclaredNames::kScript;
  expectEnd(Keyword::Class, CompileErrorCode::ExpectedClass);
  script.classes.push_back(std::move(declaration));
}

void Parser::parseClassMember(ClassDeclaration& declaration) {
  if (at(TokenKind::End)) fail(CompileErrorCode::ExpectedEnd);
  const bool isPublic = accept(Keyword::Public);
  const bool isPrivate = !isPublic && accept(Keyword::Private);
  const bool startsProcedure =
      isAhead(Keyword::Sub) || isAhead(Keyword::Function) || isAhead(Keyword::Property);
  bool isDefault = false;
  if (at(Keyword::Default) && (startsProcedure || !(isPublic || isPrivate))) {
    if (!isPublic) fail(CompileErrorCode::DefaultNeedsPublic);
    isDefault = accept(Keyword::Default);
  } else if (at(Keyword::Default) && isPublic && ahead_.kind == TokenKind::Word) {
    fail(CompileErrorCode::DefaultMisplaced);
  }
  if (at(Keyword::Sub) || at(Keyword::Function) ||
      (at(Keyword::Property) && ahead_.kind == TokenKind::Word)) {
    return parseClassProcedure(declaration, isPrivate, isDefault);
  }
  if (at(Keyword::Const)) {
    StatementPtr statement = parseConst();
    auto& items = static_cast<ConstStatement&>(*statement).items;
    std::move(items.begin(), items.end(), std::back_inserter(declaration.constants));
    return;
  }
  if (!isPublic && !isPrivate && !accept(Keyword::Dim)) fail(CompileErrorCode::SyntaxError);
  StatementPtr statement = parseDim(isPrivate);
  auto& names = static_cast<DimStatement&>(*statement).names;
  std::move(names.begin(), names.end(), std::back_inserter(declaration.fields));
}

void Parser::parseClassProcedure(ClassDeclaration& declaration, bool isPrivate, bool isDefault) {
  const SourcePosition position = token_.position;
  Procedure procedure = at(Keyword::Property) ? parseProperty(isPrivate)
                        : at(Keyword::Sub)    ? parseProcedure(ProcedureKind::Sub, isPrivate)
                                              : parseProcedure(ProcedureKind::Function, isPrivate);
  procedure.isDefault = isDefault;
  if (isDefault) {
    if (procedure.kind == ProcedureKind::PropertyLet ||
        procedure.kind == ProcedureKind::PropertySet) {
      failAt(position, CompileErrorCode::DefaultOnlyOnGet);
    }
    const auto& all = declaration.procedures;
    if (std::any_of(all.begin(), all.end(), [](const Procedure& p) { return p.isDefault; })) {
      failAt(position, CompileErrorCode::MultipleDefaults);
    }
  }
  const bool isEvent =
      procedure.name.lower == "class_initialize" || procedure.name.lower == "class_terminate";
  if (isEvent && !procedure.parameters.empty()) {
    failAt(position, CompileErrorCode::InitializeWithArguments);
  }
  declareMember(procedure);
  declaration.procedures.push_back(std::move(procedure));
}

Procedure Parser::parseProperty(bool isPrivate) {
  Procedure property;
  property.isPrivate = isPrivate;
  property.position = token_.position;
  advance();
  if (at(Keyword::Get)) {
    property.kind = ProcedureKind::PropertyGet;
  } else if (at(Keyword::Let)) {
    property.kind = ProcedureKind::PropertyLet;
  } else if (at(Keyword::Set)) {
    property.kind = ProcedureKind::PropertySet;
  } else {
    fail(CompileErrorCode::ExpectedPropertyKind);
  }
  advance();
  property.name = takeName();
  parseProcedureBody(property);
  if (property.kind != ProcedureKind::PropertyGet && property.parameters.empty()) {
    failAt(property.position, CompileErrorCode::PropertyWithoutArgument);
  }
  return property;
}

/// Enters a procedure into its class. Get, Let and Set of one property share a name, and must
/// agree on the parameters they share.
void Parser::declareMember(const Procedure& procedure) {
  if (!isProperty(procedure.kind)) {
    return declare(procedure.name, procedure.position, Kind::Procedure);
  }
  PropertyMark& mark = properties_[procedure.name.id];
  const unsigned kind = 1u << static_cast<unsigned>(procedure.kind);
  if (mark.kinds == 0) {
    declare(procedure.name, procedure.position, Kind::Property);
    mark.indexes = indexCount(procedure);
  }
  if (mark.kinds & kind) failAt(procedure.position, CompileErrorCode::NameRedefined);
  if (mark.indexes != indexCount(procedure)) {
    failAt(procedure.position, CompileErrorCode::InconsistentArguments);
  }
  mark.kinds |= kind;
}

}  // namespace quorvane::vbs
