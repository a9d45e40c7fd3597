#pragma once

#include <cstdint>
#include <vector>

#include "vbscript/compile/binding.h"
#include "vbscript/syntax/ast.h"

/// The one place that knows what evaluating an expression does beside giving a value. Operands are
/// evaluated from left to right; the compiler leaves a variable where it is, rather than copy it,
/// only when nothing that runs before the variable is used can change it.
namespace quorvane::vbs {

class RoutineScope;

/// Variables of one routine, by register. It may seem to hold more than was put in, never less:
/// one bit stands for every 64th.
class VariableSet {
 public:
  void add(Register variable) { bits_ |= bitOf(variable); }
  void addAll() { bits_ = ~std::uint64_t{0}; }
  void add(VariableSet other) { bits_ |= other.bits_; }
  bool mayHold(Register variable) const { return (bits_ & bitOf(variable)) != 0; }

 private:
  static std::uint64_t bitOf(Register variable) { return std::uint64_t{1} << (variable % 64); }

  std::uint64_t bits_ = 0;
};

struct ExpressionFacts {
  /// The routine's own variables that it may write: it gives them to calls by reference.
  VariableSet writes;
  /// It may run code of the script, which reads and writes every variable that is not the
  /// routine's own.
  bool runsCode = false;
  /// It reads what such code may change.
  bool readsShared = false;
  /// Its value may be an object, whose default property stands for it where a plain value is
  /// wanted.
  bool mayBeObject = false;

  /// Adds what evaluating another expression does; the value is not the other's.
  void add(const ExpressionFacts& other);
};

/// The facts of one routine's expressions, found bottom-up when first asked for and then kept.
class FactTable {
 public:
  explicit FactTable(const RoutineScope& scope) : scope_(scope) {}

  ExpressionFacts of(const Expression& expression);
  /// Of all of them together.
  ExpressionFacts of(const std::vector<ExpressionPtr>& expressions);
  /// Entry i: what evaluating the expressions behind the i-th does. Null ones do nothing.
  std::vector<ExpressionFacts> behind(const std::vector<const Expression*>& expressions);
  /// Whether taking the plain value of what the expression gives may run code of the script.
  bool runsDefault(const Expression& expression);
  /// Whether evaluating something with these facts may change the variable.
  bool mayChange(const ExpressionFacts& facts, const Binding& variable) const;

 private:
  ExpressionFacts find(const Expression& expression);
  ExpressionFacts ofName(const Binding& binding) const;
  ExpressionFacts ofMember(const MemberExpression& member);
  ExpressionFacts ofCall(const CallExpression& call);
  ExpressionFacts ofBinary(const BinaryExpression& binary);
  ExpressionFacts ofElement(ExpressionFacts facts) const;
  void addPassed(ExpressionFacts& facts, const std::vector<ExpressionPtr>& arguments) const;

  const RoutineScope& scope_;
  std::vector<ExpressionFacts> found_;  ///< by Expression::mark - 1
};

}  // namespace quorvane::vbs
