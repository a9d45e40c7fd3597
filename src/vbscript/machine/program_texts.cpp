#include "vbscript/machine/program_texts.h"

#include <utility>

#include "vbscript/syntax/name_table.h"
#include "vbscript/syntax/parser.h"
#include "vbscript/values/memory_meter.h"

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

void ProgramTexts::addHostObject(std::string_view name, Object& object, bool globalMembers) {
  host_.push_back({foldName(name), &object, globalMembers});
}

CompileContext ProgramTexts::context() const {
  CompileContext context;
  context.host = host_;
  context.known = programs_.empty() ? nullptr : &names_;
  context.firstSlot = globalsEnd_;
  return context;
}

std::shared_ptr<const Program> ProgramTexts::script(std::string_view source, ErrorReport& error) {
  std::shared_ptr<const Program> program;
  if (programs_.empty()) {
    program = cache_.get(source, host_, error);
    if (!program) return nullptr;
  } else {
    try {
      program = compileScript(source, context());
    } catch (const CompileError& fault) {
      error = compileErrorReport(fault, source);
      return nullptr;
    }
  }
  keep(program);
  return program;
}

std::shared_ptr<const Program> ProgramTexts::expression(std::string_view source,
                                                        ErrorReport& error) {
  CompileContext surroundings = context();
  surroundings.asRoutine = true;
  try {
    return compileExpression(source, surroundings);
  } catch (const CompileError& fault) {
    error = compileErrorReport(fault, source);
    return nullptr;
  }
}

std::shared_ptr<const Program> ProgramTexts::text(const std::string& text, bool isExpression,
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

void ProgramTexts::remember(const std::string& key, std::shared_ptr<const Program> text) {
  if (texts_.size() >= kMaxCompiledTexts || textBytes_ + key.size() > kMaxCompiledBytes) {
    forgetTexts();
  }
  if (key.size() > kMaxCompiledBytes) return;
  textBytes_ += key.size();
  texts_.emplace(key, std::move(text));
}

void ProgramTexts::forgetTexts() {
  texts_.clear();
  textBytes_ = 0;
}

void ProgramTexts::keep(std::shared_ptr<const Program> program) {
  for (const auto& [name, symbol] : program->globals) {
    if (symbol.kind != GlobalSymbol::Kind::Routine) continue;
    const GlobalSymbol* old = names_.find(name);
    if (old && old->kind == GlobalSymbol::Kind::Routine && old->routine != symbol.routine) {
      replaced_[old->routine] = symbol.routine;
    }
  }
  names_.add(*program);
  globalsEnd_ = program->globalsEnd;
  forgetTexts();
  programs_.push_back(std::move(program));
}

const Routine& ProgramTexts::current(const Routine& routine) {
  const auto found = replaced_.find(&routine);
  if (found == replaced_.end()) return routine;
  const Routine*& newest = found->second;  // noted, so that the way there stays short
  for (auto next = replaced_.find(newest); next != replaced_.end(); next = replaced_.find(newest)) {
    newest = next->second;
  }
  return *newest;
}

}  // namespace quorvane::vbs
