#pragma once

#include <string>

#include "vbscript/values/object.h"

namespace quorvane {

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
