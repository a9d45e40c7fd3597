#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

#include "vbscript/machine/error_report.h"

namespace quorvane::vbs {

class Program;  ///< a compiled script; shared between runs
struct HostObject;

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
  friend class ProgramTexts;
  /// Compiled code knows where the host's objects have their members, so those count as well.
  std::shared_ptr<const Program> get(std::string_view source, std::span<const HostObject> objects,
                                     ErrorReport& error);

  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace quorvane::vbs
