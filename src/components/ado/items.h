#pragma once

#include <memory>
#include <string>
#include <vector>

#include "components/ado/arguments.h"
#include "components/ado/failure.h"
#include "support/text.h"
#include "vbscript/values/object.h"
#include "vbscript/values/value_walk.h"

namespace quorvane::ado {

/// The objects of a collection, found by name or by number from 0. `Item` has name(), UTF-8.
template <class Item>
class Items {
 public:
  std::vector<vbs::Ref<Item>>& all() { return items_; }
  std::size_t size() const { return items_.size(); }

  /// Null when there is none.
  Item* find(const vbs::Value& key) const {
    const std::size_t place = placeOf(key);
    return place < items_.size() ? items_[place].get() : nullptr;
  }
  /// size() when there is none.
  std::size_t placeOf(const vbs::Value& key) const {
    const vbs::Value plain = vbs::plainValue(key);
    if (!plain.isString()) {
      const std::int32_t index = vbs::toLong(plain);
      return index < 0 ? items_.size() : std::min(items_.size(), static_cast<std::size_t>(index));
    }
    const std::string name = utf8Of(plain);
    std::size_t place = 0;
    while (place < items_.size() && !equalsNoCase(items_[place]->name(), name)) ++place;
    return place;
  }
  vbs::Value count() const { return vbs::Value::longInt(static_cast<std::int32_t>(items_.size())); }
  std::unique_ptr<vbs::Enumerator> walk() const {
    std::vector<vbs::Value> values;
    for (const vbs::Ref<Item>& item : items_) values.push_back(vbs::Value::object(item.get()));
    return std::make_unique<vbs::ValueWalk>(std::move(values));
  }

 private:
  std::vector<vbs::Ref<Item>> items_;
};

}  // namespace quorvane::ado
