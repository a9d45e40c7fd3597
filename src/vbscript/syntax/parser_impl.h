#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "vbscript/syntax/ast.h"
#include "vbscript/syntax/compile_errors.h"
#include "vbscript/syntax/lexer.h"
#include "vbscript/syntax/parser.h"

namespace quorvane::vbs {

/// Which names a scope has declared already. Scopes nest: script, class, procedure.
class DeclaredNames {
 public:
  enum Level : std::uint8_t { kScript, kClass, kProcedure, kLevels };
  enum class Kind : std::uint8_t { None, Variable, Procedure, Property };

  /// Forgets the level's names.
  void open(Level level) { ++serials_[level]; }
  Kind find(Level level, std::uint32_t id) const;
  void add(Level level, std::uint32_t id, Kind kind);

 private:
  struct Mark {
    std::uint32_t serial = 0;
    Kind kind = Kind::None;
  };
  std::uint32_t serials_[kLevels] = {1, 1, 1};
  std::vector<Mark> marks_;  ///< kLevels for each name
};

/// The recursive-descent parser: one token in hand, one ahead. Every parse function begins at its
/// construct's first token, ends behind its last, and throws CompileError at the token that does
/// not fit.
class Parser {
 public:
  /// Both outlive the parser and the tree.
  Parser(std::string_view source, NameTable& names);

  void parseScript(Script& script);
  ExpressionPtr parseWholeExpression();

 private:
  // The tokens.
  void advance();
  void lookAhead();
  bool at(TokenKind kind) const { return token_.kind == kind; }
  bool at(Keyword keyword) const {
    return token_.kind == TokenKind::Word && token_.keyword == keyword;
  }
  bool isAhead(Keyword keyword) const {
    return ahead_.kind == TokenKind::Word && ahead_.keyword == keyword;
  }
  bool atName() const { return at(TokenKind::Word) && !isReserved(token_.keyword); }
  template <class What>
  bool accept(What what) {
    if (!at(what)) return false;
    advance();
    return true;
  }
  template <class What>
  void expect(What what, CompileErrorCode otherwise) {
    if (!accept(what)) fail(otherwise);
  }
  bool atLineEnd() const { return at(TokenKind::NewLine) || at(TokenKind::End); }
  bool atBlockEnd() const;      ///< the end, or a keyword that closes or divides a block
  bool atStatementEnd() const;  ///< a separator, or what atBlockEnd says
  void endStatement();
  void skipSeparators();
  Identifier takeName();
  [[noreturn]] void fail(CompileErrorCode code) const { failAt(token_.position, code); }
  [[noreturn]] static void failAt(SourcePosition position, CompileErrorCode code);

  /// Counts one level of nested blocks, parentheses or unary operators while it lives.
  class Nesting {
   public:
    explicit Nesting(Parser& parser) : parser_(parser) {
      if (++parser_.nesting_ > kMaxNesting) parser_.fail(CompileErrorCode::OutOfMemory);
    }
    ~Nesting() { --parser_.nesting_; }

   private:
    Parser& parser_;
  };

  // Expressions.
  template <class Node, class... A>
  ExpressionPtr make(A&&... arguments) {
    auto node = std::make_unique<Node>(std::forward<A>(arguments)...);
    if (node->height > kMaxExpressionHeight) fail(CompileErrorCode::OutOfMemory);
    return node;
  }
  enum class Chain : std::uint8_t {
    Operand,
    Statement,  ///< a blank and a dot, or New in parentheses, begin an argument: `f .x`
  };
  ExpressionPtr parseExpression();
  ExpressionPtr parseBinary(int minimum);
  ExpressionPtr parseBinaryTail(ExpressionPtr left, int minimum);
  ExpressionPtr parseUnary();
  ExpressionPtr parseUnaryOperation(UnaryOperator operation, int minimum);
  ExpressionPtr parseOperand();
  ExpressionPtr parseChain(Chain mode);
  static ExpressionPtr withoutParentheses(ExpressionPtr chain, bool isCallee);
  ExpressionPtr parseLiteral();
  ExpressionPtr parseNew();
  std::vector<ExpressionPtr> parseParenthesizedArguments();
  std::optional<Value> literalKeyword() const;
  Value literalValue() const;
  Value stringValue() const;
  Value dateValue() const;

  // Statements.
  void parseBlock(Block& block);
  void parseInlineBlock(Block& block);
  StatementPtr parseStatement();
  StatementPtr parseKeywordStatement();
  StatementPtr parseContextualStatement();
  StatementPtr parseCallOrAssign();
  StatementPtr parseBareCall(SourcePosition position, ExpressionPtr callee);
  std::vector<ExpressionPtr> parseBareArguments(ExpressionPtr first);
  StatementPtr parseSet();
  StatementPtr parseCall();
  StatementPtr parseIf();
  void parseInlineIf(IfStatement& statement);
  void parseBlockIf(IfStatement& statement);
  StatementPtr parseSelect();
  void parseCase(SelectStatement& statement);
  StatementPtr parseFor();
  StatementPtr parseForEach(SourcePosition position);
  void parseForBody(Block& body, SourcePosition& end);
  StatementPtr parseDo();
  void parseDoTest(DoStatement& statement, DoStatement::Test test);
  StatementPtr parseWhile();
  StatementPtr parseWith();
  StatementPtr parseExit();
  StatementPtr parseOnError();
  StatementPtr parseErase();
  StatementPtr parseReDim();
  ExpressionPtr assignable(ExpressionPtr target) const;
  /// Fails: a block has met a keyword that is not its own.
  [[noreturn]] void failUnclosed(CompileErrorCode expected) const;
  void expectEnd(Keyword keyword, CompileErrorCode otherwise);

  // Declarations.
  void parseScriptLevel(Script& script);
  void parseVisible(Script& script);
  void parseOption(Script& script);
  StatementPtr parseDim(bool isPrivate);
  StatementPtr parseConst();
  Declarator parseDeclarator();
  std::vector<std::int32_t> parseDeclaredBounds();
  ConstStatement::Item parseConstItem();
  Value parseConstant();
  Procedure parseProcedure(bool isPrivate, bool isDefault = false);
  std::vector<Parameter> parseParameters();
  void parseProcedureBody(Procedure& procedure);
  void parseClass(Script& script);
  void parseClassMember(ClassDeclaration& declaration);
  void parseClassProcedure(ClassDeclaration& declaration, bool isPrivate, bool isDefault);
  void parsePropertyKind(Procedure& property);
  void declareProcedure(const Procedure& procedure, SourcePosition position);
  void checkParameters(const Procedure& procedure);
  bool atScriptProcedure() const;
  void parseScriptProcedure();
  void declare(const Identifier& name, SourcePosition position, DeclaredNames::Kind kind);

  /// The blocks around the current statement that an Exit or a dot may refer to.
  struct Surroundings {
    unsigned doLoops = 0;
    unsigned forLoops = 0;
    unsigned withs = 0;
  };

  Lexer lexer_;
  const bool isUtf8_;         ///< the bytes of strings are
  Script* script_ = nullptr;  ///< null while one expression is parsed
  Token token_;
  Token ahead_;
  std::optional<CompileError> aheadFault_;  ///< in place of the token ahead
  bool isAfterColon_ = false;               ///< the token in hand follows a colon
  unsigned nesting_ = 0;
  DeclaredNames declared_;
  DeclaredNames::Level level_ = DeclaredNames::kScript;
  std::optional<ProcedureKind> procedure_;  ///< the one whose body is being parsed
  Surroundings around_;

  /// What the class being parsed has of one property so far.
  struct PropertyMark {
    unsigned kinds = 0;  ///< a bit for each of Get, Let and Set
    std::size_t indexes = 0;
  };
  std::unordered_map<std::uint32_t, PropertyMark> properties_;  ///< by name
};

}  // namespace quorvane::vbs
