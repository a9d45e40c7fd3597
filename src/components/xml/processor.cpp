#include "components/xml/processor.h"

#include <array>

#include "components/xml/errors.h"
#include "vbscript/values/convert.h"

namespace quorvane::xml {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

// Values of readyState.
constexpr std::int32_t kLoaded = 1;
constexpr std::int32_t kComplete = 4;

Parameter parameterOf(const Value& value) {
  const Value plain = vbs::plainValue(value);
  switch (plain.type()) {
    case vbs::Type::Boolean:
      return {plain.asBoolean() ? "true()" : "false()", true};
    case vbs::Type::Byte:
    case vbs::Type::Integer:
    case vbs::Type::Long:
      return {std::to_string(plain.asInt()), true};
    case vbs::Type::Single:
    case vbs::Type::Double:
    case vbs::Type::Currency:
      return {"number('" + vbs::toString(plain).utf8() + "')", true};
    default:
      return {vbs::toString(plain).utf8(), false};
  }
}

}  // namespace

std::span<const vbs::Member<XslTemplate>> XslTemplate::members() {
  using Row = vbs::Member<XslTemplate>;
  static constexpr std::array kMembers = {
      Row{"stylesheet", 0, 0, &XslTemplate::getStylesheet, &XslTemplate::putStylesheet},
      Row{"createprocessor", 0, 0, &XslTemplate::createProcessor},
  };
  return kMembers;
}

Value XslTemplate::getStylesheet(Args) {
  return style_;
}

void XslTemplate::putStylesheet(Args args, CallKind) {
  Node& style = Node::argument(args.back());
  checkStyle(style);
  style_ = Value::object(&style);
}

Value XslTemplate::createProcessor(Args) {
  if (!style_.asObject()) fail("The stylesheet property has not been set.");
  return Value::adopt(new XslProcessor(*this));
}

std::span<const vbs::Member<XslProcessor>> XslProcessor::members() {
  using Row = vbs::Member<XslProcessor>;
  using Self = XslProcessor;
  static constexpr std::array kMembers = {
      Row{"input", 0, 0, &Self::getInput, &Self::putInput},
      Row{"output", 0, 0, &Self::getOutput, &Self::putOutput},
      Row{"stylesheet", 0, 0, &Self::getStylesheet},
      Row{"ownertemplate", 0, 0, &Self::getOwnerTemplate},
      Row{"readystate", 0, 0, &Self::getReadyState},
      Row{"addparameter", 2, 3, &Self::addParameter},
      Row{"transform", 0, 0, &Self::transform},
      Row{"reset", 0, 0, &Self::reset},
  };
  return kMembers;
}

void XslProcessor::visitReferences(vbs::ReferenceVisitor& visitor) {
  for (Value* held : {&owner_, &style_, &input_, &output_}) visitor.value(*held);
}

Value XslProcessor::getInput(Args) {
  return input_;
}

void XslProcessor::putInput(Args args, CallKind) {
  input_ = Value::object(&Node::argument(args.back()));
}

Value XslProcessor::getOutput(Args) {
  return output_;
}

void XslProcessor::putOutput(Args args, CallKind) {
  output_ = args.back().deref();
}

Value XslProcessor::getStylesheet(Args) {
  return style_;
}

Value XslProcessor::getOwnerTemplate(Args) {
  return owner_;
}

Value XslProcessor::getReadyState(Args) {
  return Value::longInt(done_ ? kComplete : kLoaded);
}

Value XslProcessor::addParameter(Args args) {
  std::string name = vbs::toString(args[0]).utf8();
  checkName(name);
  if (args.size() > 2) {
    const std::string space = vbs::toString(args[2]).utf8();
    if (!space.empty()) name = "{" + space + "}" + name;
  }
  parameters_[name] = parameterOf(args[1]);
  return Value();
}

Value XslProcessor::transform(Args) {
  if (!input_.isObject() || !input_.asObject()) fail("The input property has not been set.");
  Node& input = Node::argument(input_);
  Node& style = Node::argument(style_);
  if (output_.isObject() && output_.asObject()) {
    transformToObject(input, style, output_, parameters_);
  } else {
    output_ = transformToText(input, style, parameters_);
  }
  done_ = true;
  return Value::boolean(true);
}

Value XslProcessor::reset(Args) {
  done_ = false;
  if (!output_.isObject()) output_ = Value();
  return Value();
}

}  // namespace quorvane::xml
