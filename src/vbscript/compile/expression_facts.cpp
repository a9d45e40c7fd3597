#include "vbscript/compile/expression_facts.h"

#include "vbscript/compile/routine_scope.h"
#include "vbscript/compile/tree.h"
#include "vbscript/library/functions.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

namespace {

/// What code does of which nothing is known.
ExpressionFacts ofUnknownCode() {
  ExpressionFacts facts;
  facts.runsCode = facts.readsShared = facts.mayBeObject = true;
  return facts;
}

bool givesObject(const Intrinsic& function) {
  return function.call == intrinsic::createObject || function.call == intrinsic::getObject;
}

}  // namespace

void ExpressionFacts::add(const ExpressionFacts& other) {
  writes.add(other.writes);
  runsCode |= other.runsCode;
  readsShared |= other.readsShared;
}

ExpressionFacts FactTable::of(const Expression& expression) {
  if (expression.mark == 0) {
    found_.push_back(find(expression));
    expression.mark = static_cast<std::uint32_t>(found_.size());
  }
  VBS_ASSERT(expression.mark <= found_.size());
  return found_[expression.mark - 1];
}

ExpressionFacts FactTable::of(const std::vector<ExpressionPtr>& expressions) {
  ExpressionFacts facts;
  for (const auto& expression : expressions) {
    if (expression) facts.add(of(*expression));
  }
  return facts;
}

std::vector<ExpressionFacts> FactTable::behind(const std::vector<const Expression*>& expressions) {
  std::vector<ExpressionFacts> behind(expressions.size());
  for (std::size_t i = expressions.size(); i-- > 1;) {
    behind[i - 1] = behind[i];
    if (expressions[i]) behind[i - 1].add(of(*expressions[i]));
  }
  return behind;
}

bool FactTable::runsDefault(const Expression& expression) {
  return scope_.valuesRunCode() && of(expression).mayBeObject;
}

bool FactTable::mayChange(const ExpressionFacts& facts, const Binding& variable) const {
  VBS_ASSERT(variable.isVariable());
  return scope_.isShared(variable) ? facts.runsCode : facts.writes.mayHold(variable.index);
}

// ---- Finding ----

ExpressionFacts FactTable::find(const Expression& expression) {
  switch (expression.kind) {
    case ExpressionKind::Literal:
      return {};
    case ExpressionKind::Me: {
      ExpressionFacts facts;
      facts.mayBeObject = true;
      return facts;
    }
    case ExpressionKind::New:
      return ofUnknownCode();  // Class_Initialize
    case ExpressionKind::Name:
      return ofName(*scope_.bindName(expression));
    case ExpressionKind::Member:
      return ofMember(static_cast<const MemberExpression&>(expression));
    case ExpressionKind::Call:
      return ofCall(static_cast<const CallExpression&>(expression));
    case ExpressionKind::Unary: {
      const Expression& operand = *static_cast<const UnaryExpression&>(expression).operand;
      ExpressionFacts facts = of(operand);
      facts.runsCode |= runsDefault(operand);
      facts.mayBeObject = false;
      return facts;
    }
    case ExpressionKind::Binary:
      return ofBinary(static_cast<const BinaryExpression&>(expression));
    case ExpressionKind::Parenthesized:
      return of(*static_cast<const ParenthesizedExpression&>(expression).inner);
  }
  return ofUnknownCode();
}

ExpressionFacts FactTable::ofName(const Binding& binding) const {
  using Kind = Binding::Kind;
  ExpressionFacts facts;
  switch (binding.kind) {
    case Kind::Constant:
    case Kind::Class:
    case Kind::Unresolved:
      return facts;
    case Kind::InRegister:
      facts.readsShared = scope_.isShared(binding);
      facts.mayBeObject = true;
      return facts;
    case Kind::Global:
    case Kind::Field:
    case Kind::HostObject:
    case Kind::HostMember:
      facts.readsShared = facts.mayBeObject = true;
      return facts;
    case Kind::Intrinsic:
      facts.readsShared = true;
      return facts;
    case Kind::Routine:
    case Kind::Own:
    case Kind::Scope:
    case Kind::Late:
      return ofUnknownCode();
  }
  return ofUnknownCode();
}

ExpressionFacts FactTable::ofBinary(const BinaryExpression& binary) {
  ExpressionFacts facts = of(*binary.left);
  facts.add(of(*binary.right));
  facts.mayBeObject = false;
  if (binary.operation == BinaryOperator::Is) return facts;
  facts.runsCode |= runsDefault(*binary.left) || runsDefault(*binary.right);
  return facts;
}

ExpressionFacts FactTable::ofMember(const MemberExpression& member) {
  if (const ClassMember* own = scope_.ownMember(member)) {
    if (own->kind == ClassMember::Kind::Constant) return {};
    ExpressionFacts facts = ofUnknownCode();
    facts.runsCode = own->kind != ClassMember::Kind::Field;
    return facts;
  }
  ExpressionFacts facts;
  if (member.object) facts.add(of(*member.object));
  facts.readsShared = facts.mayBeObject = true;
  facts.runsCode |= scope_.valuesRunCode() && !scope_.hostObjectOf(member);
  return facts;
}

/// With `facts` of what stands before and between the parentheses.
ExpressionFacts FactTable::ofElement(ExpressionFacts facts) const {
  facts.readsShared = facts.mayBeObject = true;
  facts.runsCode |= scope_.valuesRunCode();
  return facts;
}

ExpressionFacts FactTable::ofCall(const CallExpression& call) {
  using Kind = Binding::Kind;
  ExpressionFacts facts = of(call.arguments);
  const Binding* callee = scope_.bindName(*call.callee);
  if (!callee) {
    facts.add(of(*call.callee));
    if (call.callee->kind == ExpressionKind::Call) return ofElement(facts);
  } else if (callee->isVariable() && !scope_.isResult(*callee)) {
    return ofElement(facts);
  } else if (callee->kind == Kind::Intrinsic) {
    facts.readsShared = true;
    facts.mayBeObject = givesObject(*callee->intrinsic);
    for (const auto& argument : call.arguments) {
      if (argument) facts.runsCode |= runsDefault(*argument);
    }
    return facts;
  } else if (callee->kind == Kind::Constant || callee->kind == Kind::Class ||
             callee->kind == Kind::Unresolved) {
    return facts;  // an error
  } else if (callee->kind == Kind::Scope) {
    if (callee->scope != ScopeFunction::GetRef) facts.writes.addAll();
  }
  facts.runsCode = facts.readsShared = facts.mayBeObject = true;
  addPassed(facts, call.arguments);
  return facts;
}

/// The variables, or elements of them, that a call gets by reference.
void FactTable::addPassed(ExpressionFacts& facts,
                          const std::vector<ExpressionPtr>& arguments) const {
  for (const auto& argument : arguments) {
    const Identifier* name = argument ? variableBelow(*argument) : nullptr;
    if (!name) continue;
    const Binding& passed = scope_.bind(*name);
    if (passed.kind == Binding::Kind::InRegister) facts.writes.add(passed.index);
  }
}

}  // namespace quorvane::vbs
