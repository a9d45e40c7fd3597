#pragma once

#include "vbscript/compile/code_writer.h"
#include "vbscript/compile/error_notes.h"
#include "vbscript/compile/expression_facts.h"
#include "vbscript/compile/frame_layout.h"
#include "vbscript/compile/routine_scope.h"
#include "vbscript/compile/tree.h"

namespace quorvane::vbs {

struct Lowering;

/// What every part has at hand that turns one kind of syntax into code. Parts own no code and no
/// registers; they ask those who do.
class LoweringPart {
 protected:
  explicit LoweringPart(Lowering& parts);
  ~LoweringPart() = default;

  using Temporaries = FrameLayout::Temporaries;
  using HiddenVariables = FrameLayout::HiddenVariables;
  using Arguments = std::vector<ExpressionPtr>;

  Lowering& parts_;  ///< the others
  ScriptCompiler& script_;
  Routine& routine_;
  const RoutineScope& scope_;
  FactTable& facts_;
  FrameLayout& frame_;
  CodeWriter& code_;
  ErrorNotes& notes_;
};

}  // namespace quorvane::vbs
