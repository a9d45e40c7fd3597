#include <gmock/gmock.h>

#include "testing.h"

namespace quorvane {

using vbs::Engine;
using vbs::ErrorReport;
using vbs::Value;

using EngineTest = MachineTest;

TEST_F(EngineTest, PublishedObjectAndItsMembers) {
  EXPECT_EQ(run("Output.Write 1 : Write 2 : Output.Title = \"t\" : Write Title"), "12t");
  EXPECT_EQ(run("Title = \"global\" : Write Output.Title"), "global");
}

TEST_F(EngineTest, NamesOfTheScriptComeBeforeThoseOfTheHost) {
  EXPECT_EQ(run("Dim title : title = \"own\" : Output.Title = \"host\" : Write title"), "own");
  EXPECT_EQ(run("Function Finish : Finish = \"mine\" : End Function : Write Finish"), "mine");
}

TEST_F(EngineTest, NamesOfTheHostComeBeforeThoseOfTheLibrary) {
  class Maths final : public vbs::NativeObject<Maths> {
   public:
    static std::span<const vbs::Member<Maths>> members() {
      static constexpr vbs::Member<Maths> kMembers[] = {{"abs", 1, 1, &Maths::abs, nullptr}};
      return kMembers;
    }
    std::string_view typeName() const override { return "Maths"; }

   private:
    Value abs(vbs::Args) { return Value("host's"); }
  };
  const auto maths = vbs::make<Maths>();
  Engine engine(host, cache);
  engine.addObject("Output", *output, true);
  engine.addObject("Maths", *maths, true);
  EXPECT_FALSE(engine.run("Write Abs(-1)"));
  EXPECT_EQ(output->text, "host's");
}

TEST_F(EngineTest, ConstantTextsComeTogetherWhereAMemberJoinsThem) {
  EXPECT_EQ(run("Output.Put \"a\" & vbCrLf\nOutput.Put \"b\" : Output.Put Chr(34)\n"
                "Output.Put 1\nOutput.Put \"c\"\nx = 2\nOutput.Put \"d\""),
            "a\r\nb\"1cd");
  EXPECT_EQ(output->puts, 4);
  EXPECT_EQ(run("If False Then Output.Put \"a\" : Output.Put \"b\"\n"
                "Output.Put \"c\"\nOutput.Put \"d\"\nx = 1 / 0"),
            "cd<11>");
  EXPECT_EQ(output->puts, 5);
  EXPECT_EQ(lastError->line, 4u);
  EXPECT_EQ(run("Output.Write \"a\"\nOutput.Put \"b\"\nOutput.Write \"c\""), "abc");
}

TEST_F(EngineTest, ErrorTellsWhere) {
  run("Dim a\n\n  a = 1 : a = 1 / 0");
  ASSERT_TRUE(lastError);
  EXPECT_EQ(lastError->number, 11);
  EXPECT_EQ(lastError->description, "Division by zero");
  EXPECT_EQ(lastError->source, "Microsoft VBScript runtime error");
  EXPECT_EQ(lastError->line, 3u);
  EXPECT_EQ(lastError->column, 11u);
  EXPECT_FALSE(lastError->isCompileError);
}

TEST_F(EngineTest, ErrorTellsTheLineWhereItBeganNotThatOfTheCall) {
  run("Sub A\n  B\nEnd Sub\nSub B\n  x = CInt(\"no\")\nEnd Sub\nA");
  ASSERT_TRUE(lastError);
  EXPECT_EQ(lastError->number, 13);
  EXPECT_EQ(lastError->line, 5u);
}

TEST_F(EngineTest, ErrorInARoutineCalledByTheHostKeepsItsLine) {
  run("Sub A\n\n  Err.Raise 77\nEnd Sub\nOutput.Call GetRef(\"A\")");
  ASSERT_TRUE(lastError);
  EXPECT_EQ(lastError->number, 77);
  EXPECT_EQ(lastError->line, 3u);
}

TEST_F(EngineTest, CompileErrorTellsWhere) {
  EXPECT_EQ(run("Write 1\nIf x Then\nWrite 2"), "<1014>");
  ASSERT_TRUE(lastError);
  EXPECT_TRUE(lastError->isCompileError);
  EXPECT_EQ(lastError->line, 3u);
  EXPECT_EQ(lastError->source, "Microsoft VBScript compilation error");
}

TEST_F(EngineTest, TheHostEndsARunByRaising) {
  EXPECT_EQ(run("Write 1 : On Error GoTo 0 : Finish : Write 2"), "1<6006>");
}

TEST_F(EngineTest, SecondRunSeesWhatTheFirstDefined) {
  Engine engine(host, cache);
  engine.addObject("Output", *output, true);
  ASSERT_FALSE(engine.run("Dim n : n = 5 : Function Twice(x) : Twice = 2 * x : End Function"));
  ASSERT_FALSE(engine.run("n = n + 1 : Write Twice(n) : Dim m : m = 3"));
  ASSERT_FALSE(engine.run("Write n & m"));
  EXPECT_EQ(output->text, "1263");
}

TEST_F(EngineTest, EvaluateGivesAValue) {
  Engine engine(host, cache);
  ASSERT_FALSE(engine.run("Dim n : n = 20 : Function F(x) : F = x + 1 : End Function"));
  Value result;
  ASSERT_FALSE(engine.evaluate("F(n) * 2", result));
  EXPECT_EQ(result.asInt(), 42);
  const auto error = engine.evaluate("n +", result);
  ASSERT_TRUE(error);
  EXPECT_TRUE(error->isCompileError);
}

TEST_F(EngineTest, RunAfterAnErrorIsAllRight) {
  Engine engine(host, cache);
  engine.addObject("Output", *output, true);
  EXPECT_TRUE(engine.run("Dim n : n = 1 : Sub S : n = 2 : Err.Raise 5 : End Sub : S"));
  EXPECT_FALSE(engine.run("Write n"));
  EXPECT_EQ(output->text, "2");
}

TEST_F(EngineTest, TwoEnginesTakeTurnsOverOneCache) {
  Engine first(host, cache);
  Engine second(host, cache);
  for (Engine* engine : {&first, &second}) engine->addObject("Output", *output, true);
  const std::string_view source = "n = n + 1 : Write n";
  EXPECT_FALSE(first.run(source));
  EXPECT_FALSE(first.run(source));
  EXPECT_FALSE(second.run(source));
  EXPECT_FALSE(first.run(source));
  EXPECT_EQ(output->text, "1213");
}

TEST_F(EngineTest, SameTextIsCompiledOnce) {
  ErrorReport error;
  const auto first = cache.get("x = 1", error);
  const auto second = cache.get("x = 1", error);
  const auto other = cache.get("x = 2", error);
  EXPECT_EQ(first, second);
  EXPECT_NE(first, other);
  EXPECT_EQ(cache.get("x = ", error), nullptr);
  EXPECT_EQ(error.number, 1023);
}

TEST_F(EngineTest, CacheForgetsTheTextUsedLongestAgo) {
  vbs::ProgramCache small(30);
  ErrorReport error;
  const std::weak_ptr<const vbs::Program> first = small.get("a = 1234567", error);
  const std::weak_ptr<const vbs::Program> second = small.get("b = 1234567", error);
  small.get("a = 1234567", error);
  small.get("c = 1234567", error);
  EXPECT_FALSE(first.expired());
  EXPECT_TRUE(second.expired());
}

TEST_F(EngineTest, SameTextMeansOtherThingsToOtherHosts) {
  const std::string_view source = "Title = \"x\" : Write TypeName(Title)";
  EXPECT_EQ(run(source), "String");
  EXPECT_EQ(output->titleText, "x");
  output->titleText.clear();
  Engine engine(host, cache);
  engine.addObject("Output", *output, false);
  EXPECT_TRUE(engine.run(source));
  EXPECT_EQ(output->titleText, "");
}

namespace {

/// Objects of the host whose members are at different places and do different things.
template <int kind>
class Shelf final : public vbs::NativeObject<Shelf<kind>> {
 public:
  static std::span<const vbs::Member<Shelf>> members() {
    static constexpr vbs::Member<Shelf> kFirst[] = {
        {"take", 1, 2, &Shelf::take, nullptr, true},
        {"list", 0, 0, &Shelf::list, nullptr},
    };
    static constexpr vbs::Member<Shelf> kSecond[] = {
        {"list", 0, 0, &Shelf::list, nullptr},
        {"take", 1, 2, &Shelf::take, nullptr, true},
    };
    return kind == 1 ? std::span(kFirst) : std::span(kSecond);
  }
  std::string_view typeName() const override { return "Shelf"; }

 private:
  /// Tells what it was called with, and changes a variable that came by reference.
  Value take(vbs::Args args) {
    const std::string told = std::to_string(kind) + "(" + vbs::toString(args[0]).narrow() + ")" +
                             std::to_string(args.size());
    if (args[0].is(vbs::Type::Reference)) *args[0].target() = Value("changed");
    return Value(told);
  }
  Value list(vbs::Args) { return Value::object(this); }
};

}  // namespace

TEST_F(EngineTest, PlacesThatCallTheHostMeetObjectsOfSeveralKinds) {
  const auto first = vbs::make<Shelf<1>>();
  const auto second = vbs::make<Shelf<2>>();
  const auto runWith = [&](vbs::Object& shelf) {
    output->text.clear();
    Engine engine(host, cache);
    engine.addObject("Output", *output, true);
    engine.addObject("Shelf", shelf, false);
    EXPECT_FALSE(engine.run(
        "For i = 1 To 2 : Write Shelf.Take(\"x\") & Shelf.Take(CStr(i), i) & Shelf.List(1) : Next\n"
        "s = \"v\" : Shelf.Take s : Shelf.Take (s) : Write Shelf.Take(s & \"!\")"));
    return output->text;
  };
  EXPECT_EQ(runWith(*first), "1(x)11(1)21(1)11(x)11(2)21(1)11(changed!)1");
  EXPECT_EQ(runWith(*second), "2(x)12(1)22(1)12(x)12(2)22(1)12(changed!)1");
  EXPECT_EQ(runWith(*first), "1(x)11(1)21(1)11(x)11(2)21(1)11(changed!)1");
}

TEST_F(EngineTest, ErrorsOfCallsOfTheHostComeEachTime) {
  EXPECT_EQ(run("On Error Resume Next : For i = 1 To 3 : r = \"kept\"\n"
                "Output.Write i\n"
                "Output.Write : Output.Write 1, 2 : r = Output.Title(1) : r = Output.Write\n"
                "Write r & Err.Number : Err.Clear\n"
                "r = Output.Write(\"+\") : Write IsEmpty(r) & Err.Number : Next"),
            "1kept450+True02kept450+True03kept450+True0");
  EXPECT_EQ(run("For i = 1 To 3 : Output.Write i : If i = 2 Then Output.Write CreateObject(1)\n"
                "Next"),
            "12<429>");
}

TEST_F(EngineTest, ArgumentsOfCallsOfTheHostEndBehindThem) {
  EXPECT_EQ(run("Class Ending : Public Default Function Text : Text = \"text \" : End Function\n"
                "Private Sub Class_Terminate : Output.Write \"ended \" : End Sub : End Class\n"
                "For i = 1 To 2 : Output.Write New Ending : Next : Output.Write \"over\""),
            "text ended text ended over");
}

// ---- What ends, and when ----

TEST_F(EngineTest, RunsLeaveNoMemoryBehind) {
  const std::string_view source =
      "Class Node : Public nextNode, text : Private Sub Class_Initialize : text = \"abc\" & 1 :"
      " End Sub : End Class\n"
      "Dim a(10), d, i : Set d = New Node : Set d.nextNode = d\n"
      "For i = 0 To 10 : a(i) = Array(i, \"t\" & i) : Next\n"
      "On Error Resume Next : a(99) = \"x\" & i : Set a(1) = 5\n"
      "Execute \"e = \"\"x\"\" & i\" : r = Eval(\"e & e\") : Set f = GetRef(\"F\")\n"
      "Function F : F = \"result\" & i : Err.Raise 5, \"s\" & i : End Function\n"
      "For Each x In a : F x(0) : Next : Write \"done\"";
  EXPECT_EQ(run(source), "done");
  const auto before = vbs::runContext.memory.used;
  for (int i = 0; i < 1000; ++i) run(source);
  EXPECT_EQ(vbs::runContext.memory.used, before);
}

TEST_F(EngineTest, EndOfTheEngineEndsObjects) {
  const std::string_view source =
      "Class C : Public other : Public name\n"
      "Private Sub Class_Terminate : Write name : End Sub : End Class\n"
      "Dim a, b : Set a = New C : a.name = \"a\" : Set b = New C : b.name = \"b\"\n"
      "Set a.other = a";
  {
    Engine engine(host, cache);
    engine.addObject("Output", *output, true);
    ASSERT_FALSE(engine.run(source));
    EXPECT_EQ(output->text, "");
  }
  EXPECT_EQ(output->text, "ba");
}

TEST_F(EngineTest, ObjectsMayOutliveTheEngine) {
  run("Class C : Public x : Public Default Property Get Value : Value = x : End Property\n"
      "End Class\nDim o : Set o = New C : o.x = \"text\" : Keep o");
  ASSERT_TRUE(output->kept.isObject());
  EXPECT_THROW(vbs::toString(output->kept), vbs::ScriptError);
  EXPECT_EQ(run("Write TypeName(Output.Call(GetRef(\"F\")))\nFunction F : F = 1 : End Function"),
            "Integer");
  run("Sub S : End Sub : Keep GetRef(\"S\")");
  EXPECT_THROW(vbs::toObject(output->kept)->invoke(vbs::kDefaultMember, vbs::CallKind::Call, {}),
               vbs::ScriptError);
  output->kept = Value();
}

TEST_F(EngineTest, ScriptsMeetObjectsOfEnginesThatAreGone) {
  run("Class C : Public x : Public Default Property Get Value : Value = x : End Property\n"
      "Public Sub Go : End Sub : Private Sub Class_Terminate : x = 1 / 0 : End Sub : End Class\n"
      "Dim o : Set o = New C : o.x = \"text\" : Keep o");
  EXPECT_EQ(run("Set o = Kept : Write TypeName(o) & IsObject(o) & (o Is Kept)"), "ObjectTrueTrue");
  const auto attempt = [&](const std::string& statement) {
    return run("Set o = Kept : On Error Resume Next : " + statement +
               " : Write Err.Number & \" \" & Err.Description");
  };
  const std::string missing = "438 Object doesn't support this property or method";
  EXPECT_EQ(attempt("o.Go"), missing);
  EXPECT_EQ(attempt("t = o.x"), missing);
  EXPECT_EQ(attempt("o.x = 1"), missing);
  EXPECT_EQ(attempt("o.x = o.x & 1"), missing);
  EXPECT_EQ(attempt("t = o & 1"), missing);
  EXPECT_EQ(attempt("t = o(1)"), missing);
  EXPECT_EQ(attempt("o(1) = 2"), missing);
  EXPECT_EQ(attempt("Keep Array(o, 1) : Kept()(0).Go"), missing);
  output->kept = Value();
}

TEST_F(EngineTest, ErrorInTerminateShowsAtTheStatementThatLetTheObjectGo) {
  run("Class C\nPrivate Sub Class_Terminate\nErr.Raise 99\nEnd Sub\nEnd Class\n"
      "Set o = New C\nSet o = Nothing\nWrite \"not\"");
  ASSERT_TRUE(lastError);
  EXPECT_EQ(lastError->number, 99);
  EXPECT_EQ(output->text, "");
  EXPECT_EQ(run("Class C : Private Sub Class_Terminate : Err.Raise 99 : End Sub : End Class\n"
                "On Error Resume Next\nSet o = New C\nSet o = Nothing\nWrite Err.Number"),
            "99");
}

}  // namespace quorvane
