#include "script/customary/error_object.h"

#include <array>

namespace quorvane::customary {

std::span<const vbs::Member<ErrorObject>> ErrorObject::members() {
  using Self = ErrorObject;
  static constexpr std::array<vbs::Member<Self>, 9> kMembers{{
      {"aspcode", 0, 0, &Self::text<&PageError::code>},
      {"number", 0, 0, &Self::number<&PageError::number>},
      {"source", 0, 0, &Self::text<&PageError::source>},
      {"category", 0, 0, &Self::text<&PageError::category>},
      {"file", 0, 0, &Self::text<&PageError::file>},
      {"line", 0, 0, &Self::number<&PageError::line>},
      {"column", 0, 0, &Self::number<&PageError::column>},
      {"description", 0, 0, &Self::text<&PageError::description>},
      {"aspdescription", 0, 0, &Self::text<&PageError::moreDescription>},
  }};
  return kMembers;
}

}  // namespace quorvane::customary
