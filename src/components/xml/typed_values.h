#pragma once

#include <string>
#include <string_view>

#include "vbscript/values/value.h"

namespace quorvane::xml {

/// The data types that an element's text may have ("bin.base64", "dateTime", "int", ...).
bool isDataType(std::string_view type);

/// The value that a text has as a type's. Error when it has none.
vbs::Value typedValue(std::string_view type, const std::string& text);

/// The text of a value as a type's; of no type ("") any text.
std::string typedText(std::string_view type, const vbs::Value& value);

}  // namespace quorvane::xml
