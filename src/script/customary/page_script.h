#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "jscript/script_engine.h"
#include "script/customary/page_program.h"
#include "script/customary/response_object.h"
#include "vbscript/engine.h"
#include "vbscript/machine/error_report.h"
#include "vbscript/values/object.h"

namespace quorvane::customary {

/// The JScript of a page that runs: what its program calls by the names of joinScript(), and the
/// script's functions and variables, which the program uses without an object's name.
class PageScript final : public vbs::Object {
 public:
  /// Both live as long as the run. Without `output` the script has no text to write.
  PageScript(const PageProgram& page, OutputNames* output) : page_(page), output_(output) {}

  /// Before the program runs.
  void addObject(std::string_view name, vbs::Object& object, bool globalMembers) {
    engine_.addObject(name, object, globalMembers);
  }
  /// After the last of them: the script's names and the program's find each other.
  void join(vbs::Engine& engine);

  /// The script's line where the error that ended the run arose; 0: not there, or not known.
  std::uint32_t lineOf(const vbs::ErrorReport& report) const;

  std::string_view typeName() const override { return "Script"; }
  const void* shape() const override;
  vbs::MemberId findMember(std::string_view lowerName) override;
  vbs::Value invoke(vbs::MemberId id, vbs::CallKind kind, vbs::Args args) override;

 private:
  vbs::Value use(vbs::MemberId id, vbs::CallKind kind, vbs::Args args);
  void run();

  const PageProgram& page_;
  OutputNames* output_;
  jscript::ScriptEngine engine_;
  vbs::ScriptError failure_;
  std::uint32_t failedLine_ = 0;
};

/// The script of a page that has one, else null.
vbs::Ref<PageScript> scriptOf(const PageProgram& page, OutputNames* output);

/// Where in the page's files the error that ended its run arose; `script` may be null.
std::optional<Place> placeOf(const vbs::ErrorReport& report, const PageProgram& page,
                             const PageScript* script);

}  // namespace quorvane::customary
