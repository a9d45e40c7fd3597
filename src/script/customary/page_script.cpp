#include "script/customary/page_script.h"

#include <algorithm>
#include <array>

#include "support/text.h"
#include "vbscript/values/convert.h"

namespace quorvane::customary {

namespace {

enum Own : vbs::MemberId { kProcedure = 1, kVariable, kScript, kFirstName };

constexpr std::array<std::string_view, 3> kOwn{"%procedure", "%variable", "%script"};

/// A member as a function.
class MemberCall final : public vbs::Object {
 public:
  MemberCall(vbs::Object& object, std::string_view name)
      : object_(&object), member_(object.findMember(name)) {}

  std::string_view typeName() const override { return "Function"; }
  vbs::MemberId findMember(std::string_view) override { return vbs::kNoMember; }
  vbs::Value invoke(vbs::MemberId, vbs::CallKind, vbs::Args args) override {
    return object_->invoke(member_, vbs::CallKind::Call, args);
  }

 private:
  vbs::Ref<vbs::Object> object_;
  vbs::MemberId member_;
};

}  // namespace

void PageScript::join(vbs::Engine& engine) {
  engine_.findNames(page_.scriptUses);
  engine.addObject({}, *this, true);
}

const void* PageScript::shape() const {
  return kOwn.data();  // of programs that are the same, the names are
}

vbs::MemberId PageScript::findMember(std::string_view lowerName) {
  const auto own = std::find(kOwn.begin(), kOwn.end(), lowerName);
  if (own != kOwn.end()) return static_cast<vbs::MemberId>(own - kOwn.begin()) + kProcedure;
  const auto& names = page_.scriptNames;
  const auto name = std::find_if(names.begin(), names.end(), [&](const std::string& known) {
    return equalsNoCase(known, lowerName);
  });
  if (name == names.end()) return vbs::kNoMember;
  return static_cast<vbs::MemberId>(name - names.begin()) + kFirstName;
}

vbs::Value PageScript::invoke(vbs::MemberId id, vbs::CallKind kind, vbs::Args args) {
  try {
    return use(id, kind, args);
  } catch (const vbs::ScriptError& error) {
    failure_ = error;
    failedLine_ = engine_.failedLine();
    throw;
  }
}

vbs::Value PageScript::use(vbs::MemberId id, vbs::CallKind kind, vbs::Args args) {
  if (id >= kFirstName) {
    return engine_.use(page_.scriptNames[static_cast<std::size_t>(id - kFirstName)], kind, args);
  }
  if (id == kScript) {
    run();
  } else if (id == kProcedure && args.size() == 2) {
    engine_.addProcedure(vbs::toString(args[0]).utf8(), args[1].deref());
  } else if (id == kVariable && args.size() == 3) {
    engine_.addVariable(vbs::toString(args[0]).utf8(), args[1].deref(), args[2].deref());
  } else {
    vbs::throwError(vbs::ErrorCode::NoPropertyOrMethod);
  }
  return {};
}

void PageScript::run() {
  for (const auto& [name, member] : {std::pair{"qv$text", "%text"}, {"qv$out", "%out"}}) {
    if (!output_) break;
    const auto call = vbs::make<MemberCall>(*output_, member);
    engine_.addProcedure(name, vbs::Value::object(call.get()));
  }
  engine_.run(page_.script);
}

std::uint32_t PageScript::lineOf(const vbs::ErrorReport& report) const {
  const bool isSame =
      report.number == failure_.number && report.description == failure_.description;
  return isSame ? failedLine_ : 0;
}

vbs::Ref<PageScript> scriptOf(const PageProgram& page, OutputNames* output) {
  if (page.script.empty()) return {};
  return vbs::make<PageScript>(page, output);
}

std::optional<Place> placeOf(const vbs::ErrorReport& report, const PageProgram& page,
                             const PageScript* script) {
  const std::uint32_t line = script ? script->lineOf(report) : 0;
  return line > 0 ? page.scriptLines.place(line, 0) : page.lines.place(report.line, report.column);
}

}  // namespace quorvane::customary
