#include "components/xml/parse_error.h"

#include <array>

#include "support/text.h"
#include "vbscript/values/convert.h"

namespace quorvane::xml {

using vbs::Value;

std::span<const vbs::Member<ParseError>> ParseError::members() {
  using Row = vbs::Member<ParseError>;
  static constexpr std::array kMembers = {
      Row{"errorcode", 0, 0, &ParseError::getErrorCode, nullptr, true},
      Row{"reason", 0, 0, &ParseError::getReason},
      Row{"url", 0, 0, &ParseError::getUrl},
      Row{"srctext", 0, 0, &ParseError::getSrcText},
      Row{"line", 0, 0, &ParseError::getLine},
      Row{"linepos", 0, 0, &ParseError::getLinePos},
      Row{"filepos", 0, 0, &ParseError::getFilePos},
  };
  return kMembers;
}

Value ParseError::getErrorCode(vbs::Args) {
  return Value::longInt(fault_.code);
}
Value ParseError::getReason(vbs::Args) {
  return vbs::String::fromUtf8(fault_.reason);
}
Value ParseError::getUrl(vbs::Args) {
  return vbs::String::fromUtf8(fault_.url);
}
Value ParseError::getSrcText(vbs::Args) {
  return vbs::String::fromUtf8(fault_.sourceText);
}
Value ParseError::getLine(vbs::Args) {
  return Value::longInt(fault_.line);
}
Value ParseError::getLinePos(vbs::Args) {
  return Value::longInt(fault_.column);
}
Value ParseError::getFilePos(vbs::Args) {
  return Value::longInt(fault_.position);
}

std::span<const vbs::Member<Implementation>> Implementation::members() {
  using Row = vbs::Member<Implementation>;
  static constexpr std::array kMembers = {
      Row{"hasfeature", 2, 2, &Implementation::hasFeature},
  };
  return kMembers;
}

Value Implementation::hasFeature(vbs::Args args) {
  const std::string feature = vbs::toString(args[0]).narrow();
  const Value wanted = vbs::plainValue(args[1]);
  const std::string version = wanted.isNull() ? "" : vbs::toString(wanted).narrow();
  const bool known = equalsNoCase(feature, "XML") || equalsNoCase(feature, "DOM") ||
                     equalsNoCase(feature, "MS-DOM");
  return Value::boolean(known && (version.empty() || version == "1.0"));
}

}  // namespace quorvane::xml
