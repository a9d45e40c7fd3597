#include "automation/windows/type_names.h"

#include <ocidl.h>

#include "automation/windows/value_conversion.h"

namespace quorvane::automation {

namespace {

std::string documentedName(ITypeInfo* type) {
  BSTR name = nullptr;
  if (!type || FAILED(type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr))) {
    return {};
  }
  std::string text = textOf(name).narrow();
  ::SysFreeString(name);
  return text;
}

}  // namespace

std::string typeNameOf(IDispatch* object) {
  if (!object) return "Unknown";
  ComPtr<ITypeInfo> type;
  if (const auto provider = queryFor<IProvideClassInfo>(object)) provider->GetClassInfo(type.out());
  std::string name = documentedName(type.get());
  if (name.empty()) {
    type = {};
    object->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.out());
    name = documentedName(type.get());
  }
  return name.empty() ? "Object" : name;
}

}  // namespace quorvane::automation
