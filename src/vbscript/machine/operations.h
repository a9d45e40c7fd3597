#pragma once

#include "vbscript/machine/call_stack.h"

/// What instructions mean where it is not simple, by the names of opcodes.h. `pc` is the
/// instruction and `base` the first register of the current frame, to whose registers a, b and c
/// they apply; operations that may throw do so with the frame's pc behind the instruction, so that
/// the error finds its statement. Temporaries among the operands are given up.
namespace quorvane::vbs::operation {

// ---- Storing (storing.cpp) ----

/// Register a = result. A variable gets a value as Let gives it, a temporary anything as it is.
void put(CallStack& stack, const Instruction* pc, Value* base, Value result);
/// Variable = result, a value as Let gives it.
void store(CallStack& stack, Value& target, Value result);
void let(CallStack& stack, Value& target, const Value& source);
void letFrom(CallStack& stack, Value& target, Value& source, bool isTemporary);
void set(CallStack& stack, Value& target, Value& source, bool isTemporary, const Instruction* pc);
void plain(const Instruction* pc, Value* base);
/// Gives up the arguments of a call that needed no frame, then stores its result.
void finishCall(CallStack& stack, const Instruction* pc, Value* base, Value result,
                Value* firstUsed, std::size_t used);

// ---- Calculating, joining and comparing (calculating.cpp, joining.cpp, comparing.cpp) ----

/// Gives up the temporaries among operands b and c.
void clearOperands(const Instruction* pc, Value* base);
using BinaryFunction = Value (*)(const Value&, const Value&);
void binary(CallStack& stack, const Instruction* pc, Value* base, BinaryFunction function);
void binaryConstant(CallStack& stack, const Instruction* pc, Value* base, BinaryFunction function);
void binaryInteger(CallStack& stack, const Instruction* pc, Value* base, BinaryFunction function);
void unary(CallStack& stack, const Instruction* pc, Value* base, Value (*function)(const Value&));
Value sameObject(const Value& left, const Value& right);
void concatenateTwo(CallStack& stack, const Instruction* pc, Value* base);
void concatenateMany(CallStack& stack, const Instruction* pc, Value* base);
void append(CallStack& stack, const Instruction* pc, Value* base);
void appendSaved(CallStack& stack, const Instruction* pc, Value* base);

void compareTwo(CallStack& stack, const Instruction* pc, Value* base, Opcode op, const Value& right,
                bool rightIsTemporary);
bool jumpCompare(const Instruction* pc, Value* base, Opcode op, const Value& right,
                 bool rightIsTemporary);
bool jumpCompareInteger(const Instruction* pc, Value* base, Opcode op);
bool truth(const Instruction* pc, Value* base);
bool truthOfNot(const Instruction* pc, Value* base);

// ---- Loops (looping.cpp). True: jump. ----

bool forPrepare(CallStack& stack, const Instruction* pc, Value* base);
bool forLoop(CallStack& stack, const Instruction* pc, Value* base);
void forEachPrepare(CallStack& stack, const Instruction* pc, Value* base);
bool forEachNext(CallStack& stack, const Instruction* pc, Value* base);

// ---- Arrays (arrays.cpp) ----

void dimArray(CallStack& stack, const Instruction* pc, Value* base);
void reDim(CallStack& stack, const Instruction* pc, Value* base, bool preserve);
void erase(CallStack& stack, const Instruction* pc, Value* base);
void getElement(CallStack& stack, const Instruction* pc, Value* base);
void getElement2(CallStack& stack, const Instruction* pc, Value* base);
void getElementMany(CallStack& stack, const Instruction* pc, Value* base);
void setElement(CallStack& stack, const Instruction* pc, Value* base);
void setElementConstant(CallStack& stack, const Instruction* pc, Value* base);
void setElement2(CallStack& stack, const Instruction* pc, Value* base);
void setElementMany(CallStack& stack, const Instruction* pc, Value* base, bool isSet);
/// True: the text has grown where it is, and the next operation is to be skipped.
bool appendElement(CallStack& stack, const Instruction* pc, Value* base);
void refElement(CallStack& stack, const Instruction* pc, Value* base);
/// Where a collection holds its item under a key, which is then what its default member gives and
/// takes; or null.
inline Value* itemIn(const Value& holder, const Value& key) {
  const Value& direct = holder.deref();
  if (!direct.isObject() || !direct.asObject()) return nullptr;
  return direct.asObject()->itemPlace(key.deref());
}
/// An element, or what an object gives when it is called with the indexes.
Value elementValue(CallStack& stack, Value& holder, Args indexes, const Instruction* pc);
/// The other way round. The value stands behind the indexes.
void storeElement(CallStack& stack, Value& holder, Args indexesAndValue, bool isSet,
                  const Instruction* pc);

// ---- Members of objects (members.cpp). True: the current frame is another one now. ----

bool callMember(CallStack& stack, const Instruction* pc, Value* base);
/// `call` is a CallMember whose member `known` has at hand and whose argument is a variable.
void callNative(CallStack& stack, const Instruction* call, Value* base, Object& known,
                Value& variable);
/// The argument is an element of an array, which stays in its place meanwhile.
void callNative(CallStack& stack, const Instruction* call, Value* base, Object& known,
                ArrayRep& array, Value& element);
bool getMember(CallStack& stack, const Instruction* pc, Value* base);
bool putMember(CallStack& stack, const Instruction* pc, Value* base);
bool putMemberArguments(CallStack& stack, const Instruction* pc, Value* base);
bool callValue(CallStack& stack, const Instruction* pc, Value* base);
/// True: the text has grown in the field, and the next operation is to be skipped.
bool appendMember(const Instruction* pc, Value* base);

}  // namespace quorvane::vbs::operation
