#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "vbscript/values/object.h"

namespace quorvane {

/// A variable of the request where a script needs an object: all the values that were sent under
/// one name. Without a number it is worth what the plain variable is.
class RequestValues final : public vbs::NativeObject<RequestValues> {
 public:
  RequestValues(vbs::Value plain, std::vector<vbs::Value> values)
      : plain_(std::move(plain)), values_(std::move(values)) {}

  std::string_view typeName() const override { return "RequestValues"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;
  static std::span<const vbs::Member<RequestValues>> members();

 private:
  vbs::Value getItem(vbs::Args args);
  vbs::Value getCount(vbs::Args);

  vbs::Value plain_;
  std::vector<vbs::Value> values_;
};

}  // namespace quorvane
