#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "automation/windows/com.h"
#include "vbscript/values/object.h"

namespace quorvane::automation {

/// An object of the system's as a script's object. Holds it until the script's last reference is
/// gone, and lets go at once then. There is one for an object as long as the script holds any, so
/// that `Is` tells objects apart.
class SystemObject final : public vbs::Object {
 public:
  /// What a script has for `key`. `dispatch` is its way to be called; an object without one is only
  /// there.
  static vbs::Value of(IUnknown& key, IDispatch* dispatch);

  /// For whom it is passed to; null where it can't be called.
  IDispatch* sharedDispatch() const;

  std::string_view typeName() const override;
  vbs::MemberId findMember(std::string_view lowerName) override;
  vbs::Value invoke(vbs::MemberId id, vbs::CallKind kind, vbs::Args args) override;
  std::unique_ptr<vbs::Enumerator> enumerate() override;

 private:
  SystemObject(IUnknown& key, IDispatch* dispatch);
  ~SystemObject() override;

  ComPtr<IUnknown> key_;  ///< the same as `dispatch_` where there is that
  ComPtr<IDispatch> dispatch_;
  std::unordered_map<std::string, vbs::MemberId> ids_;  ///< of names that were asked for
  mutable std::string typeName_;                        ///< empty until it is asked for
};

/// What a script has for an object that comes from outside: its own object, one of the system's, or
/// Nothing for null. An object may have several interfaces that can be called: which one comes
/// decides on its members.
vbs::Value objectValue(IDispatch* object);
vbs::Value unknownValue(IUnknown* object);

}  // namespace quorvane::automation
