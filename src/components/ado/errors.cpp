#include "components/ado/errors.h"

namespace quorvane::ado {

using vbs::Value;

std::span<const vbs::Member<ErrorItem>> ErrorItem::members() {
  using Self = ErrorItem;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"description", 0, 0, &Self::getDescription, nullptr, true},
      {"number", 0, 0, &Self::getNumber},
      {"source", 0, 0, &Self::getSource},
      {"sqlstate", 0, 0, &Self::getSqlState},
      {"nativeerror", 0, 0, &Self::getNativeError},
      {"helpfile", 0, 0, &Self::getHelpFile},
      {"helpcontext", 0, 0, &Self::getHelpContext},
  };
  return kMembers;
}

std::span<const vbs::Member<Errors>> Errors::members() {
  using Self = Errors;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"item", 1, 1, &Self::getItem, nullptr, true},
      {"count", 0, 0, &Self::getCount},
      {"clear", 0, 0, &Self::callClear},
      {"refresh", 0, 0, &Self::callRefresh},
  };
  return kMembers;
}

void Errors::set(const DatabaseError& error) {
  items_.all().clear();
  items_.all().push_back(vbs::make<ErrorItem>(error));
  for (const DatabaseError& other : error.further) {
    items_.all().push_back(vbs::make<ErrorItem>(other));
  }
}

Value Errors::getItem(vbs::Args args) {
  ErrorItem* item = items_.find(args[0]);
  if (!item) fail(AdoError::ItemNotFound, "Errors");
  return Value::object(item);
}

Value Errors::callClear(vbs::Args) {
  items_.all().clear();
  return {};
}

}  // namespace quorvane::ado
