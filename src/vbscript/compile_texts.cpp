#include <algorithm>
#include <optional>

#include "vbscript/compiler.h"
#include "vbscript/library/functions.h"

// Concatenations.

namespace vbs {

void RoutineCompiler::compileConcatenation(const BinaryExpression& binary, Register target) {
  std::vector<const Expression*> parts{binary.right.get()};
  const Expression* at = binary.left.get();
  while (at->kind == ExpressionKind::Binary) {
    const auto& inner = static_cast<const BinaryExpression&>(*at);
    if (inner.operation != BinaryOperator::Concatenate) break;
    parts.push_back(inner.right.get());
    at = inner.left.get();
  }
  parts.push_back(at);
  std::reverse(parts.begin(), parts.end());
  concatenateParts(std::move(parts), target);
}

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

}  // namespace vbs
