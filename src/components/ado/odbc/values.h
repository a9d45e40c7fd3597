#pragma once

#include <string>
#include <string_view>

#include "components/ado/driver.h"
#include "components/ado/odbc/session.h"

namespace quorvane::ado {

std::string utf8Of(std::u16string_view text);
std::u16string wideOf(std::string_view utf8);

/// A column as recordsets know it, by what the driver says of it.
Column columnOf(const OdbcColumn& column);

/// What a driver has given, as a column of this type has it.
vbs::Value valueOf(const OdbcCell& cell, const Column& column);

/// A script's value as a parameter. Error 13 for what no database takes.
OdbcCell cellOf(const vbs::Value& value);

/// A failure as scripts see it, all its records with it.
DatabaseError errorOf(const OdbcFailure& failure);

}  // namespace quorvane::ado
