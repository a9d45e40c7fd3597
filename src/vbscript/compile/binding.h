#pragma once

#include <cstdint>

#include "vbscript/compile/bytecode.h"
#include "vbscript/library/library.h"

namespace quorvane::vbs {

using Register = std::uint16_t;

/// Functions that need the scope they are called in.
enum class ScopeFunction : std::uint8_t { Eval, Execute, ExecuteGlobal, GetRef };

/// What a name stands for where it is used.
struct Binding {
  enum class Kind : std::uint8_t {
    Unresolved,
    InRegister,  ///< variable in a register, `index`
    Global,      ///< variable outside the routine, `index`
    Field,       ///< of Me, `index`
    Constant,
    Routine,
    Class,
    Own,         ///< method or property of the class being compiled
    HostObject,  ///< `index`
    HostMember,  ///< `member` of object `index`
    Intrinsic,
    Scope,
    Late,  ///< found when it runs; `index`: variable to use otherwise, or none
  };
  Kind kind = Kind::Unresolved;
  ScopeFunction scope = ScopeFunction::Eval;
  std::uint16_t index = kNoRegister;
  MemberId member = kNoMember;
  union {
    const void* none = nullptr;
    const Value* constant;
    const Routine* routine;
    const ScriptClass* scriptClass;
    const ClassMember* own;
    const Intrinsic* intrinsic;
  };

  bool isVariable() const {
    return kind == Kind::InRegister || kind == Kind::Global || kind == Kind::Field;
  }
};

}  // namespace quorvane::vbs
