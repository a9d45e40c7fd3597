#include "vbscript/compile/script_compiler.h"

#include <algorithm>

#include "vbscript/compile/failure.h"
#include "vbscript/compile/routine_compiler.h"
#include "vbscript/syntax/name_table.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

void failCompile(CompileErrorCode code, SourcePosition position) {
  throw CompileError{static_cast<std::int32_t>(code), std::string(compileErrorText(code)),
                     position};
}

namespace {

struct ScopeFunctionName {
  std::string_view lower;
  ScopeFunction function;
};
constexpr ScopeFunctionName kScopeFunctions[] = {
    {"eval", ScopeFunction::Eval},
    {"execute", ScopeFunction::Execute},
    {"executeglobal", ScopeFunction::ExecuteGlobal},
    {"getref", ScopeFunction::GetRef},
};

/// Wide: a parameter whose variable code can reach by other ways must not be a copy.
bool isWritten(std::uint8_t flags) {
  return (flags & Mentions::kWritten) != 0;
}

}  // namespace

ScriptCompiler::ScriptCompiler(Program& program, const CompileContext& context,
                               const NameTable& names)
    : program_(program),
      context_(context),
      nameCount_(names.size()),
      resolved_(names.size()),
      nameIndexes_(names.size()) {
  valuesRunCode_ = context.known != nullptr;
  program_.globalsEnd = context.firstSlot;
  program_.routines.push_back(std::make_unique<Routine>());
  program_.routines.front()->program = &program_;
}

void ScriptCompiler::compile(const Script& script) {
  optionExplicit_ = script.optionExplicit;
  Mentions mentions(nameCount_);
  mentions.scan(script.body);
  noteDynamicCode(mentions);
  declareRoutines(script);
  declareVariables(mentions);
  if (context_.inGlobalScope) declareImplicit(mentions);
  findReadOnlyParameters();
  compileMain(script.body, mentions);
  for (auto& pending : pending_) {
    RoutineCompiler(*this, *pending.routine, pending.mentions).compileProcedure(*pending.tree);
  }
}

void ScriptCompiler::compileExpression(const Expression& expression) {
  Mentions mentions(nameCount_);
  mentions.scan(expression);
  noteDynamicCode(mentions);
  Routine& main = *program_.routines.front();
  main.kind = ProcedureKind::Function;
  RoutineCompiler(*this, main, mentions).compileMainExpression(expression);
}

void ScriptCompiler::compileMain(const Block& body, const Mentions& mentions) {
  RoutineCompiler(*this, *program_.routines.front(), mentions).compileMain(body);
}

// ---- What a script declares ----

void ScriptCompiler::noteDynamicCode(const Mentions& mentions) {
  for (const Identifier* name : mentions.names()) {
    for (const auto& known : kScopeFunctions) {
      if (known.lower != name->lower) continue;
      valuesRunCode_ = true;
      if (known.function == ScopeFunction::GetRef) continue;
      keepsVariableNames_ = true;
      if (known.function != ScopeFunction::Eval) lateNames_ = true;
    }
  }
}

const GlobalSymbol* ScriptCompiler::knownSymbol(std::string_view lower) const {
  return context_.known ? context_.known->find(lower) : nullptr;
}

void ScriptCompiler::declare(const Identifier& name, GlobalSymbol symbol) {
  program_.globals[std::string(name.lower)] = std::move(symbol);
}

void ScriptCompiler::declareRoutines(const Script& script) {
  program_.definesCode = !script.procedures.empty() || !script.classes.empty();
  if (!script.classes.empty()) valuesRunCode_ = true;
  for (const auto& tree : script.procedures) {
    GlobalSymbol symbol;
    symbol.kind = GlobalSymbol::Kind::Routine;
    symbol.routine = &addRoutine(tree, nullptr);
    declare(tree.name, std::move(symbol));
  }
  for (const auto& tree : script.classes) {
    GlobalSymbol symbol;
    symbol.kind = GlobalSymbol::Kind::Class;
    symbol.scriptClass = &addClass(tree);
    symbol.isLocal = context_.outer != nullptr;
    const GlobalSymbol* known = knownSymbol(tree.name.lower);
    if (known && !known->isLocal) failCompile(CompileErrorCode::NameRedefined, tree.position);
    declare(tree.name, std::move(symbol));
  }
}

Routine& ScriptCompiler::addRoutine(const Procedure& tree, const ScriptClass* owner) {
  auto& routine = *program_.routines.emplace_back(std::make_unique<Routine>());
  routine.name = tree.name.text;
  routine.kind = tree.kind;
  routine.program = &program_;
  routine.owner = owner;
  routine.parameterCount = static_cast<std::uint16_t>(tree.parameters.size());
  pending_.push_back({&tree, &routine, owner, Mentions(nameCount_)});
  PendingRoutine& pending = pending_.back();
  pending.mentions.scan(tree.body);
  noteDynamicCode(pending.mentions);
  for (const auto& parameter : tree.parameters) {
    const bool written = isWritten(pending.mentions.flags(parameter.name.id));
    routine.parameters.push_back({std::string(parameter.name.lower), parameter.byValue, !written});
  }
  return routine;
}

ScriptClass& ScriptCompiler::addClass(const ClassDeclaration& tree) {
  auto& scriptClass = *program_.classes.emplace_back(std::make_unique<ScriptClass>());
  scriptClass.name = tree.name.text;
  scriptClass.serial = ScriptClass::nextSerial();
  addFields(scriptClass, tree);
  for (const auto& procedure : tree.procedures) {
    addClassProcedure(scriptClass, procedure, addRoutine(procedure, &scriptClass));
  }
  return scriptClass;
}

void ScriptCompiler::addFields(ScriptClass& scriptClass, const ClassDeclaration& tree) {
  for (const auto& field : tree.fields) {
    if (scriptClass.fieldCount == kNoRegister)
      failCompile(CompileErrorCode::OutOfMemory, field.position);
    ClassMember& member = scriptClass.members.emplace_back();
    member.lower = field.name.lower;
    member.isPrivate = field.isPrivate;
    member.slot = scriptClass.fieldCount++;
    if (field.isArray) scriptClass.arrays.push_back({member.slot, field.bounds});
  }
  for (const auto& constant : tree.constants) {
    ClassMember& member = scriptClass.members.emplace_back();
    member.lower = constant.name.lower;
    member.kind = ClassMember::Kind::Constant;
    member.constant = constant.value;
    member.isPrivate = true;
  }
}

void ScriptCompiler::addClassProcedure(ScriptClass& scriptClass, const Procedure& procedure,
                                       Routine& routine) {
  auto& members = scriptClass.members;
  auto found = std::find_if(members.begin(), members.end(), [&](const ClassMember& member) {
    return member.lower == procedure.name.lower;
  });
  if (found == members.end()) {
    members.emplace_back();
    found = members.end() - 1;
    found->lower = procedure.name.lower;
    const bool isMethod =
        procedure.kind == ProcedureKind::Sub || procedure.kind == ProcedureKind::Function;
    found->kind = isMethod ? ClassMember::Kind::Method : ClassMember::Kind::Property;
  }
  switch (procedure.kind) {
    case ProcedureKind::PropertyLet:
      found->let = &routine;
      found->letIsPrivate = procedure.isPrivate;
      break;
    case ProcedureKind::PropertySet:
      found->set = &routine;
      found->setIsPrivate = procedure.isPrivate;
      break;
    default:
      found->get = &routine;
      found->getIsPrivate = procedure.isPrivate;
      break;
  }
  if (procedure.isDefault) {
    scriptClass.defaultMember = static_cast<std::int32_t>(found - members.begin());
  }
  if (procedure.name.lower == "class_initialize") scriptClass.initialize = &routine;
  if (procedure.name.lower == "class_terminate") scriptClass.terminate = &routine;
}

std::uint16_t ScriptCompiler::newSlot(SourcePosition position) {
  if (program_.globalsEnd >= kMaxGlobals) failCompile(CompileErrorCode::OutOfMemory, position);
  VBS_ASSERT(program_.globalsEnd >= context_.firstSlot);
  return program_.globalsEnd++;
}

void ScriptCompiler::declareVariables(const Mentions& mentions) {
  if (!context_.inGlobalScope) return;
  for (const auto* constant : mentions.constants()) {
    GlobalSymbol symbol;
    symbol.kind = GlobalSymbol::Kind::Constant;
    symbol.constant = constant->value;
    if (knownSymbol(constant->name.lower))
      failCompile(CompileErrorCode::NameRedefined, constant->position);
    declare(constant->name, std::move(symbol));
  }
  for (const auto* variable : mentions.declarations()) {
    const std::string_view lower = variable->name.lower;
    if (program_.globals.contains(lower))
      failCompile(CompileErrorCode::NameRedefined, variable->position);
    const GlobalSymbol* known = knownSymbol(lower);
    if (known && known->kind == GlobalSymbol::Kind::Variable) continue;
    if (known && known->kind != GlobalSymbol::Kind::Routine) {
      failCompile(CompileErrorCode::NameRedefined, variable->position);
    }
    GlobalSymbol symbol;
    symbol.slot = newSlot(variable->position);
    declare(variable->name, std::move(symbol));
  }
}

/// Gives a global variable to every name that only usage tells to be one.
void ScriptCompiler::declareImplicit(const Mentions& mentions) {
  for (const Identifier* name : mentions.names()) {
    const std::uint8_t flags = mentions.flags(name->id);
    if (flags == Mentions::kCalled) continue;
    const Binding known = resolve(*name);
    if (known.kind != Binding::Kind::Unresolved && !yieldsToVariable(known, *name, flags)) continue;
    if (optionExplicit_ && !(flags & Mentions::kReDimmed)) continue;
    if (lateNames_ && !isWritten(flags)) continue;
    GlobalSymbol symbol;
    symbol.slot = newSlot({});
    declare(*name, std::move(symbol));
    resolved_[name->id] = Binding();
  }
}

// ---- Names ----

Binding ScriptCompiler::resolve(const Identifier& name) {
  Binding& known = resolved_[name.id];
  if (known.kind != Binding::Kind::Unresolved) return known;
  const auto own = program_.globals.find(name.lower);
  const GlobalSymbol* symbol =
      own != program_.globals.end() ? &own->second : knownSymbol(name.lower);
  if (symbol) {
    known = bindSymbol(*symbol);
  } else {
    known = resolveHost(name.lower);
    if (known.kind == Binding::Kind::Unresolved) known = resolveLibrary(name.lower);
  }
  return known;
}

Binding ScriptCompiler::bindSymbol(const GlobalSymbol& symbol) const {
  Binding binding;
  switch (symbol.kind) {
    case GlobalSymbol::Kind::Variable:
      binding.kind = Binding::Kind::Global;
      binding.index = symbol.slot;
      break;
    case GlobalSymbol::Kind::Constant:
      binding.kind = Binding::Kind::Constant;
      binding.constant = &symbol.constant;
      break;
    case GlobalSymbol::Kind::Routine:
      binding.kind = Binding::Kind::Routine;
      binding.routine = symbol.routine;
      break;
    case GlobalSymbol::Kind::Class:
      binding.kind = Binding::Kind::Class;
      binding.scriptClass = symbol.scriptClass;
      break;
  }
  return binding;
}

Binding ScriptCompiler::resolveHost(std::string_view lower) const {
  Binding binding;
  for (std::size_t i = 0; i < context_.host.size(); ++i) {
    if (context_.host[i].lower != lower) continue;
    binding.kind = Binding::Kind::HostObject;
    binding.index = static_cast<std::uint16_t>(i);
    return binding;
  }
  for (std::size_t i = 0; i < context_.host.size(); ++i) {
    const HostObject& host = context_.host[i];
    if (!host.globalMembers) continue;
    binding.member = host.object->findMember(lower);
    if (binding.member == kNoMember) continue;
    binding.kind = Binding::Kind::HostMember;
    binding.index = static_cast<std::uint16_t>(i);
    return binding;
  }
  return binding;
}

bool ScriptCompiler::yieldsToVariable(const Binding& binding, const Identifier& name,
                                      std::uint8_t flags) const {
  switch (binding.kind) {
    case Binding::Kind::Intrinsic:
    case Binding::Kind::Scope:
      return isWritten(flags);
    case Binding::Kind::Constant:
      return isWritten(flags) && binding.constant == findConstant(name.lower);
    case Binding::Kind::HostMember:
      return (flags & (Mentions::kAssigned | Mentions::kReDimmed)) != 0 &&
             !context_.host[binding.index].object->isAssignable(binding.member);
    default:
      return false;
  }
}

Binding ScriptCompiler::resolveLibrary(std::string_view lower) {
  Binding binding;
  for (const auto& known : kScopeFunctions) {
    if (known.lower != lower) continue;
    binding.kind = Binding::Kind::Scope;
    binding.scope = known.function;
    return binding;
  }
  if (const Intrinsic* intrinsic = findIntrinsic(lower)) {
    binding.kind = Binding::Kind::Intrinsic;
    binding.intrinsic = intrinsic;
  } else if (const Value* constant = findConstant(lower)) {
    binding.kind = Binding::Kind::Constant;
    binding.constant = constant;
  }
  return binding;
}

std::uint32_t ScriptCompiler::nameIndex(const Identifier& name) {
  std::uint32_t& known = nameIndexes_[name.id];
  if (known == 0) {
    program_.names.push_back({std::string(name.text), std::string(name.lower)});
    known = static_cast<std::uint32_t>(program_.names.size());
  }
  return known - 1;
}

std::uint32_t ScriptCompiler::nameIndex(std::string shown) {
  const auto index = static_cast<std::uint32_t>(program_.names.size());
  const auto [known, isNew] = shownIndexes_.try_emplace(std::move(shown), index);
  if (isNew) program_.names.push_back({known->first, {}});
  return known->second;
}

// ---- Parameters that are only read ----

bool ScriptCompiler::parameterIsReadOnly(const Identifier& callee, std::size_t position) {
  const Binding binding = resolve(callee);
  if (binding.kind == Binding::Kind::Intrinsic) return true;
  if (binding.kind != Binding::Kind::Routine) return false;
  const auto& parameters = binding.routine->parameters;
  return position >= parameters.size() || parameters[position].readOnly ||
         parameters[position].byValue;
}

/// Finds the parameters of one routine that it passes on to something that may write to them.
bool ScriptCompiler::removeWrittenThrough(PendingRoutine& pending) {
  bool changed = false;
  for (const auto& passing : pending.mentions.passings()) {
    const auto& tree = pending.tree->parameters;
    const auto found = std::find_if(tree.begin(), tree.end(), [&](const Parameter& parameter) {
      return parameter.name.id == passing.variable->id;
    });
    if (found == tree.end()) continue;
    VBS_ASSERT(pending.routine->parameters.size() == tree.size());
    RoutineParameter& parameter = pending.routine->parameters[found - tree.begin()];
    const bool ownMember =
        passing.callee && pending.owner && pending.owner->find(passing.callee->lower) != nullptr;
    if (!parameter.readOnly) continue;
    if (passing.callee && !ownMember && parameterIsReadOnly(*passing.callee, passing.position)) {
      continue;
    }
    parameter.readOnly = false;
    changed = true;
  }
  return changed;
}

void ScriptCompiler::findReadOnlyParameters() {
  bool changed = true;
  while (changed) {
    changed = false;
    for (auto& pending : pending_) changed |= removeWrittenThrough(pending);
  }
  for (auto& pending : pending_) {
    Routine& routine = *pending.routine;
    for (auto& parameter : routine.parameters) {
      if (keepsVariableNames_) parameter.readOnly = false;
      routine.anyByValue |= parameter.byValue;
      routine.allReadOnly &= parameter.readOnly;
    }
  }
}

// ---- Entries ----

std::shared_ptr<Program> compileScript(std::string_view source, const CompileContext& context) {
  auto program = std::make_shared<Program>();
  program->source = source;
  const auto script = parseScript(program->source);
  ScriptCompiler(*program, context, script->names).compile(*script);
  return program;
}

std::shared_ptr<Program> compileExpression(std::string_view source, const CompileContext& context) {
  auto program = std::make_shared<Program>();
  program->source = source;
  const auto parsed = parseExpression(program->source);
  ScriptCompiler(*program, context, *parsed.names).compileExpression(*parsed.expression);
  return program;
}

}  // namespace quorvane::vbs
