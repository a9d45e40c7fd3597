#pragma once

#include <cstdint>
#include <string_view>

#include "components/ado/ado_error.h"
#include "components/ado/driver.h"
#include "components/ado/error_numbers.h"
#include "vbscript/values/error.h"

namespace quorvane::ado {

/// Throws the script error of a number with its documented text. `object` names whose: "Recordset".
[[noreturn]] void fail(AdoError error, std::string_view object);
[[noreturn]] void fail(ErrorNumber number, std::string_view object);

/// A database's failure as scripts see it.
vbs::ScriptError scriptError(const DatabaseError& error);

}  // namespace quorvane::ado
