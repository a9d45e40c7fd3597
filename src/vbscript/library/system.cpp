#include <algorithm>

#include "vbscript/library/arguments.h"
#include "vbscript/values/text_locale.h"

namespace quorvane::vbs::intrinsic {

namespace {

constexpr std::int32_t kBuildVersion = 18702;

const Locale* localeFor(const Value& value) {
  if (value.isNull()) throwError(ErrorCode::InvalidNull);
  if (value.isEmpty() || value.isMissing()) return findLocale(kDefaultLocale);
  if (value.isString() && !parseNumber(value.asString())) {
    const String tag = value.asString().lower();
    return tag.empty() ? findLocale(kDefaultLocale) : findLocale(tag.narrow());
  }
  const std::int32_t id = toLong(value);
  return findLocale(id == 0 ? kDefaultLocale : id);
}

}  // namespace

Value createObject(Runtime& runtime, Args args) {
  const std::string progId = toString(args[0]).narrow();
  const bool remote = given(args, 1) && !toString(args[1]).empty();
  if (progId.empty() || remote) throwError(ErrorCode::CannotCreateObject);
  return runtime.host.createObject(progId);
}

Value getObject(Runtime& runtime, Args args) {
  const std::string path = given(args, 0) ? toString(args[0]).narrow() : std::string();
  const std::string progId = given(args, 1) ? toString(args[1]).narrow() : std::string();
  // An empty path, but not one that is left out, asks for a new object.
  const bool isNew = given(args, 0) && path.empty() && !progId.empty();
  return isNew ? runtime.host.createObject(progId) : runtime.host.getObject(path, progId);
}

Value refuse(Runtime&, Args) {
  throwError(ErrorCode::PermissionDenied);
}

Value rgb(Runtime&, Args args) {
  std::int32_t color = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const std::int32_t part = toInteger(args[i]);
    if (part < 0) throwError(ErrorCode::InvalidCall);
    color |= std::min(part, 255) << (8 * i);
  }
  return Value::longInt(color);
}

Value scriptEngine(Runtime&, Args) {
  return Value("VBScript");
}
Value scriptEngineBuildVersion(Runtime&, Args) {
  return Value::longInt(kBuildVersion);
}
Value scriptEngineMajorVersion(Runtime&, Args) {
  return Value::longInt(5);
}
Value scriptEngineMinorVersion(Runtime&, Args) {
  return Value::longInt(8);
}

Value getLocale(Runtime&, Args) {
  return Value::longInt(activeLocale().id);
}

Value setLocale(Runtime&, Args args) {
  const std::int32_t previous = activeLocale().id;
  const Locale* locale = localeFor(args.empty() ? Value() : plainValue(args[0]));
  if (!locale) throwError(ErrorCode::NoDefaultLocale);
  setActiveLocale(*locale);
  return Value::longInt(previous);
}

}  // namespace quorvane::vbs::intrinsic
