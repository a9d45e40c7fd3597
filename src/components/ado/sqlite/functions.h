#pragma once

#include <sqlite3.h>

#include <exception>

#include "components/script_host.h"
#include "vbscript/library/library.h"

namespace quorvane::ado {

/// What the functions that SQL may call use. Outlives the library's connection that has them.
struct FunctionContext {
  explicit FunctionContext(const Services& outside)
      : services(outside), host(outside), runtime{host, {}} {}

  const Services& services;
  ScriptHost host;
  vbs::Runtime runtime;
  std::exception_ptr pending;  ///< left a callback; to be thrown behind the library's call
};

/// Makes the functions known that translated SQL calls. "vb_..." are the script language's of that
/// name, with Null for an argument giving Null. Those of their own:
///
///   q_add, q_subtract   of numbers, dates and days; q_add joins texts
///   q_bytes             the length in bytes
///   q_concat            all arguments joined, Null as an empty text
///   q_date              a date in its stored form, and anything else as it is
///   q_datename          the name of a month or weekday, or another part of a date
///   q_first, q_last     of the rows of a group
///   q_format            by a pattern, or one of the named formats
///   q_money             rounded to four places
///   q_newid             a new identifier in braces
///   q_patindex          where a LIKE pattern is found
///   q_replicate, q_str, q_stuff, q_val
///   q_rnd               a random number from 0 to 1
///   q_stdev, q_stdevp, q_var, q_varp
///   q_styled            a date as text in one of CONVERT's styles
///   q_truth             1 for what is not zero
///   q_utc               now, in Coordinated Universal Time
///   q_whole             division without a rest
///
/// LIKE heeds sets in brackets, and no letter case in any script.
void registerFunctions(sqlite3* connection, FunctionContext& context);

}  // namespace quorvane::ado
