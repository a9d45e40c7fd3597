#include "components/ado/database_pool.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "ado/fake_odbc.h"
#include "components/ado/database_file.h"
#include "components/ado/odbc/database.h"
#include "components/ado/sqlite/core.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_process.h"
#include "platform/fake/fake_random.h"
#include "platform/fake/memory_files.h"
#include "platform/services.h"
#include "platform/system.h"
#include "platform/text_settings.h"
#include "support/server_state.h"
#include "testing/recorded_lines.h"
#include "testing/spelling.h"
#include "testing/temporary_folder.h"
#include "vbscript/values/convert.h"

namespace quorvane::ado {

namespace {

namespace fs = std::filesystem;

struct PoolOfFiles : testing::Test {
  PoolOfFiles() {
    state.ScriptFolders = "*";
    process.current = folder.path();
  }

  OpenDatabase open(const std::string& file = "a.db") {
    return openDatabase(services, {"Driver=SQLite3;Database=" + (folder / file), "", {}});
  }
  void close(OpenDatabase open) { closeDatabase(services, std::move(open)); }

  static void run(const OpenDatabase& open, const std::string& text) {
    Command command;
    command.text = text;
    const auto results = open.database->execute(command);
    while (results->nextResult()) {
    }
  }
  static std::string first(const OpenDatabase& open, const std::string& text) {
    Command command;
    command.text = text;
    const auto results = open.database->execute(command);
    Row row;
    return results->next(row) ? vbs::toString(row[0]).narrow() : "none";
  }

  static bool isDate(const OpenDatabase& open, const std::string& text) {
    Command command;
    command.text = text;
    const auto results = open.database->execute(command);
    return results->columns().at(0).type == DataType::DbTimeStamp;
  }
  static std::string head(const fs::path& file, std::size_t count) {
    std::string bytes(count, '?');
    std::ifstream(file, std::ios::binary).read(bytes.data(), static_cast<std::streamsize>(count));
    return bytes;
  }
  /// By a program of its own: a file that this one opens and closes is free of its locks.
  static bool isLockedForOthers(const std::string& file) {
    const std::string program =
        "import sqlite3; sqlite3.connect('" + file + "', timeout=0).execute('BEGIN IMMEDIATE')";
    return std::system(("python3 -c \"" + program + "\" 2>/dev/null").c_str()) != 0;
  }

  TemporaryFolder folder;
  ServerState state;
  RecordedLines log;
  FakeClock clock;
  std::unique_ptr<Files> files = makeFiles();
  CountingRandom random;
  FakeProcess process;
  DatabasePool pool{clock, nullptr};
  Services services{state, log, clock, *files, random, process, nullptr, nullptr, nullptr, &pool};
};

TEST_F(PoolOfFiles, AConnectionIsUsedAgain) {
  OpenDatabase one = open();
  run(one, "CREATE TABLE t (id INTEGER PRIMARY KEY, v TEXT)");
  const Database* const same = one.database.get();
  close(std::move(one));
  EXPECT_EQ(pool.size(), 1U);
  const OpenDatabase again = open();
  EXPECT_EQ(again.database.get(), same);
  EXPECT_EQ(pool.size(), 0U);
  EXPECT_NE(open().database.get(), same);
}

TEST_F(PoolOfFiles, ItIsAsANewOne) {
  OpenDatabase one = open();
  run(one, "CREATE TABLE t (id INTEGER PRIMARY KEY, v TEXT)");
  one.database->begin();
  run(one, "INSERT INTO t (v) VALUES ('x')");
  close(std::move(one));
  EXPECT_EQ(pool.size(), 1U);
  OpenDatabase again = open();
  EXPECT_EQ(first(again, "SELECT count(*) FROM t"), "0");
  EXPECT_EQ(first(again, "SELECT @@IDENTITY"), "0");
  EXPECT_THROW(run(again, "CREATE TEMP TABLE mine (a INTEGER)"), DatabaseError)
      << "the next one would have it";
}

TEST_F(PoolOfFiles, WhatIsStillReadIsNotKept) {
  OpenDatabase one = open();
  run(one, "CREATE TABLE t (v TEXT)");
  run(one, "INSERT INTO t VALUES ('x'), ('y')");
  Command command;
  command.text = "SELECT v FROM t";
  const auto results = one.database->execute(command);
  close(std::move(one));
  EXPECT_EQ(pool.size(), 0U);
  Row row;
  EXPECT_TRUE(results->next(row));
}

TEST_F(PoolOfFiles, AFileThatIsGoneOrAnotherIsNotServed) {
  OpenDatabase one = open();
  run(one, "CREATE TABLE t (v TEXT)");
  const Database* const same = one.database.get();
  close(std::move(one));
  OpenDatabase other = open("b.db");
  run(other, "CREATE TABLE u (v TEXT)");
  close(std::move(other));
  fs::rename(folder / "b.db", folder / "a.db");
  OpenDatabase again = open();
  EXPECT_NE(again.database.get(), same);
  EXPECT_EQ(first(again, "SELECT count(*) FROM u"), "0");
  close(std::move(again));

  fs::remove(folder / "a.db");
  const OpenDatabase fresh = open();
  EXPECT_THROW(first(fresh, "SELECT * FROM u"), DatabaseError);
}

TEST_F(PoolOfFiles, TheJournalGoesWithTheConnection) {
  OpenDatabase one = open();
  EXPECT_FALSE(fs::exists(folder / "a.db-journal"));
  run(one, "CREATE TABLE t (v TEXT)");
  run(one, "INSERT INTO t VALUES ('x')");
  EXPECT_EQ(head(folder / "a.db-journal", 8), std::string(8, '\0')) << "nothing to be brought back";
  close(std::move(one));
  EXPECT_TRUE(fs::exists(folder / "a.db-journal"));
  OpenDatabase again = open();
  again.database->begin();
  run(again, "INSERT INTO t VALUES ('y')");
  again = {};
  EXPECT_FALSE(fs::exists(folder / "a.db-journal"));
  EXPECT_EQ(first(open(), "SELECT count(*) FROM t"), "1");
}

TEST_F(PoolOfFiles, ALargeTransactionLeavesNoLargeJournal) {
  OpenDatabase one = open();
  run(one, "CREATE TABLE t (v TEXT)");
  run(one, "INSERT INTO t VALUES (zeroblob(4000000))");
  run(one, "UPDATE t SET v = 'x'");
  EXPECT_LE(fs::file_size(folder / "a.db-journal"), 1U << 20);
  EXPECT_GT(fs::file_size(folder / "a.db-journal"), 0U);
}

TEST_F(PoolOfFiles, NoJournalStaysBesideAFileThatIsGone) {
  OpenDatabase one = open();
  run(one, "CREATE TABLE t (v TEXT)");
  fs::remove(folder / "a.db");
  one = {};
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(PoolOfFiles, TheJournalOfAnotherFileStays) {
  OpenDatabase one = open();
  run(one, "CREATE TABLE t (v TEXT)");
  OpenDatabase other = open("b.db");
  run(other, "CREATE TABLE u (v TEXT)");
  other = {};
  fs::rename(folder / "b.db", folder / "a.db");
  one = {};
  EXPECT_TRUE(fs::exists(folder / "a.db-journal"));
}

TEST_F(PoolOfFiles, AFileWithALogKeepsIt) {
  {
    SqliteOptions options;
    options.path = folder / "a.db";
    options.create = true;
    SqliteCore core(services, options);
    core.run("PRAGMA journal_mode = WAL");
  }
  OpenDatabase one = open();
  OpenDatabase other = open();
  run(one, "CREATE TABLE t (v TEXT)");
  EXPECT_EQ(first(other, "SELECT count(*) FROM t"), "0");
  run(one, "DROP TABLE t");
  run(one, "CREATE TABLE t (v DATETIME)");
  run(one, "INSERT INTO t VALUES ('2026-03-01 00:00:00')");
  EXPECT_TRUE(isDate(other, "SELECT v FROM t"));
  EXPECT_TRUE(fs::exists(folder / "a.db-wal"));
  EXPECT_FALSE(fs::exists(folder / "a.db-journal"));
  one = {};
  other = {};
  EXPECT_EQ(head(folder / "a.db", 20).substr(18), "\2\2");
}

TEST_F(PoolOfFiles, WhatOthersChangeOfTablesIsKnownAtOnce) {
  OpenDatabase one = open();
  OpenDatabase other = open();
  for (const bool inTransaction : {false, true}) {
    run(one, "CREATE TABLE t (v TEXT)");
    run(one, "INSERT INTO t VALUES ('2026-03-01 00:00:00')");
    EXPECT_FALSE(isDate(other, "SELECT v FROM t"));
    if (inTransaction) one.database->begin();
    run(one, "DROP TABLE t");
    run(one, "CREATE TABLE t (v DATETIME)");
    run(one, "INSERT INTO t VALUES ('2026-03-01 00:00:00')");
    EXPECT_TRUE(isDate(one, "SELECT v FROM t"));
    EXPECT_EQ(isDate(other, "SELECT v FROM t"), !inTransaction);
    if (inTransaction) one.database->commit();
    EXPECT_TRUE(isDate(other, "SELECT v FROM t"));
    run(one, "DROP TABLE t");
  }
}

TEST_F(PoolOfFiles, AnotherOpeningLeavesTheLocksOfAFile) {
  const std::string text = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=";
  const std::string file = folder / "a.mdb";
  createDatabase(services, text + file);
  const OpenDatabase one = openDatabase(services, {text + file, "", {}});
  run(one, "CREATE TABLE t (v TEXT(9))");
  ASSERT_FALSE(isLockedForOthers(file));
  one.database->begin();
  run(one, "INSERT INTO t VALUES ('x')");
  ASSERT_TRUE(isLockedForOthers(file));
  openDatabase(services, {text + file, "", {}});
  EXPECT_TRUE(isLockedForOthers(file));
}

TEST_F(PoolOfFiles, ConnectionsAreFewAndDoNotGrowOld) {
  for (int i = 0; i < 20; ++i) {
    OpenDatabase one = open(std::to_string(i) + ".db");
    run(one, "CREATE TABLE t (v TEXT)");
    close(std::move(one));
  }
  EXPECT_EQ(pool.size(), DatabasePool::kMost);
  clock.step = DatabasePool::kLongest;
  pool.expire();
  EXPECT_EQ(pool.size(), 0U);
}

TEST_F(PoolOfFiles, OneInMemoryIsNobodyElses) {
  OpenDatabase one = openDatabase(services, {"Driver=SQLite3;Database=:memory:", "", {}});
  run(one, "CREATE TABLE t (v TEXT)");
  close(std::move(one));
  EXPECT_EQ(pool.size(), 0U);
}

TEST_F(PoolOfFiles, TextsThatStandForOthers) {
  MemoryFiles memory;
  memory.put("/s/HKEY_LOCAL_MACHINE/Software/Ardenfell/Quorvane/Server/Databases.ini",
             "10=*shop* -> nothing\n2=*Catalog=SHOP;* -> Driver=SQLite3;Database=" +
                 (folder / "shop.db") + "\n");
  DatabasePool redirecting(clock, std::make_unique<TextSettings>(memory, "/s").get());
  services.databases = &redirecting;
  const OpenDatabase moved = openDatabase(
      services,
      {" Provider=SQLOLEDB;Data Source=x;Initial Catalog=shop;User ID=sa ", "", {"a", "b"}});
  EXPECT_EQ(spelled(moved.path), spelled(folder / "shop.db"));
  EXPECT_EQ(moved.database->systemName(), "SQLite");
}

struct PoolOfServers : testing::Test {
  FakeDriver driver;
  FakeClock clock;
  DatabasePool pool{clock, nullptr};

  /// Whether the pool gives the connection again after these statements.
  bool isKept(std::u16string system, std::initializer_list<const char*> texts) {
    driver.nature.system = std::move(system);
    auto database = openOdbc(std::make_shared<FakeSession>(driver), "DSN=x;", 1);
    const Database* const same = database.get();
    for (const char* text : texts) {
      Command command;
      command.text = text;
      database->execute(command);
    }
    pool.keep("way", std::move(database));
    return pool.take("way").get() == same;
  }
};

TEST_F(PoolOfServers, KeepsWhatCanBeMadeAsNew) {
  EXPECT_TRUE(isKept(u"PostgreSQL", {"SET x = 1", "CREATE TEMP TABLE t (a int)"}));
  EXPECT_EQ(driver.sent[driver.sent.size() - 2], u"DISCARD ALL");
  EXPECT_EQ(driver.sent.back(), u"SELECT 1");
  EXPECT_TRUE(isKept(u"MariaDB", {"SELECT 1", "DELETE FROM t"}));
  EXPECT_FALSE(isKept(u"MariaDB", {"SELECT 1", "SET @x = 1", "SELECT 1"}));
  EXPECT_FALSE(isKept(u"Microsoft SQL Server", {"SELECT 1"}));
}

TEST_F(PoolOfServers, RollsBack) {
  driver.nature.system = u"MariaDB";
  auto database = openOdbc(std::make_shared<FakeSession>(driver), "DSN=x;", 1);
  database->begin();
  pool.keep("way", std::move(database));
  EXPECT_EQ(driver.ended, std::vector<bool>{false});
  EXPECT_EQ(pool.size(), 1U);
}

TEST_F(PoolOfServers, AServerThatHasGoneIsNotServed) {
  driver.nature.system = u"MariaDB";
  pool.keep("way", openOdbc(std::make_shared<FakeSession>(driver), "DSN=x;", 1));
  FakeAnswer gone;
  gone.failure = {{u"08S01", 1, u"gone"}};
  driver.answers = {gone};
  EXPECT_EQ(pool.take("way"), nullptr);
  EXPECT_EQ(pool.size(), 0U);
}

}  // namespace

}  // namespace quorvane::ado
