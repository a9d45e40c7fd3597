#include "components/ado/connection_text.h"

#include <gtest/gtest.h>

namespace quorvane::ado {

namespace {

TEST(ConnectionText, IsTakenApart) {
  const ConnectionParts parts(
      " Provider = Some.Thing ; Data Source=\"C:\\a;b.mdb\";User Id=admin;Password='it''s';"
      "Driver={A {B}} (*.mdb)};Empty=;;Alone;Data source=last.mdb");
  EXPECT_EQ(parts.find("provider"), "Some.Thing");
  EXPECT_EQ(parts.find("data source"), "last.mdb");
  EXPECT_EQ(parts.find("password"), "it's");
  EXPECT_EQ(parts.find("driver"), "A {B} (*.mdb)");
  EXPECT_EQ(parts.find("empty"), "");
  EXPECT_FALSE(parts.find("alone"));
  EXPECT_EQ(ConnectionParts("a=1;Pwd=x;Jet OLEDB:Database Password=y;b=2").withoutPassword(),
            "a=1;b=2;");
}

struct Row {
  const char* text;
  Engine engine;
  const char* file;
  bool odbcForm = false;
};

TEST(ConnectionText, NamesAnEngineAndAFile) {
  const Row rows[] = {
      {"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\db\\a.mdb", Engine::Jet, "C:\\db\\a.mdb"},
      {"PROVIDER=MICROSOFT.JET.OLEDB.4.0; DATA SOURCE=a.mdb; Jet OLEDB:Database Password=x",
       Engine::Jet, "a.mdb"},
      {"Provider=Microsoft.ACE.OLEDB.12.0;Data Source='a.accdb';Persist Security Info=False",
       Engine::Ace, "a.accdb"},
      {"DRIVER={Microsoft Access Driver (*.mdb)};DBQ=db/a.mdb;", Engine::Jet, "db/a.mdb", true},
      {"driver={Microsoft Access Driver (*.mdb, *.accdb)};dbq=a.accdb", Engine::Jet, "a.accdb",
       true},
      {"Driver={SQLite3 ODBC Driver};Database=a.db", Engine::Sqlite, "a.db", true},
      {"Data Source=a.mdb", Engine::Jet, "a.mdb"},
      {"Data Source=a.sqlite", Engine::Sqlite, "a.sqlite"},
      {"a.mdb", Engine::Jet, "a.mdb"},
      {"Provider=SQLOLEDB;Data Source=server;Initial Catalog=db", Engine::Odbc, ""},
      {"Provider=MSDASQL;DSN=x", Engine::Odbc, "", true},
      {"DSN=x;UID=a;PWD=b", Engine::Odbc, "", true},
      {"Driver={SQL Server};Server=x;Database=y", Engine::Odbc, "", true},
      {"Driver={MySQL ODBC 3.51 Driver};Server=x;Database=y.db", Engine::Odbc, "", true},
      {"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=a.xls;Extended Properties=\"Excel 8.0\"",
       Engine::Unknown, ""},
      {"Provider=ADsDSOObject", Engine::Unknown, ""},
      {"", Engine::Odbc, "", true},
  };
  for (const Row& row : rows) {
    const ConnectionTarget target = connectionTarget(row.text, "");
    EXPECT_EQ(target.engine, row.engine) << row.text;
    EXPECT_EQ(target.file, row.file) << row.text;
    EXPECT_EQ(target.odbcForm, row.odbcForm) << row.text;
  }
  const ConnectionTarget target = connectionTarget("data/a.bin", "Microsoft.Jet.OLEDB.4.0");
  EXPECT_EQ(target.engine, Engine::Jet);
  EXPECT_EQ(target.file, "data/a.bin");
}

}  // namespace

}  // namespace quorvane::ado
