#pragma once

#include <chrono>
#include <string>

#include "vbscript/values/host.h"
#include "vbscript/values/object.h"

namespace quorvane {

/// Published with its members as globals: `Echo a, b` writes a line of texts joined by a blank,
/// `Show a` writes a value with its type, `Spelled(a)` is a text with paths as tests write them.
class TestOutput : public vbs::NativeObject<TestOutput> {
 public:
  static std::span<const vbs::Member<TestOutput>> members();
  std::string_view typeName() const override { return "TestOutput"; }

  const std::string& text() const { return text_; }

 private:
  vbs::Value echo(vbs::Args args);
  vbs::Value show(vbs::Args args);
  vbs::Value spelledText(vbs::Args args);

  std::string text_;
};

/// Run before each case: `Failed` writes the number of the trapped error, or "no error", and
/// clears it; `FailedText` adds the description, `FailedPath` one with paths in it.
extern const std::string_view kPrelude;

/// What a case may take. A busy machine and sanitizers make a run many times as long, and no case
/// is about how long it may be.
inline constexpr vbs::Limits kCaseLimits{.time = std::chrono::minutes{3}};

}  // namespace quorvane
