#pragma once

#include "vbscript/compile/appends.h"
#include "vbscript/compile/arguments.h"
#include "vbscript/compile/assignments.h"
#include "vbscript/compile/calls.h"
#include "vbscript/compile/comparisons.h"
#include "vbscript/compile/concatenations.h"
#include "vbscript/compile/expressions.h"
#include "vbscript/compile/loops.h"
#include "vbscript/compile/objects.h"
#include "vbscript/compile/places.h"
#include "vbscript/compile/statements.h"

namespace quorvane::vbs {

/// All that makes the code of one routine: what the parts share, and the parts.
struct Lowering {
  Lowering(ScriptCompiler& scriptCompiler, Routine& target, const Mentions& mentions);
  Lowering(const Lowering&) = delete;
  Lowering& operator=(const Lowering&) = delete;

  ScriptCompiler& script;
  Routine& routine;
  RoutineScope scope;
  FactTable facts;
  FrameLayout frame;
  CodeWriter code;
  ErrorNotes notes;

  ExpressionLowering expressions;
  ComparisonLowering comparisons;
  ConcatenationLowering concatenations;
  AppendLowering appends;
  ObjectLowering objects;
  PlaceLowering places;
  ArgumentLowering arguments;
  CallLowering calls;
  AssignmentLowering assignments;
  LoopLowering loops;
  StatementLowering statements;
};

}  // namespace quorvane::vbs
