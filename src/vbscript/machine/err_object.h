#pragma once

#include "vbscript/values/object.h"

namespace quorvane::vbs {

/// The object that scripts know as Err: the last trapped error.
class ErrObject final : public NativeObject<ErrObject> {
 public:
  static std::span<const Member<ErrObject>> members();
  std::string_view typeName() const override { return "Object"; }

  void set(ScriptError error) { error_ = std::move(error); }
  void clear();

 private:
  Value number(Args);
  void putNumber(Args args, CallKind);
  Value description(Args);
  void putDescription(Args args, CallKind);
  Value source(Args);
  void putSource(Args args, CallKind);
  Value helpFile(Args);
  void putHelpFile(Args args, CallKind);
  Value helpContext(Args);
  void putHelpContext(Args args, CallKind);
  Value raise(Args args);
  Value clearCalled(Args);

  ScriptError error_;
};

/// What Err.Source shows when an error names no source of its own.
std::string_view defaultErrorSource(std::int32_t number);

}  // namespace quorvane::vbs
