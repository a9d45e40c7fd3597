#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "testing/fake_host.h"
#include "vbscript/engine.h"
#include "vbscript/values/convert.h"

namespace quorvane {

/// `Write x` adds a text, `Put x` too, one or several in a call; `Keep x` holds on to a value
/// that `Kept` gives back, `Finish` ends the run as a page host does.
class Output final : public vbs::NativeObject<Output> {
 public:
  static std::span<const vbs::Member<Output>> members() {
    static constexpr vbs::Member<Output> kMembers[] = {
        {"write", 1, 1, &Output::write, nullptr},
        {"keep", 1, 1, &Output::keep, nullptr},
        {"kept", 0, 0, &Output::keptValue, nullptr},
        {"finish", 0, 0, &Output::finish, nullptr},
        {"title", 0, 0, &Output::title, &Output::putTitle},
        {"call", 1, 1, &Output::call, nullptr},
        {"put", 1, 1, &Output::put, nullptr, false, true},
    };
    return kMembers;
  }
  std::string_view typeName() const override { return "Output"; }

  std::string text;
  std::string titleText;
  vbs::Value kept;
  int puts = 0;

 private:
  vbs::Value write(vbs::Args args) {
    text += vbs::toString(args[0]).narrow();
    return {};
  }
  vbs::Value put(vbs::Args args) {
    ++puts;
    return write(args);
  }
  vbs::Value keep(vbs::Args args) {
    kept = args[0].deref();
    return {};
  }
  vbs::Value keptValue(vbs::Args) { return kept; }
  vbs::Value finish(vbs::Args) { throw vbs::ScriptError{6006, "end", {}, {}, 0, 0, 0}; }
  vbs::Value title(vbs::Args) { return vbs::Value(titleText); }
  void putTitle(vbs::Args args, vbs::CallKind) { titleText = vbs::toString(args.back()).narrow(); }
  vbs::Value call(vbs::Args args) {
    return vbs::toObject(args[0])->invoke(vbs::kDefaultMember, vbs::CallKind::Get, {});
  }
};

/// Engines over one cache, with an Output whose members are global.
class MachineTest : public testing::Test {
 protected:
  /// Runs in an engine of its own; what the script wrote, or its error in angle brackets.
  std::string run(std::string_view source) {
    output->text.clear();
    vbs::Engine engine(host, cache, limits);
    engine.addObject("Output", *output, true);
    lastError = engine.run(source);
    if (!lastError) return output->text;
    return output->text + '<' + std::to_string(lastError->number) + '>';
  }

  FakeHost host;
  vbs::ProgramCache cache;
  vbs::Limits limits;
  vbs::Ref<Output> output = vbs::make<Output>();
  std::optional<vbs::ErrorReport> lastError;
};

}  // namespace quorvane
