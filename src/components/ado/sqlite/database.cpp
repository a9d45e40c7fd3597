#include "components/ado/sqlite/database.h"

#include <algorithm>

#include "components/ado/error_numbers.h"
#include "components/ado/sql/declared_type.h"
#include "components/ado/sql/stored_date.h"
#include "components/ado/sql/tokens.h"
#include "components/ado/sqlite/values.h"
#include "support/text.h"
#include "vbscript/values/convert.h"

namespace quorvane::ado {

using vbs::Value;

namespace {

DataType typeOfNumber(std::string_view name) {
  static constexpr std::pair<std::string_view, DataType> kTypes[] = {
      {"bigint", DataType::BigInt},       {"byte", DataType::UnsignedTinyInt},
      {"currency", DataType::Currency},   {"decimal", DataType::Numeric},
      {"double", DataType::Double},       {"double precision", DataType::Double},
      {"float", DataType::Double},        {"money", DataType::Currency},
      {"numeric", DataType::Numeric},     {"number", DataType::Double},
      {"real", DataType::Double},         {"short", DataType::SmallInt},
      {"single", DataType::Single},       {"smallint", DataType::SmallInt},
      {"smallmoney", DataType::Currency}, {"tinyint", DataType::UnsignedTinyInt},
  };
  for (const auto& [known, type] : kTypes) {
    if (known == name) return type;
  }
  return name.find("int") != name.npos || name == "long" || name == "counter" ? DataType::Integer
                                                                              : DataType::Double;
}

DataType typeOfText(const DeclaredType& type, bool jet) {
  if (type.name == "guid" || type.name == "uniqueidentifier") return DataType::Guid;
  if (type.size > 0) {
    return type.name == "char" || type.name == "nchar" ? DataType::WChar : DataType::VarWChar;
  }
  const bool isShort = type.name.find("char") != type.name.npos || type.name == "string" ||
                       (jet && type.name == "text");
  return isShort && type.name.find("long") == type.name.npos ? DataType::VarWChar
                                                             : DataType::LongVarWChar;
}

void precisionOf(DataType type, const DeclaredType& declared, Column& column) {
  switch (type) {
    case DataType::Integer:
      column.precision = 10;
      column.size = 4;
      break;
    case DataType::SmallInt:
      column.precision = 5;
      column.size = 2;
      break;
    case DataType::UnsignedTinyInt:
      column.precision = 3;
      column.size = 1;
      break;
    case DataType::BigInt:
      column.precision = 19;
      column.size = 8;
      break;
    case DataType::Single:
      column.precision = 7;
      column.size = 4;
      break;
    case DataType::Double:
      column.precision = 15;
      column.size = 8;
      break;
    case DataType::Currency:
      column.precision = 19;
      column.scale = 4;
      column.size = 8;
      break;
    case DataType::Numeric:
      column.precision = declared.size > 0 ? declared.size : 18;
      column.scale = declared.scale;
      column.size = 19;
      break;
    case DataType::Boolean:
      column.size = 2;
      break;
    case DataType::Date:
      column.size = 8;
      break;
    case DataType::DbTimeStamp:
      column.size = 16;
      break;
    case DataType::Guid:
      column.size = 16;
      break;
    case DataType::LongVarWChar:
      column.size = 536870910;
      break;
    case DataType::LongVarBinary:
      column.size = 1073741823;
      break;
    default:
      column.size = declared.size > 0 ? declared.size : 255;
  }
}

/// What an expression gives, by what is known of it and its first value.
DataType typeOfExpression(ColumnKind kind, int held, bool jet) {
  switch (kind) {
    case ColumnKind::Date:
      return jet ? DataType::Date : DataType::DbTimeStamp;
    case ColumnKind::Boolean:
      return DataType::Boolean;
    case ColumnKind::Binary:
      return DataType::LongVarBinary;
    default:
      break;
  }
  switch (held) {
    case SQLITE_INTEGER:
      return DataType::Integer;
    case SQLITE_FLOAT:
      return DataType::Double;
    case SQLITE_BLOB:
      return DataType::LongVarBinary;
    case SQLITE_NULL:
      return kind == ColumnKind::Number ? DataType::Double : DataType::VarWChar;
    default:
      return DataType::VarWChar;
  }
}

std::string orEmpty(const char* text) {
  return text ? text : "";
}

/// The item of a query's list that a column comes from, when that can be told.
ColumnKind kindOfItem(const std::vector<ResultColumn>& items, std::size_t column,
                      std::size_t count) {
  const auto isAll = [](const ResultColumn& item) { return item.all; };
  const auto first = std::find_if(items.begin(), items.end(), isAll);
  const auto front = static_cast<std::size_t>(first - items.begin());
  if (column < front) return items[column].kind;
  const auto last = std::find_if(items.rbegin(), items.rend(), isAll);
  const auto back = static_cast<std::size_t>(last - items.rbegin());
  const std::size_t fromEnd = count - 1 - column;
  return fromEnd < back ? items[items.size() - 1 - fromEnd].kind : ColumnKind::Unknown;
}

class SqliteResults final : public Results {
 public:
  SqliteResults(std::shared_ptr<SqliteCore> core, std::shared_ptr<const Translation> translation,
                Command command)
      : core_(std::move(core)), translation_(std::move(translation)), command_(std::move(command)) {
    nextResult();
  }

  const std::vector<Column>& columns() const override { return columns_; }
  const std::vector<KeyPlace>& keys() const override { return keys_; }
  std::int64_t affected() const override { return affected_; }
  bool finished() const override { return !statement_; }

  bool next(Row& row) override {
    if (!hasRow_) return false;
    row.resize(columns_.size() + keys_.size());
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      row[i] = statement_.value(static_cast<int>(i), columns_[i].type);
    }
    for (std::size_t i = columns_.size(); i < row.size(); ++i) {
      row[i] = statement_.value(static_cast<int>(i), DataType::Variant);
    }
    advance();
    return true;
  }

  bool nextResult() override {
    statement_.release();
    columns_.clear();
    keys_.clear();
    hasRow_ = false;
    affected_ = -1;
    const std::vector<SqlStatement>& statements = translation_->statements;
    if (at_ == statements.size()) return false;
    std::int64_t total = -1;
    for (;;) {
      const SqlStatement& statement = statements[at_++];
      affected_ = -1;
      start(statement);
      if (affected_ >= 0) total = std::max<std::int64_t>(total, 0) + affected_;
      if (!columns_.empty() || at_ == statements.size() || isResult(statement)) break;
    }
    affected_ = total;
    return true;
  }

 private:
  /// Whether the rows changed are a result of their own: where rows of a query follow.
  bool isResult(const SqlStatement& statement) const {
    if (statement.kind != SqlStatement::Kind::Change || !translation_->rowCounts) return false;
    for (std::size_t i = at_; i < translation_->statements.size(); ++i) {
      if (translation_->statements[i].kind == SqlStatement::Kind::Query) return true;
    }
    return false;
  }

  void start(const SqlStatement& statement) {
    switch (statement.kind) {
      case SqlStatement::Kind::Begin:
        return core_->run("BEGIN");
      case SqlStatement::Kind::Commit:
        return core_->run("COMMIT");
      case SqlStatement::Kind::Rollback:
        return core_->run("ROLLBACK");
      case SqlStatement::Kind::AlterColumn:
      case SqlStatement::Kind::AddConstraint:
      case SqlStatement::Kind::DropConstraint:
        return remakeTable(*core_, statement);
      case SqlStatement::Kind::SelectInto:
        return selectInto(statement);
      default:
        break;
    }
    statement_ = SqliteStatement(*core_, statement.text);
    bindParameters();
    const bool query = sqlite3_column_count(statement_.get()) > 0;
    const int before = sqlite3_total_changes(core_->handle());
    hasRow_ = statement_.step();
    if (query) describe(statement);
    if (statement.kind != SqlStatement::Kind::Query) {
      affected_ =
          sqlite3_total_changes(core_->handle()) == before ? 0 : sqlite3_changes(core_->handle());
    }
    if (!hasRow_) statement_.release();
  }

  /// The new table's columns are declared as those that the rows come from.
  void selectInto(const SqlStatement& statement) {
    std::string columns;
    {
      const SqliteStatement query(*core_, statement.text);
      for (int i = 0; i < sqlite3_column_count(query.get()); ++i) {
        const std::string declared = orEmpty(sqlite3_column_decltype(query.get(), i));
        columns += (i > 0 ? ", " : "") + quotedName(orEmpty(sqlite3_column_name(query.get(), i))) +
                   " " + declared;
        if (kindOfDeclared(declared) == ColumnKind::Text) columns += " COLLATE NOCASE";
      }
    }
    core_->run("CREATE TABLE " + quotedName(statement.table) + " (" + columns + ")");
    statement_ = SqliteStatement(
        *core_, "INSERT INTO " + quotedName(statement.table) + " " + statement.text);
    bindParameters();
    statement_.step();
    affected_ = sqlite3_changes(core_->handle());
    statement_.release();
  }

  void advance() {
    hasRow_ = statement_.step();
    if (!hasRow_) statement_.release();
  }

  void bindParameters() {
    const int count = sqlite3_bind_parameter_count(statement_.get());
    for (int i = 0; i < count; ++i) {
      const std::size_t place = placeOf(static_cast<std::size_t>(i));
      if (place >= command_.parameters.size()) {
        core_->refuse(kNoValue, "No value given for one or more required parameters.");
      }
      statement_.bind(i + 1, command_.parameters[place]);
    }
  }

  /// Parameters with names are found by them, when all have one.
  std::size_t placeOf(std::size_t parameter) const {
    if (parameter >= translation_->parameters.size()) return parameter;
    const std::string& name = translation_->parameters[parameter];
    if (name == "?") return parameter;
    const std::string bare = name.substr(1);
    for (std::size_t i = 0; i < command_.parameterNames.size(); ++i) {
      std::string_view other = command_.parameterNames[i];
      if (!other.empty() && (other[0] == '@' || other[0] == ':')) other.remove_prefix(1);
      if (equalsNoCase(other, bare)) return i;
    }
    return parameter;
  }

  void describe(const SqlStatement& statement) {
    sqlite3_stmt* const s = statement_.get();
    const auto all = static_cast<std::size_t>(sqlite3_column_count(s));
    const std::size_t count = all - std::min(all, statement.keys.size());
    for (std::size_t i = 0; i < count; ++i) {
      columns_.push_back(describeColumn(s, static_cast<int>(i), count, statement));
    }
    for (std::size_t i = 0; i < statement.keys.size(); ++i) {
      keys_.push_back({statement.keys[i].table, count + i});
    }
  }

  Column describeColumn(sqlite3_stmt* s, int i, std::size_t count, const SqlStatement& statement) {
    const bool jet = core_->options().jet;
    Column column;
    column.name = orEmpty(sqlite3_column_name(s, i));
    column.table = orEmpty(sqlite3_column_table_name(s, i));
    column.column = orEmpty(sqlite3_column_origin_name(s, i));
    const char* declared = sqlite3_column_decltype(s, i);
    const int held = hasRow_ ? sqlite3_column_type(s, i) : SQLITE_NULL;
    if (declared && *declared) {
      describeType(declared, jet, column);
    } else {
      const ColumnKind kind = kindOfItem(statement.columns, static_cast<std::size_t>(i), count);
      column.type = typeOfExpression(kind, held, jet);
      precisionOf(column.type, {}, column);
    }
    const SqliteSchema::Table* table =
        column.table.empty() ? nullptr : core_->schema().table(column.table);
    if (!table) return column;
    for (const SqliteSchema::ColumnInfo& info : table->columns) {
      if (!equalsNoCase(info.name, column.column)) continue;
      column.nullable = !info.notNull && info.key == 0;
      column.key = info.key > 0;
      column.autonumber = info.key > 0 && equalsNoCase(info.declared, "integer");
    }
    return column;
  }

  std::shared_ptr<SqliteCore> core_;
  std::shared_ptr<const Translation> translation_;
  Command command_;
  SqliteStatement statement_;
  std::vector<Column> columns_;
  std::vector<KeyPlace> keys_;
  std::size_t at_ = 0;
  bool hasRow_ = false;
  std::int64_t affected_ = -1;
};

class SqliteDatabase final : public Database {
 public:
  SqliteDatabase(const Services& services, SqliteOptions options)
      : core_(std::make_shared<SqliteCore>(services, std::move(options))) {}

  std::unique_ptr<Results> execute(const Command& command) override {
    const std::shared_ptr<const Translation> translation =
        core_->translation(command.text, command.updatable);
    if (!command.updatable) return std::make_unique<SqliteResults>(core_, translation, command);
    try {
      return std::make_unique<SqliteResults>(core_, translation, command);
    } catch (const DatabaseError&) {
      const bool keyed = std::any_of(translation->statements.begin(), translation->statements.end(),
                                     [](const SqlStatement& s) { return !s.keys.empty(); });
      if (!keyed) throw;
    }
    // The rows of views have no keys.
    return std::make_unique<SqliteResults>(core_, core_->translation(command.text, false), command);
  }

  Value insertRow(const std::string& table, const FieldValues& values) override {
    std::string names;
    std::string places;
    for (std::size_t i = 0; i < values.size(); ++i) {
      names += (i > 0 ? ", " : "") + quotedName(values[i].first);
      places += (i > 0 ? ", ?" : "?") + std::to_string(i + 1);
    }
    const std::string head = "INSERT INTO " + quotedName(table);
    change(values.empty() ? head + " DEFAULT VALUES"
                          : head + " (" + names + ") VALUES (" + places + ")",
           table, values, Value());
    const std::int64_t key = sqlite3_last_insert_rowid(core_->handle());
    return key == static_cast<std::int32_t>(key) ? Value::longInt(static_cast<std::int32_t>(key))
                                                 : Value::number(static_cast<double>(key));
  }

  std::int64_t updateRow(const std::string& table, const Value& key,
                         const FieldValues& values) override {
    if (values.empty()) return 1;
    std::string set;
    for (std::size_t i = 0; i < values.size(); ++i) {
      set += (i > 0 ? ", " : "") + quotedName(values[i].first) + " = ?" + std::to_string(i + 1);
    }
    return change("UPDATE " + quotedName(table) + " SET " + set + " WHERE rowid = ?" +
                      std::to_string(values.size() + 1),
                  table, values, key);
  }

  /// A key of one whole number is the row's own.
  Value keyAfter(const std::string& table, const Value& key, const FieldValues& values) override {
    const SqliteSchema::Table* info = core_->schema().table(table);
    for (const auto& [column, value] : values) {
      if (info && info->numberKey() && equalsNoCase(info->numberKey()->name, column)) return value;
    }
    return key;
  }

  std::int64_t deleteRow(const std::string& table, const Value& key) override {
    return change("DELETE FROM " + quotedName(table) + " WHERE rowid = ?1", table, {}, key);
  }

  Row readRow(const std::string& table, const Value& key,
              const std::vector<Column>& columns) override {
    std::string list;
    for (const Column& column : columns) {
      list += (list.empty() ? "" : ", ") + quotedName(column.column);
    }
    SqliteStatement statement(
        *core_, "SELECT " + list + " FROM " + quotedName(table) + " WHERE rowid = ?1");
    Row row;
    if (!statement.bind(1, key).step()) return row;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      row.push_back(statement.value(static_cast<int>(i), columns[i].type));
    }
    return row;
  }

  void begin() override { core_->run("BEGIN"); }
  void commit() override { core_->run("COMMIT"); }
  void rollback() override { core_->run("ROLLBACK"); }

  SchemaRows schema(SchemaKind kind) override {
    core_->schema().refresh();
    return schemaRows(*core_, kind);
  }
  bool rest() noexcept override { return core_.use_count() == 1 && core_->rest(); }
  bool wake() noexcept override { return core_->wake(); }
  std::string systemName() const override { return core_->options().jet ? "MS Jet" : "SQLite"; }
  std::string textOfTable(const std::string& name) const override {
    const std::vector<Token> tokens = sqlTokens(name);
    const bool oneName = tokens.size() == 2 &&
                         (tokens[0].kind == TokenKind::Word || tokens[0].kind == TokenKind::Name);
    return "SELECT * FROM " + quotedName(oneName ? tokens[0].text : name);
  }
  std::string textOfProcedure(const std::string& name, std::size_t) const override {
    return "EXEC " + name;
  }
  std::string systemVersion() const override {
    return core_->options().jet ? "04.00.0000" : sqlite3_libversion();
  }

 private:
  /// `key` is bound behind the values.
  std::int64_t change(const std::string& text, const std::string& table, const FieldValues& values,
                      const Value& key) {
    SqliteStatement statement(*core_, text);
    int place = 0;
    for (const auto& [column, value] : values) {
      statement.bind(++place, stored(table, column, value));
    }
    if (!key.isEmpty()) statement.bind(++place, key);
    statement.step();
    return sqlite3_changes(core_->handle());
  }

  /// A text for a date column in the form that dates are stored in.
  Value stored(const std::string& table, const std::string& column, const Value& value) {
    if (!value.isString() || core_->schema().kindOf(table, column) != ColumnKind::Date)
      return value;
    const auto date = dateOfText(value.asString().utf8());
    return date ? Value::date(*date) : value;
  }

  std::shared_ptr<SqliteCore> core_;
};

}  // namespace

void describeType(std::string_view declared, bool jet, Column& column) {
  const DeclaredType type = declaredType(declared);
  switch (kindOfDeclared(declared)) {
    case ColumnKind::Boolean:
      column.type = DataType::Boolean;
      break;
    case ColumnKind::Date:
      column.type = jet ? DataType::Date : DataType::DbTimeStamp;
      break;
    case ColumnKind::Text:
      column.type = typeOfText(type, jet);
      break;
    case ColumnKind::Binary:
      column.type = type.size > 0 ? DataType::VarBinary : DataType::LongVarBinary;
      break;
    default:
      column.type = typeOfNumber(type.name);
  }
  precisionOf(column.type, type, column);
}

std::unique_ptr<Database> openSqlite(const Services& services, SqliteOptions options) {
  return std::make_unique<SqliteDatabase>(services, std::move(options));
}

}  // namespace quorvane::ado
