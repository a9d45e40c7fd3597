#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vbscript/values/value.h"

/// What recordsets, commands and connections know of a database. Texts are UTF-8, values those of
/// scripts. Failures are DatabaseErrors.
namespace quorvane::ado {

/// The customary numbers of types.
enum class DataType : std::int32_t {
  Empty = 0,
  SmallInt = 2,
  Integer = 3,
  Single = 4,
  Double = 5,
  Currency = 6,
  Date = 7,
  Bstr = 8,
  Boolean = 11,
  Variant = 12,
  Decimal = 14,
  TinyInt = 16,
  UnsignedTinyInt = 17,
  BigInt = 20,
  Guid = 72,
  Binary = 128,
  Char = 129,
  WChar = 130,
  Numeric = 131,
  DbDate = 133,
  DbTime = 134,
  DbTimeStamp = 135,
  VarChar = 200,
  LongVarChar = 201,
  VarWChar = 202,
  LongVarWChar = 203,
  VarBinary = 204,
  LongVarBinary = 205,
};

/// A failure of the database, with all that a script may ask of it.
struct DatabaseError {
  std::int32_t number = 0;
  std::string description;
  std::string source;
  std::string sqlState;
  std::int32_t native = 0;
  std::vector<DatabaseError> further = {};  ///< what else was reported with it
};

struct Column {
  std::string name;
  DataType type = DataType::VarWChar;
  std::int32_t size = 0;  ///< DefinedSize
  std::int32_t precision = 255;
  std::int32_t scale = 255;
  bool nullable = true;
  bool autonumber = false;
  bool key = false;
  std::string table;   ///< that the column stands in; empty for expressions
  std::string column;  ///< its name there
};

/// Where a row holds the key of a table's row that it comes from.
struct KeyPlace {
  std::string table;
  std::size_t index = 0;
};

using Row = std::vector<vbs::Value>;
using FieldValues = std::vector<std::pair<std::string, vbs::Value>>;  ///< column and value

/// The results of a command, one after the other. The first is at hand when it is made.
class Results {
 public:
  virtual ~Results() = default;
  /// Of the result at hand; none when it has no rows.
  virtual const std::vector<Column>& columns() const = 0;
  /// Behind the columns' values in each row.
  virtual const std::vector<KeyPlace>& keys() const = 0;
  virtual bool next(Row& row) = 0;
  virtual std::int64_t affected() const = 0;  ///< -1 when rows are not changed
  virtual bool nextResult() = 0;              ///< false behind the last
  /// The statement at hand holds nothing of the database any more.
  virtual bool finished() const = 0;
};

struct Command {
  std::string text;
  std::vector<vbs::Value> parameters;       ///< in their order
  std::vector<std::string> parameterNames;  ///< of those that have one; may be shorter
  bool updatable = false;                   ///< rows shall have keys
  std::int32_t timeout = -1;  ///< seconds, 0 for ever; below: as limitCommands() has it
};

enum class SchemaKind : std::uint8_t {
  Tables,
  Columns,
  Indexes,
  PrimaryKeys,
  ForeignKeys,
  Views,
  Procedures
};

struct SchemaRows {
  std::vector<Column> columns;
  std::vector<Row> rows;
};

class Database {
 public:
  virtual ~Database() = default;

  virtual std::unique_ptr<Results> execute(const Command& command) = 0;

  /// Rows by their keys.
  virtual vbs::Value insertRow(const std::string& table, const FieldValues& values) = 0;
  virtual std::int64_t updateRow(const std::string& table, const vbs::Value& key,
                                 const FieldValues& values) = 0;
  /// The key of a row whose key was this before updateRow() gave it the values.
  virtual vbs::Value keyAfter(const std::string& table, const vbs::Value& key,
                              const FieldValues& values) = 0;
  virtual std::int64_t deleteRow(const std::string& table, const vbs::Value& key) = 0;
  /// The values of these columns; nothing when the row is gone.
  virtual Row readRow(const std::string& table, const vbs::Value& key,
                      const std::vector<Column>& columns) = 0;

  virtual void begin() = 0;
  virtual void commit() = 0;
  virtual void rollback() = 0;

  virtual SchemaRows schema(SchemaKind kind) = 0;
  virtual std::string systemName() const = 0;
  virtual std::string systemVersion() const = 0;

  /// Seconds that a command may take, 0 for ever. The script's own time holds in any case, and is
  /// all that holds where nobody else is waited for.
  virtual void limitCommands(std::int32_t /*seconds*/) {}

  /// Makes the connection as it was when it was new, for another script's use. False when that
  /// can't be had: it is still in use, or keeps what a script has set. Neither throws.
  virtual bool rest() noexcept = 0;
  /// Whether a connection that rests can be used: its file or server is still the same.
  virtual bool wake() noexcept = 0;

  /// SQL for all rows of a table, and for a procedure with so many parameters.
  virtual std::string textOfTable(const std::string& name) const = 0;
  virtual std::string textOfProcedure(const std::string& name, std::size_t parameters) const = 0;
};

}  // namespace quorvane::ado
