#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane::ado {

/// Numbers of databases' failures, as pages test for them.
enum ErrorNumber : std::int32_t {
  kUnspecified = -2147467259,
  kMultiStep = -2147217887,
  kSyntax = -2147217900,
  kNoTable = -2147217865,
  kNoValue = -2147217904,
  kMismatch = -2147217913,
  kNoPermission = -2147217911,
  kIntegrity = -2147217873,
  kTimedOut = -2147217871,
  kWrongPassword = -2147217843,
  kDataOverflow = -2147217833,
  kCannotScrollBack = -2147217884,
  kRowChanged = -2147217864,  ///< the row to change is not as it was, or gone
  kDatabaseExists = -2147217897,
  kNoTransaction = -2147168242,
  kNotUpdatable = 3251,
};

/// Of errors of the drivers for other systems.
inline constexpr std::string_view kOdbcSource = "Microsoft OLE DB Provider for ODBC Drivers";

}  // namespace quorvane::ado
