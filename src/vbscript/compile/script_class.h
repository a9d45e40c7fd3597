#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/syntax/ast.h"
#include "vbscript/values/object.h"

namespace quorvane::vbs {

class Machine;
class Program;
struct Routine;

/// A field, method or property of a script's class.
struct ClassMember {
  enum class Kind : std::uint8_t { Field, Method, Property, Constant };
  std::string lower;
  Kind kind = Kind::Field;
  bool isPrivate = false;  ///< of a field or constant
  std::uint16_t slot = 0;  ///< of a field
  Value constant;
  const Routine* get = nullptr;  ///< also the method itself
  const Routine* let = nullptr;
  const Routine* set = nullptr;
  bool getIsPrivate = false;
  bool letIsPrivate = false;
  bool setIsPrivate = false;
};

/// A class of a script, owned by its program.
struct ScriptClass {
  std::string name;
  std::uint32_t serial = 0;  ///< never used twice, so that look-up caches stay right
  std::vector<ClassMember> members;
  std::int32_t defaultMember = -1;  ///< index in `members`
  const Routine* initialize = nullptr;
  const Routine* terminate = nullptr;
  std::uint16_t fieldCount = 0;
  /// Fields declared as arrays, with their bounds.
  struct ArrayField {
    std::uint16_t slot;
    std::vector<std::int32_t> bounds;
  };
  std::vector<ArrayField> arrays;

  const ClassMember* find(std::string_view lower) const;
  static std::uint32_t nextSerial();
};

/// An object made by a script that an engine must take leave of before it ends, because others may
/// hold it longer. Object::scriptClass() is not 0 for these, and for no others, until then.
class MachineObject : public Object {
 public:
  explicit MachineObject(Machine& machine) : machine_(&machine) {}
  /// The machine goes: whatever needs it stops working.
  virtual void detach();

 protected:
  friend class Machine;
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

}  // namespace quorvane::vbs
