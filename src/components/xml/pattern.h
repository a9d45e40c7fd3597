#pragma once

#include <string>
#include <string_view>

namespace quorvane::xml {

/// What stands in a pattern where something else should: the place, counted from 0, and the text
/// there; no text at the end.
struct PatternError {
  std::size_t position;
  std::string found;
};

/// The XPath expression for one of the older pattern language, which counts from 0, says $eq$ or
/// $and$ and has methods (end(), index(), nodeName(), value(), ...). What only XPath has (axes, its
/// functions) passes. With `byName` names are those of the document's text, prefix and all; else no
/// node of the document is in a namespace. Throws PatternError.
std::string xpathOf(std::string_view pattern, bool byName);

/// The prefix of functions that XPath itself lacks: lower(text), node-type(nodes).
inline constexpr const char* kPatternPrefix = "_pattern";
inline constexpr const char* kPatternSpace = "urn:quorvane:pattern";

}  // namespace quorvane::xml
