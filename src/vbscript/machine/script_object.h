#pragma once

#include <cstdint>
#include <string_view>

#include "vbscript/compile/bytecode.h"
#include "vbscript/compile/script_class.h"
#include "vbscript/values/object.h"

namespace quorvane::vbs {

class Machine;

/// An object made by a script that an engine must take leave of before it ends, because others may
/// hold it longer. Until that its class number is one from kProcedureClass to kFirstNativeClass, as
/// no other object has.
class MachineObject : public Object {
 public:
  explicit MachineObject(Machine& machine) : machine_(&machine) {}
  /// The machine goes: whatever needs it stops working.
  virtual void detach();
  const Machine* machine() const { return machine_; }

 protected:
  Machine* machine_;  ///< null once the machine is gone
};

/// An instance of a script's class. Its fields follow it in memory.
class ScriptObject final : public MachineObject {
 public:
  static Ref<ScriptObject> create(Machine& machine, const ScriptClass& type);

  Value* fields() { return reinterpret_cast<Value*>(this + 1); }
  const ScriptClass* type() const { return type_; }

  std::string_view typeName() const override { return type_->name; }
  MemberId findMember(std::string_view lowerName) override;
  const void* shape() const override;
  Value invoke(MemberId id, CallKind kind, Args args) override;
  void detach() override;
  void visitReferences(ReferenceVisitor& visitor) override;
  /// Runs Class_Terminate, once.
  void terminate() noexcept;

  static void operator delete(void* memory) { ::operator delete(memory); }

 protected:
  void lastRelease() override;

 private:
  ScriptObject(Machine& machine, const ScriptClass& type);
  ~ScriptObject() override;
  static void* operator new(std::size_t size, std::size_t extra) {
    return ::operator new(size + extra);
  }
  static void operator delete(void* memory, std::size_t) { ::operator delete(memory); }

  const ScriptClass* type_;
  std::uint16_t fieldCount_;
  bool terminated_ = false;
};

/// What GetRef gives: calling it calls the routine.
class RoutineObject final : public MachineObject {
 public:
  RoutineObject(Machine& machine, const Routine& routine);
  const Routine* routine() const { return machine_ ? routine_ : nullptr; }

  std::string_view typeName() const override { return "Object"; }
  bool isProcedure() const override { return true; }
  MemberId findMember(std::string_view) override { return kNoMember; }
  Value invoke(MemberId id, CallKind kind, Args args) override;

 private:
  const Routine* routine_;
};

inline bool isMachineObject(const Object& object) {
  return object.classNumber() - kProcedureClass < kFirstNativeClass - kProcedureClass;
}

inline bool isScriptObject(const Object& object) {
  return isMachineObject(object) && object.classNumber() != kProcedureClass;
}

/// The native object whose member a place in the code has at hand, or null.
[[gnu::always_inline]] inline Object* nativeObject(const Value& holder, const MemberCache& cache) {
  if (!holder.isObject() || !holder.asObject()) return nullptr;
  Object* object = holder.asObject();
  return object->classNumber() == cache.nativeClass ? object : nullptr;
}

/// The field of a script's object that a place in the code uses, when its cache knows the class;
/// else null.
[[gnu::always_inline]] inline Value* cachedField(const Value& holder, const MemberCache& cache) {
  if (!holder.isObject() || !holder.asObject()) [[unlikely]]
    return nullptr;
  Object* object = holder.asObject();
  if (object->classNumber() != cache.fieldClass) [[unlikely]]
    return nullptr;
  return &cache.fieldSlot.of(static_cast<ScriptObject*>(object)->fields());
}

/// The procedure of a script's class that a place in the code calls, when its cache knows the class
/// of the object in this register; else null.
[[gnu::always_inline]] inline const Routine* cachedMethod(const Value& holder,
                                                          const MemberCache& cache) {
  if (!holder.isObject() || !holder.asObject()) return nullptr;
  return holder.asObject()->classNumber() == cache.methodClass ? cache.method : nullptr;
}

}  // namespace quorvane::vbs
