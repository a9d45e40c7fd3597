#include "vbscript/machine/script_object.h"

#include <memory>
#include <vector>

#include "vbscript/machine/machine.h"

namespace quorvane::vbs {

namespace {

/// The class of objects whose engine is gone.
const ScriptClass& endedClass() {
  static const ScriptClass kClass = [] {
    ScriptClass ended;
    ended.name = "Object";
    return ended;
  }();
  return kClass;
}

std::size_t fieldBytes(std::uint16_t count) {
  return std::size_t{count} * sizeof(Value);
}

}  // namespace

// ---- Objects of a machine ----

void MachineObject::detach() {
  machine_ = nullptr;
  dropReferences();
}

// ---- Instances ----

Ref<ScriptObject> ScriptObject::create(Machine& machine, const ScriptClass& type) {
  const std::size_t extra = fieldBytes(type.fieldCount);
  runContext.memory.charge(extra);
  auto object = Ref<ScriptObject>::adopt(new (extra) ScriptObject(machine, type));
  for (const auto& array : type.arrays) {
    std::vector<std::int32_t> extents(array.bounds);
    for (auto& extent : extents) ++extent;
    Value& field = object->fields()[array.slot];
    field = Value::array(ArrayRep::create(extents));
    if (!extents.empty()) field.fixArray();
  }
  return object;
}

ScriptObject::ScriptObject(Machine& machine, const ScriptClass& type)
    : MachineObject(machine), type_(&type), fieldCount_(type.fieldCount) {
  classNumber_ = type.serial;
  std::uninitialized_default_construct_n(fields(), fieldCount_);
}

ScriptObject::~ScriptObject() {
  std::destroy_n(fields(), fieldCount_);
  runContext.memory.release(fieldBytes(fieldCount_));
}

void ScriptObject::lastRelease() {
  references_ = 1;  // the machine's own while Class_Terminate runs
  terminate();
  if (--references_ == 0) delete this;
}

void ScriptObject::terminate() noexcept {
  if (terminated_ || !machine_ || !type_->terminate) return;
  terminated_ = true;
  machine_->terminate(*type_->terminate, *this);
}

void ScriptObject::detach() {
  type_ = &endedClass();
  classNumber_ = 0;
  MachineObject::detach();
}

void ScriptObject::visitReferences(ReferenceVisitor& visitor) {
  for (std::uint16_t i = 0; i < fieldCount_; ++i) visitor.value(fields()[i]);
}

MemberId ScriptObject::findMember(std::string_view lowerName) {
  const ClassMember* member = type_->find(lowerName);
  return member ? static_cast<MemberId>(member - type_->members.data()) + 1 : kNoMember;
}

const void* ScriptObject::shape() const {
  // An odd number is nobody's address.
  const auto serial = static_cast<std::uintptr_t>(classNumber_);
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  return serial == 0 ? nullptr : reinterpret_cast<const void*>(serial * 2 + 1);
}

Value ScriptObject::invoke(MemberId id, CallKind kind, Args args) {
  const std::int32_t index = id == kDefaultMember ? type_->defaultMember : id - 1;
  if (!machine_ || index < 0 || static_cast<std::size_t>(index) >= type_->members.size()) {
    throwError(ErrorCode::NoPropertyOrMethod);
  }
  return machine_->invokeMember(*this, type_->members[static_cast<std::size_t>(index)], kind, args);
}

// ---- Routines as objects ----

RoutineObject::RoutineObject(Machine& machine, const Routine& routine)
    : MachineObject(machine), routine_(&routine) {
  classNumber_ = kProcedureClass;
}

Value RoutineObject::invoke(MemberId id, CallKind kind, Args args) {
  const bool isCall = kind == CallKind::Get || kind == CallKind::Call;
  if (!machine_ || id != kDefaultMember || !isCall) throwError(ErrorCode::NoPropertyOrMethod);
  return machine_->callRoutine(*routine_, nullptr, args);
}

}  // namespace quorvane::vbs
