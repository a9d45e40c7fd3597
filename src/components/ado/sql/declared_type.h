#pragma once

#include <string>
#include <string_view>

#include "components/ado/sql/translator.h"

namespace quorvane::ado {

/// A column's declared type, taken apart: "VARCHAR(50)", "DECIMAL(18,4)".
struct DeclaredType {
  std::string name;  ///< lower case, without the size
  int size = 0;      ///< 0: none is given
  int scale = 0;
};

DeclaredType declaredType(std::string_view text);

/// What a declared type says of the values of its column, by the names that Jet, SQL Server, MySQL
/// and SQLite have for types.
ColumnKind kindOfDeclared(std::string_view type);

/// The type as a table is to declare it, so that SQLite takes texts for texts: those whose names it
/// does not know for texts it would turn into numbers where they look like some.
std::string declaredForText(const std::string& type);

}  // namespace quorvane::ado
