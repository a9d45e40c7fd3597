#include "components/components.h"

#include <string>

#include "components/component.h"
#include "components/dictionary.h"
#include "components/regexp.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr const Component* kComponents[] = {
    &kDictionary,
    &kRegExp,
};

}  // namespace

vbs::Value createComponent(std::string_view progId, const Services& services) {
  for (const Component* component : kComponents) {
    if (equalsNoCase(component->progId, progId)) return component->create(services);
  }
  vbs::throwError(vbs::ErrorCode::CannotCreateObject, progId);
}

}  // namespace quorvane
