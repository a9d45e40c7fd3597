#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ado/fake_odbc.h"
#include "components/ado/error_numbers.h"
#include "components/ado/odbc/database.h"
#include "components/ado/odbc/statements.h"
#include "components/ado/odbc/target.h"
#include "components/ado/odbc/values.h"
#include "platform/odbc_headers.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/error.h"

namespace quorvane::ado {

namespace {

using testing::ElementsAre;
using vbs::Value;

const std::vector<std::string> kInstalled = {"PostgreSQL Unicode", "MariaDB Unicode", "FreeTDS"};

struct TextRow {
  const char* given;
  const char* expected;
};

TEST(OdbcText, IsTheDriverManagersForm) {
  const TextRow rows[] = {
      {"DSN=shop;UID=a;PWD=b", "DSN=shop;UID=a;PWD=b;"},
      {"shop", "DSN=shop;"},
      {"Provider=MSDASQL;Data Source=shop;User ID=a;Password=b;c", "DSN=shop;UID=a;PWD=b;"},
      {"Driver={SQL Server};Server=db1,1444;Database=x;UID=a;PWD=b",
       "Driver=FreeTDS;Server=db1;Database=x;UID=a;PWD=b;Port=1444;"},
      {"Provider=SQLOLEDB.1;Persist Security Info=False;Data Source=tcp:db1;Initial Catalog=x;"
       "User ID=a;Password={p;q}",
       "Driver=FreeTDS;Server=db1;Database=x;UID=a;PWD={p;q};"},
      {"Provider=SQLNCLI11;Server=.;Database=x;Integrated Security=SSPI",
       "Driver=FreeTDS;Server=127.0.0.1;Database=x;Trusted_Connection=yes;"},
      {"DRIVER={MySQL ODBC 3.51 Driver}; SERVER=h; DATABASE=d; USER=u; PASSWORD=p; OPTION=3;",
       "Driver={MariaDB Unicode};Server=h;Database=d;UID=u;PWD=p;option=3;"},
      {"Driver={PostgreSQL ODBC Driver(UNICODE)};Server=h;Port=5433;Uid=u;Pwd=p",
       "Driver={PostgreSQL Unicode};Server=h;port=5433;UID=u;PWD=p;Protocol=7.4-2;CommLog=0;"},
      {"Provider=MSDASQL;Extended Properties=\"Driver={MySQL};Server=h\"",
       "Driver={MariaDB Unicode};Server=h;"},
      {"Driver=FreeTDS;Server=h;PWD={a}}b};TraceFile=/tmp/x;Plugin_Dir=/tmp",
       "Driver=FreeTDS;Server=h;PWD={a}}b};"},
  };
  for (const TextRow& row : rows) {
    EXPECT_EQ(odbcText(row.given, "", {}, kInstalled), row.expected) << row.given;
  }
  EXPECT_EQ(odbcText("DSN=x;UID=a;PWD=b", "", {"c", "d"}, kInstalled), "DSN=x;UID=c;PWD=d;");
  EXPECT_EQ(odbcText("Data Source=h", "SQLOLEDB", {}, kInstalled), "Driver=FreeTDS;Server=h;");
}

TEST(OdbcText, LoadsNoCodeThatAPageNames) {
  for (const char* text : {"Driver=/tmp/evil.so", "Driver={No such};Server=x", "FileDSN=/tmp/x.dsn",
                           "Provider=SQLOLEDB;Driver=/tmp/evil.so;Data Source=x", "Server=x"}) {
    try {
      EXPECT_EQ(odbcText(text, "", {}, {"MariaDB Unicode"}), "nothing") << text;
    } catch (const OdbcFailure& failure) {
      EXPECT_EQ(failure.records[0].state, u"IM002") << text;
    }
  }
}

OdbcDialect dialect(std::u16string system, std::u16string quote = u"\"") {
  OdbcNature nature;
  nature.system = std::move(system);
  nature.quote = std::move(quote);
  return OdbcDialect(nature);
}

TEST(OdbcDialect, SpellsWhatTheDriverSends) {
  const OdbcDialect my = dialect(u"MySQL", u"`");
  EXPECT_EQ(my.insertion("t", {"a", "b`c"}), "INSERT INTO t (`a`, `b``c`) VALUES (?, ?)");
  EXPECT_EQ(my.insertion("t", {}), "INSERT INTO t () VALUES ()");
  EXPECT_EQ(my.update("t", {"a"}, {"k", "l"}), "UPDATE t SET `a` = ? WHERE `k` = ? AND `l` = ?");
  const OdbcDialect pg = dialect(u"PostgreSQL");
  EXPECT_EQ(pg.insertion("t", {}) + pg.returning({"id"}),
            "INSERT INTO t DEFAULT VALUES RETURNING \"id\"");
  EXPECT_EQ(pg.deletion("t", {"k"}), "DELETE FROM t WHERE \"k\" = ?");
  EXPECT_EQ(dialect(u"X", u"").selection("t", {"a b"}, {"k"}), "SELECT a b FROM t WHERE k = ?");
}

TEST(OdbcDialect, KnowsTheNewestNumber) {
  const std::string text = "SELECT '@@identity', @@IDENTITY AS id, scope_identity ( )";
  EXPECT_EQ(dialect(u"PostgreSQL").spelled(text),
            "SELECT '@@identity', lastval() AS id, lastval()");
  EXPECT_EQ(dialect(u"MariaDB").spelled("SELECT SCOPE_IDENTITY()"), "SELECT LAST_INSERT_ID()");
  EXPECT_EQ(dialect(u"Microsoft SQL Server").spelled(text), text);
}

TEST(OdbcDialect, KnowsWhatLeavesTraces) {
  const OdbcDialect my = dialect(u"MariaDB");
  for (const char* text : {"SELECT 1", "insert into t values (1); SELECT @@IDENTITY",
                           "DELETE FROM t WHERE a = ?", "UPDATE t SET a = 'SET'"}) {
    EXPECT_TRUE(my.leavesNoTraces(text)) << text;
  }
  for (const char* text :
       {"SET NAMES latin1", "USE other", "CREATE TEMPORARY TABLE x (a int)", "SELECT @x := 1",
        "SELECT 1; SET @a = 1", "SELECT GET_LOCK('a', 1)", "CALL p()", "LOCK TABLES t READ",
        "SELECT 1 /*! ; SET @a = 1 */", "{call p}"}) {
    EXPECT_FALSE(my.leavesNoTraces(text)) << text;
  }
  EXPECT_TRUE(dialect(u"PostgreSQL").leavesNoTraces("SET x = 1"));  // all is discarded there
  EXPECT_FALSE(dialect(u"Microsoft SQL Server").leavesNoTraces("SELECT 1"));
}

TEST(OdbcErrors, HaveTheCustomaryNumbers) {
  const std::pair<const char16_t*, std::int32_t> rows[] = {
      {u"42S02", -2147217865}, {u"42P01", -2147217865}, {u"42000", -2147217900},
      {u"42601", -2147217900}, {u"37000", -2147217900}, {u"23000", -2147217873},
      {u"23505", -2147217873}, {u"22001", -2147217833}, {u"22018", -2147217913},
      {u"22012", -2147217900}, {u"28000", -2147217843}, {u"HYT00", -2147217871},
      {u"57014", -2147217871}, {u"07002", -2147217904}, {u"42501", -2147217911},
      {u"08S01", -2147467259}, {u"HY000", -2147467259}, {u"IM002", -2147467259},
  };
  for (const auto& [state, number] : rows) {
    EXPECT_EQ(errorOf({{{state, 7, u"text\n"}}}).number, number) << utf8Of(state);
  }
  const DatabaseError error = errorOf({{{u"23000", 7, u"caf\u00e9\n"}, {u"01000", 8, u"more"}}});
  EXPECT_EQ(error.description, "caf\u00e9");
  EXPECT_EQ(error.native, 7);
  EXPECT_EQ(error.sqlState, "23000");
  ASSERT_EQ(error.further.size(), 1U);
  EXPECT_EQ(error.further[0].native, 8);
}

Column described(std::int32_t type, std::uint64_t size = 10, std::int32_t digits = 0) {
  OdbcColumn column;
  column.type = type;
  column.size = size;
  column.digits = digits;
  return columnOf(column);
}

TEST(OdbcValues, TypesOfColumns) {
  EXPECT_EQ(described(SQL_INTEGER).type, DataType::Integer);
  EXPECT_EQ(described(SQL_WVARCHAR, 50).type, DataType::VarWChar);
  EXPECT_EQ(described(SQL_WVARCHAR, 50).size, 50);
  EXPECT_EQ(described(SQL_WLONGVARCHAR, 0).size, INT32_MAX);
  EXPECT_EQ(described(SQL_DECIMAL, 12, 3).precision, 12);
  EXPECT_EQ(described(SQL_DECIMAL, 12, 3).scale, 3);
  EXPECT_EQ(described(SQL_TYPE_TIMESTAMP).type, DataType::DbTimeStamp);
  EXPECT_EQ(described(SQL_LONGVARBINARY).type, DataType::LongVarBinary);
  OdbcColumn money;
  money.type = SQL_DECIMAL;
  money.isMoney = true;
  EXPECT_EQ(columnOf(money).type, DataType::Currency);
}

std::string shown(const OdbcCell& cell, DataType type) {
  Column column;
  column.type = type;
  const Value value = valueOf(cell, column);
  return std::string(vbs::typeName(value)) + " " +
         (value.isNull() || value.isArray() ? "" : vbs::toString(value).narrow());
}

TEST(OdbcValues, CellsBecomeValues) {
  EXPECT_EQ(shown({}, DataType::Integer), "Null ");
  EXPECT_EQ(shown(std::int64_t{5}, DataType::Integer), "Long 5");
  EXPECT_EQ(shown(std::int64_t{5}, DataType::SmallInt), "Integer 5");
  EXPECT_EQ(shown(std::int64_t{1}, DataType::Boolean), "Boolean True");
  EXPECT_EQ(shown(std::int64_t{5000000000}, DataType::BigInt), "Double 5000000000");
  EXPECT_EQ(shown(std::u16string(u"f"), DataType::Boolean), "Boolean False");
  EXPECT_EQ(shown(std::u16string(u"12.50"), DataType::Numeric), "Double 12.5");
  EXPECT_EQ(shown(std::u16string(u"$922,337,203,685,477.5807"), DataType::Currency),
            "Currency 922337203685477.5807");
  EXPECT_EQ(shown(std::u16string(u"-$0.05"), DataType::Currency), "Currency -0.05");
  EXPECT_EQ(shown(OdbcMoment{2024, 1, 31, 10, 20, 30, 0, false}, DataType::DbTimeStamp),
            "Date 1/31/2024 10:20:30 AM");
  EXPECT_EQ(shown(OdbcMoment{0, 0, 0, 0, 0, 0, 0, false}, DataType::DbTimeStamp), "Null ");
  EXPECT_EQ(shown(OdbcMoment{0, 0, 0, 12, 0, 0, 0, true}, DataType::DbTime), "Date 12:00:00 PM");
  EXPECT_EQ(shown(std::string("ab"), DataType::VarBinary), "Byte() ");
}

TEST(OdbcValues, ValuesBecomeCells) {
  EXPECT_EQ(cellOf(Value()), OdbcCell());
  EXPECT_EQ(cellOf(Value::boolean(true)), OdbcCell(true));
  EXPECT_EQ(cellOf(Value::longInt(-7)), OdbcCell(std::int64_t{-7}));
  EXPECT_EQ(cellOf(Value::currency(-500)), OdbcCell(OdbcDecimal{"-0.0500", 19, 4}));
  EXPECT_EQ(cellOf(Value::currency(123456)), OdbcCell(OdbcDecimal{"12.3456", 19, 4}));
  EXPECT_EQ(cellOf(Value(vbs::String::fromWide(u"\u0416"))), OdbcCell(std::u16string(u"\u0416")));
  EXPECT_EQ(cellOf(Value::array(vbs::ArrayRep::fromBytes("a\0b"))), OdbcCell(std::string("a")));
  EXPECT_EQ(cellOf(Value::date(vbs::toDate(Value("1/31/2024 10:20:30")))),
            OdbcCell(OdbcMoment{2024, 1, 31, 10, 20, 30, 0, false}));
}

OdbcColumn column(std::u16string name, std::int32_t type) {
  OdbcColumn column;
  column.name = column.column = std::move(name);
  column.table = u"News";
  column.schema = u"dbo";
  column.type = type;
  return column;
}

struct OdbcAtFake : testing::Test {
  FakeDriver driver;

  /// Whoever was asked to cancel may hold the session for a moment longer.
  ~OdbcAtFake() override {
    while (!driver.gone) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }

  std::unique_ptr<Database> open(std::u16string system) {
    driver.nature.system = std::move(system);
    driver.nature.quote = u"\"";
    auto database = openOdbc(std::make_shared<FakeSession>(driver), "DSN=x;", 1);
    driver.sent.clear();
    return database;
  }
  std::vector<std::string> sent() const {
    std::vector<std::string> texts;
    for (const auto& text : driver.sent) texts.push_back(utf8Of(text));
    return texts;
  }
};

TEST_F(OdbcAtFake, RowsKnowTheirKeys) {
  const auto database = open(u"Microsoft SQL Server");
  driver.keys = {u"ID"};
  FakeAnswer rows;
  rows.columns = {column(u"id", SQL_INTEGER), column(u"title", SQL_WVARCHAR)};
  rows.rows = {{std::int64_t{4}, std::u16string(u"x")}};
  driver.answers = {rows};
  Command command;
  command.text = "SELECT id, title FROM news";
  command.updatable = true;
  const auto results = database->execute(command);
  ASSERT_EQ(results->keys().size(), 1U);
  EXPECT_EQ(results->keys()[0].table, "News");
  Row row;
  ASSERT_TRUE(results->next(row));
  ASSERT_EQ(row.size(), 3U);
  EXPECT_FALSE(results->next(row));
  EXPECT_TRUE(results->finished());

  FakeAnswer one;
  one.affected = 1;
  driver.answers = {one, one};
  EXPECT_EQ(database->updateRow("News", Value::number(4), {{"title", Value("y")}}), 1);
  EXPECT_EQ(driver.given.back()[1], OdbcCell(std::int64_t{4}));
  FakeAnswer number;
  number.columns = {column(u"", SQL_DECIMAL)};
  number.rows = {{std::u16string(u"5")}};
  driver.answers = {one, number};
  EXPECT_EQ(vbs::toLong(database->insertRow("News", {{"title", Value("z")}})), 5);
  EXPECT_THAT(sent(), ElementsAre("SELECT id, title FROM news",
                                  "UPDATE \"dbo\".\"News\" SET \"title\" = ? WHERE \"ID\" = ?",
                                  "INSERT INTO \"dbo\".\"News\" (\"title\") VALUES (?)",
                                  "SELECT @@IDENTITY"));
}

TEST_F(OdbcAtFake, AServerOfOneStatementIsReadToItsEnd) {
  driver.nature.oneStatement = true;
  const auto database = open(u"Microsoft SQL Server");
  FakeAnswer many;
  many.columns = {column(u"id", SQL_INTEGER)};
  many.rows.assign(3000, {std::int64_t{1}});
  driver.answers = {many};
  Command command;
  command.text = "SELECT id FROM news";
  const auto results = database->execute(command);
  EXPECT_EQ(driver.fetched, 3000U);
}

TEST_F(OdbcAtFake, FailuresCarryAllRecords) {
  const auto database = open(u"X");
  FakeAnswer bad;
  bad.failure = {{u"42000", 1, u"one"}, {u"01000", 2, u"two"}};
  driver.answers = {bad};
  Command command;
  command.text = "x";
  try {
    database->execute(command);
    ADD_FAILURE() << "nothing thrown";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.number, kSyntax);
    EXPECT_EQ(error.further.size(), 1U);
  }
}

TEST_F(OdbcAtFake, ATransactionEndsWithItsConnection) {
  auto database = open(u"X");
  database->begin();
  database.reset();
  EXPECT_THAT(driver.ended, ElementsAre(false));
  EXPECT_TRUE(driver.gone);
}

TEST_F(OdbcAtFake, ACommandIsCancelledAtItsTime) {
  const auto database = open(u"X");
  driver.takes = std::chrono::seconds(20);
  Command command;
  command.text = "x";
  command.timeout = 1;
  const auto begin = std::chrono::steady_clock::now();
  try {
    database->execute(command);
    ADD_FAILURE() << "nothing thrown";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.number, kTimedOut);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3));
  EXPECT_TRUE(driver.cancelled);
  driver.takes = {};
  driver.answers = {FakeAnswer{{}, {}, 3, {}}};
  EXPECT_EQ(database->execute(command)->affected(), 3);
}

TEST_F(OdbcAtFake, AConnectionThatCannotBeCancelledIsLost) {
  auto database = open(u"X");
  driver.takes = std::chrono::seconds(4);
  driver.heedsCancel = false;
  Command command;
  command.text = "x";
  command.timeout = 1;
  EXPECT_THROW(database->execute(command), DatabaseError);
  try {
    database->execute(command);
    ADD_FAILURE() << "nothing thrown";
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.sqlState, "08S01");
  }
  const auto begin = std::chrono::steady_clock::now();
  database.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
}

}  // namespace

}  // namespace quorvane::ado
