#pragma once

#include <memory>
#include <string>

#include "components/ado/driver.h"

namespace quorvane {
struct Services;
}

namespace quorvane::ado {

/// Opens what a connection text names; `provider` as in connectionTarget(). `path` becomes the
/// file's. Throws DatabaseError, or the script error 3706 for a provider that is not known.
std::unique_ptr<Database> openDatabase(const Services& services, const std::string& text,
                                       const std::string& provider, bool readOnly,
                                       std::string& path);

/// Makes an empty database file; compactDatabase() one with the content of another. It must not be
/// there yet. Throw as openDatabase() does.
void createDatabase(const Services& services, const std::string& text);
void compactDatabase(const Services& services, const std::string& from, const std::string& to);

/// The whole path of a database file that a script names. Error 70 where scripts may not go.
std::string databasePath(const Services& services, const std::string& file);

}  // namespace quorvane::ado
