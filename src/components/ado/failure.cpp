#include "components/ado/failure.h"

#include <utility>

#include "vbscript/values/string.h"

namespace quorvane::ado {

namespace {

constexpr std::pair<std::int32_t, std::string_view> kTexts[] = {
    {kWrongArgument,
     "Arguments are of the wrong type, are out of acceptable range, or are in conflict with one "
     "another."},
    {kNoCurrentRecord,
     "Either BOF or EOF is True, or the current record has been deleted. Requested operation "
     "requires a current record."},
    {kNotInContext, "Operation is not allowed in this context."},
    {kInTransaction, "Connection object cannot be explicitly closed while in a transaction."},
    {kNotSupported,
     "Current Recordset does not support updating. This may be a limitation of the provider, or of "
     "the selected locktype."},
    {kItemNotFound,
     "Item cannot be found in the collection corresponding to the requested name or ordinal."},
    {kAlreadyInCollection, "Object is already in collection. Cannot append."},
    {kWrongType, "Application uses a value of the wrong type for the current operation."},
    {kObjectClosed, "Operation is not allowed when the object is closed."},
    {kObjectOpen, "Operation is not allowed when the object is open."},
    {kProviderNotFound, "Provider cannot be found. It may not be properly installed."},
    {kBadParameter,
     "Parameter object is improperly defined. Inconsistent or incomplete information was "
     "provided."},
    {kConnectionClosed,
     "The connection cannot be used to perform this operation. It is either closed or invalid in "
     "this context."},
    {kCannotScrollBack, "Rowset does not support fetching backward."},
    {kMultiStep, "Multiple-step operation generated errors. Check each status value."},
    {kRowChanged,
     "Row cannot be located for updating. Some values may have been changed since it was last "
     "read."},
};

}  // namespace

void fail(std::int32_t number, std::string_view object) {
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
