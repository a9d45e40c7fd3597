#include <algorithm>
#include <array>
#include <utility>

#include "components/ado/sql/grammar.h"
#include "support/text.h"

namespace quorvane::ado {

namespace {

/// Tables by which other systems describe a database.
struct Catalog {
  std::string_view name;
  std::string_view query;
};
constexpr std::array kCatalogs = {
    Catalog{"msysobjects",
            "(SELECT name AS Name, CASE type WHEN 'table' THEN 1 ELSE 5 END AS Type, 0 AS Flags, "
            "rowid AS Id FROM sqlite_master WHERE type IN ('table', 'view') AND name NOT LIKE "
            "'sqlite[_]%')"},
    Catalog{"sysobjects",
            "(SELECT name, CASE type WHEN 'table' THEN 'U' ELSE 'V' END AS xtype, CASE type WHEN "
            "'table' THEN 'U' ELSE 'V' END AS type, rowid AS id FROM sqlite_master WHERE type IN "
            "('table', 'view') AND name NOT LIKE 'sqlite[_]%')"},
    Catalog{"information_schema.tables",
            "(SELECT name AS TABLE_NAME, CASE type WHEN 'table' THEN 'BASE TABLE' ELSE 'VIEW' END "
            "AS TABLE_TYPE, NULL AS TABLE_SCHEMA FROM sqlite_master WHERE type IN ('table', "
            "'view') AND name NOT LIKE 'sqlite[_]%')"},
    Catalog{"information_schema.columns",
            "(SELECT m.name AS TABLE_NAME, c.name AS COLUMN_NAME, c.type AS DATA_TYPE, c.cid + 1 "
            "AS ORDINAL_POSITION, CASE c.\"notnull\" WHEN 0 THEN 'YES' ELSE 'NO' END AS "
            "IS_NULLABLE, c.dflt_value AS COLUMN_DEFAULT FROM sqlite_master m JOIN "
            "pragma_table_info(m.name) c WHERE m.type IN ('table', 'view'))"},
};

/// How many rows TOP keeps.
struct Top {
  std::string count;
  bool percent = false;
};

struct Arm {
  std::string text;
  std::string keyed;  ///< the same with row keys; empty when there are none
  Top top;
  std::string into;
  std::vector<RowKey> keys;
  std::vector<ResultColumn> columns;
};

Top top(SqlParser& p) {
  Top result;
  if (!p.acceptWord("TOP")) return result;
  if (p.acceptSymbol("(")) {
    result.count = "(" + expression(p).text + ")";
    p.expectSymbol(")");
  } else if (p.peek().kind == TokenKind::Number) {
    result.count = p.take().text;
  } else if (p.peek().kind == TokenKind::Parameter) {
    result.count = p.parameter(p.take().text);
  } else {
    p.refuseHere();
  }
  result.percent = p.acceptWord("PERCENT");
  if (p.acceptWord("WITH")) p.expectWord("TIES");
  return result;
}

std::string limitOf(const Top& top, const std::string& arm) {
  if (top.count.empty()) return {};
  if (!top.percent) return " LIMIT " + top.count;
  return " LIMIT (SELECT CAST(ceil(count(*) * " + top.count + " / 100.0) AS INTEGER) FROM (" + arm +
         "))";
}

bool startsItemEnd(const Token& token) {
  return token.kind == TokenKind::End || isClauseWord(token) ||
         (token.kind == TokenKind::Symbol && token.text != "*");
}

/// AS name, or a name alone; empty when there is none.
std::string alias(SqlParser& p) {
  if (p.acceptWord("AS")) return quotedName(p.name());
  const TokenKind kind = p.peek().kind;
  const bool mayName = kind == TokenKind::Word || kind == TokenKind::Name ||
                       kind == TokenKind::Quoted || kind == TokenKind::Text;
  if (!mayName || startsItemEnd(p.peek()) || p.isWord("HAVING")) return {};
  return quotedName(p.name());
}

/// "name = expression" names a column, unless there is a column of that name.
bool namesItem(const SqlParser& p) {
  const TokenKind kind = p.peek().kind;
  const bool mayName =
      kind == TokenKind::Word || kind == TokenKind::Name || kind == TokenKind::Text;
  return mayName && p.isSymbol("=", 1) && !p.isKnownName(p.peek().text);
}

/// "t.*" or "dbo.t.*": the table's name, or nothing where no such item stands.
std::string allOf(SqlParser& p) {
  std::size_t ahead = 0;
  const auto isName = [&](std::size_t at) {
    return p.peek(at).kind == TokenKind::Word || p.peek(at).kind == TokenKind::Name;
  };
  while (isName(ahead) && p.isSymbol(".", ahead + 1) && !p.isSymbol("*", ahead + 2)) ahead += 2;
  if (!isName(ahead) || !p.isSymbol(".", ahead + 1) || !p.isSymbol("*", ahead + 2)) return {};
  std::string table = quotedName(p.peek(ahead).text);
  for (std::size_t i = 0; i < ahead + 3; ++i) p.take();
  return table;
}

std::string item(SqlParser& p, std::size_t place, const QueryOptions& options,
                 std::vector<ResultColumn>& columns) {
  if (p.acceptSymbol("*")) {
    columns.push_back({ColumnKind::Unknown, true});
    return "*";
  }
  if (const std::string table = allOf(p); !table.empty()) {
    columns.push_back({ColumnKind::Unknown, true});
    return table + ".*";
  }
  std::string name;
  if (namesItem(p)) {
    name = quotedName(p.name());
    p.take();
  }
  const Piece piece = expression(p);
  columns.push_back({piece.kind, false});
  if (name.empty()) name = alias(p);
  if (name.empty() && !piece.column && !options.nested)
    name = "Expr" + std::to_string(1000 + place);
  return name.empty() ? piece.text : piece.text + " AS " + name;
}

std::string orderTerms(SqlParser& p) {
  std::string text;
  do {
    const Piece term = expression(p);
    if (!text.empty()) text += ", ";
    text += term.text;
    if (term.folds) text += " COLLATE NOCASE";
    if (p.acceptWord("DESC")) text += " DESC";
    p.acceptWord("ASC");
  } while (p.acceptSymbol(","));
  return text;
}

/// The rows of the tables that a row of the query comes from.
std::string keyItems(const Source& from, std::vector<RowKey>& keys) {
  std::string items;
  for (const Source::Table& table : from.tables) {
    items += ", " + table.alias + ".rowid AS \"row key\"";
    keys.push_back({table.name, table.alias});
  }
  return items;
}

Arm selectArm(SqlParser& p, const QueryOptions& options) {
  Arm arm;
  p.expectWord("SELECT");
  const bool outer = std::exchange(p.aggregates, false);
  std::string head = "SELECT ";
  bool rows = options.rowKeys;
  arm.top = top(p);
  if (p.acceptWord("DISTINCT")) {
    head += "DISTINCT ";
    rows = false;
  } else if (!p.acceptWord("DISTINCTROW")) {
    p.acceptWord("ALL");
  }
  if (arm.top.count.empty()) arm.top = top(p);

  std::string items;
  do {
    if (!items.empty()) items += ", ";
    items += item(p, arm.columns.size(), options, arm.columns);
  } while (p.acceptSymbol(","));
  if (p.acceptWord("INTO")) arm.into = p.tableName();
  Source from;
  if (p.acceptWord("FROM")) from = source(p);
  std::string tail;
  if (!from.text.empty()) tail += " FROM " + from.text;
  if (p.acceptWord("WHERE")) tail += " WHERE " + expression(p).text;
  if (p.acceptWords("GROUP", "BY")) {
    rows = false;
    tail += " GROUP BY " + orderTerms(p);
  }
  if (p.acceptWord("HAVING")) tail += " HAVING " + expression(p).text;
  arm.text = head + items + tail;
  if (rows && !p.aggregates) arm.keyed = head + items + keyItems(from, arm.keys) + tail;
  p.aggregates = outer;
  return arm;
}

Arm arm(SqlParser& p, const QueryOptions& options) {
  if (!p.acceptSymbol("(")) return selectArm(p, options);
  Arm result;
  result.text = "SELECT * FROM (" + query(p, {.nested = true}).text + ")";
  p.expectSymbol(")");
  return result;
}

std::string compoundWord(SqlParser& p) {
  if (p.acceptWord("UNION")) return p.acceptWord("ALL") ? " UNION ALL " : " UNION ";
  if (p.acceptWord("EXCEPT")) return " EXCEPT ";
  return p.acceptWord("INTERSECT") ? " INTERSECT " : "";
}

/// LIMIT n, LIMIT from, n, LIMIT n OFFSET from, OFFSET n ROWS FETCH NEXT m ROWS ONLY.
std::string limitClause(SqlParser& p) {
  if (p.acceptWord("LIMIT")) {
    std::string text = " LIMIT " + expression(p).text;
    if (p.acceptSymbol(",")) return text + ", " + expression(p).text;
    if (p.acceptWord("OFFSET")) text += " OFFSET " + expression(p).text;
    return text;
  }
  if (!p.acceptWord("OFFSET")) return {};
  const std::string skipped = expression(p).text;
  if (!p.acceptWord("ROWS")) p.expectWord("ROW");
  std::string count = "-1";
  if (p.acceptWord("FETCH")) {
    if (!p.acceptWord("NEXT")) p.expectWord("FIRST");
    count = expression(p).text;
    if (!p.acceptWord("ROWS")) p.expectWord("ROW");
    p.expectWord("ONLY");
  }
  return " LIMIT " + count + " OFFSET " + skipped;
}

void queryHints(SqlParser& p) {
  if (p.isWord("FOR")) throw SqlRefused{"FOR is not supported at the end of a query."};
  if (p.acceptWord("OPTION")) p.skipParentheses();
  if (p.acceptWords("WITH", "OWNERACCESS")) p.expectWord("OPTION");
}

void tableHints(SqlParser& p) {
  if (p.isWord("WITH") && p.isSymbol("(", 1)) {
    p.take();
    p.skipParentheses();
  } else if (p.isSymbol("(") && p.peek(1).kind == TokenKind::Word && p.isSymbol(")", 2)) {
    p.skipParentheses();  // (NOLOCK)
  }
}

std::string catalogOf(SqlParser& p) {
  std::string name = lowerCase(p.peek().text);
  const bool schema = name == "information_schema" && p.isSymbol(".", 1);
  if (schema) name += "." + lowerCase(p.peek(2).text);
  for (const Catalog& catalog : kCatalogs) {
    if (catalog.name != name) continue;
    for (int i = 0; i < (schema ? 3 : 1); ++i) p.take();
    return std::string(catalog.query) + " AS ";
  }
  return {};
}

void table(SqlParser& p, Source& result) {
  const SqlParser::Level level(p);
  if (p.acceptSymbol("(")) {
    if (p.isWord("SELECT") || p.isWord("WITH")) {
      result.text += "(" + commonTables(p) + query(p, {.nested = true}).text + ")";
      p.expectSymbol(")");
      const std::string name = alias(p);
      if (!name.empty()) result.text += " AS " + name;
      result.joined = true;  // no table whose rows could be changed as they stand
      return;
    }
    const Source inner = source(p);
    p.expectSymbol(")");
    result.text += "(" + inner.text + ")";
    result.tables.insert(result.tables.end(), inner.tables.begin(), inner.tables.end());
    result.joined = result.joined || inner.joined;
    return;
  }
  const std::string catalog = catalogOf(p);
  if (!catalog.empty()) {
    std::string name = alias(p);
    result.text += catalog + (name.empty() ? "catalog" : name);
    return;
  }
  const std::string name = p.tableName();
  tableHints(p);
  const std::string other = alias(p);
  tableHints(p);
  result.text += quotedName(name);
  if (!other.empty()) result.text += " AS " + other;
  result.tables.push_back({name, other.empty() ? quotedName(name) : other});
}

/// The words of a join; empty when none stands here.
std::string joinWords(SqlParser& p) {
  if (p.acceptSymbol(",")) return ", ";
  static constexpr std::array<std::string_view, 6> kKinds = {"INNER", "LEFT",  "RIGHT",
                                                             "FULL",  "CROSS", "NATURAL"};
  for (const std::string_view kind : kKinds) {
    if (!p.isWord(kind)) continue;
    p.take();
    p.acceptWord("OUTER");
    p.expectWord("JOIN");
    return " " + std::string(kind) + " JOIN ";
  }
  return p.acceptWord("JOIN") ? " JOIN " : "";
}

void joinCondition(SqlParser& p, Source& result) {
  if (p.acceptWord("ON")) {
    result.text += " ON " + expression(p).text;
  } else if (p.acceptWord("USING")) {
    p.expectSymbol("(");
    result.text += " USING (" + quotedName(p.name());
    while (p.acceptSymbol(",")) result.text += ", " + quotedName(p.name());
    p.expectSymbol(")");
    result.text += ")";
  }
}

}  // namespace

Source source(SqlParser& p) {
  const SqlParser::Level level(p);
  Source result;
  table(p, result);
  for (std::string words = joinWords(p); !words.empty(); words = joinWords(p)) {
    result.joined = true;
    result.text += words;
    table(p, result);
    joinCondition(p, result);
  }
  return result;
}

std::string commonTables(SqlParser& p) {
  if (!p.acceptWord("WITH")) return {};
  std::string text = p.acceptWord("RECURSIVE") ? "WITH RECURSIVE " : "WITH ";
  for (bool first = true; first || p.acceptSymbol(","); first = false) {
    text += (first ? "" : ", ") + quotedName(p.name());
    if (p.acceptSymbol("(")) {
      text += "(" + quotedName(p.name());
      while (p.acceptSymbol(",")) text += ", " + quotedName(p.name());
      p.expectSymbol(")");
      text += ")";
    }
    p.expectWord("AS");
    p.expectSymbol("(");
    text += " AS (" + query(p, {.nested = true}).text + ")";
    p.expectSymbol(")");
  }
  return text + " ";
}

Query query(SqlParser& p, QueryOptions options) {
  const SqlParser::Level level(p);
  Arm first = arm(p, options);
  Query result;
  result.intoTable = first.into;
  result.columns = first.columns;
  std::string word = compoundWord(p);
  if (word.empty()) {
    result.text = first.keyed.empty() ? first.text : first.keyed;
    result.keys = first.keys;
  } else {
    const auto part = [](const Arm& one) {
      return one.top.count.empty()
                 ? one.text
                 : "SELECT * FROM (" + one.text + limitOf(one.top, one.text) + ")";
    };
    result.text = part(first);
    for (; !word.empty(); word = compoundWord(p)) result.text += word + part(arm(p, options));
    first.top = {};
  }
  const std::string body = word.empty() && result.keys.empty() ? result.text : first.text;
  if (p.acceptWords("ORDER", "BY")) result.text += " ORDER BY " + orderTerms(p);
  result.text += limitOf(first.top, body);
  result.text += limitClause(p);
  queryHints(p);
  return result;
}

}  // namespace quorvane::ado
