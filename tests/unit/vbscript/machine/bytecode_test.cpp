#include <gtest/gtest.h>

#include <string>

#include "vbscript/dumps/dumps.h"
#include "vbscript/engine.h"

namespace quorvane {

namespace {

/// The instructions of a script's main code, or of the routine named, a line each, without their
/// addresses.
std::string code(std::string_view source, std::string_view routine = "main") {
  const std::string dump = vbs::dumpBytecode(source);
  std::string lines;
  bool inside = false;
  for (std::size_t at = 0; at < dump.size();) {
    const std::size_t end = dump.find('\n', at);
    const std::string line = dump.substr(at, end - at);
    at = end + 1;
    if (!line.empty() && line[0] != ' ') inside = line.starts_with(std::string(routine) + " (");
    if (inside && line.size() > 7 && line.starts_with("  ") && line[4] != ' ') {
      lines += line.substr(7) + '\n';
    }
  }
  return lines;
}

}  // namespace

TEST(Bytecode, GlobalVariablesAreRegistersOfTheMainCode) {
  EXPECT_EQ(code("a = b + c"),
            "Add r0 r1 r2\n"
            "Halt\n");
}

TEST(Bytecode, RoutinesReachGlobalsByNumber) {
  EXPECT_EQ(code("Dim g\nSub S : g = g + 1 : End Sub", "S"),
            "LoadGlobal t0 g0\n"
            "AddInteger t0 t0 1\n"
            "LetGlobal t0 g0\n"
            "Return 0\n");
}

TEST(Bytecode, ConstantsStandInTheInstruction) {
  EXPECT_EQ(code("a = b * 2.5 - 1"),
            "MultiplyConstant t0 r1 2.5\n"
            "SubtractInteger r0 t0 1\n"
            "Halt\n");
  EXPECT_EQ(code("Const k = 100000\na = 2 * b + k"),
            "MultiplyConstant t0 r1 2\n"
            "AddConstant r0 t0 100000\n"
            "Halt\n");
}

TEST(Bytecode, CallsWithOneSimpleArgumentMayBeDoneWhereTheObjectIs) {
  EXPECT_EQ(code("Dim o, k, a\nr = o.M(k)\no.M a(k)"),
            "CallNative t0 r0\n"
            "RefVariable t1 r1\n"
            "CallMember r3 t0 1 .M\n"
            "CallNativeElement t1 r0\n"
            "Copy t3 r1\n"
            "RefElement t2 r2 t3 count 1 lock t0\n"
            "CallMember none t1 1 .M\n"
            "Clear t0\n"
            "Halt\n");
  EXPECT_EQ(code("Dim o, k, a\no.M k, a\no.M 1\no.M a(k + 1)"),
            "Copy t0 r0\n"
            "RefVariable t1 r1\n"
            "RefVariable t2 r2\n"
            "CallMember none t0 2 .M\n"
            "Copy t0 r0\n"
            "LoadInteger t1 1\n"
            "CallMember none t0 1 .M\n"
            "Copy t1 r0\n"
            "AddInteger t3 r1 1\n"
            "RefElement t2 r2 t3 count 1 lock t0\n"
            "CallMember none t1 1 .M\n"
            "Clear t0\n"
            "Halt\n");
}

TEST(Bytecode, ConditionsWithNotTakeOneJump) {
  EXPECT_EQ(code("Dim a, b\nIf Not a Then b = 1\nDo : Loop Until Not a"),
            "JumpUnlessNot r0 ->2\n"
            "LoadInteger r1 1\n"
            "TurnUnlessNot r0 ->2\n"
            "Halt\n");
}

TEST(Bytecode, ElementsMayGrowByAnIntegerWhereTheyAre) {
  EXPECT_EQ(code("Dim a, i\na(i) = a(i) + 1\na(i) = a(i) - 2"),
            "AddToElement r0 r1 1\n"
            "GetElement t0 r0 r1\n"
            "AddInteger t0 t0 1\n"
            "SetElement r0 r1 t0\n"
            "AddToElement r0 r1 -2\n"
            "GetElement t0 r0 r1\n"
            "SubtractInteger t0 t0 2\n"
            "SetElement r0 r1 t0\n"
            "Halt\n");
  for (const char* other : {"a(i) = a(j) + 1", "a(i) = b(i) + 1", "a(i) = a(i) * 2",
                            "a(i) = a(i) + 1.5", "a(i, i) = a(i, i) + 1", "a(i) = a(i) + j",
                            "a(i + 1) = a(i + 1) + 1", "Set a(i) = a(i) + 1"}) {
    const std::string lines = code(std::string("Dim a, b, i, j\n") + other);
    EXPECT_EQ(lines.find("AddToElement"), std::string::npos) << other;
  }
}

TEST(Bytecode, FieldsOfElementsAreReadAndWrittenWithoutTheirObjects) {
  EXPECT_EQ(code("Dim a(1)\nn = a(i).x\na(i).y = n"),
            "LoadInteger t0 1\n"
            "DimArray r0 t0 1\n"
            "GetElementMember r1 r0 r2\n"
            "GetElement t0 r0 r2\n"
            "GetMember r1 t0 .x\n"
            "PutElementMember r1 r0 r2\n"
            "GetElement t0 r0 r2\n"
            "PutMember t0 r1 0 .y\n"
            "Halt\n");
}

TEST(Bytecode, ComparisonAndJumpAreOne) {
  EXPECT_EQ(code("If a < b Then c = 1"),
            "JumpGreaterOrEqual r0 r1 1 ->3\n"
            "LoadInteger r2 1\n"
            "Halt\n");
  EXPECT_EQ(code("If Not a > 5 Then c = 1"),
            "JumpGreaterInteger r0 5 1 ->3\n"
            "LoadInteger r1 1\n"
            "Halt\n");
}

TEST(Bytecode, ConstantsAreStoredInElementsFromWhereTheyAre) {
  EXPECT_EQ(code("a(i) = True"),
            "SetElementConstant r0 r1 True\n"
            "Halt\n");
}

TEST(Bytecode, LoopsEndWithOneInstruction) {
  EXPECT_EQ(code("For i = 1 To n\ns = s + i\nNext"),
            "Clear h0\n"
            "Clear h1\n"
            "LoadInteger t0 1\n"
            "Copy t1 r1\n"
            "LoadInteger h1 1\n"
            "Plain h0 t1\n"
            "ForPrepare r0 h0 t0 ->11\n"
            "Add r2 r2 r0\n"
            "ForNext r0 h0 ->8\n"
            "Halt\n");
  EXPECT_EQ(code("For i = 1 To n Step 2 : Next"),
            "Clear h0\n"
            "Clear h1\n"
            "LoadInteger t0 1\n"
            "Copy t1 r1\n"
            "LoadInteger t2 2\n"
            "Plain h1 t2\n"
            "Plain h0 t1\n"
            "ForPrepare r0 h0 t0 ->11\n"
            "ForLoop r0 h0 ->9\n"
            "Halt\n");
  EXPECT_EQ(code("Do While a < 9\na = a + 1\nLoop"),
            "Jump ->2\n"
            "AddInteger r0 r0 1\n"
            "TurnLessInteger r0 9 0 ->1\n"
            "Halt\n");
}

TEST(Bytecode, TextsGrowInPlace) {
  EXPECT_EQ(code("s = s & a"),
            "Append r0 r1\n"
            "Halt\n");
  EXPECT_EQ(code("s = s & a & \"x\""),
            "LoadConstant t0 \"x\"\n"
            "Concatenate t0 r1 t0\n"
            "Append r0 t0\n"
            "Halt\n");
}

TEST(Bytecode, TextsInArraysGrowInPlace) {
  EXPECT_EQ(code("a(i) = a(i) & x"),
            "GetElement t0 r0 r1\n"
            "AppendElement r0 r1 t0 r2\n"
            "SetElement r0 r1 t0\n"
            "Halt\n");
  EXPECT_EQ(code("a(\"k\") = a(\"k\") & x"),
            "LoadConstant t1 \"k\"\n"
            "GetElement t0 r0 t1\n"
            "LoadConstant t1 \"k\"\n"
            "AppendElement r0 t1 t0 r1\n"
            "SetElement r0 t1 t0\n"
            "Halt\n");
  EXPECT_EQ(code("a(i) = a(j) & x").find("AppendElement"), std::string::npos);
  EXPECT_EQ(code("a(1) = a(2) & x").find("AppendElement"), std::string::npos);
  EXPECT_EQ(code("a(i) = b(i) & x").find("AppendElement"), std::string::npos);
}

TEST(Bytecode, TextsInFieldsGrowInPlace) {
  EXPECT_EQ(code("o.t = o.t & x"),
            "GetMemberOfVariable t0 r0 .t\n"
            "AppendMember r0 t0 r1\n"
            "PutMemberOfVariable r0 t0 0 .t\n"
            "Halt\n");
  for (const char* other : {"o.t = o.u & x", "o.t = p.t & x", "o.t = x & o.t", "o.t = o.t + x"}) {
    EXPECT_EQ(code(other).find("AppendMember"), std::string::npos) << other;
  }
}

TEST(Bytecode, ConstantTextsAreJoinedWhenCompiled) {
  EXPECT_EQ(code("x = \"a\" & Chr(34) & (\"b\") & vbTab"),
            "LoadConstant r0 \"a\"b\t\"\n"
            "Halt\n");
  EXPECT_EQ(code("x = a & \"b\" & \"c\" & d"),
            "RefVariable t0 r1\n"
            "LoadConstant t1 \"bc\"\n"
            "RefVariable t2 r2\n"
            "ConcatenateMany r0 t0 3\n"
            "Halt\n");
  EXPECT_EQ(code("x = \"a\" & Chr(1000)"),
            "LoadConstant t0 \"a\"\n"
            "LoadInteger t1 1000\n"
            "Chr t1 t1 Chr\n"
            "Concatenate r0 t0 t1\n"
            "Halt\n");
  EXPECT_EQ(code("x = 1 & 2"),
            "LoadInteger t0 1\n"
            "LoadInteger t1 2\n"
            "Concatenate r0 t0 t1\n"
            "Halt\n");
}

TEST(Bytecode, TextThatACallMayChangeIsReadBeforeIt) {
  EXPECT_EQ(code("s = s & F()\nFunction F : s = \"\" : End Function"),
            "Copy t0 r0\n"
            "Call t1 t2 0 F\n"
            "AppendSaved r0 t0 t1\n"
            "Halt\n");
}

TEST(Bytecode, VariablesAreCopiedOnlyWhereCodeMayChangeThem) {
  const std::string classes = "\nClass K : End Class";
  EXPECT_EQ(code("x = v + Len(s)"),
            "Len t0 r2 Len\n"
            "Add r0 r1 t0\n"
            "Halt\n");
  EXPECT_EQ(code("x = v + Len(s)" + classes),
            "Copy t0 r1\n"
            "Len t1 r2 Len\n"
            "Add r0 t0 t1\n"
            "Halt\n");
  EXPECT_EQ(code("x = v + Len(\"text\" & 1) * 2" + classes).find("Copy"), std::string::npos);
  EXPECT_EQ(code("x = v + w" + classes),
            "Add r0 r1 r2\n"
            "Halt\n");
  EXPECT_EQ(code("Sub S(ByVal p) : Dim v : x = v + Len(p) + p * -v : End Sub" + classes, "S")
                .find("Copy"),
            std::string::npos);
  EXPECT_EQ(code("Sub S(p) : x = p * Len(p) : End Sub" + classes, "S"),
            "Copy t0 r0\n"
            "Len t1 r0 Len\n"
            "Multiply r1 t0 t1\n"
            "Return 2\n");
}

TEST(Bytecode, PartsOfATextAreMadePlainOnlyBeforeWhatMayDependOnIt) {
  const std::string classes = "\nClass K : End Class";
  EXPECT_EQ(code("x = a & b & c" + classes),
            "RefVariable t0 r1\n"
            "RefVariable t1 r2\n"
            "RefVariable t2 r3\n"
            "ConcatenateMany r0 t0 3\n"
            "Halt\n");
  EXPECT_EQ(code("x = \"x\" & a & Len(c)" + classes),
            "LoadConstant t0 \"x\"\n"
            "Plain t1 r1\n"
            "Len t2 r2 Len\n"
            "ConcatenateMany r0 t0 3\n"
            "Halt\n");
  EXPECT_EQ(code("x = \"x\" & a & Len(c)").find("Plain"), std::string::npos);
  EXPECT_EQ(code("s = s & \"x\" & a" + classes),
            "LoadConstant t1 \"x\"\n"
            "Plain t0 r0\n"
            "RefVariable t2 r1\n"
            "Concatenate t1 t1 t2\n"
            "AppendSaved r0 t0 t1\n"
            "Halt\n");
}

TEST(Bytecode, ArgumentsAreMadeInTheCalleesRegisters) {
  EXPECT_EQ(code("Function Fib(n)\nIf n < 2 Then Fib = n Else Fib = Fib(n - 1) + Fib(n - 2)\n"
                 "End Function",
                 "Fib"),
            "JumpGreaterOrEqualInteger r0 2 1 ->4\n"
            "Let r1 r0\n"
            "ReturnResult r1 2\n"
            "SubtractInteger t1 r0 1\n"
            "Call t0 t1 1 Fib\n"
            "SubtractInteger t2 r0 2\n"
            "Call t1 t2 1 Fib\n"
            "Add r1 t0 t1\n"
            "ReturnResult r1 2\n");
}

TEST(Bytecode, ParametersThatAreOnlyReadTakeCopiesOfLocalVariables) {
  const std::string_view source =
      "Sub Caller : Dim v : Reads v : Writes v : PassesOn v : End Sub\n"
      "Sub Reads(a) : x = a : End Sub\n"
      "Sub Writes(a) : a = 1 : End Sub\n"
      "Sub PassesOn(a) : Writes a : End Sub";
  EXPECT_EQ(code(source, "Caller"),
            "Copy t0 r0\n"
            "Call none t0 1 Reads\n"
            "RefVariable t0 r0\n"
            "Call none t0 1 Writes\n"
            "RefVariable t0 r0\n"
            "Call none t0 1 PassesOn\n"
            "Return 1\n");
}

TEST(Bytecode, ElementsGoByReferenceUnderALock) {
  EXPECT_EQ(code("Dim a(3)\nWrites a(1)\nSub Writes(x) : x = 1 : End Sub"),
            "LoadInteger t0 3\n"
            "DimArray r0 t0 1\n"
            "LoadInteger t2 1\n"
            "RefElement t1 r0 t2 count 1 lock t0\n"
            "Call none t1 1 Writes\n"
            "Clear t0\n"
            "Halt\n");
}

TEST(Bytecode, ElementsOfOneAndTwoIndexes) {
  EXPECT_EQ(code("Dim a, b, c, i, j, k : a(i, j) = b(k) : c = b(i, j)"),
            "GetElement t0 r1 r5\n"
            "SetElement2 r0 r3 t0 r4\n"
            "GetElement2 r2 r1 r3 r4\n"
            "Halt\n");
}

TEST(Bytecode, ElementsOfGlobalsInLoopsAreReachedByAVariableThatRefersToThem) {
  EXPECT_EQ(code("Dim g, h\nSub S : Dim i : Do : g(i) = h : i = i + g(i) : Loop : End Sub", "S"),
            "RefGlobal r1 g0\n"
            "LoadGlobal t0 g1\n"
            "SetElement r1 r0 t0\n"
            "GetElement t0 r1 r0\n"
            "Add r0 r0 t0\n"
            "Turn ->1\n"
            "Return 2\n");
  EXPECT_EQ(code("Dim g\nSub S : x = g(1) : End Sub", "S"),
            "RefGlobal t0 g0\n"
            "LoadInteger t1 1\n"
            "GetElement r0 t0 t1\n"
            "Return 1\n");
}

TEST(Bytecode, JumpsToJumpsGoOnToTheirTargets) {
  EXPECT_EQ(code("Dim a, b\nIf a Then\nIf b Then b = 1 Else b = 2\nElse\nb = 3\nEnd If"),
            "JumpUnless r0 ->6\n"
            "JumpUnless r1 ->4\n"
            "LoadInteger r1 1\n"
            "Jump ->7\n"
            "LoadInteger r1 2\n"
            "Jump ->7\n"
            "LoadInteger r1 3\n"
            "Halt\n");
}

TEST(Bytecode, FieldsAreSlots) {
  EXPECT_EQ(code("Class C\nPrivate n\nPublic Sub Add(x)\nn = n + x\nHelp\nEnd Sub\n"
                 "Private Sub Help : End Sub\nEnd Class",
                 "Add"),
            "LoadField t0 field0 r1\n"
            "Add t0 t0 r0\n"
            "LetField t0 field0 r1\n"
            "CallOwn none t0 0 Help\n"
            "ReturnMethod 2 r1\n");
}

TEST(Bytecode, FunctionsOfTheLibraryAreCalledDirectly) {
  EXPECT_EQ(code("n = Len(s) : x = Mid(s, 2, 1)"),
            "Len r0 r1 Len\n"
            "RefVariable t0 r1\n"
            "LoadInteger t1 2\n"
            "LoadInteger t2 1\n"
            "Mid r2 t0 3 Mid\n"
            "Halt\n");
}

TEST(Bytecode, UndeclaredNamesAreLateOnlyWhereCodeComesAsText) {
  EXPECT_EQ(code("Sub S : x = 1 : End Sub", "S"),
            "LoadInteger r0 1\n"
            "Return 1\n");
  EXPECT_EQ(code("Sub S : x = 1 : End Sub : ExecuteGlobal t", "S"),
            "LoadInteger t0 1\n"
            "LatePut t0 r0 0 x\n"
            "Return 1\n");
}

}  // namespace quorvane
