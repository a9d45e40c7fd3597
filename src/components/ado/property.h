#pragma once

#include <string>
#include <string_view>

#include "components/ado/items.h"

namespace quorvane::ado {

/// Property: what a provider says of an object.
class Property final : public vbs::NativeObject<Property> {
 public:
  Property(std::string name, vbs::Value value) : name_(std::move(name)), value_(std::move(value)) {}

  const std::string& name() const { return name_; }
  const vbs::Value& value() const { return value_; }
  void setValue(const vbs::Value& value) { value_ = vbs::plainValue(value); }

  std::string_view typeName() const override { return "Property"; }
  static std::span<const vbs::Member<Property>> members();

 private:
  vbs::Value getValue(vbs::Args) { return value_; }
  void putValue(vbs::Args args, vbs::CallKind) { setValue(args[0]); }
  vbs::Value getName(vbs::Args) { return textValue(name_); }
  vbs::Value getType(vbs::Args);
  vbs::Value getAttributes(vbs::Args) { return vbs::Value::longInt(513); }

  std::string name_;
  vbs::Value value_;
};

/// Properties. What is assigned comes to stand in it.
class Properties final : public vbs::NativeObject<Properties> {
 public:
  void set(std::string_view name, const vbs::Value& value);
  /// Empty when it is missing.
  vbs::Value value(std::string_view name) const;

  std::string_view typeName() const override { return "Properties"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override { return items_.walk(); }
  static std::span<const vbs::Member<Properties>> members();

 private:
  Property& item(vbs::Args args);
  vbs::Value getItem(vbs::Args args) { return vbs::Value::object(&item(args)); }
  void putItem(vbs::Args args, vbs::CallKind) { set(utf8Of(args[0]), args[1]); }
  vbs::Value getCount(vbs::Args) { return items_.count(); }
  vbs::Value callRefresh(vbs::Args) { return {}; }

  Items<Property> items_;
};

}  // namespace quorvane::ado
