#pragma once

#include <string>

#include "testing/fake_services.h"
#include "vbscript/values/host.h"
#include "vbscript/values/object.h"

namespace quorvane {

/// The outside of a language test: a clock that stands at 29 February 2024, 13:45:30.
class LanguageHost final : public vbs::Host {
 public:
  double now() override;
  double secondsSinceMidnight() override;
  std::chrono::steady_clock::time_point steadyNow() override;
  vbs::Value createObject(std::string_view progId) override;
  vbs::Value getObject(std::string_view pathName, std::string_view progId) override;

 private:
  FakeServices<> outside_;
};

/// Published with its members as globals: `Echo a, b` writes a line of texts joined by a blank,
/// `Show a` writes a value with its type.
class TestOutput : public vbs::NativeObject<TestOutput> {
 public:
  static std::span<const vbs::Member<TestOutput>> members();
  std::string_view typeName() const override { return "TestOutput"; }

  const std::string& text() const { return text_; }

 private:
  vbs::Value echo(vbs::Args args);
  vbs::Value show(vbs::Args args);

  std::string text_;
};

/// Run before each case: `Failed` writes the number of the trapped error, or "no error", and
/// clears it; `FailedText` adds the description.
extern const std::string_view kPrelude;

}  // namespace quorvane
