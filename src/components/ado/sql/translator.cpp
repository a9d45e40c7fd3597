#include "components/ado/sql/translator.h"

#include "components/ado/sql/grammar.h"
#include "support/text.h"

namespace quorvane::ado {

namespace {

using Kind = SqlStatement::Kind;

SqlStatement bare(Kind kind, std::string text = {}) {
  SqlStatement statement;
  statement.kind = kind;
  statement.text = std::move(text);
  return statement;
}

SqlStatement queryStatement(SqlParser& p) {
  const std::string tables = commonTables(p);
  if (!tables.empty() && !p.isWord("SELECT")) {
    SqlStatement statement;
    if (p.acceptWord("UPDATE")) {
      statement = updateStatement(p);
    } else if (p.acceptWord("DELETE")) {
      statement = deleteStatement(p);
    } else {
      p.expectWord("INSERT");
      statement = insertStatement(p, "INSERT");
    }
    statement.text = tables + statement.text;
    return statement;
  }
  Query found = query(p, {.rowKeys = p.options().rowKeys && tables.empty()});
  if (!found.intoTable.empty()) {
    SqlStatement copy = bare(Kind::SelectInto, tables + found.text);
    copy.table = found.intoTable;
    return copy;
  }
  SqlStatement statement = bare(Kind::Query, tables + found.text);
  statement.keys = std::move(found.keys);
  statement.columns = std::move(found.columns);
  return statement;
}

/// SET NOCOUNT ON and its like are not for SQLite.
void setStatement(SqlParser& p, Translation& result) {
  if (p.peek().kind == TokenKind::Parameter) p.refuseHere();
  const bool counts = equalsNoCase(p.name(), "NOCOUNT");
  while (!p.atEnd() && !p.isSymbol(";")) {
    const bool on = p.isWord("ON");
    const bool last = on || p.isWord("OFF");
    p.take();
    if (counts && on) result.rowCounts = false;
    if (last) return;
  }
}

/// BEGIN TRANSACTION, COMMIT, ROLLBACK with or without the word.
SqlStatement transactionStatement(SqlParser& p, Kind kind) {
  if (!p.acceptWord("TRANSACTION") && !p.acceptWord("TRAN")) p.acceptWord("WORK");
  return bare(kind);
}

/// EXEC name and {call name}: there are no stored procedures, but a view may be called as one.
SqlStatement callStatement(SqlParser& p) {
  const std::string name = p.tableName();
  const bool known = p.options().schema && p.options().schema->hasTable(name);
  if (!known) throw SqlRefused{"Could not find stored procedure '" + name + "'."};
  p.skipParentheses();
  return bare(Kind::Query, "SELECT * FROM " + quotedName(name));
}

void statement(SqlParser& p, Translation& result) {
  std::vector<SqlStatement>& list = result.statements;
  if (p.isWord("SELECT") || p.isWord("WITH") || p.isSymbol("(")) {
    list.push_back(queryStatement(p));
  } else if (p.acceptWord("INSERT")) {
    list.push_back(insertStatement(p, "INSERT"));
  } else if (p.acceptWord("REPLACE")) {
    list.push_back(insertStatement(p, "REPLACE"));
  } else if (p.acceptWord("UPDATE")) {
    list.push_back(updateStatement(p));
  } else if (p.acceptWord("DELETE")) {
    list.push_back(deleteStatement(p));
  } else if (p.acceptWord("CREATE")) {
    createStatement(p, list);
  } else if (p.acceptWord("ALTER")) {
    alterStatement(p, list);
  } else if (p.acceptWord("DROP")) {
    list.push_back(dropStatement(p));
  } else if (p.acceptWord("TRUNCATE")) {
    p.acceptWord("TABLE");
    list.push_back(bare(Kind::Change, "DELETE FROM " + quotedName(p.tableName())));
  } else if (p.acceptWord("BEGIN")) {
    list.push_back(transactionStatement(p, Kind::Begin));
  } else if (p.acceptWord("COMMIT")) {
    list.push_back(transactionStatement(p, Kind::Commit));
  } else if (p.acceptWord("ROLLBACK")) {
    list.push_back(transactionStatement(p, Kind::Rollback));
  } else if (p.acceptWord("SET")) {
    setStatement(p, result);
  } else if (p.acceptWord("USE")) {
    p.name();
  } else if (p.acceptWord("EXEC") || p.acceptWord("EXECUTE")) {
    list.push_back(callStatement(p));
  } else if (p.acceptSymbol("{")) {
    p.expectWord("CALL");
    list.push_back(callStatement(p));
    p.expectSymbol("}");
  } else if (p.isWord("TRANSFORM") || p.isWord("PARAMETERS") || p.isWord("DECLARE") ||
             p.isWord("IF") || p.isWord("PRAGMA")) {
    throw SqlRefused{upperCase(p.peek().text) + " is not supported."};
  } else {
    throw SqlRefused{
        "Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'."};
  }
}

}  // namespace

Translation translateSql(std::string_view text, const SqlOptions& options) {
  constexpr std::size_t kLongest = std::size_t{4} << 20;
  Translation result;
  if (text.size() > kLongest) {
    result.refusal = "Query is too complex.";
    return result;
  }
  try {
    SqlParser p(text, options);
    while (p.acceptSymbol(";")) {
    }
    while (!p.atEnd()) {
      if (options.oneStatement && !result.statements.empty()) {
        throw SqlRefused{"Characters found after end of SQL statement."};
      }
      statement(p, result);
      while (p.acceptSymbol(";") || p.acceptWord("GO")) {
      }
    }
    result.parameters = p.parameters();
    if (result.statements.empty() && trimBlanks(text).empty()) {
      result.refusal = "Command text was not set for the command object.";
    }
  } catch (const SqlRefused& refused) {
    result.statements.clear();
    result.refusal = refused.reason;
  }
  return result;
}

}  // namespace quorvane::ado
