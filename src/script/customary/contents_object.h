#pragma once

#include <memory>
#include <string_view>

#include "components/shared_values.h"

namespace quorvane::customary {

/// The value that an assignment leaves to be kept: what `Set` names itself, otherwise what an
/// object is worth. Arrays are copies of their own. Throws for what ends with its page.
vbs::Value keptValue(const vbs::Value& assigned, vbs::CallKind kind);

/// A member that is a collection, used with a key or without.
template <class Collection>
vbs::Value itemOrAll(const vbs::Ref<Collection>& collection, vbs::Args args) {
  if (args.empty()) return vbs::Value::object(collection.get());
  return collection->invoke(vbs::kDefaultMember, vbs::CallKind::Get, args);
}

/// `Contents` of Session and Application: the values under their names, to be had by number too,
/// counted from 1.
class ContentsObject final : public vbs::NativeObject<ContentsObject> {
 public:
  explicit ContentsObject(vbs::Ref<SharedValues> values) : values_(std::move(values)) {}

  std::string_view typeName() const override { return "Contents"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override { return values_->enumerate(); }
  static std::span<const vbs::Member<ContentsObject>> members();

 private:
  vbs::Value getItem(vbs::Args args);
  void putItem(vbs::Args args, vbs::CallKind kind);
  vbs::Value keyOf(const vbs::Value& nameOrNumber) const;
  vbs::Value getKey(vbs::Args args);
  vbs::Value getCount(vbs::Args);
  vbs::Value callRemove(vbs::Args args);
  vbs::Value callRemoveAll(vbs::Args);

  vbs::Ref<SharedValues> values_;
};

}  // namespace quorvane::customary
