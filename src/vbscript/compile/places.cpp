#include "vbscript/compile/places.h"

#include "vbscript/compile/lowering.h"
#include "vbscript/compile/script_compiler.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

Register PlaceLowering::placeOf(const Expression& expression) {
  if (const Binding* binding = scope_.bindName(expression)) {
    const bool isPlace = binding->isVariable() || binding->kind == Binding::Kind::Late;
    if (isPlace) return placeOfName(*binding, static_cast<const NameExpression&>(expression).name);
  }
  const auto field = scope_.variableOf(expression);
  if (!field) return parts_.expressions.operand(expression);
  const Register place = frame_.newTemporary();
  refer(*field, place);
  return place;
}

Register PlaceLowering::placeOfName(const Binding& binding, const Identifier& name) {
  if (binding.kind == Binding::Kind::InRegister) return binding.index;
  if (binding.kind == Binding::Kind::Global) {
    const Register reference = scope_.standIn(binding);
    if (reference != kNoRegister) return reference;
  }
  const Register place = frame_.newTemporary();
  if (binding.isVariable()) {
    refer(binding, place);
  } else {
    referLate(binding, name, place);
  }
  return place;
}

void PlaceLowering::refer(const Binding& variable, Register target) {
  switch (variable.kind) {
    case Binding::Kind::Global:
      return code_.emit(Opcode::RefGlobal, target, variable.index);
    case Binding::Kind::Field:
      VBS_ASSERT(routine_.me != kNoRegister);
      return code_.emit(Opcode::RefField, target, variable.index, routine_.me);
    default:
      VBS_ASSERT(variable.kind == Binding::Kind::InRegister);
      return code_.emit(Opcode::RefVariable, target, variable.index);
  }
}

void PlaceLowering::referLate(const Binding& binding, const Identifier& name, Register target) {
  VBS_ASSERT(binding.kind == Binding::Kind::Late);
  code_.emitName(Opcode::LateRef, target, binding.index, script_.optionExplicit(), name);
}

// ---- Elements ----

PlaceLowering::ArrayPath PlaceLowering::pushPath(const Expression& array) {
  const Identifier* root = variableBelow(array);
  ArrayPath path{&array, kNoRegister, {}, {}};
  if (!root || !scope_.bind(*root).isVariable()) {
    const bool isEvaluated = array.kind != ExpressionKind::Name && !scope_.variableOf(array);
    if (isEvaluated) path.value = placeOf(array);
    return path;
  }
  while (path.root->kind == ExpressionKind::Call) {
    const auto* level = static_cast<const CallExpression*>(path.root);
    path.levels.insert(path.levels.begin(), level);
    path.root = level->callee.get();
  }
  for (const auto* level : path.levels) {
    path.indexes.push_back(parts_.arguments.pushArguments(level->arguments, Passing::Value));
  }
  return path;
}

Register PlaceLowering::placeAt(const ArrayPath& path, std::vector<Register>& locks) {
  if (path.value != kNoRegister) return path.value;
  Register place = placeOf(*path.root);
  const Expression* array = path.root;
  VBS_ASSERT(path.indexes.size() == path.levels.size());
  for (std::size_t i = 0; i < path.levels.size(); ++i) {
    const CallExpression& level = *path.levels[i];
    const Register element = frame_.newTemporary();
    locks.push_back(frame_.newTemporary());
    notes_.noteElement(*array, level.arguments);
    code_.emit(Opcode::RefElement, element, place, path.indexes[i]);
    code_.emitPair(static_cast<std::uint32_t>(level.arguments.size()), locks.back());
    place = element;
  }
  return place;
}

void PlaceLowering::referToElement(const CallExpression& element, Register target, Register lock) {
  const Temporaries temporaries(frame_);
  const ArrayPath path = pushPath(*element.callee);
  const Register first = parts_.arguments.pushArguments(element.arguments, Passing::Value);
  std::vector<Register> locks;
  const Register base = placeAt(path, locks);
  notes_.noteElement(*element.callee, element.arguments);
  code_.emit(Opcode::RefElement, target, base, first);
  code_.emitPair(static_cast<std::uint32_t>(element.arguments.size()), lock);
  releaseLocks(locks);
}

void PlaceLowering::releaseLocks(const std::vector<Register>& locks) {
  for (const Register lock : locks) code_.emit(Opcode::Clear, lock);
}

}  // namespace quorvane::vbs
