#pragma once

#include <list>
#include <string_view>

#include "vbscript/engine.h"
#include "vbscript/parser.h"
#include "vbscript/program.h"

namespace quorvane::vbs {

/// What compiled code takes for granted about the objects of the host: their names, and where the
/// members are.
struct HostShape {
  std::string lower;
  const void* shape = nullptr;
  bool globalMembers = false;

  friend bool operator==(const HostShape&, const HostShape&) = default;
};

struct ProgramCache::Impl {
  struct Entry {
    std::vector<HostShape> host;
    std::shared_ptr<const Program> program;
  };

  explicit Impl(std::size_t maxBytes) : maxSourceBytes(maxBytes) {}

  const Entry* find(std::string_view source, HostObjects host);
  void add(std::vector<HostShape> host, std::shared_ptr<const Program> program);

  std::size_t maxSourceBytes;
  std::size_t sourceBytes = 0;
  std::list<Entry> entries;  ///< the latest used first
  /// Keys are views of the programs' own source texts.
  std::unordered_multimap<std::string_view, std::list<Entry>::iterator> bySource;
};

ErrorReport compileErrorReport(const CompileError& error, std::string_view source);

}  // namespace quorvane::vbs
