#pragma once

#include <string_view>

#include "components/ado/driver.h"

namespace quorvane::ado {

/// The customary columns of what OpenSchema gives, without rows.
SchemaRows emptySchema(SchemaKind kind);

/// Adds a row of Nulls and gives it.
Row& addRow(SchemaRows& rows);

/// The number that tells, among a column's flags, that it counts up by itself or doesn't.
enum ColumnFlags : std::int32_t { kAutonumberFlags = 90, kOrdinaryFlags = 106 };

}  // namespace quorvane::ado
