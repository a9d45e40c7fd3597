#pragma once

#include <memory>

#include "components/ado/driver.h"
#include "components/ado/sqlite/core.h"

namespace quorvane::ado {

/// A database in an SQLite file. Throws DatabaseError when it can't be opened.
std::unique_ptr<Database> openSqlite(const Services& services, SqliteOptions options);

/// What a declared type is for recordsets; `jet` as in SqliteOptions.
void describeType(std::string_view declared, bool jet, Column& column);

/// AlterColumn, AddConstraint and DropConstraint: the table is made anew where the library can't
/// change it.
void remakeTable(SqliteCore& core, const SqlStatement& statement);

SchemaRows schemaRows(SqliteCore& core, SchemaKind kind);

}  // namespace quorvane::ado
