#include "components/ado/database_file.h"

#include <array>

#include "components/ado/connection_text.h"
#include "components/ado/failure.h"
#include "components/ado/jet/file_head.h"
#include "components/ado/jet/import.h"
#include "components/ado/sqlite/database.h"
#include "components/script_files.h"
#include "platform/services.h"
#include "support/files.h"

namespace quorvane::ado {

namespace {

constexpr std::string_view kInMemory = ":memory:";  ///< a database that is no file

constexpr std::string_view kOdbcSource = "Microsoft OLE DB Provider for ODBC Drivers";

std::string sourceOf(const ConnectionTarget& target) {
  if (target.odbcForm) return std::string(kOdbcSource);
  switch (target.engine) {
    case Engine::Jet:
      return "Microsoft JET Database Engine";
    case Engine::Ace:
      return "Microsoft Access Database Engine";
    default:
      return "SQLite";
  }
}

/// Of a file in the engine's own format; nothing for others.
std::optional<jet::FileHead> jetHead(const Services& services, const std::string& path) {
  const auto file = services.files.open(path);
  if (!file) return std::nullopt;
  std::array<char, jet::FileHead::kBytes> bytes;
  return jet::fileHead({bytes.data(), file->read(0, bytes.data(), bytes.size())});
}

[[noreturn]] void failOpening(const std::string& text, const SqliteOptions& options) {
  throw DatabaseError{kUnspecified, options.errorPrefix + text, options.source, "HY000", 0};
}

/// Nothing else of what the file says is told to whoever does not know its password.
void checkPassword(const jet::FileHead& head, const std::string& text,
                   const SqliteOptions& options) {
  const std::string given =
      ConnectionParts(text).findAny({"jet oledb:database password", "pwd"}).value_or("");
  if (head.isEncrypted || given == head.password) return;
  throw DatabaseError{kWrongPassword, options.errorPrefix + "Not a valid password.", options.source,
                      "28000", 0};
}

/// What stands for a file in the engine's own format is opened instead of it.
void useCopy(const Services& services, const std::string& text, SqliteOptions& options) {
  const auto head = jetHead(services, options.path);
  if (!head) return;
  checkPassword(*head, text, options);
  const std::string failure = jet::importIfNeeded(services, options.path);
  if (!failure.empty()) {
    failOpening("Unrecognized database format '" + options.path + "': " + failure + ".", options);
  }
  options.path = jet::copyPathOf(options.path);
}

[[noreturn]] void failExisting(const SqliteOptions& options) {
  throw DatabaseError{kDatabaseExists, options.errorPrefix + "Database already exists.",
                      options.source, "HY000", 0};
}

[[noreturn]] void failWithoutDriver() {
  throw DatabaseError{kUnspecified,
                      "[Microsoft][ODBC Driver Manager] Data source name not found and no default "
                      "driver specified",
                      std::string(kOdbcSource), "IM002", 0};
}

}  // namespace

std::string databasePath(const Services& services, const std::string& file) {
  return ScriptFiles(services).allowedPath(vbs::String::fromUtf8(file).narrow());
}

namespace {

/// What is to be opened, with the file's whole path. Throws as openDatabase() does.
SqliteOptions optionsOf(const Services& services, const std::string& text,
                        const std::string& provider) {
  const ConnectionTarget target = connectionTarget(text, provider);
  if (target.engine == Engine::Unknown) fail(AdoError::ProviderNotFound, "Connection");
  if (target.engine == Engine::Odbc) failWithoutDriver();
  SqliteOptions options;
  options.jet = target.engine != Engine::Sqlite;
  options.create = !options.jet;
  options.source = sourceOf(target);
  if (target.odbcForm && options.jet) {
    options.errorPrefix = "[Microsoft][ODBC Microsoft Access Driver] ";
  }
  if (target.file.empty()) failOpening("Could not find file ''.", options);
  options.path = target.file == kInMemory ? target.file : databasePath(services, target.file);
  return options;
}

}  // namespace

std::unique_ptr<Database> openDatabase(const Services& services, const std::string& text,
                                       const std::string& provider, bool readOnly,
                                       std::string& path) {
  SqliteOptions options = optionsOf(services, text, provider);
  options.readOnly = readOnly;
  path = options.path;
  if (path != kInMemory) useCopy(services, text, options);
  return openSqlite(services, std::move(options));
}

void createDatabase(const Services& services, const std::string& text) {
  SqliteOptions options = optionsOf(services, text, "");
  if (services.files.stat(options.path)) failExisting(options);
  options.create = true;
  SqliteCore core(services, options);
  core.run("PRAGMA user_version = 0");  // the file comes to be with the first writing
}

void compactDatabase(const Services& services, const std::string& from, const std::string& to) {
  SqliteOptions source = optionsOf(services, from, "");
  const SqliteOptions target = optionsOf(services, to, "");
  if (services.files.stat(target.path)) failExisting(target);
  useCopy(services, from, source);
  SqliteCore core(services, source);
  core.copyTo(target.path);
}

}  // namespace quorvane::ado
