#pragma once

#include <string>
#include <string_view>

#include "components/ado/jet/stream_reader.h"
#include "vbscript/values/value.h"

namespace quorvane::ado::jet {

/// A column's type as SQL declares it: "TEXT(50)", "CURRENCY". `isOld`: texts have one byte a
/// character.
std::string declaredTypeOf(const JetColumn& column, bool isOld);

/// A value as scripts hold it. Nothing (Empty) for bytes that are none of the column's type.
/// `charset`: of the texts of a Jet 3 file; empty for others.
vbs::Value valueOfBytes(const JetColumn& column, std::string_view bytes,
                        const std::string& charset);

/// The text of bytes that may be squeezed, as later files than Jet 3 have it.
vbs::String textOfBytes(std::string_view bytes);

}  // namespace quorvane::ado::jet
