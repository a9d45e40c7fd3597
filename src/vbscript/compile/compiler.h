#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "vbscript/compile/binding.h"
#include "vbscript/compile/expression_facts.h"
#include "vbscript/compile/mentions.h"
#include "vbscript/compile/program.h"
#include "vbscript/compile/routine_scope.h"
#include "vbscript/compile/tree.h"
#include "vbscript/syntax/parser.h"

/// The compiler's own parts. RoutineCompiler walks the tree of one routine; ScriptCompiler knows
/// the names that stand at script level.
namespace quorvane::vbs {

[[noreturn]] void failCompile(std::int32_t number, SourcePosition position);

class ScriptCompiler {
 public:
  ScriptCompiler(Program& program, const CompileContext& context, const NameTable& names);

  void compile(const Script& script);
  void compileExpression(const Expression& expression);

  // For the routines.
  Program& program() { return program_; }
  const CompileContext& context() const { return context_; }
  std::size_t nameCount() const { return nameCount_; }
  bool optionExplicit() const { return optionExplicit_; }
  /// Whether reading a member or an indexed variable may run code of the script: its classes have
  /// properties, and its variables may hold procedures.
  bool valuesRunCode() const { return valuesRunCode_; }
  bool lateNames() const { return lateNames_; }
  bool keepsVariableNames() const { return keepsVariableNames_; }
  /// What `name` means outside any routine; Unresolved when it is not known.
  Binding resolve(const Identifier& name);
  /// What the host or the library has under the name.
  Binding resolveHost(std::string_view lower) const;
  static Binding resolveLibrary(std::string_view lower);
  /// Whether scripts may have a variable of this name all the same.
  static bool isOfLibrary(const Binding& binding, std::string_view lower);
  std::uint32_t nameIndex(const Identifier& name);
  /// Of a text that only errors show.
  std::uint32_t nameIndex(std::string shown);
  bool parameterIsReadOnly(const Identifier& callee, std::size_t position);
  bool isReplaceable() const { return lateNames_; }

 private:
  struct PendingRoutine {
    const Procedure* tree;
    Routine* routine;
    const ScriptClass* owner;
    Mentions mentions;
  };

  Routine& addRoutine(const Procedure& tree, const ScriptClass* owner);
  ScriptClass& addClass(const ClassDeclaration& tree);
  void addFields(ScriptClass& scriptClass, const ClassDeclaration& tree);
  void addClassProcedure(ScriptClass& scriptClass, const Procedure& procedure, Routine& routine);
  void declareRoutines(const Script& script);
  void declareVariables(const Mentions& mentions);
  void declareImplicit(const Mentions& mentions);
  void declare(const Identifier& name, GlobalSymbol symbol);
  const GlobalSymbol* knownSymbol(std::string_view lower) const;
  std::uint16_t newSlot(SourcePosition position);
  void noteDynamicCode(const Mentions& mentions);
  void findReadOnlyParameters();
  bool removeWrittenThrough(PendingRoutine& pending);
  Binding bindSymbol(const GlobalSymbol& symbol) const;
  void compileMain(const Block& body, const Mentions& mentions);

  Program& program_;
  const CompileContext& context_;
  std::size_t nameCount_;
  bool optionExplicit_ = false;
  bool lateNames_ = false;
  bool valuesRunCode_ = false;
  bool keepsVariableNames_ = false;
  std::vector<Binding> resolved_;           ///< by name
  std::vector<std::uint32_t> nameIndexes_;  ///< by name; 0: none yet, else index + 1
  NameMap<std::uint32_t> shownIndexes_;     ///< of texts that only errors show
  std::vector<PendingRoutine> pending_;
};

/// A place in code that jumps lead to.
struct Label {
  std::int64_t target = -1;
  std::vector<std::uint32_t> jumps;
};

class RoutineCompiler {
 public:
  RoutineCompiler(ScriptCompiler& script, Routine& routine, const Mentions& mentions);

  void compileProcedure(const Procedure& tree);
  void compileMain(const Block& body);
  void compileMainExpression(const Expression& expression);

 private:
  // Names and registers (names.cpp).
  void setOuterConstants();
  const Binding& bind(const Identifier& name) const { return scope_.bind(name); }
  const Binding* bindName(const Expression& e) const { return scope_.bindName(e); }
  bool isTemporary(Register r) const { return r >= routine_.firstTemporary && r != kNoRegister; }
  Register newTemporary();
  Register hidden();
  void beginFrame(std::uint16_t firstHidden);
  void dimArrays();
  void finish(SourcePosition end);

  /// Gives temporaries back when it ends.
  class Temporaries {
   public:
    explicit Temporaries(RoutineCompiler& c) : compiler_(c), mark_(c.nextTemporary_) {}
    ~Temporaries() { compiler_.nextTemporary_ = mark_; }

   private:
    RoutineCompiler& compiler_;
    std::uint32_t mark_;
  };

  // Code (compile_names.cpp).
  void emit(Opcode op, unsigned a = 0, unsigned b = 0, unsigned c = 0);
  void emitWord(Instruction word) { routine_.code.push_back(word); }
  void emitName(Opcode op, unsigned a, unsigned b, unsigned c, const Identifier& name);
  void emitMember(Opcode op, unsigned a, unsigned b, unsigned c, const Identifier& name);
  void emitPointer(Opcode op, unsigned a, unsigned b, unsigned c, const void* pointer);
  void emitThrow(ErrorCode code, const Identifier& name);
  void emitWideJump(Opcode op, unsigned a, Label& label);
  void emitFarJump(Opcode op, unsigned a, unsigned b, unsigned c, Label& label);
  void jumpTo(Label& label) { emitWideJump(Opcode::Jump, 0, label); }
  void place(Label& label);
  void patch(std::uint32_t at, std::int64_t target);
  std::uint32_t constantIndex(const Value& value);
  void loadConstant(Register target, const Value& value);
  void noteOperand(const Expression& expression);
  void noteElement(const Expression& array, const std::vector<ExpressionPtr>& indexes);
  void beginStatement(SourcePosition position);

  // Expressions (compile_expressions.cpp).
  void compileTo(const Expression& expression, Register target);
  /// A register with the value: a variable's own, or `scratch`, or a new temporary.
  Register operand(const Expression& expression, Register scratch = kNoRegister);
  /// The same, safe from what evaluating something with the facts `next` may do to variables.
  Register operandBefore(const Expression& expression, const ExpressionFacts& next,
                         Register scratch);
  void compileLiteral(const Value& value, Register target);
  void compileName(const NameExpression& name, Register target);
  void compileMember(const MemberExpression& member, Register target);
  void compileUnary(const UnaryExpression& unary, Register target);
  void compileBinary(const BinaryExpression& binary, Register target);
  void compileComparison(const BinaryExpression& binary, Register target);
  void compileNew(const NewExpression& expression, Register target);
  /// Jumps to `label` when the truth of `condition` is `when`.
  void jumpOn(const Expression& condition, bool when, Label& label);
  void jumpOnComparison(const BinaryExpression& binary, bool when, bool nullValue, Label& label);
  const Value* literal(const Expression& e) const { return scope_.literal(e); }

  // Concatenations (compile_texts.cpp).
  void compileConcatenation(const BinaryExpression& binary, Register target);
  void concatenateParts(std::vector<const Expression*> parts, Register target);
  struct ConstantWrite;
  std::optional<ConstantWrite> constantWrite(const Statement& statement) const;
  std::size_t compileConstantWrites(const Block& block, std::size_t first);
  bool appendToVariable(const Expression& target, const Expression& value);
  bool appendToElement(const CallExpression& target, const Expression& value);
  bool appendToMember(const MemberExpression& target, const Expression& value);
  bool isSamePlainIndex(const Expression& a, const Expression& b) const;
  bool isQuiet(const Expression& part);
  Register pushPiece(const Expression& part, const ExpressionFacts& later, Register piece,
                     bool isRead);
  Register pushPieces(const std::vector<const Expression*>& parts, bool isAppend);
  void joinPieces(Register target, Register first, std::size_t count);
  Register tailOf(const std::vector<const Expression*>& parts);
  struct Growth {
    Register before;
    Register tail;
  };
  Growth pushGrowth(const Expression& first, std::vector<const Expression*> parts);
  void joinTexts(std::vector<const Expression*>& parts, std::vector<ExpressionPtr>& made) const;
  std::optional<String> joinedText(const Expression& expression) const;
  std::optional<String> constantText(const Expression& expression) const;

  // Calls (compile_calls.cpp).
  void compileCall(const Expression& callee, const std::vector<ExpressionPtr>& arguments,
                   Register target);
  void callName(const NameExpression& callee, const std::vector<ExpressionPtr>& arguments,
                Register target);
  bool callsOwnFunction(const Binding& binding, const Identifier& name,
                        const std::vector<ExpressionPtr>& arguments, Register target);
  void callMember(const MemberExpression& callee, const std::vector<ExpressionPtr>& arguments,
                  Register target);
  void callVariable(const Expression& callee, const std::vector<ExpressionPtr>& arguments,
                    Register target);
  void callValue(const Expression& callee, const std::vector<ExpressionPtr>& arguments,
                 Register target);
  void callRoutine(const Routine& routine, const Identifier* name,
                   const std::vector<ExpressionPtr>& arguments, Register target, bool own);
  void callOwn(const ClassMember& member, const Identifier& name,
               const std::vector<ExpressionPtr>& arguments, Register target);
  void callIntrinsic(const Intrinsic& intrinsic, const Identifier& name,
                     const std::vector<ExpressionPtr>& arguments, Register target);
  void callScopeFunction(ScopeFunction function, const Identifier& name,
                         const std::vector<ExpressionPtr>& arguments, Register target);
  void callHost(unsigned object, MemberId member, const std::vector<ExpressionPtr>& arguments,
                Register target);
  void getElement(const Expression& array, const std::vector<ExpressionPtr>& indexes,
                  Register target);
  /// Where the value is used as an object or as an array.
  void compileAsObject(const Expression& expression, Register target);
  Register operandAsObject(const Expression& expression);
  bool callsForObject(const Expression& callee, const std::vector<ExpressionPtr>& arguments,
                      Register target);

  /// How arguments go to a callee.
  enum class Passing : std::uint8_t {
    Unknown,  ///< variables and elements by reference
    Host,     ///< variables by reference, elements by value
    Library,  ///< by reference, because it saves counting; nothing is written
    Value,
  };
  /// Evaluates into consecutive temporaries. `locks` has as many registers as there may be
  /// elements passed by reference.
  Register pushArguments(const std::vector<ExpressionPtr>& arguments, Passing passing,
                         const std::vector<Register>& locks);
  Register pushArguments(const std::vector<ExpressionPtr>& arguments, const Routine& routine,
                         const std::vector<Register>& locks);
  Register pushLibraryArguments(const Intrinsic& function,
                                const std::vector<ExpressionPtr>& arguments);
  void pushArgument(const ExpressionPtr& argument, Register target, Passing passing,
                    const std::vector<Register>& locks, std::size_t& nextLock);
  std::vector<Register> newLocks(const std::vector<ExpressionPtr>& arguments);
  void releaseLocks(const std::vector<Register>& locks);
  /// A register with the variable itself, or a reference to it, or failing that its value.
  Register placeOf(const Expression& expression);
  /// The way to an array that may be an element of others.
  struct ArrayPath {
    const Expression* root;
    Register value;  ///< what stands there in place of a variable, or none
    std::vector<const CallExpression*> levels;
    std::vector<Register> indexes;  ///< first registers, by level
  };
  ArrayPath pushPath(const Expression& array);
  Register placeAt(const ArrayPath& path, std::vector<Register>& locks);
  Register placeOfName(const Binding& binding, const Identifier& name);
  void refer(const Binding& variable, Register target);
  void pushObject(const MemberExpression& member, Register target);
  Register objectOperand(const MemberExpression& member);
  void noteObject(const MemberExpression& member);

  // Assignments (compile_assignments.cpp).
  void assign(const AssignStatement& statement);
  void assignName(const NameExpression& target, const Expression& value, bool isSet);
  void assignBound(const Binding& binding, const Identifier& name, const Expression& value,
                   bool isSet);
  void assignMember(const MemberExpression& target, const Expression& value, bool isSet);
  void assignCall(const CallExpression& target, const Expression& value, bool isSet);
  void assignElement(const CallExpression& target, const Expression& value, bool isSet);
  void assignHost(unsigned object, MemberId member, const std::vector<ExpressionPtr>& arguments,
                  const Expression& value, bool isSet);
  void assignOwn(const ClassMember& member, const Identifier& name,
                 const std::vector<ExpressionPtr>& arguments, const Expression& value, bool isSet);

  // Statements (compile_statements.cpp).
  void compileBlock(const Block& block);
  void compileStatement(const Statement& statement);
  void compileIf(const IfStatement& statement);
  void compileSelect(const SelectStatement& statement);
  void compileCaseTest(Register subject, const Expression& value, Label& body);
  void compileFor(const ForStatement& statement);
  void compileForEach(const ForEachStatement& statement);
  void compileDo(const DoStatement& statement);
  void compileExit(const ExitStatement& statement);
  void compileWith(const WithStatement& statement);
  void compileReDim(const ReDimStatement& statement);
  void compileErase(const EraseStatement& statement);
  Register loopVariable(const Identifier& name, SourcePosition position);

  struct Loop {
    ExitKind kind;
    Label* exit;
    std::uint16_t hiddenInUse;  ///< outside the loop
  };

  ScriptCompiler& script_;
  Routine& routine_;
  const Mentions& mentions_;
  RoutineScope scope_;
  FactTable facts_;
  std::vector<Loop> loops_;
  std::vector<Register> withs_;
  std::uint16_t firstHidden_ = 0;
  std::uint16_t hiddenInUse_ = 0;
  std::uint32_t nextTemporary_ = 0;
};

}  // namespace quorvane::vbs
