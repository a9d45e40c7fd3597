#pragma once

#include <libxml/xpath.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "components/xml/node.h"

namespace quorvane::xml {

/// The nodes that an expression finds from a node on, in the order of the document; in the language
/// and with the namespaces that its document is set to. Error for a bad expression and for one that
/// finds no nodes but a value.
std::vector<xmlNode*> select(Node& from, const std::string& expression);

/// Error when the text is no list of declarations of namespaces.
void checkNamespaces(const std::string& declarations);

}  // namespace quorvane::xml
