#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "vbscript/syntax/name_table.h"
#include "vbscript/values/value.h"

/// The tree that the parser makes of a script and the compiler reads. Nodes are owned by their
/// parents. Names are views into the source text and into the tree's name table: a tree lives no
/// longer than either. The height of every tree is bounded, so walkers may recurse.
namespace quorvane::vbs {

/// The parser refuses expressions higher than this, and blocks and parentheses nested deeper.
inline constexpr unsigned kMaxExpressionHeight = 2000;
inline constexpr unsigned kMaxNesting = 500;

struct SourcePosition {
  std::uint32_t line = 0;    ///< 1-based
  std::uint32_t column = 0;  ///< 1-based
};

struct Identifier {
  std::string_view text;   ///< as written, without brackets
  std::string_view lower;  ///< letter case folded: what every comparison uses
  std::uint32_t id = 0;    ///< the same for the same `lower`; below NameTable::size()
};

// ---- Expressions ----

enum class UnaryOperator : std::uint8_t { Negate, Plus, Not };

enum class BinaryOperator : std::uint8_t {
  Add,
  Subtract,
  Multiply,
  Divide,
  IntegerDivide,
  Modulo,
  Power,
  Concatenate,
  Equal,
  NotEqual,
  Less,
  LessOrEqual,
  Greater,
  GreaterOrEqual,
  Is,
  And,
  Or,
  Xor,
  Eqv,
  Imp,
};

enum class ExpressionKind : std::uint8_t {
  Literal,
  Name,
  Member,
  Call,
  New,
  Me,
  Unary,
  Binary,
  Parenthesized,
};

struct Expression {
  ExpressionKind kind;
  std::uint16_t height = 1;  ///< one more than the highest operand's
  SourcePosition position;
  mutable std::uint32_t mark = 0;  ///< the compiler's own: where it keeps what it found out

  virtual ~Expression() = default;

 protected:
  Expression(ExpressionKind k, SourcePosition p) : kind(k), position(p) {}

  void raiseAbove(const Expression* operand) {
    if (operand && operand->height >= height)
      height = static_cast<std::uint16_t>(operand->height + 1);
  }
};
using ExpressionPtr = std::unique_ptr<Expression>;

/// Numbers, strings, dates, True, False, Empty, Null, Nothing.
struct LiteralExpression final : Expression {
  LiteralExpression(SourcePosition p, Value v)
      : Expression(ExpressionKind::Literal, p), value(std::move(v)) {}
  Value value;
};

struct NameExpression final : Expression {
  NameExpression(SourcePosition p, Identifier n) : Expression(ExpressionKind::Name, p), name(n) {}
  Identifier name;
};

/// `object.name`; without an object it belongs to the enclosing With.
struct MemberExpression final : Expression {
  MemberExpression(SourcePosition p, ExpressionPtr o, Identifier n)
      : Expression(ExpressionKind::Member, p), object(std::move(o)), name(n) {
    raiseAbove(object.get());
  }
  ExpressionPtr object;  ///< null: With
  Identifier name;
};

/// `callee(arguments)`: a call, an array element or a default member; the tree cannot tell.
/// A null argument was omitted. `a(1)(2)` nests.
struct CallExpression final : Expression {
  CallExpression(SourcePosition p, ExpressionPtr c, std::vector<ExpressionPtr> a)
      : Expression(ExpressionKind::Call, p), callee(std::move(c)), arguments(std::move(a)) {
    raiseAbove(callee.get());
    for (const auto& argument : arguments) raiseAbove(argument.get());
  }
  ExpressionPtr callee;
  std::vector<ExpressionPtr> arguments;
};

struct NewExpression final : Expression {
  NewExpression(SourcePosition p, Identifier c)
      : Expression(ExpressionKind::New, p), className(c) {}
  Identifier className;
};

struct MeExpression final : Expression {
  explicit MeExpression(SourcePosition p) : Expression(ExpressionKind::Me, p) {}
};

struct UnaryExpression final : Expression {
  UnaryExpression(SourcePosition p, UnaryOperator op, ExpressionPtr e)
      : Expression(ExpressionKind::Unary, p), operation(op), operand(std::move(e)) {
    raiseAbove(operand.get());
  }
  UnaryOperator operation;
  ExpressionPtr operand;
};

struct BinaryExpression final : Expression {
  BinaryExpression(SourcePosition p, BinaryOperator op, ExpressionPtr l, ExpressionPtr r)
      : Expression(ExpressionKind::Binary, p),
        operation(op),
        left(std::move(l)),
        right(std::move(r)) {
    raiseAbove(left.get());
    raiseAbove(right.get());
  }
  BinaryOperator operation;
  ExpressionPtr left;
  ExpressionPtr right;
};

/// Kept, because `f (x)` passes a copy of x.
struct ParenthesizedExpression final : Expression {
  ParenthesizedExpression(SourcePosition p, ExpressionPtr e)
      : Expression(ExpressionKind::Parenthesized, p), inner(std::move(e)) {
    raiseAbove(inner.get());
  }
  ExpressionPtr inner;
};

// ---- Statements ----

enum class StatementKind : std::uint8_t {
  Dim,
  ReDim,
  Erase,
  Const,
  Assign,
  Call,
  If,
  Select,
  For,
  ForEach,
  Do,
  Exit,
  With,
  OnError,
  Stop,
};

struct Statement {
  StatementKind kind;
  SourcePosition position;

  virtual ~Statement() = default;

 protected:
  Statement(StatementKind k, SourcePosition p) : kind(k), position(p) {}
};
using StatementPtr = std::unique_ptr<Statement>;
using Block = std::vector<StatementPtr>;

/// One name of a Dim, Public or Private list.
struct Declarator {
  Identifier name;
  SourcePosition position;
  bool isArray = false;              ///< written with parentheses
  std::vector<std::int32_t> bounds;  ///< upper bounds; empty with isArray: a dynamic array
  bool isPrivate = false;            ///< of a class
};

struct DimStatement final : Statement {
  explicit DimStatement(SourcePosition p) : Statement(StatementKind::Dim, p) {}
  std::vector<Declarator> names;
};

struct ReDimStatement final : Statement {
  explicit ReDimStatement(SourcePosition p) : Statement(StatementKind::ReDim, p) {}
  struct Target {
    ExpressionPtr variable;  ///< a name, a member, or an element that holds an array
    std::vector<ExpressionPtr> bounds;
  };
  bool preserve = false;
  std::vector<Target> targets;
};

struct EraseStatement final : Statement {
  explicit EraseStatement(SourcePosition p) : Statement(StatementKind::Erase, p) {}
  std::vector<ExpressionPtr> targets;
};

struct ConstStatement final : Statement {
  explicit ConstStatement(SourcePosition p) : Statement(StatementKind::Const, p) {}
  struct Item {
    Identifier name;
    SourcePosition position;
    Value value;  ///< the parser folds the literal, with its sign
  };
  std::vector<Item> items;
};

/// `target = value` and `Set target = value`. The target is a Name, Member or Call expression.
struct AssignStatement final : Statement {
  AssignStatement(SourcePosition p, bool set, ExpressionPtr t, ExpressionPtr v)
      : Statement(StatementKind::Assign, p),
        isSet(set),
        target(std::move(t)),
        value(std::move(v)) {}
  bool isSet;
  ExpressionPtr target;
  ExpressionPtr value;
};

/// `callee arguments` without parentheses, `Call callee(arguments)`, or an expression that stands
/// alone. With `f (x)` the single argument is Parenthesized.
struct CallStatement final : Statement {
  CallStatement(SourcePosition p, ExpressionPtr c, std::vector<ExpressionPtr> a)
      : Statement(StatementKind::Call, p), callee(std::move(c)), arguments(std::move(a)) {}
  ExpressionPtr callee;                  ///< Name, Member, or a Call whose result is called on
  std::vector<ExpressionPtr> arguments;  ///< a null argument was omitted
};

struct IfStatement final : Statement {
  explicit IfStatement(SourcePosition p) : Statement(StatementKind::If, p) {}
  struct Branch {
    SourcePosition position;
    ExpressionPtr condition;
    Block body;
  };
  std::vector<Branch> branches;  ///< If, then each ElseIf
  Block otherwise;
};

struct SelectStatement final : Statement {
  explicit SelectStatement(SourcePosition p) : Statement(StatementKind::Select, p) {}
  struct Case {
    SourcePosition position;
    std::vector<ExpressionPtr> values;
    Block body;
  };
  ExpressionPtr subject;
  std::vector<Case> cases;
  Block otherwise;
};

struct ForStatement final : Statement {
  explicit ForStatement(SourcePosition p) : Statement(StatementKind::For, p) {}
  Identifier variable;
  ExpressionPtr from;
  ExpressionPtr to;
  ExpressionPtr step;  ///< null: 1
  Block body;
  SourcePosition end;  ///< of Next
};

struct ForEachStatement final : Statement {
  explicit ForEachStatement(SourcePosition p) : Statement(StatementKind::ForEach, p) {}
  Identifier variable;
  ExpressionPtr collection;
  Block body;
  SourcePosition end;
};

/// Do in all forms, and While…Wend (a test before the body that Exit Do does not leave).
struct DoStatement final : Statement {
  explicit DoStatement(SourcePosition p) : Statement(StatementKind::Do, p) {}
  enum class Test : std::uint8_t { None, Before, After };
  Test test = Test::None;
  bool until = false;
  bool isWhileWend = false;
  ExpressionPtr condition;
  Block body;
  SourcePosition end;  ///< of Loop or Wend
};

enum class ExitKind : std::uint8_t { Do, For, Sub, Function, Property };

struct ExitStatement final : Statement {
  ExitStatement(SourcePosition p, ExitKind w) : Statement(StatementKind::Exit, p), what(w) {}
  ExitKind what;
};

struct WithStatement final : Statement {
  explicit WithStatement(SourcePosition p) : Statement(StatementKind::With, p) {}
  ExpressionPtr object;
  Block body;
};

struct OnErrorStatement final : Statement {
  OnErrorStatement(SourcePosition p, bool resume)
      : Statement(StatementKind::OnError, p), resumeNext(resume) {}
  bool resumeNext;  ///< else: GoTo 0
};

struct StopStatement final : Statement {
  explicit StopStatement(SourcePosition p) : Statement(StatementKind::Stop, p) {}
};

// ---- Declarations ----

enum class ProcedureKind : std::uint8_t { Sub, Function, PropertyGet, PropertyLet, PropertySet };

struct Parameter {
  Identifier name;
  bool byValue = false;
  bool isArray = false;  ///< written with empty parentheses
};

struct Procedure {
  ProcedureKind kind = ProcedureKind::Sub;
  Identifier name;
  SourcePosition position;
  SourcePosition end;  ///< of End Sub and its kin
  bool isPrivate = false;
  bool isDefault = false;
  std::vector<Parameter> parameters;
  Block body;
};

struct ClassDeclaration {
  Identifier name;
  SourcePosition position;
  std::vector<Declarator> fields;
  std::vector<ConstStatement::Item> constants;
  std::vector<Procedure> procedures;
};

/// A whole script text. Procedures and classes are known before the first statement runs; when
/// two procedures have the same name the later one counts.
struct Script {
  NameTable names;  ///< first member, so that it goes last
  bool optionExplicit = false;
  Block body;
  std::vector<Procedure> procedures;
  std::vector<ClassDeclaration> classes;
};

}  // namespace quorvane::vbs
