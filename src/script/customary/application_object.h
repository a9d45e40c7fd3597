#pragma once

#include <memory>
#include <string_view>

#include "components/shared_values.h"
#include "script/customary/static_objects.h"
#include "vbscript/values/object.h"

namespace quorvane::customary {

/// What pages know as "Application": what all pages share as long as the server runs.
class ApplicationObject final : public vbs::NativeObject<ApplicationObject> {
 public:
  ApplicationObject(vbs::Ref<SharedValues> values, vbs::Ref<StaticObjects> objects)
      : values_(std::move(values)), objects_(std::move(objects)) {}

  const vbs::Ref<StaticObjects>& objects() const { return objects_; }
  /// In place of those so far, which end with whoever still holds them.
  void setObjects(vbs::Ref<StaticObjects> objects) { objects_ = std::move(objects); }

  std::string_view typeName() const override { return "Application"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override { return values_->enumerate(); }
  static std::span<const vbs::Member<ApplicationObject>> members();

 private:
  vbs::Value getValue(vbs::Args args);
  void putValue(vbs::Args args, vbs::CallKind kind);
  vbs::Value getContents(vbs::Args args);
  void putContents(vbs::Args args, vbs::CallKind kind);
  vbs::Value getStaticObjects(vbs::Args args);
  vbs::Value callLock(vbs::Args);
  vbs::Value callUnlock(vbs::Args);

  vbs::Ref<SharedValues> values_;
  vbs::Ref<StaticObjects> objects_;
};

}  // namespace quorvane::customary
