#include "components/ado/ado_error.h"

#include <string>

#include "vbscript/values/error.h"

namespace quorvane::ado {

namespace {

std::string_view textOf(AdoError error) {
  switch (error) {
    case AdoError::InvalidArgument:
      return "Arguments are of the wrong type, are out of acceptable range, or are in conflict "
             "with "
             "one another.";
    case AdoError::OpeningFile:
      return "File could not be opened.";
    case AdoError::ReadingFile:
      return "Read from file failed.";
    case AdoError::WritingFile:
      return "Write to file failed.";
    case AdoError::NoCurrentRecord:
      return "Either BOF or EOF is True, or the current record has been deleted. Requested "
             "operation requires a current record.";
    case AdoError::IllegalOperation:
      return "Operation is not allowed in this context.";
    case AdoError::InTransaction:
      return "Connection object cannot be explicitly closed while in a transaction.";
    case AdoError::FeatureNotAvailable:
      return "Current provider does not support the necessary interface, required by the requested "
             "operation.";
    case AdoError::ItemNotFound:
      return "Item cannot be found in the collection corresponding to the requested name or "
             "ordinal.";
    case AdoError::ObjectInCollection:
      return "Object is already in collection. Cannot append.";
    case AdoError::ObjectNotSet:
      return "Object is no longer valid.";
    case AdoError::DataConversion:
      return "Application uses a value of the wrong type for the current operation.";
    case AdoError::ObjectClosed:
      return "Operation is not allowed when the object is closed.";
    case AdoError::ObjectOpen:
      return "Operation is not allowed when the object is open.";
    case AdoError::ProviderNotFound:
      return "Provider cannot be found. It may not be properly installed.";
    case AdoError::InvalidConnection:
      return "The connection cannot be used to perform this operation. It is either closed or "
             "invalid in this context.";
  }
  return {};
}

}  // namespace

void throwAdo(AdoError error, std::string_view source) {
  vbs::ScriptError thrown;
  thrown.number = static_cast<std::int32_t>(error);
  thrown.description = textOf(error);
  thrown.source = source;
  throw thrown;
}

}  // namespace quorvane::ado
