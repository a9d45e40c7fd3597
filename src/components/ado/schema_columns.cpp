#include "components/ado/schema_columns.h"

namespace quorvane::ado {

namespace {

struct Field {
  const char* name;
  DataType type;
};

SchemaRows withColumns(std::initializer_list<Field> fields) {
  SchemaRows result;
  for (const auto& [name, type] : fields) {
    Column column;
    column.name = name;
    column.type = type;
    column.size = type == DataType::VarWChar ? 255 : 4;
    result.columns.push_back(std::move(column));
  }
  return result;
}

}  // namespace

SchemaRows emptySchema(SchemaKind kind) {
  switch (kind) {
    case SchemaKind::Tables:
      return withColumns({{"TABLE_CATALOG", DataType::VarWChar},
                          {"TABLE_SCHEMA", DataType::VarWChar},
                          {"TABLE_NAME", DataType::VarWChar},
                          {"TABLE_TYPE", DataType::VarWChar},
                          {"TABLE_GUID", DataType::Guid},
                          {"DESCRIPTION", DataType::LongVarWChar},
                          {"TABLE_PROPID", DataType::Integer},
                          {"DATE_CREATED", DataType::Date},
                          {"DATE_MODIFIED", DataType::Date}});
    case SchemaKind::Columns:
      return withColumns({{"TABLE_CATALOG", DataType::VarWChar},
                          {"TABLE_SCHEMA", DataType::VarWChar},
                          {"TABLE_NAME", DataType::VarWChar},
                          {"COLUMN_NAME", DataType::VarWChar},
                          {"ORDINAL_POSITION", DataType::Integer},
                          {"COLUMN_HASDEFAULT", DataType::Boolean},
                          {"COLUMN_DEFAULT", DataType::VarWChar},
                          {"COLUMN_FLAGS", DataType::Integer},
                          {"IS_NULLABLE", DataType::Boolean},
                          {"DATA_TYPE", DataType::Integer},
                          {"CHARACTER_MAXIMUM_LENGTH", DataType::Integer},
                          {"NUMERIC_PRECISION", DataType::Integer},
                          {"NUMERIC_SCALE", DataType::Integer},
                          {"DESCRIPTION", DataType::VarWChar}});
    case SchemaKind::Indexes:
      return withColumns({{"TABLE_CATALOG", DataType::VarWChar},
                          {"TABLE_SCHEMA", DataType::VarWChar},
                          {"TABLE_NAME", DataType::VarWChar},
                          {"INDEX_NAME", DataType::VarWChar},
                          {"PRIMARY_KEY", DataType::Boolean},
                          {"UNIQUE", DataType::Boolean},
                          {"CLUSTERED", DataType::Boolean},
                          {"ORDINAL_POSITION", DataType::Integer},
                          {"COLUMN_NAME", DataType::VarWChar}});
    case SchemaKind::PrimaryKeys:
      return withColumns({{"TABLE_CATALOG", DataType::VarWChar},
                          {"TABLE_SCHEMA", DataType::VarWChar},
                          {"TABLE_NAME", DataType::VarWChar},
                          {"COLUMN_NAME", DataType::VarWChar},
                          {"ORDINAL", DataType::Integer},
                          {"PK_NAME", DataType::VarWChar}});
    case SchemaKind::ForeignKeys:
      return withColumns({{"PK_TABLE_NAME", DataType::VarWChar},
                          {"PK_COLUMN_NAME", DataType::VarWChar},
                          {"FK_TABLE_NAME", DataType::VarWChar},
                          {"FK_COLUMN_NAME", DataType::VarWChar},
                          {"ORDINAL", DataType::Integer},
                          {"UPDATE_RULE", DataType::VarWChar},
                          {"DELETE_RULE", DataType::VarWChar},
                          {"FK_NAME", DataType::VarWChar}});
    case SchemaKind::Procedures:
      return withColumns({{"PROCEDURE_CATALOG", DataType::VarWChar},
                          {"PROCEDURE_SCHEMA", DataType::VarWChar},
                          {"PROCEDURE_NAME", DataType::VarWChar},
                          {"PROCEDURE_TYPE", DataType::SmallInt},
                          {"PROCEDURE_DEFINITION", DataType::LongVarWChar},
                          {"DESCRIPTION", DataType::LongVarWChar},
                          {"DATE_CREATED", DataType::Date},
                          {"DATE_MODIFIED", DataType::Date}});
    default:
      return withColumns({{"TABLE_CATALOG", DataType::VarWChar},
                          {"TABLE_SCHEMA", DataType::VarWChar},
                          {"TABLE_NAME", DataType::VarWChar},
                          {"VIEW_DEFINITION", DataType::LongVarWChar}});
  }
}

Row& addRow(SchemaRows& rows) {
  rows.rows.emplace_back(rows.columns.size(), vbs::Value::null());
  return rows.rows.back();
}

}  // namespace quorvane::ado
