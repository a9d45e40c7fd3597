#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "vbscript/compile/program.h"
#include "vbscript/machine/error_report.h"
#include "vbscript/machine/program_cache.h"

namespace quorvane::vbs {

/// What a machine has compiled. Owns the programs that later code may refer to, the names that they
/// have brought to script level, the texts of Execute and Eval in case they come again, and knows
/// the host's objects, whose names compiled code takes for granted.
class ProgramTexts {
 public:
  explicit ProgramTexts(ProgramCache& cache) : cache_(cache) {}

  /// `object` is held by the caller. Before anything is compiled.
  void addHostObject(std::string_view name, Object& object, bool globalMembers);
  const std::vector<HostObject>& host() const { return host_; }

  /// A script for the global scope, kept. Null and `error` filled when it does not compile.
  std::shared_ptr<const Program> script(std::string_view source, ErrorReport& error);
  /// An expression for the global scope. The same.
  std::shared_ptr<const Program> expression(std::string_view source, ErrorReport& error);
  /// A text for Execute or Eval, within `outer` or (null) in the global scope. Throws ScriptError.
  std::shared_ptr<const Program> text(const std::string& text, bool isExpression,
                                      const Routine* outer);

  /// What has this name at script level by now, or null.
  const GlobalSymbol* find(std::string_view lower) const { return names_.find(lower); }
  /// The routine that has come in the place of this one; itself when there is none.
  const Routine& current(const Routine& routine);
  /// How many slots of global variables the programs use.
  std::uint16_t globalsEnd() const { return globalsEnd_; }

 private:
  CompileContext context() const;
  void keep(std::shared_ptr<const Program> program);
  void remember(const std::string& key, std::shared_ptr<const Program> text);
  void forgetTexts();

  ProgramCache& cache_;
  std::vector<HostObject> host_;
  GlobalNames names_;
  std::vector<std::shared_ptr<const Program>> programs_;  ///< that later code may refer to
  std::uint16_t globalsEnd_ = 0;
  NameMap<std::shared_ptr<const Program>> texts_;  ///< compiled texts that define nothing
  std::size_t textBytes_ = 0;                      ///< of their keys
  std::unordered_map<const Routine*, const Routine*> replaced_;
};

}  // namespace quorvane::vbs
