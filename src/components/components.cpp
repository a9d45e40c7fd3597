#include "components/components.h"

#include <algorithm>
#include <string>

#include "components/dictionary.h"
#include "vbscript/library/regexp.h"
#include "vbscript/values/text_case.h"

namespace quorvane {

namespace {

struct Row {
  std::string_view progId;  ///< lower case
  vbs::Value (*create)();
};

constexpr Row kRows[] = {
    {"scripting.dictionary", createDictionary},
    {"vbscript.regexp", vbs::createRegExp},
};

}  // namespace

vbs::Value createComponent(std::string_view progId) {
  std::string lower(progId);
  std::transform(lower.begin(), lower.end(), lower.begin(), vbs::lowerAnsi);
  for (const Row& row : kRows) {
    if (row.progId == lower) return row.create();
  }
  vbs::throwError(vbs::ErrorCode::CannotCreateObject, progId);
}

}  // namespace quorvane
