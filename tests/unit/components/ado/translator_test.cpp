#include "components/ado/sql/translator.h"

#include <gtest/gtest.h>

#include "components/ado/sql/stored_date.h"
#include "support/text.h"

namespace quorvane::ado {

namespace {

/// The statements of a text, in a line.
std::string translated(std::string_view text, const SqlOptions& options = {}) {
  const Translation result = translateSql(text, options);
  if (result.refused()) return "refused: " + result.refusal;
  std::string line;
  for (const SqlStatement& statement : result.statements) {
    if (!line.empty()) line += "; ";
    switch (statement.kind) {
      case SqlStatement::Kind::Begin:
        line += "begin";
        break;
      case SqlStatement::Kind::Commit:
        line += "commit";
        break;
      case SqlStatement::Kind::Rollback:
        line += "rollback";
        break;
      case SqlStatement::Kind::SelectInto:
        line += "select into " + statement.table + " / ";
        break;
      case SqlStatement::Kind::AlterColumn:
        line += "alter column " + statement.table + " / " + statement.column + " / ";
        break;
      case SqlStatement::Kind::AddConstraint:
        line += "add constraint " + statement.table + " /  / ";
        break;
      case SqlStatement::Kind::DropConstraint:
        line += "drop constraint " + statement.table + " /  / ";
        break;
      default:
        break;
    }
    line += statement.text;
  }
  return line;
}

struct Row {
  const char* written;
  const char* meant;
};

TEST(Translator, SpellsEveryFormForTheLibrary) {
  const Row rows[] = {
      Row{"SELECT TOP 10 * FROM news ORDER BY id DESC",
          "SELECT * FROM news ORDER BY id DESC LIMIT 10"},
      Row{"SELECT TOP 10 PERCENT id FROM news WHERE id > ? ORDER BY id",
          "SELECT id FROM news WHERE id > ?1 ORDER BY id LIMIT (SELECT CAST(ceil(count(*) * 10 / "
          "100.0) AS INTEGER) FROM (SELECT id FROM news WHERE id > ?1))"},
      Row{"SELECT DISTINCT TOP 5 [user name], [order] FROM [my table] WHERE [date] > #1/31/2024 "
          "10:00:00 PM#",
          "SELECT DISTINCT \"user name\", \"order\" FROM \"my table\" WHERE date > '2024-01-31 "
          "22:00:00' LIMIT 5"},
      Row{"SELECT * FROM t WHERE active = True AND deleted = 0 AND hits <> -1",
          "SELECT * FROM t WHERE active = -1 AND deleted = 0 AND hits <> -1"},
      Row{"DELETE * FROM t WHERE id = 5", "DELETE FROM t WHERE id = 5"},
      Row{"DELETE t WHERE id=5", "DELETE FROM t WHERE id = 5"},
      Row{"DELETE t", "DELETE FROM t"},
      Row{"DELETE FROM [t]", "DELETE FROM t"},
      Row{"DELETE a, b FROM t WHERE x='it''s'", "DELETE FROM t WHERE x = 'it''s'"},
      Row{"DELETE a.* FROM a INNER JOIN b ON a.id=b.id WHERE b.x = 1",
          "DELETE FROM a WHERE rowid IN (SELECT a.rowid FROM a INNER JOIN b ON a.id = b.id WHERE "
          "b.x = 1)"},
      Row{"SELECT @@IDENTITY", "SELECT last_insert_rowid() AS Expr1000"},
      Row{"SELECT @@IDENTITY AS id", "SELECT last_insert_rowid() AS id"},
      Row{"SET NOCOUNT ON; INSERT INTO t (a,b) VALUES ('x', N'y'); SELECT SCOPE_IDENTITY() AS "
          "newid; SET NOCOUNT OFF",
          "INSERT INTO t (a, b) VALUES ('x', 'y'); SELECT last_insert_rowid() AS newid"},
      Row{"INSERT t (a) VALUES (1) SELECT @@IDENTITY AS n",
          "INSERT INTO t (a) VALUES (1); SELECT last_insert_rowid() AS n"},
      Row{"INSERT INTO t VALUES (1, 'a', Now())", "INSERT INTO t VALUES (1, 'a', vb_now())"},
      Row{"INSERT INTO t (a,b) SELECT a, b FROM u WHERE c IS NULL",
          "INSERT INTO t (a, b) SELECT a, b FROM u WHERE c IS NULL"},
      Row{"SELECT COUNT(*), MAX(id) FROM dbo.t WITH (NOLOCK) WHERE d >= DateAdd(\"d\", -7, Date())",
          "SELECT count(*) AS Expr1000, max(id) AS Expr1001 FROM t WHERE d >= vb_dateadd('d', -7, "
          "vb_date())"},
      Row{"SELECT DATEDIFF(day, d, GETDATE()) AS days, DATEDIFF('n', d, Now()), DATEPART(month, "
          "d), Year(d) FROM t",
          "SELECT vb_datediff('d', d, vb_now()) AS days, vb_datediff('n', d, vb_now()) AS "
          "Expr1001, vb_datepart('m', d) AS Expr1002, vb_year(d) AS Expr1003 FROM t"},
      Row{"SELECT a & ' ' & b AS n, a + ', ' + b, a + b, hits + 1 FROM t",
          "SELECT coalesce(a, '') || ' ' || coalesce(b, '') AS n, (a || ', ') || b AS Expr1001, "
          "q_add(a, b) AS Expr1002, q_add(hits, 1) AS Expr1003 FROM t"},
      Row{"SELECT LEFT(a, 3), RIGHT(a,2), MID(a, 2, 3), LEN(a), UCASE(a), LCASE(b), InStr(a, 'x'), "
          "InStr(2, a, 'x'), CHARINDEX('x', a) FROM t",
          "SELECT vb_left(a, 3) AS Expr1000, vb_right(a, 2) AS Expr1001, substr(a, 2, 3) AS "
          "Expr1002, length(a) AS Expr1003, vb_ucase(a) AS Expr1004, vb_lcase(b) AS Expr1005, "
          "vb_instr(1, a, 'x', 1) AS Expr1006, vb_instr(2, a, 'x', 1) AS Expr1007, vb_instr(1, a, "
          "'x', 1) AS Expr1008 FROM t"},
      Row{"SELECT IIf(a > 1, 'yes', 'no') AS x, Nz(b, 0), ISNULL(c, ''), ISNULL(c) FROM t",
          "SELECT iif(a > 1, 'yes', 'no') AS x, coalesce(b, 0) AS Expr1001, coalesce(c, '') AS "
          "Expr1002, (c IS NULL) AS Expr1003 FROM t"},
      Row{"SELECT CONVERT(varchar(10), d, 120), CAST(x AS int), CONVERT(datetime, '2024-01-02'), "
          "CAST(n AS decimal(10,2)) FROM t",
          "SELECT substr(q_styled(d, 120), 1, 10) AS Expr1000, CAST(x AS INTEGER) AS Expr1001, "
          "q_date('2024-01-02') AS Expr1002, round(CAST(n AS NUMERIC), 2) AS Expr1003 FROM t"},
      Row{"SELECT a.x, b.y FROM (a INNER JOIN b ON a.id = b.aid) LEFT JOIN c ON b.id=c.bid WHERE "
          "a.t LIKE '%x%' AND b.q LIKE '[a-c]%'",
          "SELECT a.x, b.y FROM (a INNER JOIN b ON a.id = b.aid) LEFT JOIN c ON b.id = c.bid WHERE "
          "a.t LIKE '%x%' AND b.q LIKE '[a-c]%'"},
      Row{"SELECT * FROM a, b AS bb, dbo.c cc WHERE a.id=bb.id",
          "SELECT * FROM a, b AS bb, c AS cc WHERE a.id = bb.id"},
      Row{"UPDATE t SET a = a + 1, b = 'x', c = NULL WHERE id = 3",
          "UPDATE t SET a = q_add(a, 1), b = 'x', c = NULL WHERE id = 3"},
      Row{"UPDATE a SET a.x = b.y FROM a INNER JOIN b ON a.id=b.id WHERE b.z > 0",
          "UPDATE a SET x = found.v0 FROM (SELECT a.rowid AS k, b.y AS v0 FROM a INNER JOIN b ON "
          "a.id = b.id WHERE b.z > 0) AS found WHERE a.rowid = found.k"},
      Row{"UPDATE a INNER JOIN b ON a.id=b.id SET a.x = b.y WHERE b.z > 0",
          "UPDATE a SET x = found.v0 FROM (SELECT a.rowid AS k, b.y AS v0 FROM a INNER JOIN b ON "
          "a.id = b.id WHERE b.z > 0) AS found WHERE a.rowid = found.k"},
      Row{"UPDATE x SET n = 1 FROM mytable x JOIN other o ON o.id = x.id",
          "UPDATE mytable SET n = found.v0 FROM (SELECT x.rowid AS k, 1 AS v0 FROM mytable AS x "
          "JOIN other AS o ON o.id = x.id) AS found WHERE mytable.rowid = found.k"},
      Row{"SELECT * INTO backup FROM t", "select into backup / SELECT * FROM t"},
      Row{"SELECT DISTINCTROW a FROM t", "SELECT a FROM t"},
      Row{"TRANSFORM SUM(a) SELECT b FROM t GROUP BY b PIVOT c",
          "refused: TRANSFORM is not supported."},
      Row{"CREATE TABLE t (id COUNTER PRIMARY KEY, name TEXT(50) NOT NULL, body MEMO, active "
          "YESNO, d DATETIME DEFAULT Now(), price CURRENCY DEFAULT 0, n LONG, b BYTE, pic "
          "OLEOBJECT, CONSTRAINT pk PRIMARY KEY (id))",
          "CREATE TABLE t (id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT(50) NOT NULL COLLATE "
          "NOCASE, body MEMO TEXT COLLATE NOCASE, active YESNO, d DATETIME DEFAULT "
          "(datetime('now', 'localtime')), price CURRENCY DEFAULT (0), n LONG, b BYTE, pic "
          "OLEOBJECT)"},
      Row{"CREATE TABLE [dbo].[t] ([id] [int] IDENTITY (1000, 1) NOT NULL, [name] [nvarchar] (50) "
          "COLLATE Latin1 NULL, [g] uniqueidentifier DEFAULT NEWID()) ON [PRIMARY]",
          "CREATE TABLE t (id INTEGER PRIMARY KEY AUTOINCREMENT, name NVARCHAR(50) COLLATE NOCASE, "
          "g UNIQUEIDENTIFIER TEXT DEFAULT (lower(hex(randomblob(4)) || '-' || hex(randomblob(2)) "
          "|| '-' || hex(randomblob(2)) || '-' || hex(randomblob(2)) || '-' || "
          "hex(randomblob(6)))) COLLATE NOCASE); INSERT INTO sqlite_sequence (name, seq) VALUES "
          "('t', 999)"},
      Row{"ALTER TABLE t ADD COLUMN x TEXT(20), y LONG",
          "ALTER TABLE t ADD COLUMN x TEXT(20) COLLATE NOCASE; ALTER TABLE t ADD COLUMN y LONG"},
      Row{"ALTER TABLE t ADD x varchar(20) NULL",
          "ALTER TABLE t ADD COLUMN x VARCHAR(20) COLLATE NOCASE"},
      Row{"ALTER TABLE t ALTER COLUMN x MEMO", "alter column t / x / x MEMO TEXT COLLATE NOCASE"},
      Row{"ALTER TABLE t DROP COLUMN x", "ALTER TABLE t DROP COLUMN x"},
      Row{"ALTER TABLE t ADD CONSTRAINT pk PRIMARY KEY (id)",
          "add constraint t /  / CONSTRAINT pk PRIMARY KEY (id)"},
      Row{"ALTER TABLE t DROP CONSTRAINT pk", "drop constraint t /  / pk"},
      Row{"CREATE UNIQUE INDEX i ON t (a, b DESC) WITH PRIMARY",
          "CREATE UNIQUE INDEX i ON t (a, b DESC)"},
      Row{"DROP INDEX i ON t", "DROP INDEX i"},
      Row{"DROP TABLE t", "DROP TABLE t"},
      Row{"SELECT TOP 5 * FROM t ORDER BY Rnd(-(1000*id)*Time())",
          "SELECT * FROM t ORDER BY q_rnd(-((1000 * id)) * vb_time()) LIMIT 5"},
      Row{"SELECT TOP 1 * FROM t ORDER BY NEWID()", "SELECT * FROM t ORDER BY q_newid() LIMIT 1"},
      Row{"SELECT TOP 2 a FROM t UNION ALL SELECT TOP 3 b FROM u ORDER BY a",
          "SELECT * FROM (SELECT a FROM t LIMIT 2) UNION ALL SELECT * FROM (SELECT b FROM u LIMIT "
          "3) ORDER BY a"},
      Row{"SELECT * FROM t WHERE id IN (SELECT TOP 3 id FROM u ORDER BY x) AND NOT EXISTS (SELECT "
          "* FROM v WHERE v.id=t.id)",
          "SELECT * FROM t WHERE id IN (SELECT id FROM u ORDER BY x LIMIT 3) AND NOT EXISTS "
          "(SELECT * FROM v WHERE v.id = t.id)"},
      Row{"SELECT * FROM t WHERE d BETWEEN #2024-01-01# AND #12/31/2024#",
          "SELECT * FROM t WHERE d BETWEEN '2024-01-01' AND '2024-12-31'"},
      Row{"SELECT CASE WHEN a=1 THEN 'x' ELSE 'y' END AS z, ROW_NUMBER() OVER (ORDER BY id DESC) "
          "AS rn FROM t",
          "SELECT CASE WHEN a = 1 THEN 'x' ELSE 'y' END AS z, row_number() OVER (ORDER BY id DESC) "
          "AS rn FROM t"},
      Row{"SELECT a FROM t WHERE b = \"text\" AND c = @name AND d = @name",
          "SELECT a FROM t WHERE b = 'text' AND c = ?1 AND d = ?1"},
      Row{"{call myproc(1)}", "refused: Could not find stored procedure 'myproc'."},
      Row{"EXEC sp_help 'x'", "refused: Could not find stored procedure 'sp_help'."},
      Row{"SELECT (a + b * c) & d, 5 / 2, 5 \\ 2, 7 MOD 3, -a, 2^3 FROM t",
          "SELECT coalesce((q_add(a, b * c)), '') || coalesce(d, '') AS Expr1000, 5 * 1.0 / 2 AS "
          "Expr1001, q_whole(5, 2) AS Expr1002, 7 % 3 AS Expr1003, -(a) AS Expr1004, power(2, 3) "
          "AS Expr1005 FROM t"},
      Row{"SELECT * FROM t LIMIT 5, 10", "SELECT * FROM t LIMIT 5, 10"},
      Row{"SELECT * FROM t ORDER BY a OFFSET 10 ROWS FETCH NEXT 5 ROWS ONLY",
          "SELECT * FROM t ORDER BY a LIMIT 5 OFFSET 10"},
      Row{"SELECT SUM(price*qty) total FROM t GROUP BY cat HAVING SUM(price) > 10",
          "SELECT sum(price * qty) AS total FROM t GROUP BY cat HAVING sum(price) > 10"},
      Row{"WITH x AS (SELECT 1 AS a) SELECT * FROM x", "WITH x AS (SELECT 1 AS a) SELECT * FROM x"},
      Row{"SELECT x.a FROM (SELECT TOP 3 a FROM t ORDER BY a) AS x",
          "SELECT x.a FROM (SELECT a FROM t ORDER BY a LIMIT 3) AS x"},
      Row{"SELECT * FROM", "refused: Syntax error: incomplete query clause."},
      Row{"SELECT 1; DROP TABLE x -- c", "SELECT 1 AS Expr1000; DROP TABLE x"},
      Row{"DELETE FROM t WHERE id IN (1,2,3)", "DELETE FROM t WHERE id IN (1, 2, 3)"},
      Row{"select count(*) as c from t where Format(d, 'yyyy-mm') = '2024-01'",
          "SELECT count(*) AS c FROM t WHERE q_format(d, 'yyyy-mm') = '2024-01'"},
      Row{"select t.* from t where t.x is not null or not (t.y = 2)",
          "SELECT t.* FROM t WHERE t.x IS NOT NULL OR NOT (t.y = 2)"},
      Row{"TRUNCATE TABLE t", "DELETE FROM t"},
  };
  for (const Row& row : rows) EXPECT_EQ(translated(row.written), row.meant) << row.written;
}

/// news(id, title, body, added, shown) and other(id, word).
class News final : public SqlSchema {
 public:
  bool hasTable(std::string_view table) const override {
    return equalsNoCase(table, "news") || equalsNoCase(table, "other");
  }
  std::vector<std::string> columnsOf(std::string_view table) const override {
    if (equalsNoCase(table, "news")) return {"id", "title", "body", "added", "shown"};
    return equalsNoCase(table, "other") ? std::vector<std::string>{"id", "word"}
                                        : std::vector<std::string>{};
  }
  bool hasColumn(std::string_view table, std::string_view column) const override {
    for (const std::string& name : columnsOf(table)) {
      if (equalsNoCase(name, column)) return true;
    }
    return false;
  }
  ColumnKind kindOf(std::string_view table, std::string_view column) const override {
    if (!hasColumn(table, column)) return ColumnKind::Unknown;
    if (equalsNoCase(column, "id")) return ColumnKind::Number;
    if (equalsNoCase(column, "added")) return ColumnKind::Date;
    return equalsNoCase(column, "shown") ? ColumnKind::Boolean : ColumnKind::Text;
  }
  bool heedsCase(std::string_view, std::string_view column) const override {
    return equalsNoCase(column, "word");
  }
};

TEST(Translator, KnowsWhatColumnsHold) {
  const News schema;
  const SqlOptions options{.schema = &schema};
  const Row rows[] = {
      {"SELECT id FROM news WHERE shown = True", "SELECT id FROM news WHERE shown <> 0"},
      {"SELECT id FROM news WHERE shown = 1", "SELECT id FROM news WHERE shown <> 0"},
      {"SELECT id FROM news WHERE shown <> -1", "SELECT id FROM news WHERE shown = 0"},
      {"SELECT id FROM news WHERE False = shown", "SELECT id FROM news WHERE shown = 0"},
      {"SELECT id FROM news WHERE shown = ?",
       "SELECT id FROM news WHERE (shown <> 0) = q_truth(?1)"},
      {"SELECT id FROM news WHERE added >= '1/31/2024'",
       "SELECT id FROM news WHERE added >= '2024-01-31'"},
      {"SELECT id FROM news n WHERE n.added = ?",
       "SELECT id FROM news AS n WHERE n.added = q_date(?1)"},
      {"SELECT id FROM news WHERE added BETWEEN '20240101' AND '2024-02-01 8:00'",
       "SELECT id FROM news WHERE added BETWEEN '2024-01-01' AND '2024-02-01 08:00:00'"},
      {"SELECT id FROM news WHERE added > Now() - 7",
       "SELECT id FROM news WHERE added > q_subtract(vb_now(), 7)"},
      {"SELECT id + 1, title + body FROM news",
       "SELECT id + 1 AS Expr1000, title || body AS Expr1001 FROM news"},
      {"SELECT word FROM other WHERE word = 'x' ORDER BY word DESC",
       "SELECT word FROM other WHERE word COLLATE NOCASE = 'x' ORDER BY word COLLATE NOCASE DESC"},
      {"INSERT INTO news (title, added, shown) VALUES ('a', '1/2/2024', True)",
       "INSERT INTO news (title, added, shown) VALUES ('a', '2024-01-02', -1)"},
      {"INSERT INTO news VALUES (1, 'a', 'b', ?, False)",
       "INSERT INTO news VALUES (1, 'a', 'b', q_date(?1), 0)"},
      {"UPDATE news SET added = '2/1/2024 1:05 PM' WHERE id = 1",
       "UPDATE news SET added = '2024-02-01 13:05:00' WHERE id = 1"},
      {"SELECT \"title\", \"none\" FROM news", "SELECT title, 'none' AS Expr1001 FROM news"},
      {"SELECT a = title, id = 1 FROM news", "SELECT title AS a, id = 1 AS Expr1001 FROM news"},
      {"EXEC news", "SELECT * FROM news"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(translated(row.written, options), row.meant) << row.written;
  }
}

TEST(Translator, AddsTheKeysOfRows) {
  const SqlOptions options{.rowKeys = true};
  EXPECT_EQ(translated("SELECT * FROM t WHERE id = 1", options),
            "SELECT *, t.rowid AS \"row key\" FROM t WHERE id = 1");
  EXPECT_EQ(translated("SELECT a.x FROM t a LEFT JOIN u ON a.id = u.id", options),
            "SELECT a.x, a.rowid AS \"row key\", u.rowid AS \"row key\" FROM t AS a LEFT JOIN u ON "
            "a.id = u.id");
  for (const char* text :
       {"SELECT DISTINCT a FROM t", "SELECT count(*) AS n FROM t", "SELECT a FROM t GROUP BY a",
        "SELECT a FROM t UNION SELECT b FROM u", "SELECT 1 AS n"}) {
    EXPECT_EQ(translated(text, options), text);
  }
}

TEST(Translator, NumbersParameters) {
  const Translation result = translateSql("SELECT @a, ?, @A, ?");
  EXPECT_EQ(result.parameters, (std::vector<std::string>{"@a", "?", "?"}));
}

TEST(Translator, RefusesWhatIsNoStatement) {
  for (const char* text :
       {"", "   ", "hello", "SELECT", "SELECT * FROM t WHERE", "SELECT (1", "SELECT 'a' 'b' FROM",
        "INSERT INTO t (a VALUES (1)", "UPDATE t", "DELETE", "CREATE TABLE t", "CREATE PROCEDURE p",
        "ATTACH DATABASE 'x' AS y", "PRAGMA user_version", "VACUUM", "DECLARE @a int",
        "SELECT a FROM t FOR XML AUTO", "SELECT * FROM t WHERE a = ANY (SELECT b FROM u)"}) {
    EXPECT_TRUE(translateSql(text).refused()) << text;
  }
  EXPECT_EQ(translateSql("SELECT 1; DELETE FROM t", {.oneStatement = true}).refusal,
            "Characters found after end of SQL statement.");
  EXPECT_TRUE(translateSql(std::string(100'000, '(')).refused());
  EXPECT_TRUE(translateSql("SELECT " + std::string(100'000, '-') + "1").statements.empty());
  std::string nots = "SELECT ";
  for (int i = 0; i < 1000; ++i) nots += "NOT ";
  EXPECT_TRUE(translateSql(nots + "1").refused());
}

TEST(StoredDate, ReadsTheSpellingsOfSql) {
  const Row rows[] = {
      {"1/31/2024", "2024-01-31"},
      {"31/1/2024", "2024-01-31"},
      {"1/2/24", "2024-01-02"},
      {"2024-1-2", "2024-01-02"},
      {"2024/01/02 3:04", "2024-01-02 03:04:00"},
      {"2024-01-02T03:04:05.123Z", "2024-01-02 03:04:05"},
      {"20240102", "2024-01-02"},
      {"20240102 10:00:00 PM", "2024-01-02 22:00:00"},
      {"12:30 AM", "1899-12-30 00:30:00"},
      {"January 5, 2024", "2024-01-05"},
      {"5 Feb 2024", "2024-02-05"},
      {"2024-01-02 00:00:00", "2024-01-02"},
  };
  for (const Row& row : rows) EXPECT_EQ(storedDate(row.written).value_or("none"), row.meant);
  for (const char* text : {"", "hello", "2024", "2024-13-01", "2/30/2024", "1/2", "10:61", "25:00",
                           "1.5", "12 13 14 15 16", "2024-01-02 x", "99999999999999"}) {
    EXPECT_FALSE(storedDate(text)) << text;
  }
}

TEST(StoredDate, KeepsMomentsOfScripts) {
  EXPECT_EQ(storedDate(45322.5).value_or(""), "2024-01-31 12:00:00");
  EXPECT_EQ(storedDate(45322.0).value_or(""), "2024-01-31");
  EXPECT_EQ(storedDate(0.25).value_or(""), "1899-12-30 06:00:00");
  EXPECT_EQ(dateOfStored("2024-01-31 12:00:00").value_or(0), 45322.5);
  EXPECT_EQ(dateOfStored("2024-01-31").value_or(0), 45322.0);
  EXPECT_FALSE(dateOfStored("1/31/2024"));
  EXPECT_FALSE(storedDate(1e9));
}

}  // namespace

}  // namespace quorvane::ado
