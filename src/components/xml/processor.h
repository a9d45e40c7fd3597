#pragma once

#include <string>

#include "components/xml/node.h"
#include "components/xml/transforming.h"

namespace quorvane::xml {

/// A style sheet for several transformations.
class XslTemplate final : public vbs::NativeObject<XslTemplate> {
 public:
  static std::span<const vbs::Member<XslTemplate>> members();
  std::string_view typeName() const override { return "IXSLTemplate"; }
  void visitReferences(vbs::ReferenceVisitor& visitor) override { visitor.value(style_); }

  const vbs::Value& style() const { return style_; }

 private:
  vbs::Value getStylesheet(vbs::Args);
  void putStylesheet(vbs::Args args, vbs::CallKind);
  vbs::Value createProcessor(vbs::Args);

  vbs::Value style_ = vbs::Value::nothing();
};

/// One transformation: what goes in, its parameters, what comes out.
class XslProcessor final : public vbs::NativeObject<XslProcessor> {
 public:
  explicit XslProcessor(XslTemplate& owner)
      : owner_(vbs::Value::object(&owner)), style_(owner.style()) {}
  static std::span<const vbs::Member<XslProcessor>> members();
  std::string_view typeName() const override { return "IXSLProcessor"; }
  void visitReferences(vbs::ReferenceVisitor& visitor) override;

 private:
  vbs::Value getInput(vbs::Args);
  void putInput(vbs::Args args, vbs::CallKind);
  vbs::Value getOutput(vbs::Args);
  void putOutput(vbs::Args args, vbs::CallKind);
  vbs::Value getStylesheet(vbs::Args);
  vbs::Value getOwnerTemplate(vbs::Args);
  vbs::Value getReadyState(vbs::Args);
  vbs::Value addParameter(vbs::Args args);
  vbs::Value transform(vbs::Args);
  vbs::Value reset(vbs::Args);

  vbs::Value owner_;
  vbs::Value style_;
  vbs::Value input_ = vbs::Value::nothing();
  vbs::Value output_;  ///< a text that was made, or the object that takes what is made
  bool done_ = false;
  Parameters parameters_;
};

}  // namespace quorvane::xml
