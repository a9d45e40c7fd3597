#include "components/ado/property.h"

namespace quorvane::ado {

using vbs::Value;

std::span<const vbs::Member<Property>> Property::members() {
  using Self = Property;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"value", 0, 0, &Self::getValue, &Self::putValue, true},
      {"name", 0, 0, &Self::getName},
      {"type", 0, 0, &Self::getType},
      {"attributes", 0, 0, &Self::getAttributes},
  };
  return kMembers;
}

Value Property::getType(vbs::Args) {
  return Value::longInt(value_.isString() ? static_cast<std::int32_t>(DataType::Bstr)
                                          : static_cast<std::int32_t>(value_.type()));
}

std::span<const vbs::Member<Properties>> Properties::members() {
  using Self = Properties;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"item", 1, 1, &Self::getItem, &Self::putItem, true},
      {"count", 0, 0, &Self::getCount},
      {"refresh", 0, 0, &Self::callRefresh},
  };
  return kMembers;
}

void Properties::set(std::string_view name, const Value& value) {
  if (Property* property = items_.find(textValue(name))) return property->setValue(value);
  items_.all().push_back(vbs::make<Property>(std::string(name), vbs::plainValue(value)));
}

Value Properties::value(std::string_view name) const {
  const Property* property = items_.find(textValue(name));
  return property ? property->value() : Value();
}

Property& Properties::item(vbs::Args args) {
  Property* property = items_.find(args[0]);
  if (!property) fail(AdoError::ItemNotFound, "Properties");
  return *property;
}

}  // namespace quorvane::ado
