#include "components/ado/error_numbers.h"
#include "components/ado/sql/tokens.h"
#include "components/ado/sqlite/database.h"
#include "support/text.h"

namespace quorvane::ado {

namespace {

/// The definition of a table, cut where its parts are.
class TableDefinition {
 public:
  explicit TableDefinition(std::string sql) : sql_(std::move(sql)) {
    const std::vector<Token> tokens = sqlTokens(sql_);
    int depth = 0;
    std::size_t begin = 0;
    for (const Token& token : tokens) {
      const bool closes = token.isSymbol(")");
      if (closes) --depth;
      const bool ends = depth == 1 && token.isSymbol(",");
      if ((ends || (closes && depth == 0)) && begin > 0) {
        parts_.push_back(sql_.substr(begin, token.begin - begin));
        begin = ends ? token.end : 0;
        if (!ends) tail_ = sql_.substr(token.end);
      }
      if (token.isSymbol("(") && depth++ == 0 && begin == 0 && parts_.empty()) begin = token.end;
    }
  }

  std::vector<std::string>& parts() { return parts_; }

  /// The definition under another name.
  std::string text(const std::string& name) const {
    std::string list;
    for (const std::string& part : parts_) list += (list.empty() ? "" : ",") + part;
    return "CREATE TABLE " + quotedName(name) + " (" + list + ")" + tail_;
  }

 private:
  std::string sql_;
  std::vector<std::string> parts_;
  std::string tail_;
};

std::string definitionOf(SqliteCore& core, const std::string& table) {
  SqliteStatement statement(core,
                            "SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ?1 "
                            "COLLATE NOCASE");
  if (!statement.bind(1, table).step()) core.refuse(kNoTable, "no such table: " + table);
  return statement.text(0);
}

std::vector<std::string> dependents(SqliteCore& core, const std::string& table) {
  std::vector<std::string> list;
  SqliteStatement statement(core,
                            "SELECT sql FROM sqlite_master WHERE tbl_name = ?1 COLLATE NOCASE AND "
                            "type IN ('index', 'trigger') AND sql IS NOT NULL");
  statement.bind(1, table);
  while (statement.step()) list.push_back(statement.text(0));
  return list;
}

std::string columnNames(SqliteCore& core, const std::string& table) {
  std::string names;
  for (const std::string& name : core.schema().columnsOf(table)) {
    names += (names.empty() ? "" : ", ") + quotedName(name);
  }
  return names;
}

/// Puts a table of the new definition in the place of the old one, with its rows and indexes.
void replaceTable(SqliteCore& core, const std::string& table, const TableDefinition& definition) {
  if (core.inTransaction()) {
    core.refuse(kSyntax, "A table can't be changed in this way inside a transaction.");
  }
  const std::string passing = table + "_remade";
  const std::vector<std::string> others = dependents(core, table);
  const std::string names = columnNames(core, table);
  core.run("PRAGMA foreign_keys = OFF");  // or the rows that refer to this table would go with it
  core.run("PRAGMA legacy_alter_table = ON");
  const auto restore = [&] {
    core.run("PRAGMA legacy_alter_table = OFF");
    if (core.options().jet) core.run("PRAGMA foreign_keys = ON");
  };
  try {
    core.run("BEGIN IMMEDIATE");
    core.run(definition.text(passing));
    core.run("INSERT INTO " + quotedName(passing) + " (" + names + ") SELECT " + names + " FROM " +
             quotedName(table));
    core.run("DROP TABLE " + quotedName(table));
    core.run("ALTER TABLE " + quotedName(passing) + " RENAME TO " + quotedName(table));
    for (const std::string& other : others) core.run(other);
    core.run("COMMIT");
  } catch (...) {
    if (core.inTransaction()) core.run("ROLLBACK");
    restore();
    throw;
  }
  restore();
}

void alterColumn(SqliteCore& core, const SqlStatement& change) {
  TableDefinition definition(definitionOf(core, change.table));
  for (std::string& part : definition.parts()) {
    const std::vector<Token> tokens = sqlTokens(part);
    if (!equalsNoCase(tokens[0].text, change.column)) continue;
    bool key = false;
    for (const Token& token : tokens) key = key || token.isWord("PRIMARY");
    part = " " + change.text;
    if (key && change.text.find("PRIMARY KEY") == change.text.npos) part += " PRIMARY KEY";
    return replaceTable(core, change.table, definition);
  }
  core.refuse(kSyntax, "no such column: " + change.column);
}

void addConstraint(SqliteCore& core, const SqlStatement& change) {
  const std::vector<Token> tokens = sqlTokens(change.text);
  std::size_t at = 0;
  std::string name = change.table + "_key";
  if (tokens[at].isWord("CONSTRAINT")) {
    name = tokens[1].text;
    at = 2;
  }
  const bool primary = tokens[at].isWord("PRIMARY");
  if (primary || tokens[at].isWord("UNIQUE")) {
    const std::string columns = change.text.substr(tokens[at + (primary ? 2 : 1)].begin);
    return core.run("CREATE UNIQUE INDEX " + quotedName(name) + " ON " + quotedName(change.table) +
                    " " + columns);
  }
  TableDefinition definition(definitionOf(core, change.table));
  definition.parts().push_back(" " + change.text);
  replaceTable(core, change.table, definition);
}

void dropConstraint(SqliteCore& core, const SqlStatement& change) {
  SqliteStatement index(core,
                        "SELECT count(*) FROM sqlite_master WHERE type = 'index' AND name = ?1 "
                        "COLLATE NOCASE AND sql IS NOT NULL");
  index.bind(1, change.text).step();
  const bool isIndex = index.number(0) > 0;
  index.release();
  if (isIndex) return core.run("DROP INDEX " + quotedName(change.text));
  TableDefinition definition(definitionOf(core, change.table));
  auto& parts = definition.parts();
  for (auto part = parts.begin(); part != parts.end(); ++part) {
    const std::vector<Token> tokens = sqlTokens(*part);
    if (!tokens[0].isWord("CONSTRAINT") || !equalsNoCase(tokens[1].text, change.text)) continue;
    parts.erase(part);
    return replaceTable(core, change.table, definition);
  }
  core.refuse(kSyntax, "CHECK constraint '" + change.text + "' does not exist.");
}

}  // namespace

void remakeTable(SqliteCore& core, const SqlStatement& change) {
  switch (change.kind) {
    case SqlStatement::Kind::AlterColumn:
      return alterColumn(core, change);
    case SqlStatement::Kind::AddConstraint:
      return addConstraint(core, change);
    default:
      return dropConstraint(core, change);
  }
}

}  // namespace quorvane::ado
