#pragma once

#include <bit>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "vbscript/compile/opcodes.h"
#include "vbscript/syntax/ast.h"
#include "vbscript/values/value.h"

/// What the compiler makes and the machine runs.
namespace quorvane::vbs {

class Program;
struct ClassMember;
struct ScriptClass;

/// One word of code. Some operations read the word behind them as well (see opcodes.h); that word
/// then holds a pointer or two 32-bit numbers.
struct Instruction {
  Opcode op = Opcode::Halt;
  std::uint8_t temporaries = 0;  ///< bit 0: a is a temporary, bit 1: b, bit 2: c
  std::uint16_t a = 0;
  std::uint16_t b = 0;
  std::uint16_t c = 0;

  /// The 32-bit number in b and c: a distance in words from this instruction.
  std::int32_t wide() const {
    return static_cast<std::int32_t>(std::uint32_t{b} | std::uint32_t{c} << 16);
  }
  std::uint32_t low() const { return static_cast<std::uint32_t>(word()); }
  std::uint32_t high() const { return static_cast<std::uint32_t>(word() >> 32); }
  template <class T>
  T* pointer() const {
    return reinterpret_cast<T*>(static_cast<std::uintptr_t>(word()));
  }
  bool aIsTemporary() const { return (temporaries & 1) != 0; }
  bool bIsTemporary() const { return (temporaries & 2) != 0; }
  bool cIsTemporary() const { return (temporaries & 4) != 0; }
  static Instruction fromPair(std::uint32_t low, std::uint32_t high) {
    return std::bit_cast<Instruction>(std::uint64_t{low} | std::uint64_t{high} << 32);
  }
  static Instruction fromPointer(const void* p) {
    return std::bit_cast<Instruction>(
        static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(p)));
  }

 private:
  std::uint64_t word() const { return std::bit_cast<std::uint64_t>(*this); }
};
static_assert(sizeof(Instruction) == 8);

inline constexpr std::uint16_t kNoRegister = 0xFFFF;
inline constexpr std::uint32_t kNoName = 0xFFFFFFFF;

/// In a script's main code the variables are the engine's global variables themselves; hidden
/// variables and temporaries lie above all of them, so that later code may add globals. Other
/// routines have no more variables than that either.
inline constexpr std::uint16_t kMaxGlobals = 0x8000;

/// A stretch of code that belongs to one statement, from `start` to the next entry's start.
struct StatementEntry {
  std::uint32_t start = 0;
  std::uint32_t resume = 0;  ///< where On Error Resume Next continues
  SourcePosition position;
};

/// What the member access at one place in the code found last time; see Object::shape().
struct MemberCache {
  static constexpr std::uint32_t kNoClass = 0xFFFFFFFF;  ///< the serial of no object's class
  std::uint32_t name = 0;                                ///< in Program::names
  std::uint32_t scriptClass = 0;  ///< serial of the class that `member` belongs to, or 0
  const ClassMember* member = nullptr;
  std::uint32_t fieldClass = kNoClass;  ///< the same serial when `member` is a field
  std::uint32_t fieldSlot = 0;
  const void* shape = nullptr;
  MemberId id = kNoMember;  ///< for objects with `shape`
  const void* olderShape = nullptr;
  MemberId olderId = kNoMember;  ///< for objects with `olderShape`, which came before those
};

/// Names what an instruction uses, for error texts. Names are indexes in Program::names, or none.
struct OperandName {
  std::uint32_t start = 0;
  std::uint32_t name = kNoName;
  std::uint32_t index = kNoName;  ///< the variable that is the one index of an element
};

struct RoutineParameter {
  std::string lower;
  bool byValue = false;
  bool readOnly = false;  ///< never written through: a copy of the variable does as well
};

/// Compiled code of the main program, a procedure, or a text given to Execute or Eval.
///
/// Registers: parameters, Me, result, variables, hidden variables of blocks, temporaries.
struct Routine {
  std::string name;
  ProcedureKind kind = ProcedureKind::Sub;
  const Program* program = nullptr;
  const ScriptClass* owner = nullptr;  ///< of a class's procedures

  std::vector<Instruction> code;
  std::vector<Value> constants;
  std::vector<StatementEntry> statements;
  std::vector<OperandName> operandNames;
  mutable std::deque<MemberCache> caches;  ///< instructions point to them

  bool isGlobalScope = false;  ///< main code whose variables are global
  std::vector<RoutineParameter> parameters;
  bool anyByValue = false;
  bool allReadOnly = true;
  std::uint16_t parameterCount = 0;
  std::uint16_t me = kNoRegister;
  std::uint16_t result = kNoRegister;
  std::uint16_t firstCleared = 0;  ///< variables from here on are Empty when the routine begins
  std::uint16_t firstTemporary = 0;
  std::uint32_t registerCount = 0;

  /// Variables by name, for code that Execute and Eval add.
  struct Variable {
    std::string lower;
    std::uint16_t index;
    bool isLate = false;  ///< only where code that comes as text has not brought the name
  };
  std::vector<Variable> variables;

  bool isTemporary(std::uint16_t r) const { return r >= firstTemporary && r != kNoRegister; }
  const StatementEntry* statementAt(std::uint32_t offset) const;
  /// What the instruction there uses; nothing but `start` when it has no name.
  OperandName operandNameAt(std::uint32_t offset) const;
};

}  // namespace quorvane::vbs
