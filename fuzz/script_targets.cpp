#include "script_targets.h"

#include <algorithm>

#include "require.h"
#include "testing/component_host.h"
#include "vbscript/dumps/dumps.h"
#include "vbscript/engine.h"
#include "vbscript/syntax/parser.h"
#include "vbscript/values/convert.h"

namespace quorvane {

namespace {

using vbs::Value;

class FuzzOutput : public vbs::NativeObject<FuzzOutput> {
 public:
  static std::span<const vbs::Member<FuzzOutput>> members() {
    static constexpr vbs::Member<FuzzOutput> kMembers[] = {
        {"echo", 0, 255, &FuzzOutput::echo},
        {"show", 1, 1, &FuzzOutput::echo},
        {"failed", 0, 0, &FuzzOutput::echo},
    };
    return kMembers;
  }
  std::string_view typeName() const override { return "Output"; }

 private:
  Value echo(vbs::Args args) {
    for (const Value& value : args) bytes_ += vbs::toString(value).narrow().size();
    return {};
  }

  std::size_t bytes_ = 0;
};

constexpr vbs::Limits kLimits{std::chrono::milliseconds(100), std::int64_t{16} << 20, 200};

}  // namespace

void fuzzParse(std::string_view source) {
  const auto lines = 2 + std::count_if(source.begin(), source.end(),
                                       [](char c) { return c == '\n' || c == '\r'; });
  try {
    vbs::parseScript(source);
  } catch (const vbs::CompileError& error) {
    require(error.number > 1000 && !error.description.empty(), "an error has number and text",
            source);
    require(error.position.line >= 1 && error.position.line < lines, "an error has a line", source);
    require(error.position.column >= 1 && error.position.column <= source.size() + 1,
            "an error has a column", source);
  }
  require(!vbs::dumpTokens(source).empty(), "there is a last token", source);
  vbs::dumpTree(source);
}

namespace {

/// The bytes that a run leaves behind.
std::int64_t bytesKeptByRun(std::string_view source) {
  ComponentHost host;
  const std::int64_t before = vbs::runContext.memory.used;
  {
    vbs::ProgramCache cache(1 << 16);
    const auto output = vbs::make<FuzzOutput>();
    vbs::Engine engine(host, cache, kLimits);
    engine.addObject("Test", *output, true);
    for (int i = 0; i < 2; ++i) {
      const auto error = engine.run(source);
      require(!error || error->number != 0, "an error has a number", source);
    }
  }
  return vbs::runContext.memory.used - before;
}

}  // namespace

void fuzzRun(std::string_view source) {
  // The library may keep something for good at its first use.
  if (bytesKeptByRun(source) == 0) return;
  require(bytesKeptByRun(source) == 0, "everything is given back", source);
}

}  // namespace quorvane
