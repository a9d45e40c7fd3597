#include <algorithm>

#include "components/ado/sql/grammar.h"
#include "support/text.h"

namespace quorvane::ado {

namespace {

SqlStatement change(std::string text) {
  SqlStatement statement;
  statement.kind = SqlStatement::Kind::Change;
  statement.text = std::move(text);
  return statement;
}

std::string joinedNames(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + quotedName(name);
  return text;
}

/// One row of VALUES. A column whose value is DEFAULT is left out, which names the others.
std::string valueRow(SqlParser& p, const std::string& table, std::vector<std::string>& columns) {
  p.expectSymbol("(");
  std::string text;
  std::vector<std::string> used;
  for (std::size_t i = 0; i == 0 || p.acceptSymbol(","); ++i) {
    if (p.isWord("DEFAULT") && i < columns.size()) {
      p.take();
      continue;
    }
    const Piece value = expression(p);
    const ColumnKind kind = i < columns.size() ? p.kindOf(table, columns[i]) : ColumnKind::Unknown;
    text += (text.empty() ? "" : ", ") + storedAs(value, kind);
    if (i < columns.size()) used.push_back(columns[i]);
  }
  p.expectSymbol(")");
  if (used.size() < columns.size() && !used.empty()) columns = used;
  return "(" + text + ")";
}

/// OUTPUT INSERTED.a, INSERTED.b
std::string outputClause(SqlParser& p) {
  if (!p.acceptWord("OUTPUT")) return {};
  std::string text = " RETURNING ";
  for (bool first = true; first || p.acceptSymbol(","); first = false) {
    if (!p.acceptWord("INSERTED")) p.expectWord("DELETED");
    p.expectSymbol(".");
    text += (first ? "" : ", ") + (p.acceptSymbol("*") ? "*" : quotedName(p.name()));
  }
  return text;
}

struct Assignment {
  std::string qualifier;  ///< quoted
  std::string column;
  std::string value;
};

std::vector<Assignment> assignments(SqlParser& p, const std::string& table) {
  std::vector<Assignment> list;
  do {
    std::vector<std::string> path{p.name()};
    while (p.acceptSymbol(".")) path.push_back(p.name());
    p.expectSymbol("=");
    const Piece value = expression(p);
    ColumnKind kind = p.kindOf(table, path.back());
    if (kind == ColumnKind::Unknown) kind = p.columnPiece(path).kind;
    list.push_back({path.size() > 1 ? quotedName(path[path.size() - 2]) : "", path.back(),
                    storedAs(value, kind)});
  } while (p.acceptSymbol(","));
  return list;
}

/// The table that a statement over several changes, and its name among them.
Source::Table target(const Source& from, const std::string& wanted) {
  for (const Source::Table& table : from.tables) {
    if (equalsNoCase(table.alias, wanted)) return table;
  }
  for (const Source::Table& table : from.tables) {
    if (equalsNoCase(quotedName(table.name), wanted)) return table;
  }
  throw SqlRefused{"Could not determine which table " + wanted + " names."};
}

/// Over a join: the rows to change are found first, by their keys.
std::string joinedUpdate(const Source& from, const Source::Table& table,
                         const std::vector<Assignment>& list, const std::string& where) {
  std::string found = "SELECT " + table.alias + ".rowid AS k";
  std::string set;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const std::string value = "v" + std::to_string(i);
    found += ", " + list[i].value + " AS " + value;
    set += (i > 0 ? ", " : "") + quotedName(list[i].column) + " = found." + value;
  }
  const std::string name = quotedName(table.name);
  return "UPDATE " + name + " SET " + set + " FROM (" + found + " FROM " + from.text + where +
         ") AS found WHERE " + name + ".rowid = found.k";
}

std::string whereClause(SqlParser& p) {
  return p.acceptWord("WHERE") ? " WHERE " + expression(p).text : std::string();
}

}  // namespace

SqlStatement insertStatement(SqlParser& p, std::string_view verb) {
  std::string text(verb);
  if (p.acceptWord("OR")) {
    text += " OR " + quotedName(p.name());
  } else {
    p.acceptWord("IGNORE");
  }
  p.acceptWord("INTO");
  const std::string table = p.tableName();
  std::vector<std::string> columns;
  const bool named = p.isSymbol("(") && !p.isWord("SELECT", 1);
  if (named) {
    p.take();
    do {
      columns.push_back(p.name());
      while (p.acceptSymbol(".")) columns.back() = p.name();  // t.column
    } while (p.acceptSymbol(","));
    p.expectSymbol(")");
  }
  const std::string output = outputClause(p);
  std::string values;
  const std::size_t count = columns.size();
  if (p.acceptWords("DEFAULT", "VALUES")) {
    values = " DEFAULT VALUES";
  } else if (p.acceptWord("VALUES") || p.acceptWord("VALUE")) {
    std::vector<std::string> places = columns;
    if (!named && p.options().schema) places = p.options().schema->columnsOf(table);
    values = " VALUES " + valueRow(p, table, places);
    while (p.acceptSymbol(",")) values += ", " + valueRow(p, table, places);
    if (named) columns = places;
  } else {
    values = " " + commonTables(p) + query(p, {.nested = true}).text;
  }
  text += " INTO " + quotedName(table);
  if (count > 0) text += " (" + joinedNames(columns) + ")";
  return change(text + values + output);
}

SqlStatement updateStatement(SqlParser& p) {
  const Source updated = source(p);
  p.expectWord("SET");
  const std::vector<Assignment> list =
      assignments(p, updated.tables.empty() ? "" : updated.tables[0].name);
  if (updated.tables.empty()) p.refuseHere();
  const bool several = p.acceptWord("FROM");
  if (!several && !updated.joined) {
    std::string text = "UPDATE " + updated.text + " SET ";
    for (std::size_t i = 0; i < list.size(); ++i) {
      text += (i > 0 ? ", " : "") + quotedName(list[i].column) + " = " + list[i].value;
    }
    return change(text + whereClause(p));
  }
  Source from = updated;
  std::string wanted = list[0].qualifier;
  if (several) {
    from = source(p);
    wanted = updated.tables[0].alias;
    const auto same = [&](const Source::Table& t) {
      return equalsNoCase(t.alias, wanted) || equalsNoCase(quotedName(t.name), wanted);
    };
    if (std::none_of(from.tables.begin(), from.tables.end(), same)) {
      from.text = updated.text + ", " + from.text;
      from.tables.insert(from.tables.begin(), updated.tables[0]);
    }
  }
  if (wanted.empty()) wanted = from.tables[0].alias;
  const Source::Table table = target(from, wanted);
  return change(joinedUpdate(from, table, list, whereClause(p)));
}

/// DELETE FROM t, DELETE t, DELETE * FROM t, DELETE a, b FROM t, DELETE a.* FROM a INNER JOIN b
SqlStatement deleteStatement(SqlParser& p) {
  std::string wanted;
  while (!p.isWord("FROM") && !p.atEnd() && !p.isSymbol(";")) {
    if (p.acceptSymbol("*")) {
    } else {
      std::string name = p.tableName();
      if (wanted.empty()) wanted = std::move(name);
      if (p.isSymbol(".") && p.isSymbol("*", 1)) {
        p.take();
        p.take();
      }
    }
    if (p.isWord("WHERE")) break;
    p.acceptSymbol(",");
  }
  if (!p.acceptWord("FROM")) {
    if (wanted.empty()) p.refuseHere();
    return change("DELETE FROM " + quotedName(wanted) + whereClause(p));
  }
  Source from = source(p);
  if (p.acceptWord("FROM")) {  // DELETE FROM a FROM t AS a INNER JOIN ..
    if (from.tables.empty()) p.refuseHere();
    wanted = from.tables[0].alias;
    from = source(p);
  }
  const std::string where = whereClause(p);
  if (from.tables.empty()) p.refuseHere();
  if (!from.joined) return change("DELETE FROM " + from.text + where);
  const Source::Table table =
      target(from, wanted.empty() ? from.tables[0].alias : quotedName(wanted));
  return change("DELETE FROM " + quotedName(table.name) + " WHERE rowid IN (SELECT " + table.alias +
                ".rowid FROM " + from.text + where + ")");
}

}  // namespace quorvane::ado
