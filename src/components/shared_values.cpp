#include "components/shared_values.h"

#include <array>
#include <utility>
#include <vector>

#include "vbscript/values/convert.h"
#include "vbscript/values/value_walk.h"

namespace quorvane {

namespace {

std::string keyText(const vbs::Value& key) {
  return vbs::toString(key).narrow();
}

}  // namespace

vbs::Value SharedValues::item(const vbs::Value& key) const {
  const Kept* held = values_.find(keyText(key));
  return held ? held->value : vbs::Value();
}

void SharedValues::setItem(const vbs::Value& key, const vbs::Value& value) {
  std::string text = keyText(key);
  vbs::Value old;  // ends last: its end may run code that asks for this very key
  if (Kept* held = values_.find(text)) {
    old = std::exchange(held->value, value.deref());
  } else {
    vbs::MemoryCharge charge(Values::bytesFor(text));
    values_.add(std::move(text), {value.deref(), std::move(charge)});
  }
}

void SharedValues::clear() {
  const Values old = std::exchange(values_, {});
}

void SharedValues::visitReferences(vbs::ReferenceVisitor& visitor) {
  for (auto& entry : values_) visitor.value(entry.value.value);
}

std::unique_ptr<vbs::Enumerator> SharedValues::enumerate() {
  std::vector<vbs::Value> keys;
  for (const auto& entry : values_) keys.emplace_back(std::string_view(entry.key));
  return std::make_unique<vbs::ValueWalk>(std::move(keys));
}

std::span<const vbs::Member<SharedValues>> SharedValues::members() {
  using Self = SharedValues;
  static constexpr std::array<vbs::Member<Self>, 7> kMembers{{
      {"item", 1, 1, &Self::getItem, &Self::putItem, true},
      {"contents", 0, 1, &Self::getContents, &Self::putItem},
      {"count", 0, 0, &Self::getCount},
      {"remove", 1, 1, &Self::callRemove},
      {"removeall", 0, 0, &Self::callRemoveAll},
      {"lock", 0, 0, &Self::callLock},
      {"unlock", 0, 0, &Self::callLock},
  }};
  return kMembers;
}

vbs::Value SharedValues::getItem(vbs::Args args) {
  return item(args[0]);
}

void SharedValues::putItem(vbs::Args args, vbs::CallKind) {
  if (args.size() != 2) vbs::throwError(vbs::ErrorCode::WrongArgumentCount);
  setItem(args[0], args[1]);
}

vbs::Value SharedValues::getContents(vbs::Args args) {
  return args.empty() ? vbs::Value::object(this) : item(args[0]);
}

vbs::Value SharedValues::getCount(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(values_.size()));
}

vbs::Value SharedValues::callRemove(vbs::Args args) {
  const std::string key = keyText(args[0]);
  vbs::Value old;
  if (Kept* held = values_.find(key)) old = std::exchange(held->value, vbs::Value());
  values_.remove(key);
  return {};
}

vbs::Value SharedValues::callRemoveAll(vbs::Args) {
  clear();
  return {};
}

vbs::Value SharedValues::callLock(vbs::Args) {
  return {};
}

}  // namespace quorvane
