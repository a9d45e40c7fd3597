#include <algorithm>
#include <optional>

#include "vbscript/compile/compiler.h"
#include "vbscript/library/functions.h"

// Concatenations.

namespace quorvane::vbs {

namespace {

/// `first & rest & ...`
struct Concatenation {
  const Expression* first;
  std::vector<const Expression*> rest;
};

Concatenation concatenationOf(const Expression& expression) {
  Concatenation found{&expression, {}};
  while (found.first->kind == ExpressionKind::Binary) {
    const auto& binary = static_cast<const BinaryExpression&>(*found.first);
    if (binary.operation != BinaryOperator::Concatenate) break;
    found.rest.push_back(binary.right.get());
    found.first = binary.left.get();
  }
  std::reverse(found.rest.begin(), found.rest.end());
  return found;
}

bool isSameName(const Expression& a, const Expression& b) {
  return a.kind == ExpressionKind::Name && b.kind == ExpressionKind::Name &&
         static_cast<const NameExpression&>(a).name.id ==
             static_cast<const NameExpression&>(b).name.id;
}

}  // namespace

void RoutineCompiler::compileConcatenation(const BinaryExpression& binary, Register target) {
  auto [first, parts] = concatenationOf(binary);
  parts.insert(parts.begin(), first);
  concatenateParts(std::move(parts), target);
}

// ---- Texts that grow in place ----

/// A register with what is to be added.
RoutineCompiler::Register RoutineCompiler::tailOf(std::vector<const Expression*> parts) {
  if (parts.size() == 1) return operand(*parts[0]);
  const Register tail = newTemporary();
  concatenateParts(std::move(parts), tail);
  return tail;
}

bool RoutineCompiler::anyDisturbs(const std::vector<const Expression*>& parts,
                                  Register variable) const {
  return std::any_of(parts.begin(), parts.end(),
                     [&](const Expression* part) { return disturbs(*part, variable); });
}

/// What an expression stands for that is a variable or, with or without Me, a field of the class.
std::optional<Binding> RoutineCompiler::variableOf(const Expression& expression) const {
  if (const Binding* binding = bindName(expression)) {
    return isVariable(*binding) ? std::optional(*binding) : std::nullopt;
  }
  if (expression.kind != ExpressionKind::Member) return std::nullopt;
  const ClassMember* own = ownMember(static_cast<const MemberExpression&>(expression));
  if (!own || own->kind != ClassMember::Kind::Field) return std::nullopt;
  Binding field;
  field.kind = Binding::Kind::Field;
  field.index = own->slot;
  return field;
}

/// Whether joining the value with others may run code of the script, as the default property of an
/// object does.
bool RoutineCompiler::mayRunDefault(const Expression& expression) const {
  const Binding* binding = bindName(unwrapped(expression));
  return binding && isVariable(*binding) && script_.valuesRunCode();
}

/// `s = s & a & b` adds to s what it lacks.
bool RoutineCompiler::appendToVariable(const Expression& target, const Expression& value) {
  const auto variable = variableOf(target);
  if (!variable) return false;
  auto [first, parts] = concatenationOf(value);
  const auto left = variableOf(*first);
  const bool isSame = left && left->kind == variable->kind && left->index == variable->index;
  if (parts.empty() || !isSame) return false;
  const Temporaries temporaries(*this);
  // Nothing but this routine reaches its own variables; a parameter may stand for any.
  const bool isOwn = variable->kind == Binding::Kind::Register && !isMain_ &&
                     variable->index >= routine_.parameterCount;
  const bool runsDefault =
      parts.size() > 1 &&
      std::any_of(parts.begin(), parts.end(), [&](auto* part) { return mayRunDefault(*part); });
  const bool disturbed =
      anyDisturbs(parts, isOwn ? variable->index : kNoRegister) || (!isOwn && runsDefault);
  Register before = kNoRegister;
  if (disturbed) {
    before = newTemporary();
    compileTo(target, before);
  }
  const Register tail = tailOf(std::move(parts));
  const Register place = placeOf(target);
  if (disturbed) {
    emit(Opcode::AppendSaved, place, before, tail);
  } else {
    emit(Opcode::Append, place, tail);
  }
  return true;
}

/// Both are the same variable or the same constant.
bool RoutineCompiler::isSamePlainIndex(const Expression& a, const Expression& b) const {
  const Value* constant = literal(a);
  const Value* other = literal(b);
  if (constant && other && constant->type() == other->type()) {
    if (constant->isString()) return constant->asString() == other->asString();
    return constant->is(Type::Integer) && constant->asInt() == other->asInt();
  }
  const Binding* binding = bindName(a);
  return binding && isVariable(*binding) && isSameName(a, b);
}

/// `t(i) = t(i) & a & b`
bool RoutineCompiler::appendToElement(const CallExpression& target, const Expression& value) {
  const Binding* array = bindName(*target.callee);
  if (!array || !isVariable(*array) || target.arguments.size() != 1 || !target.arguments[0]) {
    return false;
  }
  const bool isResult = array->kind == Binding::Kind::Register &&
                        (array->index == routine_.result || array->index == outerResult_);
  if (isResult) return false;

  const Expression& index = *target.arguments[0];
  auto [first, parts] = concatenationOf(value);
  if (parts.empty() || first->kind != ExpressionKind::Call) return false;
  const auto& element = static_cast<const CallExpression&>(*first);
  const bool isSame = isSameName(*element.callee, *target.callee) &&
                      element.arguments.size() == 1 && element.arguments[0] &&
                      isSamePlainIndex(*element.arguments[0], index);
  if (!isSame) return false;

  const Temporaries temporaries(*this);
  const Register before = newTemporary();
  compileTo(*first, before);
  const Register tail = tailOf(std::move(parts));
  const Register at = operand(index);
  const Register place = placeOf(*target.callee);
  emit(Opcode::AppendElement, place, at, before);
  emitWord(Instruction::fromPair(tail, 0));
  noteElement(*target.callee, target.arguments);
  emit(Opcode::SetElement, place, at, before);
  return true;
}

/// `o.t = o.t & a & b`
bool RoutineCompiler::appendToMember(const MemberExpression& target, const Expression& value) {
  auto [first, parts] = concatenationOf(value);
  if (parts.empty() || first->kind != ExpressionKind::Member) return false;
  const auto& member = static_cast<const MemberExpression&>(*first);
  const bool isSame = member.name.id == target.name.id &&
                      (target.object ? member.object && isSameName(*member.object, *target.object)
                                     : !member.object && !withs_.empty());
  if (!isSame) return false;

  const Temporaries temporaries(*this);
  const Register before = newTemporary();
  compileTo(*first, before);
  const Register tail = tailOf(std::move(parts));
  const Register object = objectOperand(target);
  emit(Opcode::AppendMember, object, before, tail);
  noteObject(target);
  emitMember(Opcode::PutMember, object, before, 0, target.name);
  return true;
}

// ---- Joining ----

/// The text that an expression always has: a constant, or Chr of one, as translated pages spell
/// every double quote.
std::optional<String> RoutineCompiler::constantText(const Expression& expression) const {
  if (const Value* constant = literal(expression)) {
    return constant->isString() ? std::optional(constant->asString()) : std::nullopt;
  }
  const Expression& inner = unwrapped(expression);
  if (inner.kind != ExpressionKind::Call) return std::nullopt;
  const auto& call = static_cast<const CallExpression&>(inner);
  const Binding* binding = bindName(*call.callee);
  const bool isChr = binding && binding->kind == Binding::Kind::Intrinsic &&
                     binding->intrinsic->call == intrinsic::chr;
  if (!isChr || call.arguments.size() != 1 || !call.arguments[0]) return std::nullopt;
  const Value* code = literal(*call.arguments[0]);
  if (!code || !code->is(Type::Integer)) return std::nullopt;
  if (code->asInt() < 0 || code->asInt() > UINT8_MAX) return std::nullopt;
  return String::ofByte(static_cast<char>(code->asInt()));
}

/// The text of a concatenation of constant texts, or of one alone.
std::optional<String> RoutineCompiler::joinedText(const Expression& expression) const {
  const auto [first, rest] = concatenationOf(expression);
  auto text = constantText(*first);
  for (std::size_t i = 0; text && i < rest.size(); ++i) {
    const auto more = constantText(*rest[i]);
    if (!more) return std::nullopt;
    text->append(*more);
  }
  return text;
}

/// Makes neighbours that are constant texts one literal, which `made` owns.
void RoutineCompiler::joinTexts(std::vector<const Expression*>& parts,
                                std::vector<ExpressionPtr>& made) const {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < parts.size();) {
    const Expression* part = parts[i];
    auto text = constantText(*parts[i++]);
    const std::size_t second = i;
    while (text && i < parts.size()) {
      const auto more = constantText(*parts[i]);
      if (!more) break;
      text->append(*more);
      ++i;
    }
    if (i > second) {
      made.push_back(std::make_unique<LiteralExpression>(part->position, Value(std::move(*text))));
      part = made.back().get();
    }
    parts[kept++] = part;
  }
  parts.resize(kept);
}

void RoutineCompiler::concatenateParts(std::vector<const Expression*> parts, Register target) {
  std::vector<ExpressionPtr> made;
  joinTexts(parts, made);
  if (parts.size() == 1) return compileTo(*parts[0], target);
  const Temporaries temporaries(*this);
  if (parts.size() == 2) {
    const Register l = operandBefore(*parts[0], *parts[1], target);
    const Register r = operand(*parts[1], l == target ? kNoRegister : target);
    return emit(Opcode::Concatenate, target, l, r);
  }
  const auto first = static_cast<Register>(nextTemporary_);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const Register piece = newTemporary();
    const Binding* binding = bindName(unwrapped(*parts[i]));
    const bool inRegister = binding && binding->kind == Binding::Kind::Register;
    const bool stays = inRegister && std::none_of(parts.begin() + static_cast<std::ptrdiff_t>(i),
                                                  parts.end(), [&](const Expression* later) {
                                                    return disturbs(*later, binding->index);
                                                  });
    if (stays) {
      emit(Opcode::RefVariable, piece, binding->index);
    } else {
      compileTo(*parts[i], piece);
    }
  }
  emit(Opcode::ConcatenateMany, target, first, static_cast<unsigned>(parts.size()));
}

// ---- Constant texts that are written ----

/// A statement that hands a constant text to a member that joins such texts.
struct RoutineCompiler::ConstantWrite {
  std::uint16_t object;
  MemberId member;
  String text;
};

std::optional<RoutineCompiler::ConstantWrite> RoutineCompiler::constantWrite(
    const Statement& statement) const {
  if (statement.kind != StatementKind::Call) return std::nullopt;
  const auto& call = static_cast<const CallStatement&>(statement);
  if (call.callee->kind != ExpressionKind::Member) return std::nullopt;
  if (call.arguments.size() != 1 || !call.arguments[0]) return std::nullopt;
  const auto& callee = static_cast<const MemberExpression&>(*call.callee);
  const Binding* host = hostObjectOf(callee);
  if (!host) return std::nullopt;
  const MemberId member = hostMember(*host, callee.name);
  if (!script_.context().host[host->index].object->joinsTexts(member)) return std::nullopt;
  auto text = joinedText(*call.arguments[0]);
  if (!text) return std::nullopt;
  return ConstantWrite{host->index, member, std::move(*text)};
}

/// Compiles the constant writes of a block from `first` on as one: what a page has between its
/// statements is many lines. Returns the statement behind them, or `first` where there are none
/// to join.
std::size_t RoutineCompiler::compileConstantWrites(const Block& block, std::size_t first) {
  auto whole = constantWrite(*block[first]);
  if (!whole) return first;
  std::size_t next = first + 1;
  for (; next < block.size(); ++next) {
    const auto more = constantWrite(*block[next]);
    if (!more || more->object != whole->object || more->member != whole->member) break;
    whole->text.append(more->text);
  }
  if (next == first + 1) return first;
  std::vector<ExpressionPtr> arguments;
  arguments.push_back(
      std::make_unique<LiteralExpression>(block[first]->position, Value(std::move(whole->text))));
  callHost(whole->object, whole->member, arguments, kNoRegister);
  return next;
}

}  // namespace quorvane::vbs
