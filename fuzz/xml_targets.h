#pragma once

#include <string_view>

namespace quorvane {

/// Reads what stands behind the first line as an XML document and selects nodes of it by the first
/// line, in both languages. What is read and written can be read again.
void fuzzXml(std::string_view bytes);

/// Opens a recordset from what is an XML document. What can be opened can be saved, and is the same
/// when it is opened again.
void fuzzRowset(std::string_view bytes);

}  // namespace quorvane
