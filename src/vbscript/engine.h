#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string_view>

#include "vbscript/machine/error_report.h"
#include "vbscript/machine/program_cache.h"
#include "vbscript/values/host.h"
#include "vbscript/values/object.h"
#include "vbscript/values/value.h"

/// The one header through which a host compiles and runs scripts.
namespace quorvane::vbs {

class Machine;

/// One script run's world: its globals, its published objects, its random sequence. Made fresh
/// for each page; not reentrant (a host object must not call run() of the engine that calls it).
/// Instances of a script's classes may outlive the engine, in a session say; they are then empty.
class Engine {
 public:
  /// `host` and `cache` outlive the engine. All engines that share a cache live on one thread.
  Engine(Host& host, ProgramCache& cache, Limits limits = {});
  ~Engine();  ///< ends every object that the script still holds

  /// Publishes `object` under `name`; with `globalMembers` its members can be used without the
  /// name as well, after those of objects added before. All objects come before the first run.
  void addObject(std::string_view name, Object& object, bool globalMembers);

  /// Compiles and runs `source` (bytes of Windows-1252, or of UTF-8 behind the UTF-8 mark) in the
  /// global scope. Nothing on success. The limits of time and memory start anew with each call.
  std::optional<ErrorReport> run(std::string_view source);

  /// Moves the end of the run in progress, which Limits::time set at its start. For objects of the
  /// host while a script calls them.
  void setDeadline(std::chrono::steady_clock::time_point deadline);

  /// The value of an expression in the global scope; for tools and tests.
  std::optional<ErrorReport> evaluate(std::string_view expression, Value& result);

 private:
  std::unique_ptr<Machine> machine_;
};

}  // namespace quorvane::vbs
