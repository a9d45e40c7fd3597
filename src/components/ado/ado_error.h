#pragma once

#include <cstdint>
#include <string_view>

/// Errors as pages test for them: numbers and texts that all objects of the family share.
namespace quorvane::ado {

enum class AdoError : std::int32_t {
  InvalidArgument = 3001,
  OpeningFile = 3002,
  ReadingFile = 3003,
  WritingFile = 3004,
  NoCurrentRecord = 3021,
  IllegalOperation = 3219,
  InTransaction = 3246,
  FeatureNotAvailable = 3251,
  ItemNotFound = 3265,
  ObjectInCollection = 3367,
  ObjectNotSet = 3420,
  DataConversion = 3421,
  ObjectClosed = 3704,
  ObjectOpen = 3705,
  ProviderNotFound = 3706,
  InvalidConnection = 3709,
};

/// `source` is the object's program identifier, as Err.Source shows it.
[[noreturn]] void throwAdo(AdoError error, std::string_view source);

}  // namespace quorvane::ado
