#pragma once

#include <cstddef>

#include "vbscript/values/object.h"

namespace quorvane {

/// The part of a published object's members that pages may use without the object's name: the
/// first `count` rows of its member table. Published beside the object, under a name that no
/// script can spell.
class GlobalMembers final : public vbs::Object {
 public:
  /// `target` outlives this object.
  GlobalMembers(vbs::Object& target, std::size_t count)
      : target_(target), highest_(static_cast<vbs::MemberId>(count)) {}

  std::string_view typeName() const override { return target_.typeName(); }
  /// The target's own shape knows more members, so this is another address, the one behind it.
  const void* shape() const override { return static_cast<const char*>(target_.shape()) + 1; }
  vbs::MemberId findMember(std::string_view lowerName) override {
    const vbs::MemberId id = target_.findMember(lowerName);
    return id <= highest_ ? id : vbs::kNoMember;
  }
  vbs::MemberId objectMember(vbs::MemberId id) const override { return target_.objectMember(id); }
  bool joinsTexts(vbs::MemberId id) const override { return target_.joinsTexts(id); }
  bool isAssignable(vbs::MemberId id) const override { return target_.isAssignable(id); }
  vbs::Value invoke(vbs::MemberId id, vbs::CallKind kind, vbs::Args args) override {
    return target_.invoke(id, kind, args);
  }

 private:
  vbs::Object& target_;
  vbs::MemberId highest_;
};

}  // namespace quorvane
