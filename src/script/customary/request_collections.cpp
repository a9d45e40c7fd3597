#include "script/customary/request_collections.h"

#include <array>

#include "components/arguments.h"
#include "script/customary/code_page.h"
#include "script/script_values.h"
#include "vbscript/values/value_walk.h"

namespace quorvane::customary {

std::unique_ptr<vbs::Enumerator> walkNames(const NameValues& values) {
  std::vector<vbs::Value> names;
  for (std::size_t i = 0; i < values.count(); ++i) {
    names.emplace_back(std::string_view(values.name(i)));
  }
  return std::make_unique<vbs::ValueWalk>(std::move(names));
}

vbs::Value ValueList::joined(const NameValues::Values* values) {
  if (!values) return {};
  if (values->size() == 1) return vbs::Value(values->front());
  vbs::String text;
  for (const vbs::String& value : *values) {
    if (&value != &values->front()) text.appendAnsi(", ");
    text.append(value);
  }
  return vbs::Value(text);
}

std::unique_ptr<vbs::Enumerator> ValueList::enumerate() {
  return std::make_unique<vbs::ValueWalk>(std::vector<vbs::Value>(values_.begin(), values_.end()));
}

std::span<const vbs::Member<ValueList>> ValueList::members() {
  using Self = ValueList;
  static constexpr std::array<vbs::Member<Self>, 2> kMembers{{
      {"item", 0, 1, &Self::getItem, nullptr, true},
      {"count", 0, 0, &Self::getCount},
  }};
  return kMembers;
}

vbs::Value ValueList::getItem(vbs::Args args) {
  if (!arguments::isGiven(args, 0)) return joined(values_.empty() ? nullptr : &values_);
  return vbs::Value(values_[script_values::place(args[0], values_.size())]);
}

vbs::Value ValueList::getCount(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(values_.size()));
}

std::unique_ptr<vbs::Enumerator> ValueCollection::enumerate() {
  return walkNames(*values_);
}

std::span<const vbs::Member<ValueCollection>> ValueCollection::members() {
  using Self = ValueCollection;
  static constexpr std::array<vbs::Member<Self>, 3> kMembers{{
      {"item", 0, 1, &Self::getItem, nullptr, true, false, &Self::getItemObject},
      {"count", 0, 0, &Self::getCount},
      {"key", 1, 1, &Self::getKey},
  }};
  return kMembers;
}

const NameValues::Values* ValueCollection::find(const vbs::Value& nameOrNumber) const {
  const vbs::Value& plain = nameOrNumber.deref();
  if (!plain.isString()) {
    return values_->find(values_->name(script_values::place(plain, values_->count())));
  }
  return values_->find(vbs::toString(plain).narrow());
}

vbs::Value ValueCollection::getItem(vbs::Args args) {
  return arguments::isGiven(args, 0) ? ValueList::joined(find(args[0])) : text_;
}

vbs::Value ValueCollection::getItemObject(vbs::Args args) {
  if (!arguments::isGiven(args, 0)) {
    return script_values::objectValue(vbs::Ref<ValueCollection>(this));
  }
  const NameValues::Values* values = find(args[0]);
  return script_values::objectValue(vbs::make<ValueList>(values ? *values : NameValues::Values()));
}

vbs::Value ValueCollection::getCount(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(values_->count()));
}

vbs::Value ValueCollection::getKey(vbs::Args args) {
  return vbs::Value(
      std::string_view(values_->name(script_values::place(args[0], values_->count()))));
}

CookieValue::CookieValue(std::string_view text, std::int32_t codePage)
    : text_(decodeUrl(text, codePage)) {
  if (text.find('=') != text.npos) keys_ = NameValues::decoded(text, '&', codePage);
}

std::unique_ptr<vbs::Enumerator> CookieValue::enumerate() {
  return walkNames(keys_);
}

std::span<const vbs::Member<CookieValue>> CookieValue::members() {
  using Self = CookieValue;
  static constexpr std::array<vbs::Member<Self>, 4> kMembers{{
      {"item", 0, 1, &Self::getItem, nullptr, true},
      {"haskeys", 0, 0, &Self::getHasKeys},
      {"count", 0, 0, &Self::getCount},
      {"key", 1, 1, &Self::getKey},
  }};
  return kMembers;
}

vbs::Value CookieValue::getItem(vbs::Args args) {
  if (!arguments::isGiven(args, 0)) return text();
  const vbs::Value& key = args[0].deref();
  const NameValues::Values* values =
      keys_.find(!key.isString() ? keys_.name(script_values::place(key, keys_.count()))
                                 : vbs::toString(key).narrow());
  return values ? vbs::Value(values->front()) : vbs::Value(std::string_view());
}

vbs::Value CookieValue::getHasKeys(vbs::Args) {
  return vbs::Value::boolean(keys_.count() > 0);
}

vbs::Value CookieValue::getCount(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(keys_.count()));
}

vbs::Value CookieValue::getKey(vbs::Args args) {
  return vbs::Value(std::string_view(keys_.name(script_values::place(args[0], keys_.count()))));
}

}  // namespace quorvane::customary
