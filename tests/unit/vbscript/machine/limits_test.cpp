#include "testing.h"

namespace quorvane {

using LimitsTest = MachineTest;

namespace {

constexpr std::string_view kEndless[] = {
    "Do : Loop",
    "Do While True : Loop",
    "Do : x = x + 1 : Loop Until False",
    "While True : Wend",
    "Do : Loop While x < 1",
    "Do : Loop Until x > 0.5",
    "Do : Loop Until x = y + 1",
    "Do While x = \"\" : Loop",
    "Do Until x : Loop",
    "Do : Loop While Not x",
    "Do : Loop Until Not Not x",
    "y = 1 : Do : Loop While y = \"1\" Or y",
    "Sub S(a, b) : Do : Loop While a < b : End Sub : m = 1 : n = 2.5 : S m, n",
    "Do : If x Then y = 1 Else y = 2\nLoop",
    "Function F(n) : If n < 2 Then F = n Else F = F(n - 1) + F(n - 2)\nEnd Function : x = F(99)",
    "Sub S(n) : If n > 0 Then S n - 1 : S n - 1\nEnd Sub : S 99",
    "Class C : Public Function M(n) : If n > 0 Then M = Me.M(n - 1) + o.M(n - 1)\nEnd Function\n"
    "Public Level : Public Property Get P : Level = Level + 1 : If Level < 99 Then P = o.P + o.P\n"
    "Level = Level - 1 : End Property : Public Property Let Q(n)\nIf n Then o.Q = n - 1 : o.Q = n "
    "- 1\n"
    "End Property : End Class : Set o = New C : x = o.M(99)",
    "Class C : Public Level : Public Property Get P : Level = Level + 1\n"
    "If Level < 99 Then P = o.P + o.P\nLevel = Level - 1 : End Property : End Class\n"
    "Set o = New C : x = o.P",
    "Class C : Public Property Let Q(n)\nIf n > 0 Then o.Q = n - 1 : o.Q = n - 1\n"
    "End Property : End Class : Set o = New C : o.Q = 99",
    "For i = 1 To 2 Step 0 : Next",
    "For i = 1 To 2 : i = 1 : Next",
    "Sub S : For n = 1 To 3 : Next : End Sub : Do : S : Loop",
    "On Error Resume Next : Do : x = 1 / 0 : Loop",
    "On Error Resume Next : Do : Execute \"y = 1\" : Loop",
    "Class C : Private Sub Class_Terminate : Do : Loop : End Sub : End Class : Set o = New C\n"
    "On Error Resume Next : Set o = Nothing : Do : Loop",
    "Class C : Private Sub Class_Terminate : Do : Loop : End Sub : End Class\n"
    "Set o = New C : Set o = Nothing",
    "Class C : Private Sub Class_Terminate : Set x = New C : End Sub : End Class\n"
    "Set o = New C : Set o = Nothing : Do : Loop",
};

}  // namespace

TEST_F(LimitsTest, TimeEndsARunWhateverTheScriptTraps) {
  host.step = std::chrono::milliseconds(100);
  limits.time = std::chrono::milliseconds(1000);
  for (const auto source : kEndless) {
    EXPECT_EQ(run(source), "<113>") << source;
    EXPECT_EQ(lastError->description, "Script timed out");
    EXPECT_GT(lastError->line, 0u) << source;
  }
  run("x = 1\nDo\nx = x + 1\nLoop");
  EXPECT_EQ(lastError->line, 4u);
  EXPECT_EQ(run("Write \"fine\""), "fine");
}

TEST_F(LimitsTest, TimeIsLookedAtWhereEachTurnOfALoopTakesLong) {
  constexpr std::string_view kTurns[] = {
      "t = Replace(s, \" \", \"ab\")",
      "t = s & \"x\"",
      "n = InStr(s, \"b\")",
      "b = (s = r)",
      "b = (s < r)",
      "n = StrComp(s, r, 1)",
      "a = Split(s, \" \", 5)",
      "t = UCase(s)",
      "Output.Title = s",
      "ReDim a(300000)",
      "n = InStrRev(s, \"b\")",
      "t = LTrim(s)",
      "Execute \"z = 1'\" & n & s",
  };
  host.step = std::chrono::milliseconds(1);
  limits.time = std::chrono::milliseconds(4);
  for (const auto turn : kTurns) {
    const std::string result =
        run("Dim a(): s = Space(4200000): r = Left(s, 4199999) & \" \"\n"
            "Do: n = n + 1: " +
            std::string(turn) + ": Write \"*\": Loop");
    EXPECT_TRUE(result.ends_with("<113>")) << turn << ": " << result;
    EXPECT_LE(result.size(), 50u) << turn;
  }
}

TEST_F(LimitsTest, CodeFromTextsIsBoundedLikeValues) {
  limits.memoryBytes = std::int64_t{4} << 20;
  EXPECT_EQ(run("Do : i = i + 1 : ExecuteGlobal \"Sub s\" & i & \": End Sub\" : Loop"), "<7>");
  constexpr std::string_view kFew =
      "For i = 1 To 100: ExecuteGlobal \"Sub s\" & i & \": End Sub\": Next";
  EXPECT_EQ(run(kFew), "");
  const std::int64_t before = vbs::runContext.memory.used;
  EXPECT_EQ(run(kFew), "");
  EXPECT_EQ(vbs::runContext.memory.used, before);
}

TEST_F(LimitsTest, EndlessRecursionIsAnError) {
  EXPECT_EQ(run("Sub S : S : End Sub : S"), "<28>");
  EXPECT_EQ(run("Function F(n) : F = F(n + 1) : End Function : x = F(1)"), "<28>");
  EXPECT_EQ(run("On Error Resume Next : Sub S : S : End Sub : S : Write Err.Number"), "28");
}

TEST_F(LimitsTest, DepthOfCallsIsTheHostsChoice) {
  const std::string_view source =
      "Function Depth(n) : If n = 0 Then Depth = 0 Else Depth = 1 + Depth(n - 1)\n"
      "End Function : Write Depth(90)";
  limits.callDepth = 100;
  EXPECT_EQ(run(source), "90");
  limits.callDepth = 50;
  EXPECT_EQ(run(source), "<28>");
}

TEST_F(LimitsTest, DepthIsTheSameWhateverRanBefore) {
  const auto source = [](int depth) {
    return "Function Depth(n) : Dim i : For i = 1 To 3 : Turn i : Next\n"
           "If n > 0 Then Depth = 1 + Depth(n - 1)\nEnd Function\n"
           "Sub Turn(n) : End Sub : On Error Resume Next\n"
           "Dim k : For k = 1 To 5000 : Turn k : Next\n"
           "For k = 1 To 3 : x = 0 : x = Depth(" +
           std::to_string(depth) + ") : Write x & \" \" & Err.Number & \" \" : Err.Clear : Next";
  };
  limits.callDepth = 50;
  EXPECT_EQ(run(source(48)), "48 0 48 0 48 0 ");
  EXPECT_EQ(run(source(49)), "0 28 0 28 0 28 ");
}

TEST_F(LimitsTest, RecursionOfRoutinesWithManyVariablesIsBounded) {
  std::string names = "v0";
  for (int i = 1; i < 3000; ++i) names += ", v" + std::to_string(i);
  const std::string wide = "Function Wide(n) : Dim " + names +
                           " : If IsEmpty(v2999) Then v2999 = \"left\" & n\n"
                           "Wide = n : If n > 0 Then Wide = Wide(n - 1)\nEnd Function\n";
  EXPECT_EQ(run(wide + "x = Wide(100) : Write x"), "0");
  EXPECT_EQ(run(wide + "x = Wide(1000)"), "<28>");
  EXPECT_EQ(run(wide + "On Error Resume Next : For i = 1 To 3 : x = Wide(1000)\n"
                       "Write Err.Number & \" \" : Err.Clear : Next : Write Wide(100)"),
            "28 28 28 0");
  EXPECT_EQ(run(wide + "Function Narrow(n) : If n = 0 Then Narrow = Wide(1000) Else Narrow = "
                       "Narrow(n - 1)\nEnd Function : x = Narrow(3000)"),
            "<28>");
}

TEST_F(LimitsTest, RecursionThroughNativeCodeIsBounded) {
  EXPECT_EQ(run("Sub S : Execute \"S\" : End Sub : S"), "<28>");
  EXPECT_EQ(run("Function F : F = Eval(\"F()\") : End Function : x = F"), "<28>");
  EXPECT_EQ(run("Sub S : Output.Call GetRef(\"S\") : End Sub : S"), "<28>");
  EXPECT_EQ(run("Class C : Public Default Function D : D = \"\" & Me : End Function : End Class\n"
                "Set o = New C : x = \"\" & o"),
            "<28>");
  EXPECT_EQ(run("Class C : Private Sub Class_Initialize : Set x = New C : End Sub : End Class\n"
                "Set o = New C"),
            "<28>");
}

TEST_F(LimitsTest, AnExecuteThatHasNoRoomLeavesNothingBehind) {
  limits.callDepth = 20;
  EXPECT_EQ(run("On Error Resume Next\n"
                "Function Wide(n) : Dim b, c, d, e : b = \"t\" & n : c = b & b : d = c & b & e\n"
                "Wide = d & n : End Function\n"
                "Function Deep(n) : Dim a : a = \"kept\" & n\n"
                "If n > 0 Then\nDeep = Deep(n - 1)\n"
                "ElseIf asText Then\nExecute \"a = a & 1\"\nElse\nDeep = Wide(7)\nEnd If\n"
                "End Function\n"
                "asText = True : For i = 0 To 25 : x = Deep(i) : If Err.Number <> 0 Then Exit For\n"
                "Next : asText = False : y = Deep(i) : Write Err.Number & y"),
            "28t7t7t77");
}

TEST_F(LimitsTest, MemoryIsBounded) {
  limits.memoryBytes = 1 << 20;
  EXPECT_EQ(run("s = \"x\" : Do : s = s & s : Loop"), "<7>");
  EXPECT_EQ(run("Dim a() : ReDim a(1000000)"), "<7>");
  EXPECT_EQ(run("Class C : Public n : End Class : Set o = New C\n"
                "Do : Set x = New C : Set x.n = o : Set o = x : Loop"),
            "<7>");
  EXPECT_EQ(run("s = String(100000, \":\") : Execute s"), "<7>");
  EXPECT_EQ(run("On Error Resume Next : s = String(5000000, \"x\") : Write Err.Number"), "7");
  EXPECT_EQ(run("s = String(500000, \"x\") : Write Len(s)"), "500000");
}

TEST_F(LimitsTest, LongChainsOfObjectsEndWell) {
  EXPECT_EQ(run("Class C : Public n : End Class : Set o = Nothing\n"
                "For i = 1 To 300000 : Set x = New C : Set x.n = o : Set o = x : Next\n"
                "Set x = Nothing : Set o = Nothing : Write \"gone\""),
            "gone");
  const std::string_view terminated =
      "Dim count : Class C : Public n : Private Sub Class_Terminate : count = count + 1\n"
      "End Sub : End Class : Set o = Nothing\n"
      "For i = 1 To 20000 : Set x = New C : Set x.n = o : Set o = x : Next\n"
      "Set x = Nothing : Set o = Nothing : Write count";
  EXPECT_EQ(run(terminated), "20000");
}

TEST_F(LimitsTest, ManyGlobalsAndManyTexts) {
  std::string source;
  for (int i = 0; i < 40000; ++i) source += "v" + std::to_string(i) + " = 1\n";
  EXPECT_EQ(run(source), "<1001>");
  source.clear();
  for (int i = 0; i < 70000; ++i) source += "x = \"text " + std::to_string(i) + "\"\n";
  EXPECT_EQ(run(source + "Write x"), "text 69999");
}

TEST_F(LimitsTest, DeepExpressionsCompile) {
  std::string sum = "x = 1";
  for (int i = 0; i < 1900; ++i) sum += " + 1";
  EXPECT_EQ(run(sum + "\nWrite x"), "1901");
  std::string call = "x = 1";
  for (int i = 0; i < 150; ++i) call = "x = Abs(" + call.substr(4) + ")";
  EXPECT_EQ(run(call + "\nWrite x"), "1");
}

TEST_F(LimitsTest, FarJumps) {
  std::string body;
  for (int i = 0; i < 40000; ++i) body += "n = n + 1\n";
  EXPECT_EQ(run("For i = 1 To 2\nIf i > 0 Then\n" + body + "End If\nNext\nWrite n"), "80000");
}

TEST_F(LimitsTest, RoutinesHaveRoomForSoManyVariables) {
  const auto declaring = [](int count) {
    std::string names = "v0";
    for (int i = 1; i < count; ++i) names += ", v" + std::to_string(i);
    return "Sub S : Dim " + names + " : v0 = 1 : v9 = 2 : Write v0 & v9 : End Sub : S";
  };
  EXPECT_EQ(run(declaring(32768)), "12");
  EXPECT_EQ(run(declaring(32769)), "<1001>");
  EXPECT_EQ(run(declaring(65545)), "<1001>");
}

}  // namespace quorvane
