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

}  // namespace

void RoutineCompiler::compileConcatenation(const BinaryExpression& binary, Register target) {
  auto [first, parts] = concatenationOf(binary);
  parts.insert(parts.begin(), first);
  concatenateParts(std::move(parts), target);
}

// ---- Pieces ----

/// Whether the part does the same whenever it is evaluated before the pieces are joined. A variable
/// alone is read only then.
bool RoutineCompiler::isQuiet(const Expression& part) {
  if (scope_.variableOf(unwrapped(part))) return true;
  const ExpressionFacts facts = facts_.of(part);
  return !facts.runsCode && !facts.readsShared;
}

/// Puts the part's value, or a reference to the variable that it is, into `piece`. `later`: what
/// runs before the value is wanted. With `isRead` it is read next, out of the register returned.
Register RoutineCompiler::pushPiece(const Expression& part, const ExpressionFacts& later,
                                    Register piece, bool isRead) {
  const auto variable = scope_.variableOf(unwrapped(part));
  const bool isRegister = variable && variable->kind == Binding::Kind::InRegister;
  if (!variable || facts_.mayChange(later, *variable) || !(isRegister || scope_.valuesRunCode())) {
    compileTo(part, piece);
  } else if (isRegister && isRead) {
    return variable->index;
  } else {
    refer(*variable, piece);
  }
  return piece;
}

/// Evaluates the parts of `a & b & c` into consecutive temporaries, in the order of the operators:
/// a, b, the plain values of a and of b, c, its plain value. So an object's default property runs
/// before the parts behind it are read, where that can make a difference; else it runs when the
/// pieces are joined. `isAppend`: the others are joined first, and then added to the first.
Register RoutineCompiler::pushPieces(const std::vector<const Expression*>& parts, bool isAppend) {
  const auto behind = facts_.behind(parts);
  std::size_t loud = parts.size();  // behind the last part that is not quiet
  while (loud > 0 && isQuiet(*parts[loud - 1])) --loud;
  const auto isPlain = [&](std::size_t i) {
    const bool matters = std::max<std::size_t>(i, 1) + 1 < loud || (isAppend && i <= 1);
    return matters && facts_.runsDefault(*parts[i]);
  };
  const auto first = static_cast<Register>(nextTemporary_);
  Register firstSource = first;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const Register piece = newTemporary();
    ExpressionFacts later = !isPlain(i) ? behind[i]
                            : i == 0    ? facts_.of(*parts[1])
                                        : ExpressionFacts();
    if (i == 1) later.runsCode |= isPlain(0);
    const Register source = pushPiece(*parts[i], later, piece, isPlain(i));
    if (i == 0) firstSource = source;
    if (i == 1 && isPlain(0)) emit(Opcode::Plain, first, firstSource);
    if (i >= 1 && isPlain(i)) emit(Opcode::Plain, piece, source);
  }
  return first;
}

void RoutineCompiler::joinPieces(Register target, Register first, std::size_t count) {
  if (count == 2) return emit(Opcode::Concatenate, target, first, first + 1u);
  emit(Opcode::ConcatenateMany, target, first, static_cast<unsigned>(count));
}

// ---- Texts that grow in place ----

/// A register with what is to be added.
Register RoutineCompiler::tailOf(const std::vector<const Expression*>& parts) {
  if (parts.size() == 1) return operand(*parts[0]);
  const Register tail = newTemporary();
  concatenateParts(parts, tail);
  return tail;
}

/// Registers with the value of `first` as it was, and with what is to be added to it.
RoutineCompiler::Growth RoutineCompiler::pushGrowth(const Expression& first,
                                                    std::vector<const Expression*> parts) {
  if (parts.size() > 1 && scope_.valuesRunCode()) {
    const std::size_t count = parts.size();
    parts.insert(parts.begin(), &first);
    const Register before = pushPieces(parts, true);
    const auto tail = static_cast<Register>(before + 1);
    joinPieces(tail, tail, count);
    return {before, tail};
  }
  const Register before = newTemporary();
  compileTo(first, before);
  return {before, tailOf(parts)};
}

/// `s = s & a & b` adds to s what it lacks.
bool RoutineCompiler::appendToVariable(const Expression& target, const Expression& value) {
  const auto variable = scope_.variableOf(target);
  if (!variable) return false;
  auto [first, parts] = concatenationOf(value);
  const auto left = scope_.variableOf(*first);
  const bool isSame = left && left->kind == variable->kind && left->index == variable->index;
  if (parts.empty() || !isSame) return false;
  std::vector<ExpressionPtr> made;
  joinTexts(parts, made);
  const Temporaries temporaries(*this);
  ExpressionFacts facts;
  for (const Expression* part : parts) facts.add(facts_.of(*part));
  const bool isSaved =
      facts_.mayChange(facts, *variable) || (parts.size() > 1 && scope_.valuesRunCode());
  if (!isSaved) {
    const Register tail = tailOf(parts);
    emit(Opcode::Append, placeOf(target), tail);
    return true;
  }
  const Growth growth = pushGrowth(*first, std::move(parts));
  emit(Opcode::AppendSaved, placeOf(target), growth.before, growth.tail);
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
  return binding && binding->isVariable() && isSameName(a, b);
}

/// `t(i) = t(i) & a & b`
bool RoutineCompiler::appendToElement(const CallExpression& target, const Expression& value) {
  const Binding* array = bindName(*target.callee);
  if (!array || !array->isVariable() || scope_.isResult(*array)) return false;
  if (target.arguments.size() != 1 || !target.arguments[0]) return false;
  const Expression& index = *target.arguments[0];
  auto [first, parts] = concatenationOf(value);
  if (parts.empty() || first->kind != ExpressionKind::Call) return false;
  const auto& element = static_cast<const CallExpression&>(*first);
  const bool isSame = isSameName(*element.callee, *target.callee) &&
                      element.arguments.size() == 1 && element.arguments[0] &&
                      isSamePlainIndex(*element.arguments[0], index);
  if (!isSame) return false;

  std::vector<ExpressionPtr> made;
  joinTexts(parts, made);
  const Temporaries temporaries(*this);
  const auto [before, tail] = pushGrowth(*first, std::move(parts));
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

  std::vector<ExpressionPtr> made;
  joinTexts(parts, made);
  const Temporaries temporaries(*this);
  const auto [before, tail] = pushGrowth(*first, std::move(parts));
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
    const Register l = operandBefore(*parts[0], facts_.of(*parts[1]), target);
    const Register r = operand(*parts[1], l == target ? kNoRegister : target);
    return emit(Opcode::Concatenate, target, l, r);
  }
  joinPieces(target, pushPieces(parts, false), parts.size());
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
  const Binding* host = scope_.hostObjectOf(callee);
  if (!host) return std::nullopt;
  const MemberId member = scope_.hostMember(*host, callee.name);
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
