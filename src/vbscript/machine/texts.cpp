#include <algorithm>

#include "vbscript/library/regexp.h"
#include "vbscript/machine/machine.h"
#include "vbscript/syntax/name_table.h"
#include "vbscript/syntax/parser.h"
#include "vbscript/values/convert.h"

// Code that comes as text while a script runs, and names that are only known then.

namespace quorvane::vbs {

namespace {

// Of texts that are kept in case they come again.
constexpr std::size_t kMaxCompiledTexts = 256;
constexpr std::size_t kMaxCompiledBytes = std::size_t{256} * 1024;

/// What code takes while it is compiled, about: whatever the text, and for each character of it.
constexpr std::size_t kCodeBytes = 1024;
constexpr std::size_t kCodeBytesPerCharacter = 30;

/// Code from a text counts as a run's values do.
struct ChargedProgram {
  explicit ChargedProgram(const std::string& text)
      : charge(kCodeBytes + kCodeBytesPerCharacter * text.size()) {}

  MemoryCharge charge;
  std::shared_ptr<const Program> program;
};

/// Texts mean the same only in the same routine.
std::string textKey(const std::string& text, bool isExpression, const Routine* outer) {
  std::string key(1, isExpression ? 'e' : 's');
  key.append(std::to_string(reinterpret_cast<std::uintptr_t>(outer))).append(1, ' ').append(text);
  return key;
}

}  // namespace

// ---- Execute and Eval ----

std::shared_ptr<const Program> Machine::compileText(const std::string& text, bool isExpression,
                                                    const Routine* outer) {
  const std::string key = textKey(text, isExpression, outer);
  if (const auto known = texts_.find(key); known != texts_.end()) return known->second;
  const auto charged = std::make_shared<ChargedProgram>(text);
  CompileContext surroundings = context();
  surroundings.outer = outer;
  surroundings.inGlobalScope = !outer;
  surroundings.asRoutine = true;
  try {
    charged->program =
        isExpression ? compileExpression(text, surroundings) : compileScript(text, surroundings);
  } catch (const CompileError& fault) {
    ScriptError error;
    error.number = fault.number;
    error.description = fault.description;
    throw error;
  }
  std::shared_ptr<const Program> program(charged, charged->program.get());
  if (program->definesCode || !program->globals.empty()) {
    keep(program);
  } else {
    remember(key, program);
  }
  return program;
}

void Machine::remember(const std::string& key, std::shared_ptr<const Program> text) {
  if (texts_.size() >= kMaxCompiledTexts || textBytes_ + key.size() > kMaxCompiledBytes) {
    forgetTexts();
  }
  if (key.size() > kMaxCompiledBytes) return;
  textBytes_ += key.size();
  texts_.emplace(key, std::move(text));
}

void Machine::forgetTexts() {
  texts_.clear();
  textBytes_ = 0;
}

/// The parameters of the text's main code are the variables around it, by reference.
void Machine::bindOuterVariables(const Routine& main, Value* parameters, Frame& outer) {
  for (std::size_t i = 0; i < main.parameters.size(); ++i) {
    const std::string& name = main.parameters[i].lower;
    const auto& variables = outer.routine->variables;
    const auto found = std::find_if(variables.begin(), variables.end(),
                                    [&](const auto& variable) { return variable.lower == name; });
    Value* place = nullptr;
    if (found != variables.end()) {
      place = &outer.base[found->index].deref();
    } else {
      if (!outer.added) outer.added = new AddedVariables;
      auto& added = (*outer.added)[name];
      if (!added) added = std::make_unique<Value>();
      place = added.get();
    }
    new (&parameters[i]) Value(Value::reference(place));
  }
}

Value Machine::runText(const Value& text, bool isExpression, bool global) {
  Frame& outer = *fp_;
  const bool inRoutine = !global && !outer.routine->isGlobalScope;
  const std::string source = toString(text).narrow();
  const auto program = compileText(source, isExpression, inRoutine ? outer.routine : nullptr);
  const Routine& main = program->main();
  const Frame* halt = enterHalt();
  Value* base = stackTop();
  try {
    if (base + main.parameterCount + main.registerCount >= stackEnd_) stackOverflow();
    if (inRoutine) bindOuterVariables(main, base, outer);
    enter(main, base, isExpression ? 0 : kNoRegister);
  } catch (...) {
    --fp_;
    throw;
  }
  if (main.me != kNoRegister) new (&base[main.me]) Value(outer.base[outer.routine->me]);
  execute(halt);
  return leaveHalt();
}

void Machine::executeText(const Instruction* pc, Value* base) {
  const Value text = taken(base[pc->a], pc->aIsTemporary());
  runText(text, false, pc->b != 0);
  raisePending();
}

void Machine::evaluateText(const Instruction* pc, Value* base) {
  const Value text = taken(base[pc->b], pc->bIsTemporary());
  put(pc, base, text.isString() ? runText(text, true, false) : text);
}

// ---- Routines as values ----

void Machine::getRef(const Instruction* pc, Value* base) {
  const Value text = taken(base[pc->b], pc->bIsTemporary());
  const GlobalSymbol* symbol = names_.find(foldName(toString(text).narrow()));
  if (!symbol || symbol->kind != GlobalSymbol::Kind::Routine) {
    throwError(ErrorCode::InvalidCall, "GetRef");
  }
  put(pc, base, Value::adopt(new RoutineObject(*this, *symbol->routine)));
}

// ---- Late names ----

/// The variable behind a late name, or null. `b` is the routine's own variable for it, or none.
Value* Machine::lateVariable(const Name& name, std::uint16_t own, Value* base) {
  if (fp_->added) {
    const auto found = fp_->added->find(name.lower);
    if (found != fp_->added->end()) return found->second.get();
  }
  const GlobalSymbol* symbol = names_.find(name.lower);
  if (symbol && symbol->kind == GlobalSymbol::Kind::Variable) return &globals_[symbol->slot];
  if (symbol || own == kNoRegister) return nullptr;
  return &base[own].deref();
}

void Machine::lateGet(const Instruction* pc, Value* base) {
  const Name& name = fp_->routine->program->names[pc[1].low()];
  if (const Value* variable = lateVariable(name, pc->b, base)) return put(pc, base, *variable);
  const GlobalSymbol* symbol = names_.find(name.lower);
  if (!symbol) {
    if (pc->c != 0) throwError(ErrorCode::VariableUndefined, name.text);
    return put(pc, base, Value());
  }
  switch (symbol->kind) {
    case GlobalSymbol::Kind::Constant:
      return put(pc, base, symbol->constant);
    case GlobalSymbol::Kind::Routine:
      return put(pc, base, callRoutine(*symbol->routine, nullptr, {}));
    default:
      throwError(ErrorCode::TypeMismatch, name.text);
  }
}

void Machine::latePut(const Instruction* pc, Value* base) {
  const Name& name = fp_->routine->program->names[pc[1].low()];
  const bool isSet = pc->c != 0;
  Value* variable = lateVariable(name, pc->b, base);
  if (!variable) {
    const bool undefined = pc[1].high() != 0 && !names_.find(name.lower);
    throwError(undefined ? ErrorCode::VariableUndefined : ErrorCode::IllegalAssignment, name.text);
  }
  if (isSet) {
    set(*variable, base[pc->a], pc->aIsTemporary(), pc);
  } else {
    letFrom(*variable, base[pc->a], pc->aIsTemporary());
  }
}

void Machine::lateRef(const Instruction* pc, Value* base) {
  const Name& name = fp_->routine->program->names[pc[1].low()];
  if (Value* variable = lateVariable(name, pc->b, base)) return refer(base[pc->a], *variable);
  lateGet(pc, base);
}

bool Machine::lateCall(const Instruction* pc, Value* base) {
  const Name& name = fp_->routine->program->names[pc[1].low()];
  const auto own = static_cast<std::uint16_t>(pc[1].high());
  const bool isExplicit = (pc[1].high() >> 16) != 0;
  Value* const arguments = base + pc->b;
  const std::size_t count = pc->c;
  if (const Value* variable = lateVariable(name, own, base)) {
    const Value holder = *variable;
    if (!holder.isObject() && pc->a == kNoRegister) throwError(ErrorCode::TypeMismatch, name.text);
    Value direct = holder;
    Value result =
        count == 0 && !holder.isObject() ? holder : elementValue(direct, {arguments, count}, pc);
    finishCall(pc, base, std::move(result), arguments, count);
    return false;
  }
  const GlobalSymbol* symbol = names_.find(name.lower);
  if (!symbol && isExplicit) throwError(ErrorCode::VariableUndefined, name.text);
  if (!symbol || symbol->kind != GlobalSymbol::Kind::Routine) {
    throwError(ErrorCode::TypeMismatch, name.text);
  }
  adjustArguments(*symbol->routine, arguments, count);
  fp_->pc = pc + 2;
  enter(*symbol->routine, arguments, pc->a);
  return true;
}

bool Machine::newNamed(const Instruction* pc, Value* base) {
  const Name& name = fp_->routine->program->names[pc[1].low()];
  const GlobalSymbol* symbol = names_.find(name.lower);
  if (symbol && symbol->kind == GlobalSymbol::Kind::Class) {
    return instantiate(*symbol->scriptClass, pc, base);
  }
  if (name.lower != "regexp") throwError(ErrorCode::ClassNotDefined, name.text);
  put(pc, base, createRegExp());
  return false;
}

void Machine::throwCode(const Instruction* pc) {
  const auto code = static_cast<ErrorCode>(pc->a);
  const std::uint32_t name = pc[1].low();
  if (name == kNoName) throwError(code);
  throwError(code, fp_->routine->program->names[name].text);
}

}  // namespace quorvane::vbs
