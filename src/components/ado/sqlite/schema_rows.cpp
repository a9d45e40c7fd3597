#include "components/ado/schema_columns.h"
#include "components/ado/sqlite/database.h"
#include "support/text.h"

namespace quorvane::ado {

using vbs::Value;

namespace {

Value text(const std::string& utf8) {
  return Value(vbs::String::fromUtf8(utf8));
}

SchemaRows tables(SqliteCore& core) {
  SchemaRows result = emptySchema(SchemaKind::Tables);
  for (const SqliteSchema::Table* table : core.schema().tables()) {
    Row& row = addRow(result);
    row[2] = text(table->name);
    row[3] = text(table->view ? "VIEW" : "TABLE");
  }
  return result;
}

SchemaRows columns(SqliteCore& core) {
  SchemaRows result = emptySchema(SchemaKind::Columns);
  for (const SqliteSchema::Table* table : core.schema().tables()) {
    std::int32_t place = 0;
    for (const SqliteSchema::ColumnInfo& info : table->columns) {
      Column column;
      describeType(info.declared, core.options().jet, column);
      Row& row = addRow(result);
      row[2] = text(table->name);
      row[3] = text(info.name);
      row[4] = Value::longInt(++place);
      row[5] = Value::boolean(!info.defaultValue.empty());
      if (!info.defaultValue.empty()) row[6] = text(info.defaultValue);
      row[7] =
          Value::longInt(info.key > 0 && equalsNoCase(info.declared, "integer") ? kAutonumberFlags
                                                                                : kOrdinaryFlags);
      row[8] = Value::boolean(!info.notNull && info.key == 0);
      row[9] = Value::longInt(static_cast<std::int32_t>(column.type));
      const bool isText = column.type == DataType::VarWChar || column.type == DataType::WChar ||
                          column.type == DataType::LongVarWChar;
      if (isText) row[10] = Value::longInt(column.type == DataType::LongVarWChar ? 0 : column.size);
      if (column.precision != 255) row[11] = Value::longInt(column.precision);
      if (column.scale != 255) row[12] = Value::longInt(column.scale);
    }
  }
  return result;
}

SchemaRows indexes(SqliteCore& core) {
  SchemaRows result = emptySchema(SchemaKind::Indexes);
  const auto add = [&](const std::string& table, const std::string& index, bool primary,
                       bool unique, std::int32_t place, const std::string& column) {
    Row& row = addRow(result);
    row[2] = text(table);
    row[3] = text(index);
    row[4] = Value::boolean(primary);
    row[5] = Value::boolean(unique);
    row[6] = Value::boolean(false);
    row[7] = Value::longInt(place);
    row[8] = text(column);
  };
  for (const SqliteSchema::Table* table : core.schema().tables()) {
    if (table->view) continue;
    for (const SqliteSchema::ColumnInfo& info : table->columns) {
      if (info.key > 0) add(table->name, "PrimaryKey", true, true, info.key, info.name);
    }
    const SqliteCore::Trusted trusted(core);
    SqliteStatement list(core,
                         "SELECT l.name, l.\"unique\", i.seqno + 1, i.name FROM "
                         "pragma_index_list(?1) l JOIN pragma_index_info(l.name) i WHERE l.origin "
                         "<> 'pk' ORDER BY l.name, i.seqno");
    list.bind(1, table->name);
    while (list.step()) {
      add(table->name, list.text(0), false, list.number(1) != 0,
          static_cast<std::int32_t>(list.number(2)), list.text(3));
    }
  }
  return result;
}

SchemaRows primaryKeys(SqliteCore& core) {
  SchemaRows result = emptySchema(SchemaKind::PrimaryKeys);
  for (const SqliteSchema::Table* table : core.schema().tables()) {
    for (const SqliteSchema::ColumnInfo& info : table->columns) {
      if (info.key == 0) continue;
      Row& row = addRow(result);
      row[2] = text(table->name);
      row[3] = text(info.name);
      row[4] = Value::longInt(info.key);
      row[5] = text("PrimaryKey");
    }
  }
  return result;
}

SchemaRows foreignKeys(SqliteCore& core) {
  SchemaRows result = emptySchema(SchemaKind::ForeignKeys);
  for (const SqliteSchema::Table* table : core.schema().tables()) {
    if (table->view) continue;
    const SqliteCore::Trusted trusted(core);
    SqliteStatement list(core,
                         "SELECT \"table\", \"to\", \"from\", seq + 1, on_update, on_delete, id "
                         "FROM pragma_foreign_key_list(?1) ORDER BY id, seq");
    list.bind(1, table->name);
    while (list.step()) {
      Row& row = addRow(result);
      row[0] = text(list.text(0));
      row[1] = text(list.text(1));
      row[2] = text(table->name);
      row[3] = text(list.text(2));
      row[4] = Value::longInt(static_cast<std::int32_t>(list.number(3)));
      row[5] = text(list.text(4));
      row[6] = text(list.text(5));
      row[7] = text(table->name + "_" + list.text(0) + "_" + list.text(6));
    }
  }
  return result;
}

SchemaRows views(SqliteCore& core) {
  SchemaRows result = emptySchema(SchemaKind::Views);
  SqliteStatement list(core, "SELECT name, sql FROM sqlite_master WHERE type = 'view' ORDER BY 1");
  while (list.step()) {
    Row& row = addRow(result);
    row[2] = text(list.text(0));
    row[3] = text(list.text(1));
  }
  return result;
}

}  // namespace

SchemaRows schemaRows(SqliteCore& core, SchemaKind kind) {
  switch (kind) {
    case SchemaKind::Tables:
      return tables(core);
    case SchemaKind::Columns:
      return columns(core);
    case SchemaKind::Indexes:
      return indexes(core);
    case SchemaKind::PrimaryKeys:
      return primaryKeys(core);
    case SchemaKind::ForeignKeys:
      return foreignKeys(core);
    case SchemaKind::Procedures:
      return emptySchema(kind);
    default:
      return views(core);
  }
}

}  // namespace quorvane::ado
