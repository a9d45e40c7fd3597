#pragma once

#include <string>
#include <vector>

#include "components/text_stream.h"
#include "qvscript/script_arguments.h"
#include "vbscript/values/host.h"
#include "vbscript/values/object.h"

namespace quorvane::qvscript {

/// The object WScript: how a script talks to the command line that runs it.
class WScriptObject : public vbs::NativeObject<WScriptObject> {
 public:
  struct Setting {
    std::string scriptPath;   ///< absolute
    std::string programPath;  ///< of this tool
    std::vector<std::string> arguments;
  };
  /// `host` outlives the object.
  WScriptObject(vbs::Host& host, Setting setting);

  static std::span<const vbs::Member<WScriptObject>> members();
  std::string_view typeName() const override { return "IHost_Class"; }

  std::int32_t exitCode() const { return exitCode_; }  ///< what the script quit with

 private:
  vbs::Value application(vbs::Args) { return vbs::Value::object(this); }
  vbs::Value arguments(vbs::Args);
  vbs::Value buildVersion(vbs::Args);
  vbs::Value createObject(vbs::Args args);
  vbs::Value echo(vbs::Args args);
  vbs::Value fullName(vbs::Args);
  vbs::Value getObject(vbs::Args args);
  vbs::Value interactive(vbs::Args) { return vbs::Value::boolean(interactive_); }
  void setInteractive(vbs::Args args, vbs::CallKind);
  vbs::Value name(vbs::Args);
  vbs::Value path(vbs::Args);
  vbs::Value quit(vbs::Args args);
  vbs::Value scriptFullName(vbs::Args);
  vbs::Value scriptName(vbs::Args);
  vbs::Value sleep(vbs::Args args);
  vbs::Value standardError(vbs::Args) { return vbs::Value::object(error_.get()); }
  vbs::Value standardInput(vbs::Args) { return vbs::Value::object(input_.get()); }
  vbs::Value standardOutput(vbs::Args) { return vbs::Value::object(output_.get()); }
  vbs::Value version(vbs::Args);

  vbs::Host& host_;
  Setting setting_;
  vbs::Ref<ScriptArguments> arguments_;
  vbs::Ref<TextStream> input_;
  vbs::Ref<TextStream> output_;
  vbs::Ref<TextStream> error_;
  bool interactive_ = true;
  std::int32_t exitCode_ = 0;
};

}  // namespace quorvane::qvscript
