#pragma once

#include <cstdint>

namespace quorvane::ado {

/// Numbers that pages test for.
enum ErrorNumber : std::int32_t {
  kUnspecified = -2147467259,
  kMultiStep = -2147217887,
  kSyntax = -2147217900,
  kNoTable = -2147217865,
  kNoValue = -2147217904,
  kMismatch = -2147217913,
  kNoPermission = -2147217911,
  kIntegrity = -2147217873,
  kCannotScrollBack = -2147217884,
  kRowChanged = -2147217864,  ///< the row to change is not as it was, or gone

  kWrongArgument = 3001,
  kNoCurrentRecord = 3021,
  kNotInContext = 3219,
  kInTransaction = 3246,
  kNotSupported = 3251,
  kItemNotFound = 3265,
  kAlreadyInCollection = 3367,
  kWrongType = 3421,
  kObjectClosed = 3704,
  kObjectOpen = 3705,
  kProviderNotFound = 3706,
  kBadParameter = 3708,
  kConnectionClosed = 3709,
};

}  // namespace quorvane::ado
