#pragma once

#include <cstdint>

/// Jumps by their conditions: those that lead forward, and those that lead back to where a loop's
/// next turn begins, which count its time.
#define VBS_JUMP_OPCODES(X, Jump, jumps)                                         \
  X(Jump, "-w", jumps)                                                           \
  X(Jump##If, "rw", jumps " when a is true")                                     \
  X(Jump##Unless, "rw", jumps " unless a is true")                               \
  X(Jump##IfNot, "rw", jumps " when Not a is true")                              \
  X(Jump##UnlessNot, "rw", jumps " unless Not a is true")                        \
  X(Jump##Equal, "rrs W", jumps " when a = b; flags c say how")                  \
  X(Jump##NotEqual, "rrs W", jumps " when a <> b; flags c say how")              \
  X(Jump##Less, "rrs W", jumps " when a < b; flags c say how")                   \
  X(Jump##LessOrEqual, "rrs W", jumps " when a <= b; flags c say how")           \
  X(Jump##Greater, "rrs W", jumps " when a > b; flags c say how")                \
  X(Jump##GreaterOrEqual, "rrs W", jumps " when a >= b; flags c say how")        \
  X(Jump##EqualConstant, "rks W", jumps " when a = constant; flags c")           \
  X(Jump##NotEqualConstant, "rks W", jumps " when a <> constant; flags c")       \
  X(Jump##LessConstant, "rks W", jumps " when a < constant; flags c")            \
  X(Jump##LessOrEqualConstant, "rks W", jumps " when a <= constant; flags c")    \
  X(Jump##GreaterConstant, "rks W", jumps " when a > constant; flags c")         \
  X(Jump##GreaterOrEqualConstant, "rks W", jumps " when a >= constant; flags c") \
  X(Jump##EqualInteger, "ris W", jumps " when a = Integer; flags c")             \
  X(Jump##NotEqualInteger, "ris W", jumps " when a <> Integer; flags c")         \
  X(Jump##LessInteger, "ris W", jumps " when a < Integer; flags c")              \
  X(Jump##LessOrEqualInteger, "ris W", jumps " when a <= Integer; flags c")      \
  X(Jump##GreaterInteger, "ris W", jumps " when a > Integer; flags c")           \
  X(Jump##GreaterOrEqualInteger, "ris W", jumps " when a >= Integer; flags c")   \
  X(Jump##EqualText, "rks W", jumps " when a = a short text of bytes; flags c")  \
  X(Jump##NotEqualText, "rks W", jumps " when a <> a short text of bytes; flags c")

/// Every operation of the machine, once: name, operands, and what it does. The enum, the
/// disassembler and the dispatch table are made from this list.
///
/// Operands a, b, c in order: r register, g global variable, f field of the class instance,
/// k constant, i Integer written in the instruction, n count (of registers from the one before it
/// on), s flag, x name, h object of the host, e error number, d register or none, w distance of a
/// jump, in bytes, in b and c together, v count of the routine's variables, t first register above
/// those in use, - unused. After a blank comes what the following word holds: W distance of a jump
/// in bytes, M look-up cache of a member, R routine, C class, I intrinsic function, H object of the
/// host and member id, X name, N count, L count and lock register, r register.
///
/// Registers hold values at all times. Registers that hold intermediate values (temporaries) are
/// left without a counted value by whatever operation uses them.
#define VBS_OPCODES(X)                                                                            \
  X(Halt, "", "Ends this run of the machine")                                                     \
  X(LoadConstant, "rk", "a = constant")                                                           \
  X(LoadFarConstant, "rw", "a = constant whose number does not fit in one operand")               \
  X(LoadInteger, "ri", "a = Integer")                                                             \
  X(Copy, "rr", "a = b as it is, references followed")                                            \
  X(Let, "rr", "Variable a = b; an object gives its default value")                               \
  X(SetVariable, "rr", "Set a = b; error 424 when b is no object")                                \
  X(Hold, "rr", "Hidden variable a = b as it is")                                                 \
  X(Clear, "r", "a = Empty")                                                                      \
  X(Plain, "rr", "a = b, an object replaced by its default value")                                \
  X(LoadGlobal, "rg", "a = global variable")                                                      \
  X(LetGlobal, "rg", "Global variable b = a; an object gives its default value")                  \
  X(SetGlobal, "rg", "Set global variable b = a")                                                 \
  X(LoadField, "rfr", "a = field b of object c")                                                  \
  X(LetField, "rfr", "Field b of object c = a; an object gives its default value")                \
  X(SetField, "rfr", "Set field b of object c = a")                                               \
  X(RefVariable, "rr", "a = reference to variable b")                                             \
  X(RefGlobal, "rg", "a = reference to a global variable")                                        \
  X(RefField, "rfr", "a = reference to field b of object c")                                      \
  X(RefElement, "rrr L",                                                                          \
    "a = reference to the element of array b at the indexes from c on, "                          \
    "the array locked as long as the lock register lives")                                        \
  X(Add, "rrr", "a = b + c")                                                                      \
  X(AddDoubles, "rrr", "Add where Doubles have met; the compiler writes none")                    \
  X(AddInteger, "rri", "a = b + Integer")                                                         \
  X(AddConstant, "rrk", "a = b + constant")                                                       \
  X(Subtract, "rrr", "a = b - c")                                                                 \
  X(SubtractDoubles, "rrr", "Subtract where Doubles have met; the compiler writes none")          \
  X(SubtractInteger, "rri", "a = b - Integer")                                                    \
  X(SubtractConstant, "rrk", "a = b - constant")                                                  \
  X(Multiply, "rrr", "a = b * c")                                                                 \
  X(MultiplyDoubles, "rrr", "Multiply where Doubles have met; the compiler writes none")          \
  X(MultiplyConstant, "rrk", "a = b * constant")                                                  \
  X(Divide, "rrr", "a = b / c")                                                                   \
  X(DivideConstant, "rrk", "a = b / constant")                                                    \
  X(IntegerDivide, "rrr", "a = b \\ c")                                                           \
  X(IntegerDivideConstant, "rrk", "a = b \\ constant")                                            \
  X(Modulo, "rrr", "a = b Mod c")                                                                 \
  X(ModuloConstant, "rrk", "a = b Mod constant")                                                  \
  X(Power, "rrr", "a = b ^ c")                                                                    \
  X(Negate, "rr", "a = -b")                                                                       \
  X(Identity, "rr", "a = +b")                                                                     \
  X(Not, "rr", "a = Not b")                                                                       \
  X(And, "rrr", "a = b And c")                                                                    \
  X(Or, "rrr", "a = b Or c")                                                                      \
  X(Xor, "rrr", "a = b Xor c")                                                                    \
  X(Eqv, "rrr", "a = b Eqv c")                                                                    \
  X(Imp, "rrr", "a = b Imp c")                                                                    \
  X(Is, "rrr", "a = b Is c")                                                                      \
  X(Concatenate, "rrr", "a = b & c")                                                              \
  X(ConcatenateMany, "rrn", "a = the texts of c registers from b on, joined")                     \
  X(Append, "rr", "a = a & b, in place where possible")                                           \
  X(AppendSaved, "rrr", "a = b & c, in place when a still holds b, its earlier value")            \
  X(AppendElement, "rrr r",                                                                       \
    "Element b of a grows by the register and the next operation is skipped when it "             \
    "still holds c; else c = c & register")                                                       \
  X(AppendMember, "rrr",                                                                          \
    "The field that the next operation puts to grows by c and that is skipped, when "             \
    "object a's still holds b; else b = b & c")                                                   \
  X(Equal, "rrr", "a = (b = c)")                                                                  \
  X(NotEqual, "rrr", "a = (b <> c)")                                                              \
  X(Less, "rrr", "a = (b < c)")                                                                   \
  X(LessOrEqual, "rrr", "a = (b <= c)")                                                           \
  X(Greater, "rrr", "a = (b > c)")                                                                \
  X(GreaterOrEqual, "rrr", "a = (b >= c)")                                                        \
  X(EqualConstant, "rrk", "a = (b = literal)")                                                    \
  X(NotEqualConstant, "rrk", "a = (b <> literal)")                                                \
  X(LessConstant, "rrk", "a = (b < literal)")                                                     \
  X(LessOrEqualConstant, "rrk", "a = (b <= literal)")                                             \
  X(GreaterConstant, "rrk", "a = (b > literal)")                                                  \
  X(GreaterOrEqualConstant, "rrk", "a = (b >= literal)")                                          \
  VBS_JUMP_OPCODES(X, Jump, "Jumps")                                                              \
  VBS_JUMP_OPCODES(X, Turn, "Jumps back")                                                         \
  X(ForPrepare, "rrr W", "Variable a starts at c, limit b, step b+1; jumps when it is past")      \
  X(ForLoop, "rr- W", "Variable a one step on; jumps back while it is not past limit b")          \
  X(ForNext, "rr- W", "ForLoop where the step is 1")                                              \
  X(ForEachPrepare, "rrs",                                                                        \
    "a and a+1 walk array or collection b; the array of a variable that may be "                  \
    "written (flag c: is not) is locked")                                                         \
  X(ForEachNext, "rr- W", "Variable a = the next item of walk b; jumps back while there is one")  \
  X(DimArray, "rrn", "a becomes a fixed array with the c bounds from b on; none: dynamic")        \
  X(ReDim, "rrn", "Array a gets the c bounds from b on")                                          \
  X(ReDimPreserve, "rrn", "Array a gets the c bounds from b on and keeps its elements")           \
  X(Erase, "r", "Empties a fixed array, releases a dynamic one")                                  \
  X(GetElement, "rrr", "a = b(c)")                                                                \
  X(GetElement2, "rrr r", "a = b(c, register)")                                                   \
  X(GetElementMany, "rrr N", "a = b(the values from c on)")                                       \
  X(SetElement, "rrr", "a(b) = c")                                                                \
  X(SetElementConstant, "rrk", "a(b) = constant")                                                 \
  X(AddToElement, "rri",                                                                          \
    "Element b of a, a number, grows by an Integer, and the three next operations, which do the " \
    "same, are skipped; nothing when it takes more than that")                                    \
  X(SetElement2, "rrr r", "a(b, register) = c")                                                   \
  X(SetElementMany, "rrn", "a(the c values from b on) = the value after them")                    \
  X(SetElementObject, "rrn", "Set a(the c values from b on) = the value after them")              \
  X(Call, "drn R", "a = the routine's result; c arguments from b on")                             \
  X(CallReplaceable, "drn R", "Call of a routine that later code may have replaced")              \
  X(CallOwn, "drn R", "Call of a routine of this class on Me")                                    \
  X(CallMember, "drn M", "a = member of object b with c arguments after it")                      \
  X(CallNative, "rr",                                                                             \
    "Copy of object b for the member call behind, whose one argument is a variable; the member "  \
    "at hand of a native object is called at once, and the operations up to the call skipped")    \
  X(CallNativeElement, "rr", "The same where the argument is an element of a variable")           \
  X(GetMember, "rrt M", "a = member of object b; a call's registers begin with c")                \
  X(GetMemberOfVariable, "rrt M", "The same where b is a variable")                               \
  X(PutMember, "rrs M", "Member of object a = b; flag c: with Set")                               \
  X(PutMemberOfVariable, "rrs M", "The same where a is a variable, and without Set")              \
  X(GetElementMember, "rrr",                                                                      \
    "a = the field of element b(c) that the two next operations read, which are then skipped; "   \
    "nothing when it takes more than that")                                                       \
  X(PutElementMember, "rrr",                                                                      \
    "The field of element b(c) that the two next operations write = a, and they are skipped; "    \
    "nothing when it takes more than that")                                                       \
  X(PutMemberArguments, "rns M", "Member of object a with b arguments after it = the value then") \
  X(CallValue, "drn", "a = value b called with the c arguments after it")                         \
  X(CallHost, "drn H", "a = member of an object of the host with c arguments from b on")          \
  X(PutHost, "rns H", "Member of an object of the host with b arguments from a on = the value")   \
  X(LoadHost, "rh", "a = object of the host")                                                     \
  X(CallIntrinsic, "drn I", "a = function of c arguments from b on")                              \
  X(CallIntrinsicOne, "rr- I", "a = function of b")                                               \
  X(Sqr, "rr- I", "a = Sqr(b)")                                                                   \
  X(Abs, "rr- I", "a = Abs(b)")                                                                   \
  X(Int, "rr- I", "a = Int(b)")                                                                   \
  X(Fix, "rr- I", "a = Fix(b)")                                                                   \
  X(Len, "rr- I", "a = Len(b)")                                                                   \
  X(Asc, "rr- I", "a = Asc(b)")                                                                   \
  X(Chr, "rr- I", "a = Chr(b)")                                                                   \
  X(UBound, "rr- I", "a = UBound(b)")                                                             \
  X(Mid, "drn I", "CallIntrinsic of Mid with three arguments")                                    \
  X(Character, "rrr W", "Jumps with a = character c of text b; goes on when it is not as simple") \
  X(New, "r-- C", "a = new instance of a class")                                                  \
  X(NewNamed, "rs- X", "a = new instance of what has this name; flag b: names must be declared")  \
  X(LateGet, "rd- X", "a = whatever has this name by now, else variable b")                       \
  X(LateCall, "drn X", "a = what has this name by now, called with c arguments from b on")        \
  X(LatePut, "rds X", "What has this name by now, else variable b, = a; flag c: with Set")        \
  X(LateRef, "rd- X", "a = reference to what has this name by now, else to variable b")           \
  X(Return, "-v", "Leaves the routine, whose variables end")                                      \
  X(ReturnResult, "rv", "Leaves the routine with result a")                                       \
  X(ReturnMethod, "-vr", "Return of a class's procedure, whose Me is c")                          \
  X(ReturnMethodResult, "rvr", "ReturnResult of a class's procedure, whose Me is c")              \
  X(OnErrorResumeNext, "", "Clears Err; errors of this routine continue at the next statement")   \
  X(OnErrorGoToZero, "", "Clears Err; errors end the routine")                                    \
  X(Throw, "e-- X", "Error with a name behind its text")                                          \
  X(ExecuteText, "rs", "Runs text a as statements; flag b: in the global scope")                  \
  X(EvaluateText, "rr", "a = value of text b as an expression")                                   \
  X(GetRef, "rr", "a = function object for the routine that text b names")

namespace quorvane::vbs {

enum class Opcode : std::uint8_t {
#define VBS_OPCODE_NAME(name, operands, meaning) name,
  VBS_OPCODES(VBS_OPCODE_NAME)
#undef VBS_OPCODE_NAME
      Count,
};

/// The jump on the same condition that leads back.
constexpr Opcode turnLike(Opcode jump) {
  return static_cast<Opcode>(static_cast<unsigned>(jump) + static_cast<unsigned>(Opcode::Turn) -
                             static_cast<unsigned>(Opcode::Jump));
}

/// The flags of a jump on a comparison.
inline constexpr unsigned kJumpOnNull = 1;      ///< jumps as well when the comparison is Null
inline constexpr unsigned kJumpOnNamed = 2;     ///< a Const names the constant: it is no literal
inline constexpr unsigned kJumpOnLiterals = 4;  ///< both sides are literals

}  // namespace quorvane::vbs
