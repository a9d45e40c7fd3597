#include "components/uploads/named_items.h"

#include "components/arguments.h"
#include "support/text.h"
#include "vbscript/values/value_walk.h"

namespace quorvane::uploads {

using vbs::Args;
using vbs::Value;

std::span<const vbs::Member<NamedItems>> NamedItems::members() {
  static constexpr vbs::Member<NamedItems> kMembers[] = {
      {"item", 1, 1, &NamedItems::item, nullptr, true},
      {"count", 0, 0, &NamedItems::count},
      {"exists", 1, 1, &NamedItems::exists},
  };
  return kMembers;
}

std::unique_ptr<vbs::Enumerator> NamedItems::enumerate() {
  std::vector<Value> list;
  for (const Item& item : items_) {
    list.push_back(walk_ == Walk::Names ? Value(std::string_view(item.first)) : item.second);
  }
  return std::make_unique<vbs::ValueWalk>(std::move(list));
}

const NamedItems::Item* NamedItems::find(std::string_view name) const {
  for (const Item& item : items_) {
    if (equalsNoCase(item.first, name)) return &item;
  }
  return nullptr;
}

Value NamedItems::item(Args args) {
  const Value& key = args[0].deref();
  if (key.isString()) {
    const Item* found = find(arguments::text(args, 0));
    return found ? found->second : otherwise_;
  }
  const std::int32_t at = vbs::toLong(key);
  if (at < 1 || static_cast<std::size_t>(at) > items_.size()) {
    vbs::throwError(vbs::ErrorCode::SubscriptOutOfRange);
  }
  return items_[static_cast<std::size_t>(at) - 1].second;
}

Value NamedItems::exists(Args args) {
  return Value::boolean(find(arguments::text(args, 0)) != nullptr);
}

}  // namespace quorvane::uploads
