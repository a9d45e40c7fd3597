#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "vbscript/compile/binding.h"
#include "vbscript/values/error.h"

namespace quorvane::vbs {

class ScriptCompiler;

/// A place in code that jumps lead to, before or behind them.
class Label {
 public:
  bool isPlaced() const { return target_ != kNowhere; }
  std::uint32_t target() const { return target_; }

 private:
  friend class CodeWriter;
  static constexpr std::uint32_t kNowhere = 0xFFFFFFFF;
  std::uint32_t target_ = kNowhere;
  std::vector<std::uint32_t> jumps_;  ///< that wait for it to be placed
};

/// Writes the code of one routine: owns how operations become words, where jumps lead, and the
/// routine's constants and look-up caches. Knows nothing of the tree; the registers that it is
/// given have been laid out (see FrameLayout).
class CodeWriter {
 public:
  /// `script` gives names their numbers.
  CodeWriter(ScriptCompiler& script, Routine& routine) : script_(script), routine_(routine) {}

  /// Of the next instruction.
  std::uint32_t position() const { return static_cast<std::uint32_t>(routine_.code.size()); }

  // An operation, with the word behind it where it has one (see opcodes.h).
  void emit(Opcode op, unsigned a = 0, unsigned b = 0, unsigned c = 0);
  void emitPair(std::uint32_t low, std::uint32_t high);
  void emitName(Opcode op, unsigned a, unsigned b, unsigned c, const Identifier& name);
  /// Of an object of the host, with `a`, `b` and `c` as CallHost has them.
  void emitHostCall(unsigned a, unsigned b, unsigned c, unsigned object, MemberId member);
  void emitMember(Opcode op, unsigned a, unsigned b, unsigned c, const Identifier& name);
  void getMember(Register target, Register object, Register base, const Identifier& name);
  void putMember(Register object, Register source, bool isSet, const Identifier& name);
  void emitPointer(Opcode op, unsigned a, unsigned b, unsigned c, const void* pointer);
  void emitThrow(ErrorCode code, const Identifier& name);

  /// What `Exit Sub` and the end of a routine do. The frame has been laid out.
  void leave(bool isMain);

  // Jumps. `Wide` ones have their distance in the instruction, `far` ones in the word behind it.
  void emitWideJump(Opcode op, unsigned a, Label& label);
  void emitFarJump(Opcode op, unsigned a, unsigned b, unsigned c, Label& label);
  void jumpTo(Label& label) { emitWideJump(Opcode::Jump, 0, label); }
  /// The next instruction is where the label's jumps lead.
  void place(Label& label);

  /// The number of a constant, if it fits into an operand.
  std::optional<std::uint16_t> nearConstant(const Value& value);
  void loadConstant(Register target, const Value& value);

  /// Ends the routine; every label that was jumped to has been placed.
  void finish(bool isMain);

 private:
  void noteJump(std::uint32_t at, Label& label);
  void patch(std::uint32_t at, std::uint32_t target);
  void shortenJumps();
  std::uint32_t targetOf(std::uint32_t at) const;
  std::uint32_t constantIndex(const Value& value);
  bool areRegisters(unsigned first, unsigned count) const;
  bool areValid(const Instruction& code) const;

  ScriptCompiler& script_;
  Routine& routine_;
  std::size_t waitingJumps_ = 0;
};

}  // namespace quorvane::vbs
