#include "components/shared_values.h"

#include <array>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/value_walk.h"

namespace quorvane {

namespace {

/// What a key is found by: its bytes of Windows-1252, whose letter case the collection folds. For a
/// text that has none, digits that no other text has.
struct Key {
  explicit Key(const vbs::Value& given) : name(vbs::toString(given)) {
    vbs::runContext.memory.require(name.length() * (name.isAnsi() ? 1 : kDigitsEach));
    text = name.narrow();
    hasBytes = name.isAnsi() || vbs::String(std::string_view(text)) == name;
    if (hasBytes) return;
    const std::string lower = name.lower().utf8();
    text = '\0' + hexDigits({reinterpret_cast<const std::uint8_t*>(lower.data()), lower.size()});
  }

  static constexpr std::size_t kDigitsEach = 9;  ///< bytes of UTF-8, and their digits

  vbs::String name;
  std::string text;
  bool hasBytes = true;
};

}  // namespace

vbs::Value SharedValues::item(const vbs::Value& key) {
  prepare();
  const Kept* held = values_.find(Key(key).text);
  return held ? held->value : vbs::Value();
}

void SharedValues::setItem(const vbs::Value& key, const vbs::Value& value) {
  prepare();
  if (backing_) backing_->put(key, value.deref());
  store(key, value);
}

void SharedValues::store(const vbs::Value& key, const vbs::Value& value) {
  Key wanted(key);
  vbs::Value old;  // ends last: its end may run code that asks for this very key
  if (Kept* held = values_.find(wanted.text)) {
    old = std::exchange(held->value, value.deref());
  } else {
    vbs::MemoryCharge charge(Values::bytesFor(wanted.text));
    if (wanted.hasBytes) wanted.name = {};
    values_.add(std::move(wanted.text), {value.deref(), std::move(charge), std::move(wanted.name)});
  }
}

void SharedValues::remove(const vbs::Value& key) {
  prepare();
  if (backing_) backing_->remove(key);
  const Key wanted(key);
  vbs::Value old;
  if (Kept* held = values_.find(wanted.text)) old = std::exchange(held->value, vbs::Value());
  values_.remove(wanted.text);
}

void SharedValues::clear() {
  if (backing_) backing_->clear();
  dropAll();
}

void SharedValues::dropAll() {
  const Values old = std::exchange(values_, {});
}

void SharedValues::visitReferences(vbs::ReferenceVisitor& visitor) {
  for (auto& entry : values_) visitor.value(entry.value.value);
}

vbs::Value SharedValues::nameOf(const Values::Entry& entry) {
  return entry.value.name.empty() ? vbs::Value(std::string_view(entry.key)) : entry.value.name;
}

std::size_t SharedValues::count() {
  prepare();
  return values_.size();
}

void SharedValues::visitAll(const Visit& visit) const {
  for (const auto& entry : values_) visit(nameOf(entry), entry.value.value);
}

std::string SharedValues::foldedKey(const vbs::Value& key) {
  return lowerCase(Key(key).text);
}

vbs::Value SharedValues::keyAt(std::size_t place) {
  prepare();
  return nameOf(*std::next(values_.begin(), static_cast<std::ptrdiff_t>(place)));
}

std::unique_ptr<vbs::Enumerator> SharedValues::enumerate() {
  prepare();
  std::vector<vbs::Value> keys;
  for (const auto& entry : values_) keys.push_back(nameOf(entry));
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
      {"unlock", 0, 0, &Self::callUnlock},
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
  return vbs::Value::longInt(static_cast<std::int32_t>(count()));
}

vbs::Value SharedValues::callRemove(vbs::Args args) {
  remove(args[0]);
  return {};
}

vbs::Value SharedValues::callRemoveAll(vbs::Args) {
  clear();
  return {};
}

vbs::Value SharedValues::callLock(vbs::Args) {
  lock();
  return {};
}

vbs::Value SharedValues::callUnlock(vbs::Args) {
  unlock();
  return {};
}

}  // namespace quorvane
