#include "components/ado/odbc/database.h"

#include <algorithm>
#include <cmath>

#include "components/ado/error_numbers.h"
#include "components/ado/odbc/values.h"
#include "components/ado/sql/tokens.h"
#include "support/text.h"

namespace quorvane::ado {

using vbs::Value;

namespace {

/// The key of a row: its one value, or an array of all.
Value keyValue(std::vector<Value> values) {
  if (values.size() == 1) return std::move(values.front());
  return Value::array(vbs::ArrayRep::fromValues(std::move(values)));
}

/// Numbers too large for Long are held as Double, and are whole all the same.
OdbcCell keyCell(const Value& value) {
  OdbcCell cell = cellOf(value);
  const auto* number = std::get_if<double>(&cell);
  constexpr double kExact = 9007199254740992.0;
  if (number && *number == std::nearbyint(*number) && std::abs(*number) <= kExact) {
    return static_cast<std::int64_t>(*number);
  }
  return cell;
}

void appendKey(std::vector<OdbcCell>& cells, const Value& key) {
  if (!key.isArray() || key.asArray()->rank == 0 || key.asArray()->elementType == vbs::Type::Byte) {
    cells.push_back(keyCell(key));
    return;
  }
  for (std::size_t i = 0; i < key.asArray()->count; ++i) {
    cells.push_back(keyCell(key.asArray()->element(i)));
  }
}

/// Not every driver tells of places that nothing is given for in a way that one could understand.
/// Texts with a backslash are left to it, for there servers disagree on where a literal ends.
void checkPlaces(const std::string& text, std::size_t given) {
  if (text.find('?') == text.npos || text.find('\\') != text.npos) return;
  const std::vector<Token> tokens = sqlTokens(text);
  const auto places = std::count_if(tokens.begin(), tokens.end(), [](const Token& token) {
    return token.kind == TokenKind::Parameter && token.text == "?";
  });
  if (static_cast<std::size_t>(places) <= given) return;
  DatabaseError error;
  error.number = kNoValue;
  error.description = "No value given for one or more required parameters.";
  error.source = kOdbcSource;
  error.sqlState = "07002";
  throw error;
}

class OdbcResults final : public Results {
 public:
  OdbcResults(std::shared_ptr<OdbcCore> core, const Command& command)
      : core_(std::move(core)), updatable_(command.updatable) {
    std::vector<OdbcCell> parameters;
    parameters.reserve(command.parameters.size());
    for (const Value& value : command.parameters) parameters.push_back(cellOf(value));
    checkPlaces(command.text, parameters.size());
    auto [statement, first] =
        core_->execute(command.text, std::move(parameters), updatable_, command.timeout);
    statement_ = std::move(statement);
    adopt(std::move(first));
  }
  ~OdbcResults() override { core_->release(std::move(statement_)); }
  OdbcResults(const OdbcResults&) = delete;
  OdbcResults& operator=(const OdbcResults&) = delete;

  const std::vector<Column>& columns() const override { return columns_; }
  const std::vector<KeyPlace>& keys() const override { return keys_; }
  std::int64_t affected() const override { return taken_.affected; }
  bool finished() const override { return at_ == taken_.rows.size() && !taken_.more; }

  bool next(Row& row) override {
    if (at_ == taken_.rows.size() && taken_.more) {
      OdbcTaken more = core_->takeMore(statement_);
      taken_.rows = std::move(more.rows);
      taken_.more = more.more;
      at_ = 0;
    }
    if (at_ == taken_.rows.size()) return false;
    std::vector<OdbcCell> cells = std::move(taken_.rows[at_++]);
    row.clear();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      row.push_back(valueOf(cells[i], columns_[i]));
    }
    for (const std::vector<std::size_t>& places : keyPlaces_) {
      std::vector<Value> values;
      values.reserve(places.size());
      for (const std::size_t place : places) values.push_back(row[place]);
      row.push_back(keyValue(std::move(values)));
    }
    return true;
  }

  bool nextResult() override {
    if (!statement_) return false;
    OdbcTaken next = core_->takeNext(statement_, updatable_);
    const bool found = next.any;
    adopt(std::move(next));
    if (!found) core_->release(std::exchange(statement_, nullptr));
    return found;
  }

 private:
  void adopt(OdbcTaken taken) {
    taken_ = std::move(taken);
    at_ = 0;
    columns_.clear();
    keys_.clear();
    keyPlaces_.clear();
    for (const OdbcColumn& column : taken_.columns) columns_.push_back(columnOf(column));
    if (updatable_) findKeys();
  }

  /// The tables all of whose key columns are among the result's.
  void findKeys() {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const std::string& table = columns_[i].table;
      const auto isSame = [&](const Column& other) { return equalsNoCase(other.table, table); };
      if (table.empty() ||
          std::any_of(columns_.begin(), columns_.begin() + static_cast<std::ptrdiff_t>(i), isSame))
        continue;
      std::vector<std::size_t> places;
      const auto& names = core_->keysOf({utf8Of(taken_.columns[i].schema), table});
      for (const std::string& name : names) {
        for (std::size_t place = i; place < columns_.size(); ++place) {
          Column& column = columns_[place];
          if (!isSame(column) || !equalsNoCase(column.column, name)) continue;
          column.key = true;
          places.push_back(place);
          break;
        }
      }
      if (names.empty() || places.size() != names.size()) continue;
      keys_.push_back({table, columns_.size() + keyPlaces_.size()});
      keyPlaces_.push_back(std::move(places));
    }
  }

  std::shared_ptr<OdbcCore> core_;
  bool updatable_;
  OdbcCore::Statement statement_;
  OdbcTaken taken_;
  std::size_t at_ = 0;  ///< among the rows taken
  std::vector<Column> columns_;
  std::vector<KeyPlace> keys_;
  std::vector<std::vector<std::size_t>> keyPlaces_;  ///< of each, the columns
};

class OdbcDatabase final : public Database {
 public:
  explicit OdbcDatabase(std::shared_ptr<OdbcCore> core) : core_(std::move(core)) {}

  std::unique_ptr<Results> execute(const Command& command) override {
    return std::make_unique<OdbcResults>(core_, command);
  }

  Value insertRow(const std::string& table, const FieldValues& values) override {
    const OdbcDialect& dialect = core_->dialect();
    const std::vector<std::string>& keys = core_->keysOf(core_->known(table));
    std::vector<Value> given;
    for (const std::string& key : keys) {
      for (const auto& [column, value] : values) {
        if (equalsNoCase(column, key)) given.push_back(value);
      }
    }
    const bool complete = given.size() == keys.size();
    std::string text = dialect.insertion(core_->spelled(table), namesOf(values));
    const std::string returning = complete ? "" : dialect.returning(keys);
    auto [statement, taken] = core_->execute(text + returning, cellsOf(values), false);
    core_->release(std::move(statement));
    if (complete) return keyValue(std::move(given));
    if (!returning.empty()) return keyOfRow(taken);
    if (keys.size() != 1 || dialect.newest().empty()) return Value::null();
    auto [asking, newest] = core_->execute(dialect.newest(), {}, false);
    core_->release(std::move(asking));
    return keyOfRow(newest);
  }

  std::int64_t updateRow(const std::string& table, const Value& key,
                         const FieldValues& values) override {
    if (values.empty()) return 1;
    std::vector<OdbcCell> cells = cellsOf(values);
    appendKey(cells, key);
    const std::int64_t affected =
        change(core_->dialect().update(core_->spelled(table), namesOf(values), keysOf(table)),
               std::move(cells));
    // Some servers count the rows only that have become others.
    if (affected != 0 || core_->dialect().server() != OdbcServer::MySql) return affected;
    return find(table, key, keysOf(table)).rows.empty() ? 0 : 1;
  }

  Value keyAfter(const std::string& table, const Value& key, const FieldValues& values) override {
    const std::vector<std::string>& names = keysOf(table);
    std::vector<Value> parts;
    parts.reserve(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
      parts.push_back(names.size() == 1 ? key : key.asArray()->element(i));
      for (const auto& [column, value] : values) {
        if (equalsNoCase(column, names[i])) parts.back() = value;
      }
    }
    return keyValue(std::move(parts));
  }

  std::int64_t deleteRow(const std::string& table, const Value& key) override {
    std::vector<OdbcCell> cells;
    appendKey(cells, key);
    return change(core_->dialect().deletion(core_->spelled(table), keysOf(table)),
                  std::move(cells));
  }

  Row readRow(const std::string& table, const Value& key,
              const std::vector<Column>& columns) override {
    std::vector<std::string> names;
    names.reserve(columns.size());
    for (const Column& column : columns) names.push_back(column.column);
    const OdbcTaken found = find(table, key, names);
    Row row;
    if (found.rows.empty()) return row;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      row.push_back(valueOf(found.rows[0][i], columns[i]));
    }
    return row;
  }

  void begin() override { core_->begin(); }
  void commit() override { core_->end(true); }
  void rollback() override { core_->end(false); }

  SchemaRows schema(SchemaKind kind) override { return schemaRows(*core_, kind); }
  std::string systemName() const override { return utf8Of(core_->nature().system); }
  std::string systemVersion() const override { return utf8Of(core_->nature().version); }

  bool rest() noexcept override { return core_.use_count() == 1 && core_->rest(); }
  bool wake() noexcept override { return core_->wake(); }

  void limitCommands(std::int32_t seconds) override { core_->limitCommands(seconds); }

  /// As it stands, unless it can't be a name without its marks.
  std::string textOfTable(const std::string& name) const override {
    const std::vector<Token> tokens = sqlTokens(name);
    const bool oneName = tokens.size() == 2 && tokens[0].kind == TokenKind::Name;
    const bool isPath = std::all_of(tokens.begin(), tokens.end(), [](const Token& token) {
      return token.kind == TokenKind::Word || token.kind == TokenKind::Quoted ||
             token.kind == TokenKind::End || token.isSymbol(".");
    });
    const bool blanks = name.find(' ') != name.npos;
    const std::string spelled = oneName              ? core_->dialect().quoted(tokens[0].text)
                                : isPath && !blanks  ? name
                                : tokens.size() == 2 ? core_->dialect().quoted(name)
                                : blanks             ? core_->dialect().quoted(name)
                                                     : name;
    return "SELECT * FROM " + spelled;
  }

  std::string textOfProcedure(const std::string& name, std::size_t parameters) const override {
    std::string places;
    for (std::size_t i = 0; i < parameters; ++i) places += i > 0 ? ", ?" : "?";
    return "{call " + name + (places.empty() ? "" : "(" + places + ")") + "}";
  }

 private:
  const std::vector<std::string>& keysOf(const std::string& table) {
    return core_->keysOf(core_->known(table));
  }

  static std::vector<std::string> namesOf(const FieldValues& values) {
    std::vector<std::string> names;
    for (const auto& [column, value] : values) names.push_back(column);
    return names;
  }

  static std::vector<OdbcCell> cellsOf(const FieldValues& values) {
    std::vector<OdbcCell> cells;
    for (const auto& [column, value] : values) cells.push_back(cellOf(value));
    return cells;
  }

  static Value keyOfRow(const OdbcTaken& taken) {
    if (taken.rows.empty()) return Value::null();
    std::vector<Value> values;
    for (std::size_t i = 0; i < taken.columns.size(); ++i) {
      values.push_back(valueOf(taken.rows[0][i], columnOf(taken.columns[i])));
    }
    return keyValue(std::move(values));
  }

  std::int64_t change(const std::string& text, std::vector<OdbcCell> cells) {
    auto [statement, taken] = core_->execute(text, std::move(cells), false);
    core_->release(std::move(statement));
    return taken.affected;
  }

  OdbcTaken find(const std::string& table, const Value& key,
                 const std::vector<std::string>& columns) {
    std::vector<OdbcCell> cells;
    appendKey(cells, key);
    auto [statement, taken] =
        core_->execute(core_->dialect().selection(core_->spelled(table), columns, keysOf(table)),
                       std::move(cells), false);
    core_->release(std::move(statement));
    return std::move(taken);
  }

  std::shared_ptr<OdbcCore> core_;
};

}  // namespace

std::unique_ptr<Database> openOdbc(std::shared_ptr<OdbcSession> session, const std::string& text,
                                   std::int32_t seconds) {
  return std::make_unique<OdbcDatabase>(
      std::make_shared<OdbcCore>(std::move(session), text, seconds));
}

}  // namespace quorvane::ado
