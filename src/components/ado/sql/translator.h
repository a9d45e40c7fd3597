#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::ado {

/// What a column holds, as far as its use in SQL depends on it.
enum class ColumnKind : std::uint8_t { Unknown, Text, Number, Date, Boolean, Binary };

/// What the translator asks about the database. Names come in any letter case.
class SqlSchema {
 public:
  virtual ~SqlSchema() = default;
  virtual bool hasTable(std::string_view table) const = 0;
  /// In the order of the table; none when it is not known.
  virtual std::vector<std::string> columnsOf(std::string_view table) const = 0;
  virtual bool hasColumn(std::string_view table, std::string_view column) const = 0;
  /// Unknown for a column that is not there.
  virtual ColumnKind kindOf(std::string_view table, std::string_view column) const = 0;
  /// Whether comparing the column would heed letter case unless told otherwise.
  virtual bool heedsCase(std::string_view table, std::string_view column) const = 0;
};

/// A column that the translator has added behind those asked for: the row of a table that a row of
/// the result comes from.
struct RowKey {
  std::string table;
  std::string alias;  ///< as the columns of the statement name it
};

/// An item of a query's list: what an expression gives, which has no declared type.
struct ResultColumn {
  ColumnKind kind = ColumnKind::Unknown;
  bool all = false;  ///< "*": stands for any number of columns
};

struct SqlStatement {
  enum class Kind : std::uint8_t {
    Query,
    Change,      ///< INSERT, UPDATE, DELETE: has rows affected
    Definition,  ///< changes the schema
    SelectInto,  ///< the rows of the query `text` come to stand in a new `table`
    Begin,
    Commit,
    Rollback,
    /// No SQL of the library's: the driver makes the table anew. `text` is the new column, a
    /// constraint, or the name of the one that goes.
    AlterColumn,
    AddConstraint,
    DropConstraint,
  };

  Kind kind = Kind::Query;
  std::string text;          ///< SQL for the library; parameters are ?1, ?2, ...
  std::string table;         ///< what a SelectInto, Alter.. or Constraint is about
  std::string column;        ///< the one that AlterColumn changes
  std::vector<RowKey> keys;  ///< hidden columns at the end, when they were asked for
  std::vector<ResultColumn> columns;
};

struct Translation {
  std::vector<SqlStatement> statements;
  bool rowCounts = true;                ///< SET NOCOUNT ON: changes give no results of their own
  std::vector<std::string> parameters;  ///< of ?1 and so on: "@name", or "?"
  std::string refusal;                  ///< why the text can't be run; empty when it can

  bool refused() const { return !refusal.empty(); }
};

struct SqlOptions {
  const SqlSchema* schema = nullptr;  ///< null: nothing is known
  bool rowKeys = false;               ///< adds RowKeys where a query's rows are rows of tables
  bool exactDivision = true;          ///< 5 / 2 is 2.5
  bool oneStatement = false;          ///< refuses a second one
};

/// Turns SQL as it is written for Jet and SQL Server into SQLite's. What only some dialects have is
/// spelled by functions that sql_functions.h registers: "vb_..." are the script language's own of
/// that name, "q_..." are described there.
Translation translateSql(std::string_view text, const SqlOptions& options = {});

/// `name` as SQLite takes it for a name whatever it says.
std::string quotedName(std::string_view name);
/// `text` as a literal.
std::string quotedText(std::string_view text);

}  // namespace quorvane::ado
