#pragma once

#include "components/xml/parsing.h"
#include "vbscript/values/object.h"

namespace quorvane::xml {

/// What a document's parseError shows. Its number stands for it: `If doc.parseError <> 0`.
class ParseError final : public vbs::NativeObject<ParseError> {
 public:
  explicit ParseError(ParseFault fault) : fault_(std::move(fault)) {}
  static std::span<const vbs::Member<ParseError>> members();
  std::string_view typeName() const override { return "IXMLDOMParseError"; }

 private:
  vbs::Value getErrorCode(vbs::Args);
  vbs::Value getReason(vbs::Args);
  vbs::Value getUrl(vbs::Args);
  vbs::Value getSrcText(vbs::Args);
  vbs::Value getLine(vbs::Args);
  vbs::Value getLinePos(vbs::Args);
  vbs::Value getFilePos(vbs::Args);

  ParseFault fault_;
};

/// A document's implementation.
class Implementation final : public vbs::NativeObject<Implementation> {
 public:
  static std::span<const vbs::Member<Implementation>> members();
  std::string_view typeName() const override { return "IXMLDOMImplementation"; }

 private:
  vbs::Value hasFeature(vbs::Args args);
};

}  // namespace quorvane::xml
