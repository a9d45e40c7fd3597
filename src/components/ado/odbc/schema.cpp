#include <algorithm>
#include <utility>

#include "components/ado/odbc/database.h"
#include "components/ado/odbc/values.h"
#include "components/ado/schema_columns.h"

namespace quorvane::ado {

using vbs::Value;

namespace {

using Cells = std::vector<OdbcCell>;

Value textAt(const Cells& cells, std::size_t place) {
  if (place >= cells.size()) return Value::null();
  const auto* text = std::get_if<std::u16string>(&cells[place]);
  return text ? Value(vbs::String::fromWide(*text)) : Value::null();
}

std::int64_t numberAt(const Cells& cells, std::size_t place) {
  const auto* number = place < cells.size() ? std::get_if<std::int64_t>(&cells[place]) : nullptr;
  return number ? *number : 0;
}

Value longAt(const Cells& cells, std::size_t place) {
  const bool isNull = place >= cells.size() || std::holds_alternative<std::monostate>(cells[place]);
  if (isNull) return Value::null();
  return Value::longInt(static_cast<std::int32_t>(
      std::clamp<std::int64_t>(numberAt(cells, place), INT32_MIN, INT32_MAX)));
}

/// Takes texts of a catalogue's row over, from one place to another.
void copyTexts(const Cells& cells, Row& row,
               std::initializer_list<std::pair<std::size_t, std::size_t>> places) {
  for (const auto& [from, to] : places) row[to] = textAt(cells, from);
}

bool isView(const Cells& cells) {
  const auto* type = std::get_if<std::u16string>(&cells[3]);
  return type && type->find(u"VIEW") != type->npos;
}

std::string utf8At(const Cells& cells, std::size_t place) {
  const auto* text = std::get_if<std::u16string>(&cells[place]);
  return text ? utf8Of(*text) : "";
}

std::vector<OdbcTable> plainTables(OdbcCore& core) {
  std::vector<OdbcTable> tables;
  for (const Cells& cells : core.list(OdbcList::Tables, {}).rows) {
    if (!isView(cells)) tables.push_back({utf8At(cells, 1), utf8At(cells, 2)});
  }
  return tables;
}

SchemaRows tables(OdbcCore& core, SchemaKind kind) {
  SchemaRows result = emptySchema(kind);
  for (const Cells& cells : core.list(OdbcList::Tables, {}).rows) {
    if (kind == SchemaKind::Views && !isView(cells)) continue;
    Row& row = addRow(result);
    copyTexts(cells, row, {{0, 0}, {1, 1}, {2, 2}});
    if (kind == SchemaKind::Views) continue;
    copyTexts(cells, row, {{3, 3}, {4, 5}});
  }
  return result;
}

/// Places are counted here: some drivers go on counting from one table to the next.
SchemaRows columns(OdbcCore& core) {
  SchemaRows result = emptySchema(SchemaKind::Columns);
  std::string table;
  std::int32_t place = 0;
  for (const Cells& cells : core.list(OdbcList::Columns, {}).rows) {
    OdbcColumn described;
    described.type = static_cast<std::int32_t>(numberAt(cells, 4));
    described.size = static_cast<std::uint64_t>(std::max<std::int64_t>(numberAt(cells, 6), 0));
    described.digits = static_cast<std::int32_t>(numberAt(cells, 8));
    if (const auto* name = std::get_if<std::u16string>(&cells[5])) described.typeName = *name;
    const Column column = columnOf(described);
    Row& row = addRow(result);
    copyTexts(cells, row, {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {12, 6}, {11, 13}});
    const std::string current = utf8At(cells, 1) + "." + utf8At(cells, 2);
    if (std::exchange(table, current) != current) place = 0;
    row[4] = Value::longInt(++place);
    row[5] = Value::boolean(!row[6].isNull());
    row[7] = Value::longInt(kOrdinaryFlags);
    row[8] = Value::boolean(numberAt(cells, 10) != 0);
    row[9] = Value::longInt(static_cast<std::int32_t>(column.type));
    const bool isNumber = column.precision != 255;
    if (isNumber) row[11] = Value::longInt(column.precision);
    if (column.scale != 255) row[12] = Value::longInt(column.scale);
    const bool isText = column.type == DataType::Char || column.type == DataType::WChar ||
                        column.type == DataType::VarChar || column.type == DataType::VarWChar;
    if (isText) row[10] = Value::longInt(column.size);
  }
  return result;
}

SchemaRows primaryKeys(OdbcCore& core) {
  SchemaRows result = emptySchema(SchemaKind::PrimaryKeys);
  for (const OdbcTable& table : plainTables(core)) {
    std::int32_t place = 0;
    for (const Cells& cells : core.list(OdbcList::PrimaryKeys, table).rows) {
      Row& row = addRow(result);
      copyTexts(cells, row, {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {5, 5}});
      row[4] = Value::longInt(++place);
    }
  }
  return result;
}

SchemaRows indexes(OdbcCore& core) {
  SchemaRows result = emptySchema(SchemaKind::Indexes);
  for (const OdbcTable& table : plainTables(core)) {
    const std::vector<std::string> keys = core.keysOf(table);
    for (const Cells& cells : core.list(OdbcList::Indexes, table).rows) {
      constexpr std::int64_t kStatistics = 0;
      constexpr std::int64_t kClustered = 1;
      if (numberAt(cells, 6) == kStatistics) continue;
      Row& row = addRow(result);
      copyTexts(cells, row, {{0, 0}, {1, 1}, {2, 2}, {5, 3}, {8, 8}});
      const std::string name = utf8At(cells, 5);
      const std::string usual = table.name + "_pkey";
      row[4] = Value::boolean(!keys.empty() && (name == "PRIMARY" || name == usual));
      row[5] = Value::boolean(numberAt(cells, 3) == 0);
      row[6] = Value::boolean(numberAt(cells, 6) == kClustered);
      row[7] = longAt(cells, 7);
    }
  }
  return result;
}

Value ruleOf(const Cells& cells, std::size_t place) {
  static constexpr const char* kRules[] = {"CASCADE", "RESTRICT", "SET NULL", "NO ACTION",
                                           "SET DEFAULT"};
  const std::int64_t rule = numberAt(cells, place);
  return rule >= 0 && rule < 5 ? Value(kRules[rule]) : Value::null();
}

SchemaRows foreignKeys(OdbcCore& core) {
  SchemaRows result = emptySchema(SchemaKind::ForeignKeys);
  for (const OdbcTable& table : plainTables(core)) {
    for (const Cells& cells : core.list(OdbcList::ForeignKeys, table).rows) {
      Row& row = addRow(result);
      copyTexts(cells, row, {{2, 0}, {3, 1}, {6, 2}, {7, 3}, {11, 7}});
      row[4] = longAt(cells, 8);
      row[5] = ruleOf(cells, 9);
      row[6] = ruleOf(cells, 10);
    }
  }
  return result;
}

SchemaRows procedures(OdbcCore& core) {
  SchemaRows result = emptySchema(SchemaKind::Procedures);
  for (const Cells& cells : core.list(OdbcList::Procedures, {}).rows) {
    Row& row = addRow(result);
    copyTexts(cells, row, {{0, 0}, {1, 1}, {2, 2}, {6, 5}});
    row[3] = longAt(cells, 7);
  }
  return result;
}

}  // namespace

SchemaRows schemaRows(OdbcCore& core, SchemaKind kind) {
  switch (kind) {
    case SchemaKind::Columns:
      return columns(core);
    case SchemaKind::Indexes:
      return indexes(core);
    case SchemaKind::PrimaryKeys:
      return primaryKeys(core);
    case SchemaKind::ForeignKeys:
      return foreignKeys(core);
    case SchemaKind::Procedures:
      return procedures(core);
    default:
      return tables(core, kind);
  }
}

}  // namespace quorvane::ado
