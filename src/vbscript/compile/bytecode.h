#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "vbscript/compile/opcodes.h"
#include "vbscript/syntax/ast.h"
#include "vbscript/values/value.h"

/// What the compiler makes and the machine runs.
namespace quorvane::vbs {

class Program;
struct ClassMember;
struct Routine;
struct ScriptClass;

/// Where an operand of an instruction is: what the number of a register or a constant is worth in
/// bytes, because the machine adds that to the place of the first without another step.
class OperandPlace {
 public:
  OperandPlace(std::uint16_t number = 0) : offset_(std::uint32_t{number} * sizeof(Value)) {}
  operator std::uint16_t() const { return static_cast<std::uint16_t>(offset_ / sizeof(Value)); }

  /// The register or constant with this number, counted from the first.
  template <class T>
  T& of(T* first) const {
    static_assert(sizeof(T) == sizeof(Value));
    using Byte = std::conditional_t<std::is_const_v<T>, const std::byte, std::byte>;
    return *reinterpret_cast<T*>(reinterpret_cast<Byte*>(first) + offset_);
  }

  std::uint32_t offset() const { return offset_; }
  static OperandPlace atOffset(std::uint32_t offset) {
    OperandPlace place;
    place.offset_ = offset;
    return place;
  }

 private:
  std::uint32_t offset_;
};

/// One word of code. Some operations read the word behind them as well (see opcodes.h); that word
/// then holds a pointer, or two 32-bit numbers and perhaps a pointer.
struct alignas(8) Instruction {
  Opcode op = Opcode::Halt;
  std::uint8_t temporaries = 0;  ///< bit 0: a is a temporary, bit 1: b, bit 2: c
  std::int16_t integer = 0;      ///< the operand that is an Integer, where there is one
  OperandPlace a;
  OperandPlace b;
  OperandPlace c;

  /// The 32-bit number that stands in place of b and c.
  std::int32_t wide() const {
    return static_cast<std::int32_t>(std::bit_cast<std::array<std::uint32_t, 4>>(*this)[2]);
  }
  /// A jump's distance in bytes, of the word behind it.
  std::int64_t distance() const { return static_cast<std::int64_t>(word()); }
  std::uint32_t low() const { return static_cast<std::uint32_t>(word()); }
  std::uint32_t high() const { return static_cast<std::uint32_t>(word() >> 32); }
  template <class T>
  T* pointer() const {
    return reinterpret_cast<T*>(static_cast<std::uintptr_t>(word()));
  }
  /// What stands beside the two numbers.
  template <class T>
  T* beside() const {
    const auto second = std::bit_cast<std::array<std::uint64_t, 2>>(*this)[1];
    return reinterpret_cast<T*>(static_cast<std::uintptr_t>(second));
  }
  bool aIsTemporary() const { return (temporaries & 1) != 0; }
  bool bIsTemporary() const { return (temporaries & 2) != 0; }
  bool cIsTemporary() const { return (temporaries & 4) != 0; }
  static Instruction fromPair(std::uint32_t low, std::uint32_t high, const void* beside = nullptr) {
    return fromWords(std::uint64_t{low} | std::uint64_t{high} << 32, wordOf(beside));
  }
  static Instruction fromDistance(std::int64_t bytes) {
    return fromWords(static_cast<std::uint64_t>(bytes), 0);
  }
  static Instruction fromPointer(const void* p) { return fromWords(wordOf(p), 0); }
  /// Where a jump leads whose distance is given in bytes.
  const Instruction* jumped(std::int64_t distance) const {
    return reinterpret_cast<const Instruction*>(reinterpret_cast<const std::byte*>(this) +
                                                distance);
  }
  void setWide(std::int32_t number) {
    auto parts = std::bit_cast<std::array<std::uint32_t, 4>>(*this);
    parts[2] = static_cast<std::uint32_t>(number);
    *this = std::bit_cast<Instruction>(parts);
  }

 private:
  static std::uint64_t wordOf(const void* p) {
    return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(p));
  }
  static Instruction fromWords(std::uint64_t first, std::uint64_t second) {
    return std::bit_cast<Instruction>(std::array<std::uint64_t, 2>{first, second});
  }
  std::uint64_t word() const { return std::bit_cast<std::array<std::uint64_t, 2>>(*this)[0]; }
};
static_assert(sizeof(Instruction) == 16);

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

/// How the call at one place in the code reached a native object's member last time.
struct DirectCache {
  static constexpr std::uint32_t kNoClass = 0xFFFFFFFF;  ///< the number of no object's class
  DirectMember direct;  ///< there for native objects of this class:
  std::uint32_t nativeClass = kNoClass;
  std::uint32_t askedClass = 0;  ///< of the object that was asked last

  /// Asks for an object's member and so many arguments.
  void ask(const Object& object, MemberId id, std::size_t arguments) {
    askedClass = object.classNumber();
    const DirectMember found = object.directMember(id, arguments);
    if (!found.get) return;
    direct = found;
    nativeClass = object.classNumber();
  }
};

/// What the member access at one place in the code found last time; see Object::classNumber() and
/// Object::shape().
struct MemberCache : DirectCache {
  std::uint32_t name = 0;         ///< in Program::names
  std::uint32_t scriptClass = 0;  ///< serial of the class that `member` belongs to, or 0
  const ClassMember* member = nullptr;
  std::uint32_t fieldClass = kNoClass;  ///< the same serial when `member` is a field
  OperandPlace fieldSlot;
  std::uint32_t methodClass = kNoClass;  ///< the same serial when `method` is what is called here
  const Routine* method = nullptr;       ///< takes the arguments that there are
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
  mutable std::deque<DirectCache> hostCaches;

  bool isGlobalScope = false;  ///< main code whose variables are global
  std::vector<RoutineParameter> parameters;
  bool anyByValue = false;
  bool allReadOnly = true;
  std::uint16_t parameterCount = 0;
  std::uint16_t me = kNoRegister;
  std::uint16_t result = kNoRegister;
  OperandPlace firstCleared;  ///< variables from here on are Empty when the routine begins
  OperandPlace firstTemporary;
  std::uint32_t registerCount = 0;

  // What a call needs to know, found when the routine is complete.
  static constexpr std::uint32_t kClearedAlways = 2;
  static constexpr std::uint32_t kRegistersPerCall = 120;
  bool isLarge = false;   ///< counts as more than one, or clears more variables than kClearedAlways
  std::int32_t cost = 1;  ///< calls that it counts as: one for each kRegistersPerCall

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
