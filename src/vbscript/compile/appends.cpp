#include "vbscript/compile/appends.h"

#include "vbscript/compile/lowering.h"

namespace quorvane::vbs {

/// A register with what is to be added.
Register AppendLowering::tailOf(const std::vector<const Expression*>& parts) {
  if (parts.size() == 1) return parts_.expressions.operand(*parts[0]);
  const Register tail = frame_.newTemporary();
  parts_.concatenations.concatenateParts(parts, tail);
  return tail;
}

/// Registers with the value of `first` as it was, and with what is to be added to it.
AppendLowering::Growth AppendLowering::pushGrowth(const Expression& first,
                                                  std::vector<const Expression*> parts) {
  if (parts.size() > 1 && scope_.valuesRunCode()) {
    const std::size_t count = parts.size();
    parts.insert(parts.begin(), &first);
    const Register before = parts_.concatenations.pushPieces(parts, true);
    const auto tail = static_cast<Register>(before + 1);
    parts_.concatenations.joinPieces(tail, tail, count);
    return {before, tail};
  }
  const Register before = frame_.newTemporary();
  parts_.expressions.compileTo(first, before);
  return {before, tailOf(parts)};
}

bool AppendLowering::appendToVariable(const Expression& target, const Expression& value) {
  const auto variable = scope_.variableOf(target);
  if (!variable) return false;
  auto [first, parts] = concatenationOf(value);
  const auto left = scope_.variableOf(*first);
  const bool isSame = left && left->kind == variable->kind && left->index == variable->index;
  if (parts.empty() || !isSame) return false;
  std::vector<ExpressionPtr> made;
  parts_.concatenations.joinTexts(parts, made);
  const Temporaries temporaries(frame_);
  ExpressionFacts facts;
  for (const Expression* part : parts) facts.add(facts_.of(*part));
  const bool isSaved =
      facts_.mayChange(facts, *variable) || (parts.size() > 1 && scope_.valuesRunCode());
  if (!isSaved) {
    const Register tail = tailOf(parts);
    code_.emit(Opcode::Append, parts_.places.placeOf(target), tail);
    return true;
  }
  const Growth growth = pushGrowth(*first, std::move(parts));
  code_.emit(Opcode::AppendSaved, parts_.places.placeOf(target), growth.before, growth.tail);
  return true;
}

/// Both are the same variable or the same constant.
bool AppendLowering::isSamePlainIndex(const Expression& a, const Expression& b) const {
  const Value* constant = scope_.literal(a);
  const Value* other = scope_.literal(b);
  if (constant && other && constant->type() == other->type()) {
    if (constant->isString()) return constant->asString() == other->asString();
    return constant->is(Type::Integer) && constant->asInt() == other->asInt();
  }
  const Binding* binding = scope_.bindName(a);
  return binding && binding->isVariable() && isSameName(a, b);
}

bool AppendLowering::isSameElement(const CallExpression& target, const Expression& other) const {
  const Binding* array = scope_.bindName(*target.callee);
  if (!array || !array->isVariable() || scope_.isResult(*array)) return false;
  if (target.arguments.size() != 1 || !target.arguments[0]) return false;
  if (other.kind != ExpressionKind::Call) return false;
  const auto& element = static_cast<const CallExpression&>(other);
  return isSameName(*element.callee, *target.callee) && element.arguments.size() == 1 &&
         element.arguments[0] && isSamePlainIndex(*element.arguments[0], *target.arguments[0]);
}

bool AppendLowering::appendToElement(const CallExpression& target, const Expression& value) {
  auto [first, parts] = concatenationOf(value);
  if (parts.empty() || !isSameElement(target, *first)) return false;
  const Expression& index = *target.arguments[0];

  std::vector<ExpressionPtr> made;
  parts_.concatenations.joinTexts(parts, made);
  const Temporaries temporaries(frame_);
  const auto [before, tail] = pushGrowth(*first, std::move(parts));
  const Register at = parts_.expressions.operand(index);
  const Register place = parts_.places.placeOf(*target.callee);
  code_.emit(Opcode::AppendElement, place, at, before);
  code_.emitPair(tail, 0);
  notes_.noteElement(*target.callee, target.arguments);
  code_.emit(Opcode::SetElement, place, at, before);
  return true;
}

bool AppendLowering::appendToMember(const MemberExpression& target, const Expression& value) {
  auto [first, parts] = concatenationOf(value);
  if (parts.empty() || first->kind != ExpressionKind::Member) return false;
  const auto& member = static_cast<const MemberExpression&>(*first);
  const bool isSame = member.name.id == target.name.id &&
                      (target.object ? member.object && isSameName(*member.object, *target.object)
                                     : !member.object && parts_.objects.isInWith());
  if (!isSame) return false;

  std::vector<ExpressionPtr> made;
  parts_.concatenations.joinTexts(parts, made);
  const Temporaries temporaries(frame_);
  const auto [before, tail] = pushGrowth(*first, std::move(parts));
  const Register object = parts_.objects.objectOperand(target);
  code_.emit(Opcode::AppendMember, object, before, tail);
  parts_.objects.noteObject(target);
  code_.putMember(object, before, false, target.name);
  return true;
}

}  // namespace quorvane::vbs
