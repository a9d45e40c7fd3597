#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "script/objects/aspRequestObj.h"
#include "vbscript/values/memory_meter.h"

namespace quorvane {

/// A member of "Request" used without a name: the collection of what it has under names. The names
/// are those of the moment; the items are the member's own.
class RequestCollection final : public vbs::NativeObject<RequestCollection> {
 public:
  RequestCollection(vbs::Ref<aspRequestObj> request, aspRequestObj::Item item,
                    std::vector<std::string> names)
      : request_(std::move(request)), item_(item), names_(std::move(names)), charge_(bytes()) {}

  std::string_view typeName() const override { return "RequestCollection"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;  ///< the names
  static std::span<const vbs::Member<RequestCollection>> members();

 private:
  vbs::Value getItem(vbs::Args args);
  vbs::Value getCount(vbs::Args);
  vbs::Value getKey(vbs::Args args);

  vbs::Ref<aspRequestObj> request_;
  aspRequestObj::Item item_;
  std::size_t bytes() const;

  std::vector<std::string> names_;
  vbs::MemoryCharge charge_;  ///< pages may hold many
};

}  // namespace quorvane
