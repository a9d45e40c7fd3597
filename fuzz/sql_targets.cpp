#include "sql_targets.h"

#include <sqlite3.h>

#include "components/ado/connection_text.h"
#include "components/ado/odbc/statements.h"
#include "components/ado/odbc/target.h"
#include "components/ado/sql/stored_date.h"
#include "components/ado/sql/translator.h"
#include "components/ado/sqlite/functions.h"
#include "require.h"
#include "testing/fake_services.h"

namespace quorvane {

namespace {

/// An empty database whose functions are those of scripts' connections.
class Library {
 public:
  Library() : context_(outside_.services) {
    sqlite3_open(":memory:", &connection_);
    sqlite3_db_config(connection_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(connection_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    ado::registerFunctions(connection_, context_);
  }

  /// Whether the text is SQL to it; what it speaks of need not be there.
  bool takes(const std::string& text) {
    sqlite3_stmt* statement = nullptr;
    const char* rest = nullptr;
    const int result = sqlite3_prepare_v2(connection_, text.c_str(), -1, &statement, &rest);
    sqlite3_finalize(statement);
    const std::string_view message = sqlite3_errmsg(connection_);
    if (result == SQLITE_OK) return rest && *rest == '\0';
    return message.find("syntax error") == message.npos &&
           message.find("unrecognized token") == message.npos &&
           message.find("incomplete input") == message.npos;
  }

 private:
  FakeServices<> outside_;
  ado::FunctionContext context_;
  sqlite3* connection_ = nullptr;
};

/// Whatever a page says, drivers are installed ones and no file is named.
void checkOdbcText(std::string_view text) {
  static const std::vector<std::string> kInstalled = {"FreeTDS", "MariaDB Unicode"};
  try {
    const ado::ConnectionParts parts(ado::odbcText(text, "", {}, kInstalled));
    const auto driver = parts.find("driver");
    require(!driver || *driver == kInstalled[0] || *driver == kInstalled[1], "a known driver",
            text);
    require(driver || parts.find("dsn"), "a driver or a source", text);
    require(!parts.find("filedsn") && !parts.find("tracefile"), "no file", text);
  } catch (const ado::OdbcFailure& failure) {
    require(failure.records.front().state == u"IM002", "no driver", text);
  }
  ado::OdbcNature nature;
  nature.system = u"MariaDB";
  const ado::OdbcDialect dialect(nature);
  dialect.leavesNoTraces(dialect.spelled(std::string(text)));
}

}  // namespace

void fuzzSql(std::string_view text) {
  static Library library;
  for (const bool keys : {false, true}) {
    ado::SqlOptions options;
    options.rowKeys = keys;
    const ado::Translation result = ado::translateSql(text, options);
    for (const ado::SqlStatement& statement : result.statements) {
      if (statement.kind > ado::SqlStatement::Kind::SelectInto) continue;
      require(library.takes(statement.text), statement.text.c_str(), text);
    }
  }
  ado::connectionTarget(text, "");
  require(ado::ConnectionParts(text).withoutPassword().find("password") == std::string::npos ||
              text.find("password") != text.npos,
          "passwords are left out", text);
  checkOdbcText(text);
  if (const auto date = ado::storedDate(text)) {
    require(ado::storedDate(*date) == date, "a stored date stays as it is", text);
  }
}

}  // namespace quorvane
