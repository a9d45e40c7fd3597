#include "vbscript/machine/err_object.h"

#include "vbscript/values/convert.h"

namespace quorvane::vbs {

namespace {

constexpr std::int32_t kFirstCompileError = 1001;
constexpr std::int32_t kLastCompileError = 1058;

bool isGiven(Args args, std::size_t index) {
  return index < args.size() && !args[index].deref().isMissing();
}

}  // namespace

std::string_view defaultErrorSource(std::int32_t number) {
  const bool compile = number >= kFirstCompileError && number <= kLastCompileError;
  return compile ? "Microsoft VBScript compilation error" : "Microsoft VBScript runtime error";
}

std::span<const Member<ErrObject>> ErrObject::members() {
  static constexpr Member<ErrObject> kMembers[] = {
      {"number", 0, 0, &ErrObject::number, &ErrObject::putNumber, true},
      {"description", 0, 0, &ErrObject::description, &ErrObject::putDescription},
      {"source", 0, 0, &ErrObject::source, &ErrObject::putSource},
      {"clear", 0, 0, &ErrObject::clearCalled, nullptr},
      {"raise", 1, 5, &ErrObject::raise, nullptr},
      {"helpfile", 0, 0, &ErrObject::helpFile, &ErrObject::putHelpFile},
      {"helpcontext", 0, 0, &ErrObject::helpContext, &ErrObject::putHelpContext},
  };
  return kMembers;
}

void ErrObject::clear() {
  if (error_.number == 0 && error_.description.empty() && error_.source.empty()) return;
  error_ = ScriptError();
}

Value ErrObject::number(Args) {
  return Value::longInt(error_.number);
}
void ErrObject::putNumber(Args args, CallKind) {
  error_.number = toLong(args.back());
}
Value ErrObject::description(Args) {
  return Value(error_.description);
}
void ErrObject::putDescription(Args args, CallKind) {
  error_.description = toString(args.back()).narrow();
}
Value ErrObject::source(Args) {
  if (error_.source.empty() && error_.number != 0) return Value(defaultErrorSource(error_.number));
  return Value(error_.source);
}
void ErrObject::putSource(Args args, CallKind) {
  error_.source = toString(args.back()).narrow();
}
Value ErrObject::helpFile(Args) {
  return Value(error_.helpFile);
}
void ErrObject::putHelpFile(Args args, CallKind) {
  error_.helpFile = toString(args.back()).narrow();
}
Value ErrObject::helpContext(Args) {
  return Value::longInt(error_.helpContext);
}
void ErrObject::putHelpContext(Args args, CallKind) {
  error_.helpContext = toLong(args.back());
}

Value ErrObject::clearCalled(Args) {
  clear();
  return Value();
}

Value ErrObject::raise(Args args) {
  constexpr std::int32_t kMost = 65535;
  const std::int32_t number = scriptErrorNumber(toLong(args[0]));
  if (number == 0 || number > kMost) throwError(ErrorCode::InvalidCall);
  // What is not given stays as an earlier error or the script has left it.
  ScriptError error = error_;
  error.number = number;
  error.subject.clear();
  error.line = error.column = 0;
  if (isGiven(args, 1)) error.source = toString(args[1]).narrow();
  if (isGiven(args, 2)) error.description = toString(args[2]).narrow();
  if (isGiven(args, 3)) error.helpFile = toString(args[3]).narrow();
  if (isGiven(args, 4)) error.helpContext = toLong(args[4]);
  if (error.description.empty()) error.description = errorText(number);
  throw error;
}

}  // namespace quorvane::vbs
