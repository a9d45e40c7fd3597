#include "components/ado/database_file.h"

#include "components/ado/connection_text.h"
#include "components/ado/database_pool.h"
#include "components/ado/failure.h"
#include "components/ado/jet/file_head.h"
#include "components/ado/jet/import.h"
#include "components/ado/odbc/database.h"
#include "components/ado/odbc/values.h"
#include "components/ado/sqlite/database.h"
#include "components/script_files.h"
#include "platform/services.h"
#include "support/files.h"

namespace quorvane::ado {

namespace {

constexpr std::string_view kInMemory = ":memory:";  ///< a database that is no file

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
std::optional<jet::FileHead> jetHead(const std::string& path) {
  return jet::fileHead(headOfDatabaseFile(path, jet::FileHead::kBytes));
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
  const auto head = jetHead(options.path);
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

}  // namespace

std::string databasePath(const Services& services, const std::string& file) {
  return ScriptFiles(services).allowedPath(vbs::String::fromUtf8(file).narrow());
}

namespace {

/// A file to be opened, with its whole path. Throws as openDatabase() does.
SqliteOptions optionsOf(const Services& services, const ConnectionTarget& target) {
  if (target.engine == Engine::Unknown || target.engine == Engine::Odbc) {
    fail(AdoError::ProviderNotFound, "Connection");
  }
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

/// A connection that was opened in this way and rests, if there is one.
OpenDatabase fromPool(const Services& services, std::string way) {
  OpenDatabase open;
  open.way = std::move(way);
  if (services.databases) open.database = services.databases->take(open.way);
  return open;
}

OpenDatabase openServer(const Services& services, const DatabaseRequest& request) {
  // Parted by a character that no text for a driver has.
  const OdbcLogin& login = request.login;
  OpenDatabase open = fromPool(services, "server " + request.provider + '\0' + login.user + '\0' +
                                             login.password + '\0' + request.text);
  if (open.database) return open;
  try {
    std::vector<std::string> drivers;
    for (const std::u16string& name : odbcDrivers()) drivers.push_back(utf8Of(name));
    const std::string text = odbcText(request.text, request.provider, login, drivers);
    open.database = openOdbc(makeOdbcSession(), text, request.connectSeconds);
    return open;
  } catch (const OdbcFailure& failure) {
    throwFailure(failure);
  }
}

std::string wayOf(const SqliteOptions& options) {
  const std::string kind = std::string(options.jet ? "j" : "-") + (options.readOnly ? "r" : "-");
  return "file " + kind + options.source + options.errorPrefix + options.path;
}

/// What rests is of a file that is as it was, so that there is no need to look into it again.
OpenDatabase openFile(const Services& services, const std::string& text, SqliteOptions options) {
  const std::string path = options.path;
  OpenDatabase open = fromPool(services, wayOf(options));
  if (!open.database && path != kInMemory) {
    useCopy(services, text, options);
    if (options.path != path) open = fromPool(services, wayOf(options));
  }
  if (!open.database) open.database = openSqlite(services, std::move(options));
  if (path == kInMemory) open.way.clear();
  open.path = path;
  return open;
}

OpenDatabase openAsWritten(const Services& services, const DatabaseRequest& request) {
  const ConnectionTarget target = connectionTarget(request.text, request.provider);
  if (target.engine == Engine::Odbc) return openServer(services, request);
  SqliteOptions options = optionsOf(services, target);
  options.readOnly = request.readOnly;
  return openFile(services, request.text, std::move(options));
}

}  // namespace

OpenDatabase openDatabase(const Services& services, const DatabaseRequest& request) {
  if (const std::string* other =
          services.databases ? services.databases->redirects().find(request.text) : nullptr) {
    return openAsWritten(services, {*other, "", {}, request.readOnly, request.connectSeconds});
  }
  return openAsWritten(services, request);
}

void closeDatabase(const Services& services, OpenDatabase open) {
  if (!open.database || open.way.empty() || !services.databases) return;
  services.databases->keep(std::move(open.way), std::move(open.database));
}

void createDatabase(const Services& services, const std::string& text) {
  SqliteOptions options = optionsOf(services, connectionTarget(text, ""));
  if (services.files.stat(options.path)) failExisting(options);
  options.create = true;
  SqliteCore core(services, options);
  core.run("PRAGMA user_version = 0");  // the file comes to be with the first writing
}

void compactDatabase(const Services& services, const std::string& from, const std::string& to) {
  SqliteOptions source = optionsOf(services, connectionTarget(from, ""));
  const SqliteOptions target = optionsOf(services, connectionTarget(to, ""));
  if (services.files.stat(target.path)) failExisting(target);
  useCopy(services, from, source);
  SqliteCore core(services, source);
  core.copyTo(target.path);
}

}  // namespace quorvane::ado
