#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "vbscript/host.h"
#include "vbscript/object.h"
#include "vbscript/value.h"

/// The one header through which a host compiles and runs scripts.
namespace quorvane::vbs {

class Machine;
class Program;  ///< a compiled script; shared between runs
struct HostObject;

/// A script that did not compile or stopped with an untrapped error.
struct ErrorReport {
  std::int32_t number = 0;
  std::string description;  ///< bytes of Windows-1252
  std::string source;
  std::uint32_t line = 0;    ///< 1-based line of the script text
  std::uint32_t column = 0;  ///< 1-based
  std::string sourceLine;    ///< text of that line, for compile errors
  bool isCompileError = false;
};

/// Compiled programs by their exact source text, least recently used first out.
class ProgramCache {
 public:
  /// `maxSourceBytes` bounds the sum of the source texts held.
  explicit ProgramCache(std::size_t maxSourceBytes = std::size_t{16} << 20);
  ~ProgramCache();

  /// The program for `source`, compiled when it is new, as it is without objects of a host. Null
  /// and `error` filled when it does not compile.
  std::shared_ptr<const Program> get(std::string_view source, ErrorReport& error);

 private:
  friend class Machine;
  /// Compiled code knows where the host's objects have their members, so those count as well.
  std::shared_ptr<const Program> get(std::string_view source, std::span<const HostObject> objects,
                                     ErrorReport& error);

  struct Impl;
  std::unique_ptr<Impl> impl_;
};

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

  /// Compiles and runs `source` (bytes of Windows-1252) in the global scope. Nothing on success.
  /// The limits of time and memory start anew with each call.
  std::optional<ErrorReport> run(std::string_view source);

  /// Moves the end of the run in progress, which Limits::time set at its start. For objects of the
  /// host while a script calls them.
  void setDeadline(std::chrono::steady_clock::time_point deadline);

  /// The value of an expression in the global scope; for tools and tests.
  std::optional<ErrorReport> evaluate(std::string_view expression, Value& result);

 private:
  std::unique_ptr<Machine> machine_;
};

/// What the tools show of a script.
std::string dumpTokens(std::string_view source);
std::string dumpTree(std::string_view source);
std::string dumpBytecode(std::string_view source);

}  // namespace quorvane::vbs
