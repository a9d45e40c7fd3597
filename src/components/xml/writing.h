#pragma once

#include <libxml/tree.h>

#include <string>
#include <string_view>

namespace quorvane::xml {

/// The markup of a part of a document in UTF-8, as scripts see it: the declaration names no
/// encoding, lines end in CR LF, and namespaces in use are declared wherever the document does not.
std::string markup(const xmlNode* root);

/// The whole document in the encoding that its declaration names, UTF-8 without one.
std::string documentBytes(const xmlDoc* document);

/// The value of a name in the declaration's text (`version="1.0" encoding="UTF-8"`), or nothing.
std::string_view declared(std::string_view declaration, std::string_view name);

}  // namespace quorvane::xml
