#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vbscript/values/object.h"

namespace quorvane::uploads {

/// Values by name in any letter case, or by their number from 1 on: the collections of upload
/// objects.
class NamedItems final : public vbs::NativeObject<NamedItems> {
 public:
  using Item = std::pair<std::string, vbs::Value>;
  enum class Walk { Values, Names };  ///< what For Each gives

  NamedItems(std::vector<Item> items, Walk walk, vbs::Value otherwise)
      : items_(std::move(items)), walk_(walk), otherwise_(std::move(otherwise)) {}
  std::string_view typeName() const override { return "IDictionary"; }
  static std::span<const vbs::Member<NamedItems>> members();
  std::unique_ptr<vbs::Enumerator> enumerate() override;
  void visitReferences(vbs::ReferenceVisitor& visitor) override {
    for (Item& item : items_) visitor.value(item.second);
  }
  void dropReferences() override { items_.clear(); }

 private:
  vbs::Value item(vbs::Args args);
  vbs::Value count(vbs::Args) {
    return vbs::Value::longInt(static_cast<std::int32_t>(items_.size()));
  }
  vbs::Value exists(vbs::Args args);
  const Item* find(std::string_view name) const;

  std::vector<Item> items_;
  Walk walk_;
  vbs::Value otherwise_;  ///< for a name that is not there
};

}  // namespace quorvane::uploads
