#pragma once

#include <string_view>

#include "script/customary/page.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"

namespace quorvane::customary {

/// What `Server.GetLastError` gives.
class ErrorObject final : public vbs::NativeObject<ErrorObject> {
 public:
  explicit ErrorObject(PageError error) : error_(std::move(error)) {}

  std::string_view typeName() const override { return "PageError"; }
  static std::span<const vbs::Member<ErrorObject>> members();

 private:
  template <vbs::String PageError::*part>
  vbs::Value text(vbs::Args) {
    return error_.*part;
  }
  template <std::int32_t PageError::*part>
  vbs::Value number(vbs::Args) {
    return vbs::Value::longInt(error_.*part);
  }

  PageError error_;
  vbs::MemoryCharge charge_{sizeof(PageError)};
};

}  // namespace quorvane::customary
