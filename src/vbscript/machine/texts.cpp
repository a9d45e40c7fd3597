#include <algorithm>

#include "vbscript/machine/machine.h"
#include "vbscript/machine/operations.h"
#include "vbscript/machine/script_object.h"
#include "vbscript/syntax/lexer.h"
#include "vbscript/syntax/name_table.h"
#include "vbscript/values/convert.h"

// Code that comes as text while a script runs: Execute, ExecuteGlobal, Eval, GetRef.

namespace quorvane::vbs {

namespace {

/// The parameters of the text's main code are the variables around it, by reference.
void bindOuterVariables(const Routine& main, Value* parameters, Frame& outer) {
  for (std::size_t i = 0; i < main.parameters.size(); ++i) {
    const std::string& name = main.parameters[i].lower;
    const auto& variables = outer.routine->variables;
    const auto found = std::find_if(variables.begin(), variables.end(),
                                    [&](const auto& variable) { return variable.lower == name; });
    Value* place = nullptr;
    if (found != variables.end()) {
      place = &outer.base[found->index].deref();
    } else {
      auto& added = outer.variablesToAddTo()[name];
      if (!added) added = std::make_unique<Value>();
      place = added.get();
    }
    new (&parameters[i]) Value(Value::reference(place));
  }
}

}  // namespace

Value Machine::runText(const Value& text, bool isExpression, bool global) {
  Frame& outer = *stack_.top();
  const bool inRoutine = !global && !outer.routine->isGlobalScope;
  const String& characters = text.asString();
  const std::string source = characters.isAnsi() ? std::string(characters.ansi())
                                                 : std::string(kUtf8Mark).append(characters.utf8());
  const auto program = texts_.text(source, isExpression, inRoutine ? outer.routine : nullptr);
  const Routine& main = program->main();
  const Frame* halt = enterHalt();
  Value* const base = stack_.above();
  const Value* bound = base;
  try {
    stack_.reserve(base, std::size_t{main.parameterCount} + main.registerCount + 1);
    bound += main.parameterCount;
    if (inRoutine) bindOuterVariables(main, base, outer);
    stack_.enter(main, base, isExpression ? 0 : kNoRegister);
  } catch (...) {
    clearRange(base, bound);
    stack_.pop();
    throw;
  }
  if (main.me != kNoRegister) new (&base[main.me]) Value(outer.base[outer.routine->me]);
  execute(halt);
  return leaveHalt();
}

void Machine::executeText(const Instruction* pc, Value* base) {
  const Value text = plainValue(taken(base[pc->a], pc->aIsTemporary()));
  if (!text.isString())
    throwError(ErrorCode::TypeMismatch, pc->b != 0 ? "ExecuteGlobal" : "Execute");
  runText(text, false, pc->b != 0);
  stack_.raisePending();
}

void Machine::evaluateText(const Instruction* pc, Value* base) {
  const Value text = plainValue(taken(base[pc->b], pc->bIsTemporary()));
  operation::put(stack_, pc, base, text.isString() ? runText(text, true, false) : text);
}

// ---- Routines as values ----

void Machine::getRef(const Instruction* pc, Value* base) {
  const Value text = plainValue(taken(base[pc->b], pc->bIsTemporary()));
  if (!text.isString()) throwError(ErrorCode::TypeMismatch, "GetRef");
  const GlobalSymbol* symbol = texts_.find(foldName(text.asString().narrow()));
  if (!symbol || symbol->kind != GlobalSymbol::Kind::Routine) {
    throwError(ErrorCode::InvalidCall, "GetRef");
  }
  operation::put(stack_, pc, base, Value::adopt(new RoutineObject(*this, *symbol->routine)));
}

}  // namespace quorvane::vbs
