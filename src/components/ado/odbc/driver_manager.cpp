#include <algorithm>
#include <array>
#include <cstring>
#include <mutex>
#include <utility>

#include "components/ado/odbc/session.h"
#include "platform/odbc_headers.h"

namespace quorvane::ado {

namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "texts go over as UTF-16");

SQLWCHAR* wideOf(const std::u16string& text) {
  return const_cast<SQLWCHAR*>(reinterpret_cast<const SQLWCHAR*>(text.data()));
}

std::u16string textOf(const SQLWCHAR* text, std::size_t length) {
  std::u16string result(length, u'\0');
  if (length > 0) std::memcpy(result.data(), text, length * sizeof(SQLWCHAR));
  return result;
}

std::vector<OdbcRecord> recordsOf(SQLSMALLINT kind, SQLHANDLE handle) {
  constexpr SQLSMALLINT kMost = 8;
  std::vector<OdbcRecord> records;
  for (SQLSMALLINT i = 1; i <= kMost; ++i) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 2048> text{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN result = SQLGetDiagRecW(kind, handle, i, state.data(), &native, text.data(),
                                            static_cast<SQLSMALLINT>(text.size()), &length);
    if (!SQL_SUCCEEDED(result)) break;
    const std::size_t shown =
        std::min(static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 0)), text.size() - 1);
    records.push_back({textOf(state.data(), 5), native, textOf(text.data(), shown)});
  }
  return records;
}

/// Throws what a call has failed with.
void check(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle) {
  if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
  OdbcFailure failure{recordsOf(kind, handle)};
  if (failure.records.empty()) failure.records.push_back({u"HY000", 0, u"General error"});
  throw failure;
}

/// A handle of the driver manager, with its end.
class Handle {
 public:
  Handle(SQLSMALLINT kind, SQLHANDLE parent) : kind_(kind) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &handle_))) {
      handle_ = nullptr;
      throw OdbcFailure{{{u"HY001", 0, u"Memory allocation error"}}};
    }
  }
  ~Handle() { SQLFreeHandle(kind_, handle_); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  SQLHANDLE get() const { return handle_; }
  void check(SQLRETURN result) const { ado::check(result, kind_, handle_); }

 private:
  SQLSMALLINT kind_;
  SQLHANDLE handle_ = nullptr;
};

/// How the values of a column are asked for.
SQLSMALLINT wantedType(const OdbcColumn& column) {
  switch (column.type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
      return SQL_C_SBIGINT;
    case SQL_BIGINT:
      return column.isUnsigned ? SQL_C_DOUBLE : SQL_C_SBIGINT;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return column.isMoney ? SQL_C_WCHAR : SQL_C_DOUBLE;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
      return SQL_C_BINARY;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return SQL_C_TYPE_TIMESTAMP;
    case SQL_TYPE_TIME:
      return SQL_C_TYPE_TIME;
    default:
      return SQL_C_WCHAR;
  }
}

/// A parameter's buffers, which stand until the statement has run.
struct Bound {
  SQLSMALLINT given = SQL_C_WCHAR;
  SQLSMALLINT type = SQL_WVARCHAR;
  SQLULEN size = 1;
  SQLSMALLINT digits = 0;
  const void* data = nullptr;
  SQLLEN length = 0;
  SQLLEN indicator = 0;
  union {
    SQLCHAR bit;
    SQLBIGINT whole;
    SQLDOUBLE number;
    SQL_TIMESTAMP_STRUCT moment;
  } held{};

  void take(std::monostate) { indicator = SQL_NULL_DATA; }
  void take(bool value) {
    held.bit = value ? 1 : 0;
    fixed(SQL_C_BIT, SQL_BIT, 1, &held.bit);
  }
  void take(std::int64_t value) {
    held.whole = value;
    const bool isShort = value == static_cast<std::int32_t>(value);
    fixed(SQL_C_SBIGINT, isShort ? SQL_INTEGER : SQL_BIGINT, isShort ? 10 : 19, &held.whole);
  }
  void take(double value) {
    held.number = value;
    fixed(SQL_C_DOUBLE, SQL_DOUBLE, 15, &held.number);
  }
  void take(const OdbcDecimal& value) {
    fixed(SQL_C_CHAR, SQL_DECIMAL, static_cast<SQLULEN>(value.digits), value.text.data());
    digits = static_cast<SQLSMALLINT>(value.scale);
    length = indicator = static_cast<SQLLEN>(value.text.size());
  }
  void take(const std::u16string& value) {
    constexpr std::size_t kLongText = 4000;  ///< where servers' short texts end
    fixed(SQL_C_WCHAR, value.size() > kLongText ? SQL_WLONGVARCHAR : SQL_WVARCHAR,
          std::max<SQLULEN>(value.size(), 1), value.data());
    length = indicator = static_cast<SQLLEN>(value.size() * sizeof(SQLWCHAR));
  }
  void take(const std::string& bytes) {
    constexpr std::size_t kLongBytes = 8000;
    fixed(SQL_C_BINARY, bytes.size() > kLongBytes ? SQL_LONGVARBINARY : SQL_VARBINARY,
          std::max<SQLULEN>(bytes.size(), 1), bytes.data());
    length = indicator = static_cast<SQLLEN>(bytes.size());
  }
  void take(const OdbcMoment& value) {
    held.moment = {static_cast<SQLSMALLINT>(value.year),
                   static_cast<SQLUSMALLINT>(value.month),
                   static_cast<SQLUSMALLINT>(value.day),
                   static_cast<SQLUSMALLINT>(value.hour),
                   static_cast<SQLUSMALLINT>(value.minute),
                   static_cast<SQLUSMALLINT>(value.second),
                   value.nanosecond};
    const bool whole = value.nanosecond == 0;
    fixed(SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, whole ? 19 : 23, &held.moment);
    digits = whole ? 0 : 3;
  }

 private:
  void fixed(SQLSMALLINT c, SQLSMALLINT sql, SQLULEN precision, const void* value) {
    given = c;
    type = sql;
    size = precision;
    data = value;
  }
};

/// The statement that runs, for those who want it given up.
struct Running {
  std::mutex mutex;
  SQLHSTMT statement = nullptr;
};

class RunningScope {
 public:
  RunningScope(Running& running, SQLHSTMT statement) : running_(running) { set(statement); }
  ~RunningScope() { set(nullptr); }
  RunningScope(const RunningScope&) = delete;
  RunningScope& operator=(const RunningScope&) = delete;

 private:
  void set(SQLHSTMT statement) {
    const std::lock_guard lock(running_.mutex);
    running_.statement = statement;
  }
  Running& running_;
};

class ManagedStatement final : public OdbcStatement {
 public:
  ManagedStatement(SQLHDBC connection, Running& running, std::u16string database)
      : handle_(SQL_HANDLE_STMT, connection), running_(running), database_(std::move(database)) {}

  void execute(const std::u16string& text, const std::vector<OdbcCell>& parameters) override {
    std::vector<Bound> bound(parameters.size());
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      std::visit([&](const auto& value) { bound[i].take(value); }, parameters[i]);
      Bound& b = bound[i];
      handle_.check(SQLBindParameter(handle_.get(), static_cast<SQLUSMALLINT>(i + 1),
                                     SQL_PARAM_INPUT, b.given, b.type, b.size, b.digits,
                                     const_cast<void*>(b.data), b.length, &b.indicator));
    }
    const RunningScope scope(running_, handle_.get());
    handle_.check(
        SQLExecDirectW(handle_.get(), wideOf(text), static_cast<SQLINTEGER>(text.size())));
    SQLFreeStmt(handle_.get(), SQL_RESET_PARAMS);
  }

  void list(OdbcList what, const std::u16string& schema, const std::u16string& table) override {
    const RunningScope scope(running_, handle_.get());
    handle_.check(ask(what, schema, table));
  }

  std::vector<OdbcColumn> columns(bool origins) override {
    SQLSMALLINT count = 0;
    handle_.check(SQLNumResultCols(handle_.get(), &count));
    columns_.clear();
    for (SQLUSMALLINT i = 1; i <= count; ++i) columns_.push_back(describe(i, origins));
    return columns_;
  }

  std::int64_t affected() override {
    SQLLEN count = -1;
    return SQL_SUCCEEDED(SQLRowCount(handle_.get(), &count)) ? count : -1;
  }

  bool fetch(std::vector<OdbcCell>& row, std::size_t most) override {
    const RunningScope scope(running_, handle_.get());
    const SQLRETURN result = SQLFetch(handle_.get());
    handle_.check(result);
    if (result == SQL_NO_DATA) return false;
    row.resize(columns_.size());
    for (std::size_t i = 0; i < columns_.size(); ++i) row[i] = cell(i, most);
    return true;
  }

  bool nextResult() override {
    const RunningScope scope(running_, handle_.get());
    const SQLRETURN result = SQLMoreResults(handle_.get());
    handle_.check(result);
    return result != SQL_NO_DATA;
  }

 private:
  /// A server that has no schemas has its databases for catalogues, and lists those of the
  /// current one.
  SQLRETURN ask(OdbcList what, const std::u16string& schema, const std::u16string& table) {
    const auto text = [](const std::u16string& t) { return t.empty() ? nullptr : wideOf(t); };
    const auto size = [](const std::u16string& t) { return static_cast<SQLSMALLINT>(t.size()); };
    SQLHSTMT const h = handle_.get();
    SQLWCHAR* const c = text(database_);
    const SQLSMALLINT cs = size(database_);
    SQLWCHAR* const s = database_.empty() ? text(schema) : nullptr;
    const auto ss = static_cast<SQLSMALLINT>(s ? size(schema) : 0);
    SQLWCHAR* const t = text(table);
    const SQLSMALLINT ts = size(table);
    switch (what) {
      case OdbcList::Tables:
        return SQLTablesW(h, c, cs, s, ss, t, ts, nullptr, 0);
      case OdbcList::Columns:
        return SQLColumnsW(h, c, cs, s, ss, t, ts, nullptr, 0);
      case OdbcList::PrimaryKeys:
        return SQLPrimaryKeysW(h, c, cs, s, ss, t, ts);
      case OdbcList::ForeignKeys:
        return SQLForeignKeysW(h, nullptr, 0, nullptr, 0, nullptr, 0, c, cs, s, ss, t, ts);
      case OdbcList::Indexes:
        return SQLStatisticsW(h, c, cs, s, ss, t, ts, SQL_INDEX_ALL, SQL_QUICK);
      default:
        return SQLProceduresW(h, c, cs, s, ss, t, ts);
    }
  }

  OdbcColumn describe(SQLUSMALLINT i, bool origins) {
    std::array<SQLWCHAR, 512> name{};
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = SQL_NULLABLE_UNKNOWN;
    SQLULEN size = 0;
    handle_.check(SQLDescribeColW(handle_.get(), i, name.data(),
                                  static_cast<SQLSMALLINT>(name.size()), &length, &type, &size,
                                  &digits, &nullable));
    OdbcColumn column;
    column.name = textOf(name.data(), std::min<std::size_t>(length, name.size() - 1));
    column.type = type;
    column.size = size;
    column.digits = digits;
    column.nullable = nullable != SQL_NO_NULLS;
    column.isUnsigned = number(i, SQL_DESC_UNSIGNED) == SQL_TRUE;
    column.isMoney = number(i, SQL_DESC_FIXED_PREC_SCALE) == SQL_TRUE;
    column.typeName = text(i, SQL_DESC_TYPE_NAME);
    if (!origins) return column;
    column.autonumber = number(i, SQL_DESC_AUTO_UNIQUE_VALUE) == SQL_TRUE;
    column.table = text(i, SQL_DESC_BASE_TABLE_NAME);
    if (column.table.empty()) return column;
    column.column = text(i, SQL_DESC_BASE_COLUMN_NAME);
    if (column.column.empty()) column.column = column.name;
    column.schema = text(i, database_.empty() ? SQL_DESC_SCHEMA_NAME : SQL_DESC_CATALOG_NAME);
    return column;
  }

  SQLLEN number(SQLUSMALLINT i, SQLUSMALLINT what) {
    SQLLEN value = 0;
    SQLColAttributeW(handle_.get(), i, what, nullptr, 0, nullptr, &value);
    return value;
  }

  std::u16string text(SQLUSMALLINT i, SQLUSMALLINT what) {
    std::array<SQLWCHAR, 256> value{};
    SQLSMALLINT bytes = 0;
    const SQLRETURN result =
        SQLColAttributeW(handle_.get(), i, what, value.data(),
                         static_cast<SQLSMALLINT>(sizeof(value)), &bytes, nullptr);
    if (!SQL_SUCCEEDED(result) || bytes <= 0) return {};
    return textOf(value.data(),
                  std::min<std::size_t>(static_cast<std::size_t>(bytes) / 2, value.size() - 1));
  }

  OdbcCell cell(std::size_t index, std::size_t most) {
    const auto place = static_cast<SQLUSMALLINT>(index + 1);
    const SQLSMALLINT wanted = wantedType(columns_[index]);
    switch (wanted) {
      case SQL_C_SBIGINT: {
        SQLBIGINT value = 0;
        return fixed(place, wanted, &value) ? OdbcCell(std::int64_t{value}) : OdbcCell();
      }
      case SQL_C_DOUBLE: {
        SQLDOUBLE value = 0;
        return fixed(place, wanted, &value) ? OdbcCell(value) : OdbcCell();
      }
      case SQL_C_TYPE_TIMESTAMP: {
        SQL_TIMESTAMP_STRUCT m{};
        if (!fixed(place, wanted, &m)) return {};
        return OdbcMoment{m.year, m.month, m.day, m.hour, m.minute, m.second, m.fraction, false};
      }
      case SQL_C_TYPE_TIME: {
        SQL_TIME_STRUCT m{};
        if (!fixed(place, wanted, &m)) return {};
        return OdbcMoment{0, 0, 0, m.hour, m.minute, m.second, 0, true};
      }
      case SQL_C_BINARY: {
        std::string bytes;
        return pieces(place, wanted, most, bytes) ? OdbcCell(std::move(bytes)) : OdbcCell();
      }
      default: {
        std::u16string text;
        return pieces(place, wanted, most, text) ? OdbcCell(std::move(text)) : OdbcCell();
      }
    }
  }

  /// False for Null.
  bool fixed(SQLUSMALLINT place, SQLSMALLINT wanted, void* value) {
    SQLLEN length = 0;
    handle_.check(SQLGetData(handle_.get(), place, wanted, value, 0, &length));
    return length != SQL_NULL_DATA;
  }

  /// Reads a value of any length into `whole`. False for Null.
  template <class Text>
  bool pieces(SQLUSMALLINT place, SQLSMALLINT wanted, std::size_t most, Text& whole) {
    using Unit = typename Text::value_type;
    constexpr bool kEndsInZero = sizeof(Unit) > 1;
    std::array<Unit, 4096 / sizeof(Unit)> piece;
    for (;;) {
      SQLLEN length = 0;
      const SQLRETURN result =
          SQLGetData(handle_.get(), place, wanted, piece.data(), sizeof(piece), &length);
      handle_.check(result);
      if (result == SQL_NO_DATA) return true;
      if (length == SQL_NULL_DATA) return false;
      const std::size_t room = piece.size() - (kEndsInZero ? 1 : 0);
      const bool more =
          length == SQL_NO_TOTAL || static_cast<std::size_t>(length) > room * sizeof(Unit);
      const std::size_t got = more ? room : static_cast<std::size_t>(length) / sizeof(Unit);
      if (whole.size() * sizeof(Unit) +
              static_cast<std::size_t>(more ? std::max<SQLLEN>(length, 0) : 0) >
          most) {
        throw OdbcFailure{{{u"HY001", 0, u"Memory allocation error"}}};
      }
      whole.append(piece.data(), got);
      if (!more) return true;
    }
  }

  Handle handle_;
  Running& running_;
  std::u16string database_;  ///< the current one, where databases stand for schemas
  std::vector<OdbcColumn> columns_;
};

class ManagedSession final : public OdbcSession {
 public:
  ManagedSession() : environment_(SQL_HANDLE_ENV, SQL_NULL_HANDLE) {
    environment_.check(SQLSetEnvAttr(environment_.get(), SQL_ATTR_ODBC_VERSION,
                                     reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0));
    connection_ = std::make_unique<Handle>(SQL_HANDLE_DBC, environment_.get());
  }
  ~ManagedSession() override {
    if (!connected_) return;
    // Drivers wait for the answer, which a server that stands still does not give.
    if (begun_) SQLEndTran(SQL_HANDLE_DBC, connection_->get(), SQL_ROLLBACK);
    SQLDisconnect(connection_->get());
  }
  ManagedSession(const ManagedSession&) = delete;
  ManagedSession& operator=(const ManagedSession&) = delete;

  void connect(const std::u16string& text, std::int32_t seconds) override {
    set(SQL_ATTR_LOGIN_TIMEOUT, static_cast<SQLULEN>(seconds));
    std::array<SQLWCHAR, 1024> whole{};
    SQLSMALLINT length = 0;
    connection_->check(SQLDriverConnectW(
        connection_->get(), nullptr, wideOf(text), static_cast<SQLSMALLINT>(text.size()),
        whole.data(), static_cast<SQLSMALLINT>(whole.size()), &length, SQL_DRIVER_NOPROMPT));
    connected_ = true;
    if (info(SQL_SCHEMA_TERM).empty()) database_ = info(SQL_DATABASE_NAME);
  }

  OdbcNature nature() override {
    OdbcNature nature;
    nature.system = info(SQL_DBMS_NAME);
    nature.version = info(SQL_DBMS_VER);
    nature.quote = info(SQL_IDENTIFIER_QUOTE_CHAR);
    if (nature.quote == u" ") nature.quote.clear();
    SQLUSMALLINT most = 0;
    SQLGetInfoW(connection_->get(), SQL_MAX_CONCURRENT_ACTIVITIES, &most, sizeof(most), nullptr);
    nature.oneStatement = most == 1;
    return nature;
  }

  std::unique_ptr<OdbcStatement> statement() override {
    return std::make_unique<ManagedStatement>(connection_->get(), running_, database_);
  }

  void begin() override {
    set(SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_OFF);
    begun_ = true;
  }
  void end(bool commit) override {
    connection_->check(
        SQLEndTran(SQL_HANDLE_DBC, connection_->get(), commit ? SQL_COMMIT : SQL_ROLLBACK));
    set(SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_ON);
    begun_ = false;
  }

  void cancel() noexcept override {
    const std::lock_guard lock(running_.mutex);
    if (running_.statement) SQLCancel(running_.statement);
  }

 private:
  void set(SQLINTEGER attribute, SQLULEN value) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): numbers go in a pointer's place
    auto* const number = reinterpret_cast<SQLPOINTER>(value);
    connection_->check(SQLSetConnectAttrW(connection_->get(), attribute, number, SQL_IS_UINTEGER));
  }

  std::u16string info(SQLUSMALLINT what) {
    std::array<SQLWCHAR, 256> value{};
    SQLSMALLINT bytes = 0;
    const SQLRETURN result = SQLGetInfoW(connection_->get(), what, value.data(),
                                         static_cast<SQLSMALLINT>(sizeof(value)), &bytes);
    if (!SQL_SUCCEEDED(result) || bytes <= 0) return {};
    return textOf(value.data(),
                  std::min<std::size_t>(static_cast<std::size_t>(bytes) / 2, value.size() - 1));
  }

  Handle environment_;
  std::unique_ptr<Handle> connection_;
  Running running_;
  std::u16string database_;
  bool connected_ = false;
  bool begun_ = false;
};

}  // namespace

std::unique_ptr<OdbcSession> makeOdbcSession() {
  return std::make_unique<ManagedSession>();
}

std::vector<std::u16string> odbcDrivers() {
  std::vector<std::u16string> names;
  const Handle environment(SQL_HANDLE_ENV, SQL_NULL_HANDLE);
  SQLSetEnvAttr(environment.get(), SQL_ATTR_ODBC_VERSION,
                reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  std::array<SQLWCHAR, 256> name{};
  std::array<SQLWCHAR, 1024> about{};
  SQLSMALLINT length = 0;
  SQLSMALLINT aboutLength = 0;
  SQLUSMALLINT direction = SQL_FETCH_FIRST;
  while (SQL_SUCCEEDED(SQLDriversW(environment.get(), std::exchange(direction, SQL_FETCH_NEXT),
                                   name.data(), static_cast<SQLSMALLINT>(name.size()), &length,
                                   about.data(), static_cast<SQLSMALLINT>(about.size()),
                                   &aboutLength))) {
    names.push_back(textOf(name.data(), std::min<std::size_t>(length, name.size() - 1)));
  }
  return names;
}

}  // namespace quorvane::ado
