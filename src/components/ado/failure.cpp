#include "components/ado/failure.h"

#include <utility>

#include "vbscript/values/string.h"

namespace quorvane::ado {

namespace {

constexpr std::pair<ErrorNumber, std::string_view> kTexts[] = {
    {kNotUpdatable,
     "Current Recordset does not support updating. This may be a limitation of the provider, or of "
     "the selected locktype."},
    {kCannotScrollBack, "Rowset does not support fetching backward."},
    {kMultiStep, "Multiple-step operation generated errors. Check each status value."},
    {kRowChanged,
     "Row cannot be located for updating. Some values may have been changed since it was last "
     "read."},
    {kNoTransaction, "No transaction is active."},
};

}  // namespace

void fail(AdoError error, std::string_view object) {
  throwAdo(error, "ADODB." + std::string(object));
}

void fail(ErrorNumber number, std::string_view object) {
  vbs::ScriptError error;
  error.number = number;
  error.source = "ADODB." + std::string(object);
  for (const auto& [known, text] : kTexts) {
    if (known == number) error.description = text;
  }
  throw error;
}

vbs::ScriptError scriptError(const DatabaseError& error) {
  vbs::ScriptError result;
  result.number = error.number;
  result.description = vbs::String::fromUtf8(error.description).narrow();
  result.source = error.source;
  return result;
}

}  // namespace quorvane::ado
