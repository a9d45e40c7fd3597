#include "script/customary/contents_object.h"

#include <array>

#include "jscript/script_engine.h"
#include "script/script_values.h"
#include "vbscript/values/convert.h"

namespace quorvane::customary {

vbs::Value keptValue(const vbs::Value& assigned, vbs::CallKind kind) {
  const vbs::Value& value = assigned.deref();
  if (value.isObject() && kind != vbs::CallKind::Set) return vbs::plainValue(value);
  jscript::requireKeepable(value);
  return value;
}

std::span<const vbs::Member<ContentsObject>> ContentsObject::members() {
  using Self = ContentsObject;
  static constexpr std::array<vbs::Member<Self>, 5> kMembers{{
      {"item", 1, 1, &Self::getItem, &Self::putItem, true},
      {"count", 0, 0, &Self::getCount},
      {"key", 1, 1, &Self::getKey},
      {"remove", 1, 1, &Self::callRemove},
      {"removeall", 0, 0, &Self::callRemoveAll},
  }};
  return kMembers;
}

/// A text names what it says, digits or not; any other value is a number.
vbs::Value ContentsObject::keyOf(const vbs::Value& nameOrNumber) const {
  vbs::Value plain = vbs::plainValue(nameOrNumber);
  if (plain.isString()) return plain;
  return values_->keyAt(script_values::place(plain, values_->count()));
}

vbs::Value ContentsObject::getItem(vbs::Args args) {
  return values_->item(keyOf(args[0]));
}

void ContentsObject::putItem(vbs::Args args, vbs::CallKind kind) {
  values_->setItem(keyOf(args[0]), keptValue(args[1], kind));
}

vbs::Value ContentsObject::getKey(vbs::Args args) {
  return keyOf(args[0]);
}

vbs::Value ContentsObject::getCount(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(values_->count()));
}

vbs::Value ContentsObject::callRemove(vbs::Args args) {
  values_->remove(keyOf(args[0]));
  return {};
}

vbs::Value ContentsObject::callRemoveAll(vbs::Args) {
  values_->clear();
  return {};
}

}  // namespace quorvane::customary
