#pragma once

#include <memory>
#include <string>

#include "components/ado/driver.h"
#include "components/ado/odbc/target.h"

namespace quorvane {
struct Services;
}

namespace quorvane::ado {

struct DatabaseRequest {
  std::string text;
  std::string provider;  ///< as in connectionTarget()
  OdbcLogin login;
  bool readOnly = false;
  std::int32_t connectSeconds = 15;  ///< for a server; 0 for ever
};

struct OpenDatabase {
  std::unique_ptr<Database> database;
  std::string path;  ///< of a file
  std::string way;   ///< what is to be the same for another to use it; empty: nobody may
};

/// Opens what a connection text names, or the text that stands for it. Throws DatabaseError, or the
/// script error 3706 for a provider that is not known.
OpenDatabase openDatabase(const Services& services, const DatabaseRequest& request);
/// Ends it, or keeps it for the next to ask.
void closeDatabase(const Services& services, OpenDatabase open);

/// Makes an empty database file; compactDatabase() one with the content of another. It must not be
/// there yet. Throw as openDatabase() does.
void createDatabase(const Services& services, const std::string& text);
void compactDatabase(const Services& services, const std::string& from, const std::string& to);

/// The whole path of a database file that a script names. Error 70 where scripts may not go.
std::string databasePath(const Services& services, const std::string& file);

}  // namespace quorvane::ado
