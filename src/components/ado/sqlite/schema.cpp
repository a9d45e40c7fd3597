#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "components/ado/sql/declared_type.h"
#include "components/ado/sqlite/core.h"
#include "support/text.h"

namespace quorvane::ado {

bool SqliteSchema::hasTable(std::string_view name) const {
  read();
  return tables_.find(lowerCase(name)) != tables_.end();
}

const SqliteSchema::ColumnInfo* SqliteSchema::Table::numberKey() const {
  const ColumnInfo* found = nullptr;
  for (const ColumnInfo& column : columns) {
    if (column.key == 0) continue;
    if (found || !equalsNoCase(column.declared, "integer")) return nullptr;
    found = &column;
  }
  return found;
}

const SqliteSchema::Table* SqliteSchema::table(std::string_view name) const {
  read();
  const auto found = tables_.find(lowerCase(name));
  if (found == tables_.end()) return nullptr;
  if (!found->second.read) readColumns(found->second);
  return &found->second;
}

std::vector<const SqliteSchema::Table*> SqliteSchema::tables() const {
  read();
  std::vector<const Table*> list;
  for (auto& [name, table] : tables_) {
    if (!table.read) readColumns(table);
    list.push_back(&table);
  }
  return list;
}

const SqliteSchema::ColumnInfo* SqliteSchema::columnInfo(std::string_view tableName,
                                                         std::string_view column) const {
  const Table* found = table(tableName);
  if (!found) return nullptr;
  for (const ColumnInfo& info : found->columns) {
    if (equalsNoCase(info.name, column)) return &info;
  }
  return nullptr;
}

std::vector<std::string> SqliteSchema::columnsOf(std::string_view tableName) const {
  std::vector<std::string> names;
  if (const Table* found = table(tableName)) {
    for (const ColumnInfo& info : found->columns) names.push_back(info.name);
  }
  return names;
}

bool SqliteSchema::hasColumn(std::string_view table, std::string_view column) const {
  return columnInfo(table, column) != nullptr;
}

ColumnKind SqliteSchema::kindOf(std::string_view table, std::string_view column) const {
  const ColumnInfo* info = columnInfo(table, column);
  return info ? kindOfDeclared(info->declared) : ColumnKind::Unknown;
}

bool SqliteSchema::heedsCase(std::string_view table, std::string_view column) const {
  const ColumnInfo* info = columnInfo(table, column);
  return info && info->heedsCase;
}

void SqliteSchema::read() const {
  if (read_) return;
  const SqliteCore::Trusted trusted(core_);
  SqliteStatement list(core_,
                       "SELECT name, type FROM sqlite_master WHERE type IN ('table', 'view') AND "
                       "substr(name, 1, 7) <> 'sqlite_'");
  while (list.step()) {
    Table table;
    table.name = list.text(0);
    table.view = list.text(1) == "view";
    tables_[lowerCase(table.name)] = std::move(table);
  }
  read_ = true;
}

void SqliteSchema::readColumns(Table& table) const {
  const SqliteCore::Trusted trusted(core_);
  table.read = true;
  SqliteStatement list(core_,
                       "SELECT name, type, \"notnull\", pk, dflt_value FROM "
                       "pragma_table_info(?1)");
  list.bind(1, table.name);
  while (list.step()) {
    ColumnInfo info;
    info.name = list.text(0);
    info.declared = list.text(1);
    info.notNull = list.number(2) != 0;
    info.key = static_cast<int>(list.number(3));
    info.defaultValue = list.text(4);
    if (kindOfDeclared(info.declared) == ColumnKind::Text && !table.view) {
      const char* collation = nullptr;
      sqlite3_table_column_metadata(core_.handle(), nullptr, table.name.c_str(), info.name.c_str(),
                                    nullptr, &collation, nullptr, nullptr, nullptr);
      info.heedsCase = collation && equalsNoCase(collation, "BINARY");
    }
    table.columns.push_back(std::move(info));
  }
}

bool SqliteSchema::refresh() {
  const std::int64_t now = versionNow();
  if (now == version_) return false;
  version_ = now;
  read_ = false;
  tables_.clear();
  return true;
}

/// To ask the library takes a transaction of its own, unless there is one already; and what a
/// transaction has read first keeps it from waiting for another that writes.
std::int64_t SqliteSchema::versionNow() const {
  if (sqlite3_txn_state(core_.handle(), "main") == SQLITE_TXN_NONE) {
    if (const auto version = versionInFile()) return *version;
  }
  const SqliteCore::Trusted trusted(core_);
  SqliteStatement version(core_, "PRAGMA schema_version");
  return version.step() ? version.number(0) : 0;
}

/// Nothing when a log beside the file may hold a later one.
std::optional<std::int64_t> SqliteSchema::versionInFile() const {
  constexpr int kStart = 18;  // of the versions of the format, 1 without a log
  constexpr std::size_t kVersion = 40 - kStart;
  std::array<char, kVersion + 4> head;
  if (!readDatabaseFile(core_.handle(), kStart, head.data(), static_cast<int>(head.size())) ||
      head[0] != 1 || head[1] != 1) {
    return std::nullopt;
  }
  std::uint32_t version = 0;
  for (std::size_t i = kVersion; i < head.size(); ++i) {
    version = version << 8 | static_cast<std::uint8_t>(head[i]);
  }
  return static_cast<std::int32_t>(version);
}

}  // namespace quorvane::ado
