#pragma once

#include <sqlite3.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "components/ado/driver.h"
#include "components/ado/sql/translator.h"
#include "components/ado/sqlite/functions.h"
#include "support/files.h"

namespace quorvane::ado {

/// How a database file is opened.
struct SqliteOptions {
  std::string path;
  bool create = false;  ///< when it is missing
  bool readOnly = false;
  bool jet = true;          ///< Jet's texts and types; else the library's own
  std::string source;       ///< of errors
  std::string errorPrefix;  ///< in front of their texts
};

class SqliteCore;

/// A prepared statement, which goes back to its connection for the next use.
class SqliteStatement {
 public:
  SqliteStatement() = default;
  SqliteStatement(SqliteCore& core, const std::string& text);
  SqliteStatement(SqliteStatement&& other) noexcept { *this = std::move(other); }
  SqliteStatement& operator=(SqliteStatement&& other) noexcept;
  ~SqliteStatement() { release(); }

  sqlite3_stmt* get() const { return statement_; }
  explicit operator bool() const { return statement_ != nullptr; }
  void release();

  SqliteStatement& bind(int place, const vbs::Value& value);
  SqliteStatement& bind(int place, std::string_view text);
  bool step();  ///< false at the end
  std::string text(int column) const;
  std::int64_t number(int column) const { return sqlite3_column_int64(statement_, column); }
  vbs::Value value(int column, DataType type) const;

 private:
  SqliteCore* core_ = nullptr;
  sqlite3_stmt* statement_ = nullptr;
  std::string key_;
};

/// What is known of the tables of a database, read when it is asked for.
class SqliteSchema final : public SqlSchema {
 public:
  explicit SqliteSchema(SqliteCore& core) : core_(core) {}

  struct ColumnInfo {
    std::string name;
    std::string declared;
    bool heedsCase = false;
    bool notNull = false;
    int key = 0;  ///< place in the primary key, from 1
    std::string defaultValue;
  };
  struct Table {
    std::string name;
    bool view = false;
    bool read = false;
    std::vector<ColumnInfo> columns;

    /// The column that names the rows, or null.
    const ColumnInfo* numberKey() const;
  };

  bool hasTable(std::string_view table) const override;
  std::vector<std::string> columnsOf(std::string_view table) const override;
  bool hasColumn(std::string_view table, std::string_view column) const override;
  ColumnKind kindOf(std::string_view table, std::string_view column) const override;
  bool heedsCase(std::string_view table, std::string_view column) const override;

  const Table* table(std::string_view name) const;
  std::vector<const Table*> tables() const;  ///< by name
  /// Forgets everything if the database has changed since. True when it has.
  bool refresh();

 private:
  std::int64_t versionNow() const;
  std::optional<std::int64_t> versionInFile() const;
  const ColumnInfo* columnInfo(std::string_view table, std::string_view column) const;
  void read() const;
  void readColumns(Table& table) const;

  SqliteCore& core_;
  mutable std::map<std::string, Table> tables_;  ///< by lower-case name
  mutable bool read_ = false;
  std::int64_t version_ = -1;
};

/// Bytes of a connection's database file, from its beginning or further on. False when there are
/// not so many, or no file. A file that is opened and closed by other means than the library's own
/// is free of all locks that connections of this process have on it.
bool readDatabaseFile(sqlite3* connection, std::int64_t start, char* bytes, int count);

/// The first bytes of a file that may be a database; empty when there are not so many.
std::string headOfDatabaseFile(const std::string& path, int count);

/// A connection of the library with all that lives as long as its last statement.
class SqliteCore {
 public:
  /// Throws DatabaseError when the file can't be opened.
  SqliteCore(const Services& services, SqliteOptions options);
  ~SqliteCore();
  SqliteCore(const SqliteCore&) = delete;
  SqliteCore& operator=(const SqliteCore&) = delete;

  sqlite3* handle() const { return handle_; }
  const SqliteOptions& options() const { return options_; }
  SqliteSchema& schema() { return schema_; }

  /// Throws what the last call has failed with.
  [[noreturn]] void fail();
  [[noreturn]] void refuse(std::int32_t number, const std::string& text) const;
  /// Runs SQL of the driver's own.
  void run(const std::string& text);
  void copyTo(const std::string& path);  ///< into a new file, without the room that is free
  /// As Database has them.
  bool rest() noexcept;
  bool wake() noexcept;
  bool inTransaction() const { return sqlite3_get_autocommit(handle_) == 0; }

  std::shared_ptr<const Translation> translation(const std::string& text, bool rowKeys);

  /// While it lives, statements may do what those of scripts may not.
  class Trusted {
   public:
    explicit Trusted(SqliteCore& core) : core_(core) { ++core_.trusted_; }
    ~Trusted() { --core_.trusted_; }
    Trusted(const Trusted&) = delete;
    Trusted& operator=(const Trusted&) = delete;

   private:
    SqliteCore& core_;
  };

 private:
  friend class SqliteStatement;

  void open();
  void setUp();
  void limitValues();
  void keepJournal();
  void removeJournal() noexcept;
  sqlite3_stmt* prepare(const std::string& text);
  void keep(const std::string& text, sqlite3_stmt* statement);
  DatabaseError errorOf(int code, const std::string& message) const;
  static int authorize(void* core, int action, const char* first, const char* second,
                       const char* database, const char* trigger);
  static int waitWhileBusy(void* core, int tries);
  static int checkProgress(void* core);
  /// Runs `check` and keeps what it throws; whether it threw.
  template <class Check>
  bool stops(Check check);

  SqliteOptions options_;
  FunctionContext functions_;
  sqlite3* handle_ = nullptr;
  SqliteSchema schema_{*this};
  std::vector<std::pair<std::string, sqlite3_stmt*>> idle_;  ///< the last used last
  std::map<std::string, std::shared_ptr<const Translation>> translations_;
  int trusted_ = 0;
  bool keepsJournal_ = false;
  std::optional<FileInfo> resting_;  ///< the file, as it was when the connection came to rest
};

}  // namespace quorvane::ado
