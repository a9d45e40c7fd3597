#include "language_host.h"

#include "testing/spelling.h"
#include "vbscript/values/convert.h"

namespace quorvane {

using vbs::Value;

const std::string_view kPrelude =
    "Sub Failed\n"
    "  If Err.Number = 0 Then Echo \"no error\" Else Echo Err.Number\n"
    "  Err.Clear\n"
    "End Sub\n"
    "Sub FailedText\n"
    "  If Err.Number = 0 Then Echo \"no error\" Else Echo Err.Number, Err.Description\n"
    "  Err.Clear\n"
    "End Sub\n"
    "Sub FailedPath\n"
    "  If Err.Number = 0 Then Echo \"no error\" Else Echo Err.Number, Spelled(Err.Description)\n"
    "  Err.Clear\n"
    "End Sub\n";

namespace {

std::string describe(const Value& given) {
  const Value& value = given.deref();
  const std::string type(vbs::typeName(value));
  switch (value.type()) {
    case vbs::Type::Empty:
    case vbs::Type::Null:
    case vbs::Type::Object:
    case vbs::Type::Array:
    case vbs::Type::Error:
      return type;
    case vbs::Type::String:
      return type + " \"" + value.asString().narrow() + '"';
    default:
      return type + ' ' + vbs::toString(value).narrow();
  }
}

}  // namespace

std::span<const vbs::Member<TestOutput>> TestOutput::members() {
  static constexpr vbs::Member<TestOutput> kMembers[] = {
      {"echo", 0, 255, &TestOutput::echo},
      {"show", 1, 1, &TestOutput::show},
      {"spelled", 1, 1, &TestOutput::spelledText},
  };
  return kMembers;
}

Value TestOutput::echo(vbs::Args args) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (i > 0) text_ += ' ';
    text_ += vbs::toString(args[i]).narrow();
  }
  text_ += '\n';
  return {};
}

Value TestOutput::show(vbs::Args args) {
  text_ += describe(args[0]) + '\n';
  return {};
}

Value TestOutput::spelledText(vbs::Args args) {
  return Value(std::string_view(spelled(vbs::toString(args[0]).narrow())));
}

}  // namespace quorvane
