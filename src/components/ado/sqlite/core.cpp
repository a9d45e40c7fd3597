#include "components/ado/sqlite/core.h"

#include <algorithm>

#include "components/ado/error_numbers.h"
#include "components/ado/sqlite/values.h"
#include "platform/services.h"
#include "support/text.h"
#include "vbscript/values/error.h"
#include "vbscript/values/memory_meter.h"

namespace quorvane::ado {

namespace {

constexpr std::size_t kIdleStatements = 32;
constexpr std::size_t kTranslations = 128;
constexpr int kStepsBetweenChecks = 10'000;
constexpr int kLongestWait = 30'000;    ///< milliseconds for a database that others hold
constexpr int kJournalBytes = 1 << 20;  ///< that stay behind a larger transaction

/// What stands behind `start` in a message, or nothing.
std::string behind(const std::string& message, std::string_view start) {
  return message.starts_with(start) ? message.substr(start.size()) : std::string();
}

}  // namespace

bool readDatabaseFile(sqlite3* connection, std::int64_t start, char* bytes, int count) {
  sqlite3_file* file = nullptr;
  sqlite3_file_control(connection, nullptr, SQLITE_FCNTL_FILE_POINTER, &file);
  return file && file->pMethods && file->pMethods->xRead(file, bytes, count, start) == SQLITE_OK;
}

std::string headOfDatabaseFile(const std::string& path, int count) {
  sqlite3* connection = nullptr;
  std::string head(static_cast<std::size_t>(count), '\0');
  // To open a pipe only for reading would wait for somebody who writes.
  const bool read =
      sqlite3_open_v2(path.c_str(), &connection, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                      nullptr) == SQLITE_OK &&
      readDatabaseFile(connection, 0, head.data(), count);
  sqlite3_close_v2(connection);
  return read ? head : std::string();
}

SqliteStatement::SqliteStatement(SqliteCore& core, const std::string& text)
    : core_(&core), statement_(core.prepare(text)), key_(text) {}

SqliteStatement& SqliteStatement::operator=(SqliteStatement&& other) noexcept {
  release();
  core_ = other.core_;
  statement_ = std::exchange(other.statement_, nullptr);
  key_ = std::move(other.key_);
  return *this;
}

void SqliteStatement::release() {
  if (statement_) core_->keep(key_, std::exchange(statement_, nullptr));
}

SqliteStatement& SqliteStatement::bind(int place, const vbs::Value& value) {
  bindValue(statement_, place, value);
  return *this;
}

SqliteStatement& SqliteStatement::bind(int place, std::string_view text) {
  sqlite3_bind_text64(statement_, place, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  return *this;
}

bool SqliteStatement::step() {
  const int result = sqlite3_step(statement_);
  if (result == SQLITE_ROW) return true;
  if (result != SQLITE_DONE) core_->fail();
  return false;
}

std::string SqliteStatement::text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  return text
             ? std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column)))
             : std::string();
}

vbs::Value SqliteStatement::value(int column, DataType type) const {
  return valueOf(sqlite3_column_value(statement_, column), type);
}

SqliteCore::SqliteCore(const Services& services, SqliteOptions options)
    : options_(std::move(options)), functions_(services) {
  try {
    open();
    setUp();
  } catch (...) {
    sqlite3_close_v2(handle_);
    throw;
  }
}

SqliteCore::~SqliteCore() {
  for (const auto& [text, statement] : idle_) sqlite3_finalize(statement);
  removeJournal();
  sqlite3_close_v2(handle_);
}

void SqliteCore::open() {
  int flags = options_.readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
  if (options_.create && !options_.readOnly) flags |= SQLITE_OPEN_CREATE;
  const int result = sqlite3_open_v2(options_.path.c_str(), &handle_,
                                     flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
  if (!handle_) vbs::throwError(vbs::ErrorCode::OutOfMemory);
  if (result != SQLITE_OK) fail();
}

void SqliteCore::setUp() {
  sqlite3_db_config(handle_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(handle_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(handle_, SQLITE_DBCONFIG_ENABLE_FKEY, options_.jet ? 1 : 0, nullptr);
  sqlite3_db_config(handle_, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
  sqlite3_limit(handle_, SQLITE_LIMIT_ATTACHED, 0);
  sqlite3_set_authorizer(handle_, &SqliteCore::authorize, this);
  sqlite3_busy_handler(handle_, &SqliteCore::waitWhileBusy, this);
  sqlite3_progress_handler(handle_, kStepsBetweenChecks, &SqliteCore::checkProgress, this);
  registerFunctions(handle_, functions_);
  limitValues();
  run("SELECT count(*) FROM sqlite_master");  // tells whether the file is a database at all
  keepJournal();
}

/// A journal that stays between transactions, with its head blanked, spares each of them making and
/// removing a file. What is written when, and so what a crash leaves, is the same. Files that have
/// a log instead keep it.
void SqliteCore::keepJournal() {
  if (sqlite3_db_readonly(handle_, "main") != 0) return;
  const Trusted trusted(*this);
  {
    SqliteStatement mode(*this, "PRAGMA journal_mode");
    if (!mode.step() || mode.text(0) != "delete") return;
  }
  run("PRAGMA journal_mode = PERSIST");
  run("PRAGMA journal_size_limit = " + std::to_string(kJournalBytes));
  keepsJournal_ = true;
}

/// The journal of a file that another has come in the place of may be that one's, and full. One
/// beside no file is nobody's.
void SqliteCore::removeJournal() noexcept {
  if (!keepsJournal_) return;
  try {
    const Files& files = functions_.services.files;
    const std::string journal = options_.path + "-journal";
    if (!files.stat(journal)) return;
    int moved = 0;
    sqlite3_file_control(handle_, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    if (moved == 0) {
      const Trusted trusted(*this);
      sqlite3_busy_handler(handle_, nullptr, nullptr);  // whoever else writes will have one as well
      if (inTransaction()) sqlite3_exec(handle_, "ROLLBACK", nullptr, nullptr, nullptr);
      sqlite3_exec(handle_, "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
    } else if (!files.stat(options_.path)) {
      files.remove(journal);
    }
  } catch (...) {  // then it stays
  }
}

/// No value may be larger than what the script has room for.
void SqliteCore::limitValues() {
  const auto& memory = vbs::runContext.memory;
  constexpr std::int64_t kLeast = 1 << 20;
  constexpr std::int64_t kMost = 1'000'000'000;
  const std::int64_t left = memory.limit == INT64_MAX ? kMost : memory.limit - memory.used;
  sqlite3_limit(handle_, SQLITE_LIMIT_LENGTH, static_cast<int>(std::clamp(left, kLeast, kMost)));
}

/// Scripts can't make temporary tables or set anything of a connection.
bool SqliteCore::rest() noexcept {
  try {
    if (inTransaction()) run("ROLLBACK");
    for (auto* s = sqlite3_next_stmt(handle_, nullptr); s; s = sqlite3_next_stmt(handle_, s)) {
      if (sqlite3_stmt_busy(s)) return false;
    }
    sqlite3_set_last_insert_rowid(handle_, 0);
    resting_ = functions_.services.files.stat(options_.path);
    return resting_.has_value();
  } catch (...) {  // whatever it is, the connection is not as it was
    return false;
  }
}

bool SqliteCore::wake() noexcept {
  if (functions_.services.files.stat(options_.path) != resting_) return false;
  limitValues();
  return true;
}

template <class Check>
bool SqliteCore::stops(Check check) {
  try {
    check();
    return false;
  } catch (...) {
    functions_.pending = std::current_exception();
    return true;
  }
}

int SqliteCore::waitWhileBusy(void* self, int tries) {
  constexpr int kPause = 5;
  auto& core = *static_cast<SqliteCore*>(self);
  if (tries * kPause >= kLongestWait || core.stops([] { vbs::checkTime(); })) return 0;
  sqlite3_sleep(kPause);
  return 1;
}

int SqliteCore::checkProgress(void* self) {
  return static_cast<SqliteCore*>(self)->stops([] { vbs::checkTime(); }) ? 1 : 0;
}

/// Statements of scripts reach no other file and change nothing of the connection itself.
int SqliteCore::authorize(void* self, int action, const char*, const char* second, const char*,
                          const char*) {
  if (static_cast<SqliteCore*>(self)->trusted_ > 0) return SQLITE_OK;
  switch (action) {
    case SQLITE_ATTACH:
    case SQLITE_DETACH:
    case SQLITE_PRAGMA:
      return SQLITE_DENY;
    case SQLITE_FUNCTION:
      return second && equalsNoCase(second, "load_extension") ? SQLITE_DENY : SQLITE_OK;
    default:
      return SQLITE_OK;
  }
}

void SqliteCore::fail() {
  if (functions_.pending) std::rethrow_exception(std::exchange(functions_.pending, nullptr));
  const int code = sqlite3_extended_errcode(handle_);
  if ((code & 0xFF) == SQLITE_NOMEM) vbs::throwError(vbs::ErrorCode::OutOfMemory);
  throw errorOf(code, sqlite3_errmsg(handle_));
}

void SqliteCore::refuse(std::int32_t number, const std::string& text) const {
  DatabaseError error;
  error.number = number;
  error.description = options_.errorPrefix + text;
  error.source = options_.source;
  error.sqlState = number == kNoTable ? "42S02" : "42000";
  throw error;
}

DatabaseError SqliteCore::errorOf(int code, const std::string& message) const {
  DatabaseError error{kUnspecified, message, options_.source, "HY000", code};
  const auto set = [&](std::int32_t number, const char* state, std::string jetText) {
    error.number = number;
    error.sqlState = state;
    if (options_.jet) error.description = std::move(jetText);
  };
  const std::string table = behind(message, "no such table: ");
  const std::string function = behind(message, "no such function: ");
  switch (code & 0xFF) {
    case SQLITE_CONSTRAINT:
      if (code == SQLITE_CONSTRAINT_NOTNULL) {
        set(kUnspecified, "23000",
            "The field '" + behind(message, "NOT NULL constraint failed: ") +
                "' cannot contain a Null value because the Required property for this field is set "
                "to True.  Enter a value in this field.");
      } else if (code == SQLITE_CONSTRAINT_FOREIGNKEY) {
        set(kUnspecified, "23000",
            "The record cannot be deleted or changed because a table includes related records, or "
            "a related record is required.");
      } else if (code == SQLITE_CONSTRAINT_CHECK) {
        set(kUnspecified, "23000",
            "One or more values are prohibited by the validation rule '" +
                behind(message, "CHECK constraint failed: ") + "'.");
      } else {
        set(kUnspecified, "23000",
            "The changes you requested to the table were not successful because they would create "
            "duplicate values in the index, primary key, or relationship.  Change the data in the "
            "field or fields that contain duplicate data, remove the index, or redefine the index "
            "to permit duplicate entries and try again.");
      }
      if (!options_.jet) error.number = kIntegrity;
      break;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      set(kUnspecified, "HY000", "Could not update; currently locked.");
      break;
    case SQLITE_READONLY:
    case SQLITE_PERM:
      set(kUnspecified, "HY000", "Operation must use an updateable query.");
      break;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      set(kUnspecified, "HY000", "Unrecognized database format '" + options_.path + "'.");
      break;
    case SQLITE_CANTOPEN:
      set(kUnspecified, "HY000", "Could not find file '" + options_.path + "'.");
      if (!options_.jet) error.description = "unable to open database file '" + options_.path + "'";
      break;
    case SQLITE_AUTH:
      set(kNoPermission, "42000", "Records cannot be read or changed; no permission.");
      break;
    case SQLITE_MISMATCH:
      set(kMismatch, "22005", "Data type mismatch in criteria expression.");
      break;
    default:
      error.number = kSyntax;
      error.sqlState = "42000";
      if (!table.empty()) {
        set(kNoTable, "42S02",
            "The Microsoft Jet database engine cannot find the input table or query '" + table +
                "'.  Make sure it exists and that its name is spelled correctly.");
      } else if (message.starts_with("no such column: ")) {
        set(options_.jet ? kNoValue : kSyntax, "07002",
            "No value given for one or more required parameters.");
      } else if (!function.empty()) {
        set(kSyntax, "42000", "Undefined function '" + function + "' in expression.");
      } else if (message.find(" has no column named ") != message.npos) {
        const std::string field = message.substr(message.rfind(' ') + 1);
        set(kSyntax, "42000",
            "The INSERT INTO statement contains the following unknown field name: '" + field +
                "'.  Make sure you have typed the name correctly, and try the operation again.");
      } else if (message.ends_with("already exists")) {
        set(kSyntax, "42S01", "Object already exists: " + message + ".");
      }
  }
  error.description.insert(0, options_.errorPrefix);
  return error;
}

void SqliteCore::run(const std::string& text) {
  const Trusted trusted(*this);
  SqliteStatement statement(*this, text);
  while (statement.step()) {
  }
}

void SqliteCore::copyTo(const std::string& path) {
  const Trusted trusted(*this);
  sqlite3_limit(handle_, SQLITE_LIMIT_ATTACHED, 1);
  SqliteStatement(*this, "VACUUM INTO ?1").bind(1, path).step();
  sqlite3_limit(handle_, SQLITE_LIMIT_ATTACHED, 0);
}

sqlite3_stmt* SqliteCore::prepare(const std::string& text) {
  for (auto idle = idle_.rbegin(); idle != idle_.rend(); ++idle) {
    if (idle->first != text) continue;
    sqlite3_stmt* const statement = idle->second;
    idle_.erase(std::next(idle).base());
    return statement;
  }
  sqlite3_stmt* statement = nullptr;
  const int result = sqlite3_prepare_v3(handle_, text.data(), static_cast<int>(text.size()), 0,
                                        &statement, nullptr);
  if (result != SQLITE_OK) fail();
  if (!statement) refuse(kSyntax, "Syntax error in SQL statement.");
  return statement;
}

void SqliteCore::keep(const std::string& text, sqlite3_stmt* statement) {
  sqlite3_reset(statement);
  sqlite3_clear_bindings(statement);
  idle_.emplace_back(text, statement);
  if (idle_.size() <= kIdleStatements) return;
  sqlite3_finalize(idle_.front().second);
  idle_.erase(idle_.begin());
}

std::shared_ptr<const Translation> SqliteCore::translation(const std::string& text, bool rowKeys) {
  if (schema_.refresh() || translations_.size() >= kTranslations) translations_.clear();
  auto& place = translations_[(rowKeys ? "k" : "-") + text];
  if (!place) {
    SqlOptions options;
    options.schema = &schema_;
    options.rowKeys = rowKeys;
    options.exactDivision = options_.jet;
    options.oneStatement = options_.jet;
    place = std::make_shared<const Translation>(translateSql(text, options));
  }
  if (place->refused()) {
    const bool noProcedure = place->refusal.starts_with("Could not find stored");
    refuse(kSyntax, options_.jet && noProcedure
                        ? "The Microsoft Jet database engine cannot find the input table or query."
                        : place->refusal);
  }
  return place;
}

}  // namespace quorvane::ado
