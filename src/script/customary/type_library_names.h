#pragma once

#include <string_view>

#include "vbscript/values/object.h"

namespace quorvane::customary {

/// The constants of the type libraries that pages name, to be published as names of the script.
class TypeLibraryNames final : public vbs::Object {
 public:
  std::string_view typeName() const override { return "TypeLibrary"; }
  const void* shape() const override;
  vbs::MemberId findMember(std::string_view lowerName) override;
  bool isAssignable(vbs::MemberId) const override { return false; }
  vbs::Value invoke(vbs::MemberId id, vbs::CallKind kind, vbs::Args args) override;
};

/// What pages know as "ObjectContext": they tell it how a transaction went, of which there is none.
class TransactionObject final : public vbs::NativeObject<TransactionObject> {
 public:
  std::string_view typeName() const override { return "ObjectContext"; }
  static std::span<const vbs::Member<TransactionObject>> members();

 private:
  vbs::Value setComplete(vbs::Args) { return {}; }
  vbs::Value setAbort(vbs::Args) { return {}; }
};

}  // namespace quorvane::customary
