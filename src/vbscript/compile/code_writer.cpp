#include "vbscript/compile/code_writer.h"

#include <array>
#include <string_view>

#include "vbscript/compile/script_class.h"
#include "vbscript/compile/script_compiler.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

namespace {

constexpr std::string_view kOperands[] = {
#define VBS_OPCODE_OPERANDS(name, operands, meaning) operands,
    VBS_OPCODES(VBS_OPCODE_OPERANDS)
#undef VBS_OPCODE_OPERANDS
};

/// Whether this is a jump that has a form of its own for leading back.
bool isJump(Opcode op) {
  return op >= Opcode::Jump && op < Opcode::Turn;
}

bool isWide(Opcode op) {
  return (op >= Opcode::Jump && op <= Opcode::JumpUnlessNot) ||
         (op >= Opcode::Turn && op <= Opcode::TurnUnlessNot);
}

/// How many words an operation takes.
std::uint32_t wordsOf(Opcode op) {
  const bool hasMore = kOperands[static_cast<unsigned>(op)].find(' ') != std::string_view::npos;
  return hasMore ? 2 : 1;
}

/// The operation that jumps to a label: back where that has been placed.
Opcode towards(const Label& label, Opcode op) {
  return label.isPlaced() && isJump(op) ? turnLike(op) : op;
}

}  // namespace

// ---- Operations ----

void CodeWriter::emit(Opcode op, unsigned a, unsigned b, unsigned c) {
  VBS_ASSERT(a <= UINT16_MAX && b <= UINT16_MAX && c <= UINT16_MAX);
  Instruction code;
  code.op = op;
  code.a = static_cast<std::uint16_t>(a);
  code.b = static_cast<std::uint16_t>(b);
  code.c = static_cast<std::uint16_t>(c);
  const std::size_t integer = kOperands[static_cast<unsigned>(op)].find('i');
  if (integer <= 2) code.integer = static_cast<std::int16_t>(std::array{a, b, c}[integer]);
  code.temporaries = static_cast<std::uint8_t>((routine_.isTemporary(code.a) ? 1 : 0) |
                                               (routine_.isTemporary(code.b) ? 2 : 0) |
                                               (routine_.isTemporary(code.c) ? 4 : 0));
  VBS_ASSERT(areValid(code));
  routine_.code.push_back(code);
}

/// Whether the routine has so many registers from this one on. Those of the main code begin with
/// the globals, of which there may be more later.
bool CodeWriter::areRegisters(unsigned first, unsigned count) const {
  const bool isMain = &routine_ == &script_.program().main() && !script_.context().asRoutine;
  if (isMain && first < kMaxGlobals) return first + count <= script_.program().globalsEnd;
  return first + count <= routine_.registerCount;
}

/// Whether the operands are of the kinds that the operation has. A register before a count is the
/// first of so many.
bool CodeWriter::areValid(const Instruction& code) const {
  const std::string_view kinds = kOperands[static_cast<unsigned>(code.op)];
  const std::array<std::uint16_t, 3> operands = {code.a, code.b, code.c};
  for (std::size_t i = 0; i < operands.size() && i < kinds.size() && kinds[i] != ' '; ++i) {
    const std::uint16_t operand = operands[i];
    const bool isCounted = kinds.substr(i + 1, 1) == "n";
    const bool isRegister = areRegisters(operand, isCounted ? operands[i + 1] : 1);
    const ScriptClass* owner = routine_.owner;
    if (kinds[i] == 'r' && !isRegister) return false;
    if (kinds[i] == 'd' && !isRegister && operand != kNoRegister) return false;
    if (kinds[i] == 't' && operand > routine_.registerCount) return false;
    if (kinds[i] == 'g' && operand >= script_.program().globalsEnd) return false;
    if (kinds[i] == 'k' && operand >= routine_.constants.size()) return false;
    if (kinds[i] == 'f' && (!owner || operand >= owner->fieldCount)) return false;
    if (kinds[i] == 'h' && operand >= script_.context().host.size()) return false;
  }
  return true;
}

void CodeWriter::emitPair(std::uint32_t low, std::uint32_t high) {
  routine_.code.push_back(Instruction::fromPair(low, high));
}

void CodeWriter::emitName(Opcode op, unsigned a, unsigned b, unsigned c, const Identifier& name) {
  emit(op, a, b, c);
  emitPair(script_.nameIndex(name), 0);
}

void CodeWriter::emitHostCall(unsigned a, unsigned b, unsigned c, unsigned object,
                              MemberId member) {
  emit(Opcode::CallHost, a, b, c);
  routine_.code.push_back(Instruction::fromPair(object, static_cast<std::uint32_t>(member),
                                                &routine_.hostCaches.emplace_back()));
}

void CodeWriter::emitMember(Opcode op, unsigned a, unsigned b, unsigned c, const Identifier& name) {
  MemberCache& cache = routine_.caches.emplace_back();
  cache.name = script_.nameIndex(name);
  emitPointer(op, a, b, c, &cache);
}

void CodeWriter::getMember(Register target, Register object, Register base,
                           const Identifier& name) {
  const bool isVariable = !routine_.isTemporary(object);
  emitMember(isVariable ? Opcode::GetMemberOfVariable : Opcode::GetMember, target, object, base,
             name);
}

void CodeWriter::putMember(Register object, Register source, bool isSet, const Identifier& name) {
  const bool isPlainCase = !isSet && !routine_.isTemporary(object);
  emitMember(isPlainCase ? Opcode::PutMemberOfVariable : Opcode::PutMember, object, source, isSet,
             name);
}

void CodeWriter::emitPointer(Opcode op, unsigned a, unsigned b, unsigned c, const void* pointer) {
  VBS_ASSERT(pointer != nullptr);
  emit(op, a, b, c);
  routine_.code.push_back(Instruction::fromPointer(pointer));
}

void CodeWriter::emitThrow(ErrorCode code, const Identifier& name) {
  emitName(Opcode::Throw, static_cast<unsigned>(code), 0, 0, name);
}

void CodeWriter::leave(bool isMain) {
  if (isMain) return emit(Opcode::Halt);
  const bool isMethod = routine_.me != kNoRegister;
  const unsigned me = isMethod ? routine_.me : 0;
  if (routine_.result == kNoRegister) {
    return emit(isMethod ? Opcode::ReturnMethod : Opcode::Return, 0, routine_.firstTemporary, me);
  }
  emit(isMethod ? Opcode::ReturnMethodResult : Opcode::ReturnResult, routine_.result,
       routine_.firstTemporary, me);
}

void CodeWriter::finish(bool isMain) {
  leave(isMain);
  VBS_ASSERT(waitingJumps_ == 0);
  shortenJumps();
}

// ---- Jumps ----

void CodeWriter::emitWideJump(Opcode op, unsigned a, Label& label) {
  VBS_ASSERT(isWide(op));
  const std::uint32_t at = position();
  emit(towards(label, op), a);
  noteJump(at, label);
}

void CodeWriter::emitFarJump(Opcode op, unsigned a, unsigned b, unsigned c, Label& label) {
  VBS_ASSERT(!isWide(op));
  const std::uint32_t at = position();
  emit(towards(label, op), a, b, c);
  emitPair(0, 0);
  noteJump(at, label);
}

void CodeWriter::noteJump(std::uint32_t at, Label& label) {
  if (label.isPlaced()) return patch(at, label.target_);
  label.jumps_.push_back(at);
  ++waitingJumps_;
}

void CodeWriter::place(Label& label) {
  VBS_ASSERT(!label.isPlaced());
  label.target_ = position();
  for (const std::uint32_t at : label.jumps_) patch(at, label.target_);
  waitingJumps_ -= label.jumps_.size();
  label.jumps_.clear();
}

void CodeWriter::patch(std::uint32_t at, std::uint32_t target) {
  VBS_ASSERT(at < position() && target <= position());
  Instruction& jump = routine_.code[at];
  const auto distance =
      (std::int64_t{target} - std::int64_t{at}) * static_cast<std::int64_t>(sizeof(Instruction));
  if (isWide(jump.op)) {
    jump.setWide(static_cast<std::int32_t>(distance));
  } else {
    routine_.code[at + 1] = Instruction::fromDistance(distance);
  }
}

/// Where a jump leads to another jump, it goes on to that one's target; where it leads to the end
/// of the routine, the end stands in its place.
void CodeWriter::shortenJumps() {
  auto& code = routine_.code;
  for (std::uint32_t at = 0; at < position(); at += wordsOf(code[at].op)) {
    if (!isJump(code[at].op)) continue;
    std::uint32_t target = targetOf(at);
    while (code[target].op == Opcode::Jump) target = targetOf(target);
    const Opcode there = code[target].op;
    const bool ends = there >= Opcode::Return && there <= Opcode::ReturnMethodResult;
    if (ends && code[at].op == Opcode::Jump) {
      code[at] = code[target];
    } else {
      patch(at, target);
    }
  }
}

/// Where a jump leads that leads forward.
std::uint32_t CodeWriter::targetOf(std::uint32_t at) const {
  const Instruction& jump = routine_.code[at];
  const std::int64_t distance = isWide(jump.op) ? jump.wide() : routine_.code[at + 1].distance();
  return at + static_cast<std::uint32_t>(distance / static_cast<std::int64_t>(sizeof(Instruction)));
}

// ---- Constants ----

std::uint32_t CodeWriter::constantIndex(const Value& value) {
  auto& constants = routine_.constants;
  // Only a short look back: most repetition is close by, and long scripts stay cheap to compile.
  const std::size_t first = constants.size() > 16 ? constants.size() - 16 : 0;
  for (std::size_t i = constants.size(); i-- > first;) {
    const Value& known = constants[i];
    if (known.type() != value.type()) continue;
    const bool same = value.isString() ? known.stringRep() == value.stringRep() ||
                                             known.asString() == value.asString()
                      : value.isObject() ? known.asObject() == value.asObject()
                                         : known.asCurrency() == value.asCurrency();
    if (same && !value.isArray()) return static_cast<std::uint32_t>(i);
  }
  constants.push_back(value);
  return static_cast<std::uint32_t>(constants.size() - 1);
}

std::optional<std::uint16_t> CodeWriter::nearConstant(const Value& value) {
  const std::uint32_t index = constantIndex(value);
  if (index > UINT16_MAX) return std::nullopt;
  return static_cast<std::uint16_t>(index);
}

void CodeWriter::loadConstant(Register target, const Value& value) {
  if (value.is(Type::Integer)) {
    return emit(Opcode::LoadInteger, target, static_cast<std::uint16_t>(value.asInt()));
  }
  const std::uint32_t index = constantIndex(value);
  if (index <= UINT16_MAX) return emit(Opcode::LoadConstant, target, index);
  emit(Opcode::LoadFarConstant, target);
  routine_.code.back().setWide(static_cast<std::int32_t>(index));
}

}  // namespace quorvane::vbs
