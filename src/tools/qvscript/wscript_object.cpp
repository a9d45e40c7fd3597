#include "qvscript/wscript_object.h"

#include <chrono>
#include <filesystem>

#include "automation/system_objects.h"
#include "qvscript/standard_stream.h"
#include "vbscript/values/convert.h"

namespace quorvane::qvscript {

using vbs::Args;
using vbs::Member;
using vbs::Value;

namespace {

Value text(const std::string& bytes) {
  return Value(std::string_view(bytes));
}

std::string textOf(Args args, std::size_t index) {
  if (index >= args.size() || args[index].isMissing()) return {};
  return vbs::toString(args[index]).narrow();
}

}  // namespace

WScriptObject::WScriptObject(vbs::Host& host, Setting setting)
    : host_(host),
      setting_(std::move(setting)),
      arguments_(vbs::make<ScriptArguments>(setting_.arguments)),
      input_(standardStream(stdin, TextStream::Mode::Read)),
      output_(standardStream(stdout, TextStream::Mode::Write)),
      error_(standardStream(stderr, TextStream::Mode::Write)) {}

std::span<const Member<WScriptObject>> WScriptObject::members() {
  using Self = WScriptObject;
  static constexpr Member<Self> kMembers[] = {
      {"echo", 0, 255, &Self::echo},
      {"name", 0, 0, &Self::name, nullptr, true},
      {"application", 0, 0, &Self::application},
      {"arguments", 0, 0, &Self::arguments},
      {"buildversion", 0, 0, &Self::buildVersion},
      {"createobject", 1, 2, &Self::createObject},
      {"fullname", 0, 0, &Self::fullName},
      {"getobject", 1, 3, &Self::getObject},
      {"interactive", 0, 0, &Self::interactive, &Self::setInteractive},
      {"path", 0, 0, &Self::path},
      {"quit", 0, 1, &Self::quit},
      {"scriptfullname", 0, 0, &Self::scriptFullName},
      {"scriptname", 0, 0, &Self::scriptName},
      {"sleep", 1, 1, &Self::sleep},
      {"stderr", 0, 0, &Self::standardError},
      {"stdin", 0, 0, &Self::standardInput},
      {"stdout", 0, 0, &Self::standardOutput},
      {"version", 0, 0, &Self::version},
  };
  return kMembers;
}

Value WScriptObject::arguments(Args) {
  return Value::object(arguments_.get());
}
Value WScriptObject::buildVersion(Args) {
  return Value::longInt(0);
}
Value WScriptObject::createObject(Args args) {
  return host_.createObject(textOf(args, 0));
}

/// Its arguments with blanks between, on a line of standard output.
Value WScriptObject::echo(Args args) {
  std::string line;
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (i > 0) line += ' ';
    if (!args[i].isMissing()) line += args[i].deref().isNull() ? "null" : textOf(args, i);
  }
  line += '\n';
  output_->write(vbs::String(line));
  return {};
}

Value WScriptObject::fullName(Args) {
  return text(setting_.programPath);
}
Value WScriptObject::getObject(Args args) {
  return host_.getObject(textOf(args, 0), textOf(args, 1));
}
void WScriptObject::setInteractive(Args args, vbs::CallKind) {
  interactive_ = vbs::toBoolean(args[0]);
}
Value WScriptObject::name(Args) {
  return Value("qvscript");
}
Value WScriptObject::path(Args) {
  return text(std::filesystem::path(setting_.programPath).parent_path().string());
}

Value WScriptObject::quit(Args args) {
  exitCode_ = args.empty() || args[0].isMissing() ? 0 : vbs::toLong(args[0]);
  throw vbs::EndOfRun{};
}

Value WScriptObject::scriptFullName(Args) {
  return text(setting_.scriptPath);
}
Value WScriptObject::scriptName(Args) {
  return text(std::filesystem::path(setting_.scriptPath).filename().string());
}

Value WScriptObject::sleep(Args args) {
  const std::int32_t milliseconds = vbs::toLong(args[0]);
  if (milliseconds < 0) vbs::throwError(vbs::ErrorCode::InvalidCall);
  std::fflush(stdout);
  automation::sleep(std::chrono::milliseconds(milliseconds));
  return {};
}

Value WScriptObject::version(Args) {
  return Value("5.8");
}

}  // namespace quorvane::qvscript
