#pragma once

#include <map>
#include <string>
#include <string_view>

#include "components/xml/node.h"

namespace quorvane::xml {

/// What a style sheet is told from outside.
struct Parameter {
  std::string value;
  bool isExpression = false;  ///< of XPath; else it is a text
};
/// By name; a name in a namespace has that before it in braces.
using Parameters = std::map<std::string, Parameter>;

/// What a style sheet makes of a node, as text.
vbs::Value transformToText(Node& source, Node& style, const Parameters& parameters);

/// The same as bytes in the encoding that the style sheet wants, for a document, a stream or a
/// response.
void transformToObject(Node& source, Node& style, const vbs::Value& destination,
                       const Parameters& parameters);

/// Error unless the node is a style sheet.
void checkStyle(Node& style);

}  // namespace quorvane::xml
