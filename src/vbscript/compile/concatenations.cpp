#include "vbscript/compile/concatenations.h"

#include <algorithm>

#include "vbscript/compile/lowering.h"
#include "vbscript/compile/script_compiler.h"
#include "vbscript/library/functions.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

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

void ConcatenationLowering::compileConcatenation(const BinaryExpression& binary, Register target) {
  auto [first, parts] = concatenationOf(binary);
  parts.insert(parts.begin(), first);
  concatenateParts(std::move(parts), target);
}

void ConcatenationLowering::concatenateParts(std::vector<const Expression*> parts,
                                             Register target) {
  std::vector<ExpressionPtr> made;
  joinTexts(parts, made);
  if (parts.size() == 1) return parts_.expressions.compileTo(*parts[0], target);
  const Temporaries temporaries(frame_);
  if (parts.size() == 2) {
    const Register l = parts_.expressions.operandBefore(*parts[0], facts_.of(*parts[1]), target);
    const Register r = parts_.expressions.operand(*parts[1], l == target ? kNoRegister : target);
    return code_.emit(Opcode::Concatenate, target, l, r);
  }
  joinPieces(target, pushPieces(parts, false), parts.size());
}

// ---- Pieces ----

/// Whether the part does the same whenever it is evaluated before the pieces are joined. A variable
/// alone is read only then.
bool ConcatenationLowering::isQuiet(const Expression& part) {
  if (scope_.variableOf(unwrapped(part))) return true;
  const ExpressionFacts facts = facts_.of(part);
  return !facts.runsCode && !facts.readsShared;
}

/// Puts the part's value, or a reference to the variable that it is, into `piece`. `later`: what
/// runs before the value is wanted. With `isRead` it is read next, out of the register returned.
Register ConcatenationLowering::pushPiece(const Expression& part, const ExpressionFacts& later,
                                          Register piece, bool isRead) {
  const auto variable = scope_.variableOf(unwrapped(part));
  const bool isRegister = variable && variable->kind == Binding::Kind::InRegister;
  if (!variable || facts_.mayChange(later, *variable) || !(isRegister || scope_.valuesRunCode())) {
    parts_.expressions.compileTo(part, piece);
  } else if (isRegister && isRead) {
    return variable->index;
  } else {
    parts_.places.refer(*variable, piece);
  }
  return piece;
}

Register ConcatenationLowering::pushPieces(const std::vector<const Expression*>& parts,
                                           bool isAppend) {
  VBS_ASSERT(parts.size() >= 2);
  const auto behind = facts_.behind(parts);
  std::size_t loud = parts.size();  // behind the last part that is not quiet
  while (loud > 0 && isQuiet(*parts[loud - 1])) --loud;
  const auto isPlain = [&](std::size_t i) {
    const bool matters = std::max<std::size_t>(i, 1) + 1 < loud || (isAppend && i <= 1);
    return matters && facts_.runsDefault(*parts[i]);
  };
  const Register first = frame_.nextTemporary();
  Register firstSource = first;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const Register piece = frame_.newTemporary();
    VBS_ASSERT(piece == first + i);
    ExpressionFacts later = !isPlain(i) ? behind[i]
                            : i == 0    ? facts_.of(*parts[1])
                                        : ExpressionFacts();
    if (i == 1) later.runsCode |= isPlain(0);
    const Register source = pushPiece(*parts[i], later, piece, isPlain(i));
    if (i == 0) firstSource = source;
    if (i == 1 && isPlain(0)) code_.emit(Opcode::Plain, first, firstSource);
    if (i >= 1 && isPlain(i)) code_.emit(Opcode::Plain, piece, source);
  }
  return first;
}

void ConcatenationLowering::joinPieces(Register target, Register first, std::size_t count) {
  VBS_ASSERT(count >= 2);
  if (count == 2) return code_.emit(Opcode::Concatenate, target, first, first + 1u);
  code_.emit(Opcode::ConcatenateMany, target, first, static_cast<unsigned>(count));
}

// ---- Constant texts ----

/// The text that an expression always has: a constant, or Chr of one, as translated pages spell
/// every double quote.
std::optional<String> ConcatenationLowering::constantText(const Expression& expression) const {
  if (const Value* constant = scope_.literal(expression)) {
    return constant->isString() ? std::optional(constant->asString()) : std::nullopt;
  }
  const Expression& inner = unwrapped(expression);
  if (inner.kind != ExpressionKind::Call) return std::nullopt;
  const auto& call = static_cast<const CallExpression&>(inner);
  const Binding* binding = scope_.bindName(*call.callee);
  const bool isChr = binding && binding->kind == Binding::Kind::Intrinsic &&
                     binding->intrinsic->call == intrinsic::chr;
  if (!isChr || call.arguments.size() != 1 || !call.arguments[0]) return std::nullopt;
  const Value* code = scope_.literal(*call.arguments[0]);
  if (!code || !code->is(Type::Integer)) return std::nullopt;
  if (code->asInt() < 0 || code->asInt() > UINT8_MAX) return std::nullopt;
  return String::ofByte(static_cast<char>(code->asInt()));
}

/// The text of a concatenation of constant texts, or of one alone.
std::optional<String> ConcatenationLowering::joinedText(const Expression& expression) const {
  const auto [first, rest] = concatenationOf(expression);
  auto text = constantText(*first);
  for (std::size_t i = 0; text && i < rest.size(); ++i) {
    const auto more = constantText(*rest[i]);
    if (!more) return std::nullopt;
    text->append(*more);
  }
  return text;
}

void ConcatenationLowering::joinTexts(std::vector<const Expression*>& parts,
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

/// A statement that hands a constant text to a member that joins such texts.
struct ConcatenationLowering::ConstantWrite {
  std::uint16_t object;
  MemberId member;
  String text;
};

std::optional<ConcatenationLowering::ConstantWrite> ConcatenationLowering::constantWrite(
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

std::size_t ConcatenationLowering::compileConstantWrites(const Block& block, std::size_t first) {
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
  parts_.calls.callHost(whole->object, whole->member, arguments, kNoRegister);
  return next;
}

}  // namespace quorvane::vbs
