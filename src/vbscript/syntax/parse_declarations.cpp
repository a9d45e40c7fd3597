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
  script_ = &script;
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
  if (atScriptProcedure()) return parseScriptProcedure();
  if (at(Keyword::Public) || at(Keyword::Private)) return parseVisible(script);
  if (atBlockEnd()) failUnclosed(CompileErrorCode::ExpectedStatement);
  script.body.push_back(parseStatement());
}

/// Procedures of the script may stand in its blocks too: an included text brings them along.
bool Parser::atScriptProcedure() const {
  if (!script_ || procedure_) return false;
  if (at(Keyword::Public) || at(Keyword::Private)) {
    return isAhead(Keyword::Sub) || isAhead(Keyword::Function);
  }
  return at(Keyword::Sub) || at(Keyword::Function);
}

void Parser::parseScriptProcedure() {
  const bool isPrivate = accept(Keyword::Private);
  if (!isPrivate) accept(Keyword::Public);
  script_->procedures.push_back(parseProcedure(isPrivate));
}

/// What follows Public or Private outside classes, and is no procedure.
void Parser::parseVisible(Script& script) {
  const bool isPrivate = at(Keyword::Private);
  advance();
  if (at(Keyword::Default) &&
      (isAhead(Keyword::Function) || isAhead(Keyword::Sub) || isAhead(Keyword::Property))) {
    fail(CompileErrorCode::MustBeInsideClass);
  }
  if (at(Keyword::Const)) {
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

/// From the word Sub, Function or Property to behind its End.
Procedure Parser::parseProcedure(bool isPrivate, bool isDefault) {
  Procedure procedure;
  procedure.isPrivate = isPrivate;
  procedure.isDefault = isDefault;
  procedure.position = token_.position;
  if (at(Keyword::Property)) {
    parsePropertyKind(procedure);
  } else {
    procedure.kind = at(Keyword::Sub) ? ProcedureKind::Sub : ProcedureKind::Function;
  }
  advance();
  const SourcePosition namePosition = token_.position;
  procedure.name = takeName();
  declareProcedure(procedure, namePosition);
  parseProcedureBody(procedure);
  return procedure;
}

/// From the word Property to its kind.
void Parser::parsePropertyKind(Procedure& property) {
  advance();
  if (at(Keyword::Get)) {
    property.kind = ProcedureKind::PropertyGet;
    return;
  }
  if (at(Keyword::Let)) {
    property.kind = ProcedureKind::PropertyLet;
  } else if (at(Keyword::Set)) {
    property.kind = ProcedureKind::PropertySet;
  } else {
    fail(CompileErrorCode::ExpectedPropertyKind);
  }
  if (property.isDefault) fail(CompileErrorCode::DefaultOnlyOnGet);
}

void Parser::parseProcedureBody(Procedure& procedure) {
  const auto outerLevel = std::exchange(level_, DeclaredNames::kProcedure);
  const Surroundings outside = std::exchange(around_, {});
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
  if (outerLevel == DeclaredNames::kClass) checkParameters(procedure);
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
  around_ = outside;
  level_ = outerLevel;
}

/// What a member's parameters must be; a fault is told behind their list.
void Parser::checkParameters(const Procedure& procedure) {
  if (!isProperty(procedure.kind)) {
    const bool isEvent =
        procedure.name.lower == "class_initialize" || procedure.name.lower == "class_terminate";
    if (isEvent && !procedure.parameters.empty()) fail(CompileErrorCode::InitializeWithArguments);
    return;
  }
  if (procedure.kind != ProcedureKind::PropertyGet && procedure.parameters.empty()) {
    fail(CompileErrorCode::PropertyWithoutArgument);
  }
  PropertyMark& mark = properties_[procedure.name.id];
  const bool isFirst = mark.kinds == 1u << static_cast<unsigned>(procedure.kind);
  if (isFirst) mark.indexes = indexCount(procedure);
  if (mark.indexes != indexCount(procedure)) fail(CompileErrorCode::InconsistentArguments);
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
  if (at(Keyword::End)) fail(CompileErrorCode::ExpectedStatement);
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
    failAt(ahead_.position, CompileErrorCode::DefaultMisplaced);
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
  Procedure procedure = parseProcedure(isPrivate, isDefault);
  auto& all = declaration.procedures;
  const auto hasDefault = [](const Procedure& other) { return other.isDefault; };
  if (isDefault && std::any_of(all.begin(), all.end(), hasDefault)) {
    failAt(position, CompileErrorCode::MultipleDefaults);
  }
  all.push_back(std::move(procedure));
}

/// Enters a procedure into its script or class. Get, Let and Set of one property share a name, and
/// may share that of a Sub or Function before them.
void Parser::declareProcedure(const Procedure& procedure, SourcePosition position) {
  if (!isProperty(procedure.kind)) return declare(procedure.name, position, Kind::Procedure);
  unsigned& kinds = properties_[procedure.name.id].kinds;
  const unsigned kind = 1u << static_cast<unsigned>(procedure.kind);
  if (kinds & kind) failAt(position, CompileErrorCode::NameRedefined);
  if (kinds == 0) {
    if (declared_.find(level_, procedure.name.id) == Kind::Variable) {
      failAt(position, CompileErrorCode::NameRedefined);
    }
    declared_.add(level_, procedure.name.id, Kind::Property);
  }
  kinds |= kind;
}

}  // namespace quorvane::vbs
