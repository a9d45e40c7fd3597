#include "language_host.h"

#include "components/components.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/serial_date.h"

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
    "End Sub\n";

namespace {

constexpr std::int64_t kSecondOfDay = 13 * 3600 + 45 * 60 + 30;

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

double LanguageHost::now() {
  return vbs::combineDate(vbs::dayNumber(2024, 2, 29), kSecondOfDay);
}

double LanguageHost::secondsSinceMidnight() {
  return static_cast<double>(kSecondOfDay);
}

std::chrono::steady_clock::time_point LanguageHost::steadyNow() {
  return std::chrono::steady_clock::now();
}

Value LanguageHost::createObject(std::string_view progId) {
  return createComponent(progId, outside_.services);
}

Value LanguageHost::getObject(std::string_view, std::string_view) {
  vbs::throwError(vbs::ErrorCode::CannotCreateObject);
}

std::span<const vbs::Member<TestOutput>> TestOutput::members() {
  static constexpr vbs::Member<TestOutput> kMembers[] = {
      {"echo", 0, 255, &TestOutput::echo},
      {"show", 1, 1, &TestOutput::show},
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

}  // namespace quorvane
