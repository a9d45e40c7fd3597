#pragma once

#include <memory>
#include <string>

#include "components/ado/odbc/core.h"

namespace quorvane::ado {

/// A database at the driver manager. `text` is for it; `seconds` is for connecting. Throws
/// DatabaseError.
std::unique_ptr<Database> openOdbc(std::shared_ptr<OdbcSession> session, const std::string& text,
                                   std::int32_t seconds);

SchemaRows schemaRows(OdbcCore& core, SchemaKind kind);

}  // namespace quorvane::ado
