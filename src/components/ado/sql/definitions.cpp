#include <algorithm>
#include <array>
#include <charconv>

#include "components/ado/sql/declared_type.h"
#include "components/ado/sql/grammar.h"
#include "support/text.h"

namespace quorvane::ado {

namespace {

/// A table in the making.
struct TableText {
  std::string name;
  std::string parts;          ///< columns and constraints, separated
  std::string autonumber;     ///< the column that counts by itself
  long long firstNumber = 1;  ///< that it begins with

  void add(const std::string& part) { parts += (parts.empty() ? "" : ", ") + part; }
};

SqlStatement definition(std::string text) {
  SqlStatement statement;
  statement.kind = SqlStatement::Kind::Definition;
  statement.text = std::move(text);
  return statement;
}

std::string number(SqlParser& p) {
  std::string sign = p.acceptSymbol("-") ? "-" : "";
  if (p.peek().kind != TokenKind::Number) p.refuseHere();
  return sign + p.take().text;
}

/// "(n)" or "(n, m)" behind a type.
std::string typeSize(SqlParser& p) {
  if (!p.acceptSymbol("(")) return {};
  std::string size = "max";
  if (!p.acceptWord("MAX")) size = number(p);
  if (p.acceptSymbol(",")) size += "," + number(p);
  p.expectSymbol(")");
  return size == "max" ? std::string() : "(" + size + ")";
}

bool isAutonumberWord(const Token& token) {
  for (const char* word :
       {"COUNTER", "AUTOINCREMENT", "AUTONUMBER", "IDENTITY", "AUTO_INCREMENT"}) {
    if (token.isWord(word)) return true;
  }
  return false;
}

/// IDENTITY(1000, 1): where to begin.
long long seed(SqlParser& p) {
  if (!p.acceptSymbol("(")) return 1;
  const std::string text = number(p);
  if (p.acceptSymbol(",")) number(p);
  p.expectSymbol(")");
  long long value = 1;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

/// Where a column may have no type: its end, or what stands behind a type.
bool startsBehindType(const SqlParser& p) {
  for (const char* word : {"NOT", "NULL", "DEFAULT", "PRIMARY", "UNIQUE", "CHECK", "REFERENCES",
                           "CONSTRAINT", "COLLATE"}) {
    if (p.isWord(word)) return true;
  }
  return p.isSymbol(",") || p.isSymbol(")") || p.atEnd();
}

/// A type's words: "VARCHAR(50)", "DOUBLE PRECISION".
std::string typeWords(SqlParser& p) {
  const bool reserved = p.peek().kind == TokenKind::Word && quotedName(p.peek().text)[0] == '"';
  if (reserved) p.refuseHere();
  std::string type = upperCase(p.name());
  const auto isPart = [](char c) {
    return c == ' ' || c == '_' || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
  };
  if (!std::all_of(type.begin(), type.end(), isPart)) p.refuseHere();
  static constexpr std::array<std::string_view, 6> kSecond = {"PRECISION", "VARYING", "BINARY",
                                                              "UNSIGNED",  "INTEGER", "TEXT"};
  type += typeSize(p);
  for (const std::string_view word : kSecond) {
    if (!p.acceptWord(word)) continue;
    type += " " + std::string(word) + typeSize(p);
  }
  return type;
}

std::string columnList(SqlParser& p) {
  p.expectSymbol("(");
  std::string text;
  do {
    text += (text.empty() ? "(" : ", ") + quotedName(p.name());
    if (p.acceptWord("DESC")) text += " DESC";
    p.acceptWord("ASC");
  } while (p.acceptSymbol(","));
  p.expectSymbol(")");
  return text + ")";
}

std::string reference(SqlParser& p) {
  std::string text = " REFERENCES " + quotedName(p.tableName());
  if (p.isSymbol("(")) text += " " + columnList(p);
  while (p.acceptWord("ON")) {
    text += p.acceptWord("DELETE") ? " ON DELETE" : " ON UPDATE";
    p.acceptWord("UPDATE");
    if (p.acceptWord("CASCADE")) {
      text += " CASCADE";
    } else if (p.acceptWord("SET")) {
      text += p.acceptWord("NULL") ? " SET NULL" : " SET DEFAULT";
      p.acceptWord("DEFAULT");
    } else {
      p.expectWord("NO");
      p.expectWord("ACTION");
      text += " NO ACTION";
    }
  }
  return text;
}

constexpr const char* kNewGuid =
    "(lower(hex(randomblob(4)) || '-' || hex(randomblob(2)) || '-' || hex(randomblob(2)) || '-' || "
    "hex(randomblob(2)) || '-' || hex(randomblob(6))))";

/// What a default speaks of is spelled by SQLite's own functions: whatever opens the file
/// must know them.
std::string defaultValue(SqlParser& p, ColumnKind kind) {
  const Piece value = sum(p);
  if (value.text.find("q_newid()") != value.text.npos) return std::string(" DEFAULT ") + kNewGuid;
  if (value.text.find("vb_now()") != value.text.npos)
    return " DEFAULT (datetime('now', 'localtime'))";
  if (value.text.find("vb_date()") != value.text.npos) return " DEFAULT (date('now', 'localtime'))";
  return " DEFAULT (" + storedAs(value, kind) + ")";
}

void clustering(SqlParser& p) {
  if (!p.acceptWord("CLUSTERED")) p.acceptWord("NONCLUSTERED");
}

/// Behind the type; false at a word that belongs to none.
bool columnConstraint(SqlParser& p, ColumnKind kind, std::string& text, bool& primary) {
  if (p.acceptWord("CONSTRAINT")) p.name();
  if (p.acceptWords("NOT", "NULL")) {
    text += " NOT NULL";
  } else if (p.acceptWord("NULL") || p.acceptWord("ROWGUIDCOL")) {
  } else if (p.acceptWords("PRIMARY", "KEY")) {
    clustering(p);
    p.acceptWord("ASC");
    primary = true;
    text += " PRIMARY KEY";
  } else if (p.acceptWord("UNIQUE")) {
    clustering(p);
    text += " UNIQUE";
  } else if (p.acceptWord("DEFAULT")) {
    text += defaultValue(p, kind);
  } else if (p.acceptWord("REFERENCES")) {
    text += reference(p);
  } else if (p.acceptWord("CHECK")) {
    p.expectSymbol("(");
    text += " CHECK (" + expression(p).text + ")";
    p.expectSymbol(")");
  } else if (p.acceptWord("COLLATE")) {
    p.name();
  } else if (p.acceptWords("WITH", "COMPRESSION") || p.acceptWords("WITH", "COMP")) {
  } else {
    return false;
  }
  return true;
}

std::string column(SqlParser& p, TableText* table) {
  const std::string name = p.name();
  bool counts = isAutonumberWord(p.peek());
  std::string type;
  long long first = 1;
  if (counts) {
    p.take();
    first = seed(p);
  } else {
    type = startsBehindType(p) ? std::string() : typeWords(p);
  }
  const ColumnKind kind = kindOfDeclared(type);
  std::string text;
  bool primary = false;
  for (;;) {
    if (isAutonumberWord(p.peek())) {
      p.take();
      counts = true;
      first = seed(p);
    } else if (!columnConstraint(p, kind, text, primary)) {
      break;
    }
  }
  if (counts && !table) throw SqlRefused{"An autonumber column can be made with its table only."};
  if (counts) {
    table->autonumber = name;
    table->firstNumber = first;
    return quotedName(name) + " INTEGER PRIMARY KEY AUTOINCREMENT";
  }
  if (!table && text.find(" NOT NULL") != text.npos && text.find(" DEFAULT") == text.npos) {
    text = replaceAll(text, " NOT NULL", "");  // rows that are there have nothing to show
  }
  if (kind == ColumnKind::Text) text += " COLLATE NOCASE";
  return quotedName(name) + " " + declaredForText(type) + text;
}

bool startsConstraint(const SqlParser& p) {
  if (p.isWord("CONSTRAINT")) return true;
  if (p.isWord("PRIMARY") || p.isWord("FOREIGN")) return p.isWord("KEY", 1);
  if (p.isWord("UNIQUE") || p.isWord("CHECK")) return true;
  return (p.isWord("INDEX") || p.isWord("KEY")) && p.isSymbol("(", 2);
}

/// A constraint of a table. Empty when nothing is left of it.
std::string tableConstraint(SqlParser& p, const TableText& table) {
  std::string name;
  if (p.acceptWord("CONSTRAINT")) name = "CONSTRAINT " + quotedName(p.name()) + " ";
  if (p.acceptWords("PRIMARY", "KEY")) {
    clustering(p);
    const std::string columns = columnList(p);
    if (table.autonumber.empty()) return name + "PRIMARY KEY " + columns;
    // The column that counts is the key; what else was to be one is unique.
    const std::string only = "(" + quotedName(table.autonumber);
    if (equalsNoCase(columns, only + ")") || equalsNoCase(columns, only + " DESC)")) return {};
    return name + "UNIQUE " + columns;
  }
  if (p.acceptWord("UNIQUE")) {
    clustering(p);
    if (!p.acceptWord("KEY")) p.acceptWord("INDEX");
    if (!p.isSymbol("(")) p.name();
    return name + "UNIQUE " + columnList(p);
  }
  if (p.acceptWords("FOREIGN", "KEY")) {
    const std::string columns = columnList(p);
    p.expectWord("REFERENCES");
    return name + "FOREIGN KEY " + columns + reference(p);
  }
  if (p.acceptWord("CHECK")) {
    p.expectSymbol("(");
    const std::string condition = expression(p).text;
    p.expectSymbol(")");
    return name + "CHECK (" + condition + ")";
  }
  if (p.acceptWord("INDEX") || p.acceptWord("KEY")) {  // an index beside a table's columns
    p.name();
    columnList(p);
    return {};
  }
  p.refuseHere();
}

/// What other systems say behind a definition: where it is kept, and how.
void skipStorage(SqlParser& p) {
  while (!p.atEnd() && !p.isSymbol(";")) {
    if (!p.isWord("ON") && !p.isWord("WITH") && !p.isWord("TEXTIMAGE_ON") && !p.isWord("ENGINE") &&
        !p.isWord("DEFAULT") && !p.isWord("CHARSET") && !p.isWord("COLLATE") &&
        !p.isWord("AUTO_INCREMENT") && !p.isWord("GO")) {
      return;
    }
    if (p.take().isWord("GO")) return;
    p.acceptSymbol("=");
    if (p.isSymbol("(")) {
      p.skipParentheses();
    } else {
      p.take();
    }
    if (p.acceptSymbol("=")) p.take();
  }
}

void createTable(SqlParser& p, std::vector<SqlStatement>& statements) {
  std::string head = "CREATE TABLE ";
  if (p.acceptWord("IF")) {
    p.expectWord("NOT");
    p.expectWord("EXISTS");
    head += "IF NOT EXISTS ";
  }
  TableText table;
  table.name = p.tableName();
  if (p.acceptWord("AS")) {
    statements.push_back(
        definition(head + quotedName(table.name) + " AS " + query(p, {.nested = true}).text));
    return;
  }
  p.expectSymbol("(");
  do {
    if (p.isSymbol(")")) break;
    if (startsConstraint(p)) {
      const std::string constraint = tableConstraint(p, table);
      if (!constraint.empty()) table.add(constraint);
    } else {
      table.add(column(p, &table));
    }
  } while (p.acceptSymbol(","));
  p.expectSymbol(")");
  skipStorage(p);
  statements.push_back(definition(head + quotedName(table.name) + " (" + table.parts + ")"));
  if (table.firstNumber > 1) {
    statements.push_back(definition("INSERT INTO sqlite_sequence (name, seq) VALUES (" +
                                    quotedText(table.name) + ", " +
                                    std::to_string(table.firstNumber - 1) + ")"));
  }
}

SqlStatement createIndex(SqlParser& p, bool unique) {
  std::string ifNot;
  if (p.acceptWord("IF")) {
    p.expectWord("NOT");
    p.expectWord("EXISTS");
    ifNot = "IF NOT EXISTS ";
  }
  const std::string name = p.name();
  p.expectWord("ON");
  const std::string table = p.tableName();
  const std::string columns = columnList(p);
  if (p.acceptWord("WITH")) {
    if (p.acceptWord("PRIMARY")) {
      unique = true;
    } else if (p.acceptWord("DISALLOW") || p.acceptWord("IGNORE")) {
      p.expectWord("NULL");
    } else {
      p.skipParentheses();
    }
  }
  skipStorage(p);
  return definition(std::string(unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") + ifNot +
                    quotedName(name) + " ON " + quotedName(table) + " " + columns);
}

SqlStatement remake(SqlStatement::Kind kind, const std::string& table, std::string text) {
  SqlStatement statement;
  statement.kind = kind;
  statement.table = table;
  statement.text = std::move(text);
  return statement;
}

void alterAdd(SqlParser& p, const std::string& table, std::vector<SqlStatement>& statements) {
  const bool parentheses = p.acceptSymbol("(");
  p.acceptWord("COLUMN");
  do {
    if (startsConstraint(p)) {
      statements.push_back(
          remake(SqlStatement::Kind::AddConstraint, table, tableConstraint(p, TableText())));
    } else {
      p.acceptWord("COLUMN");
      statements.push_back(
          definition("ALTER TABLE " + quotedName(table) + " ADD COLUMN " + column(p, nullptr)));
    }
  } while (p.acceptSymbol(","));
  if (parentheses) p.expectSymbol(")");
}

void alterDrop(SqlParser& p, const std::string& table, std::vector<SqlStatement>& statements) {
  const bool constraint = p.acceptWord("CONSTRAINT");
  if (!constraint) p.acceptWord("COLUMN");
  do {
    const std::string name = p.name();
    statements.push_back(constraint ? remake(SqlStatement::Kind::DropConstraint, table, name)
                                    : definition("ALTER TABLE " + quotedName(table) +
                                                 " DROP COLUMN " + quotedName(name)));
  } while (p.acceptSymbol(","));
}

}  // namespace

void createStatement(SqlParser& p, std::vector<SqlStatement>& statements) {
  if (p.acceptWord("TABLE")) return createTable(p, statements);
  if (p.acceptWord("VIEW")) {
    const std::string name = p.tableName();
    const std::string columns = p.isSymbol("(") ? " " + columnList(p) : std::string();
    p.expectWord("AS");
    statements.push_back(definition("CREATE VIEW " + quotedName(name) + columns + " AS " +
                                    query(p, {.nested = true}).text));
    return;
  }
  const bool unique = p.acceptWord("UNIQUE");
  clustering(p);
  if (p.acceptWord("INDEX")) {
    statements.push_back(createIndex(p, unique));
    return;
  }
  throw SqlRefused{"CREATE " + upperCase(p.peek().text) + " is not supported."};
}

void alterStatement(SqlParser& p, std::vector<SqlStatement>& statements) {
  p.expectWord("TABLE");
  const std::string table = p.tableName();
  if (p.acceptWord("ADD")) return alterAdd(p, table, statements);
  if (p.acceptWord("DROP")) return alterDrop(p, table, statements);
  if (p.acceptWord("RENAME")) {
    std::string text = "ALTER TABLE " + quotedName(table) + " RENAME ";
    if (p.acceptWord("COLUMN")) text += "COLUMN " + quotedName(p.name()) + " ";
    p.expectWord("TO");
    statements.push_back(definition(text + "TO " + quotedName(p.name())));
    return;
  }
  if (!p.acceptWord("ALTER")) p.expectWord("MODIFY");
  p.acceptWord("COLUMN");
  const std::string name = p.peek().text;
  TableText whole;
  SqlStatement statement = remake(SqlStatement::Kind::AlterColumn, table, column(p, &whole));
  statement.column = name;
  statements.push_back(std::move(statement));
}

SqlStatement dropStatement(SqlParser& p) {
  const std::string what = upperCase(p.name());
  if (what != "TABLE" && what != "VIEW" && what != "INDEX") {
    throw SqlRefused{"DROP " + what + " is not supported."};
  }
  std::string text = "DROP " + what + " ";
  if (p.acceptWord("IF")) {
    p.expectWord("EXISTS");
    text += "IF EXISTS ";
  }
  text += quotedName(p.tableName());
  if (p.acceptWord("ON")) p.tableName();  // an index names its table
  return definition(std::move(text));
}

}  // namespace quorvane::ado
