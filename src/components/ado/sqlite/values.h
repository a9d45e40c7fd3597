#pragma once

#include <sqlite3.h>

#include "components/ado/driver.h"
#include "vbscript/values/value.h"

namespace quorvane::ado {

/// A value of a script as the library is to hold it: dates in their stored form, Booleans as -1 and
/// 0, Currency as a number.
void bindValue(sqlite3_stmt* statement, int place, const vbs::Value& value);
void resultValue(sqlite3_context* context, const vbs::Value& value);

/// What the library holds, by its own types.
vbs::Value valueOf(sqlite3_value* value);
/// The same as a column of this type has it.
vbs::Value valueOf(sqlite3_value* value, DataType type);

}  // namespace quorvane::ado
