#include <gtest/gtest.h>

#include <string_view>

#include "vbscript/dumps/dumps.h"
#include "vbscript/engine.h"
#include "vbscript/syntax/parser.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/text_locale.h"

namespace quorvane::vbs {
namespace {

struct Sample {
  std::string_view source;
  std::string_view tree;
};

class SyntaxTree : public testing::TestWithParam<Sample> {};

TEST_P(SyntaxTree, IsRead) {
  EXPECT_EQ(dumpTree(GetParam().source), GetParam().tree) << GetParam().source;
}

constexpr Sample kExpressions[] = {
    {"x = 1 + 2 * 3", "let x = (+ 1 (* 2 3))\n"},
    {"x = 1 - 2 - 3", "let x = (- (- 1 2) 3)\n"},
    {"x = 2 ^ 3 ^ 2", "let x = (^ (^ 2 3) 2)\n"},
    {"x = -2 ^ 2", "let x = (^ (negate 2) 2)\n"},
    {"x = 2 ^ -1", "let x = (^ 2 (negate 1))\n"},
    {"x = -a * b", "let x = (* (negate a) b)\n"},
    {"x = a * b \\ c Mod d", "let x = (mod (\\ (* a b) c) d)\n"},
    {"x = a Mod b + c", "let x = (+ (mod a b) c)\n"},
    {"x = a + b & c + d", "let x = (& (+ a b) (+ c d))\n"},
    {"x = a & b = c & d", "let x = (= (& a b) (& c d))\n"},
    {"x = a = b = c", "let x = (= (= a b) c)\n"},
    {"x = a < b > c", "let x = (> (< a b) c)\n"},
    {"x = Not a = b", "let x = (not (= a b))\n"},
    {"x = Not a And b", "let x = (and (not a) b)\n"},
    {"x = a Or b And c", "let x = (or a (and b c))\n"},
    {"x = a Imp b Eqv c Xor d Or e", "let x = (imp a (eqv b (xor c (or d e))))\n"},
    {"x = a Is Nothing", "let x = (is a Nothing)\n"},
    {"x = Not a Is Nothing", "let x = (not (is a Nothing))\n"},
    {"x = + 5", "let x = (plus 5)\n"},
    {"x = a = Not b", "let x = (= a (not b))\n"},
    {"x = - - 1", "let x = (negate (negate 1))\n"},
    {"x = a =< b", "let x = (<= a b)\n"},
    {"x = a => b", "let x = (>= a b)\n"},
    {"x = a >< b", "let x = (<> a b)\n"},
    {"x = (a)", "let x = (paren a)\n"},
    {"x = f()", "let x = (call f)\n"},
    {"x = f(1, , 3)", "let x = (call f 1 _ 3)\n"},
    {"x = f(,)", "let x = (call f _ _)\n"},
    {"x = f((1))", "let x = (call f (paren 1))\n"},
    {"x = a(1)(2)", "let x = (call (call a 1) 2)\n"},
    {"x = a.b(1).c", "let x = (call a.b 1).c\n"},
    {"x = (New C)(1, 2)", "let x = (call (new C) 1 2)\n"},
    {"x = Me.y", "let x = Me.y\n"},
    {"x = r.End + r.New.Step", "let x = (+ r.End r.New.Step)\n"},
    {"x = 2.^3", "let x = (^ 2! 3)\n"},
    {"x = \"a\"&1", "let x = (& \"a\" 1)\n"},
    {"x = f(1)&hour(y)", "let x = (& (call f 1) (call hour y))\n"},
    {"x = [end] + []", "let x = (+ end )\n"},
    {"x = a _\n + b", "let x = (+ a b)\n"},
    {"x = time - len(step)", "let x = (- time (call len step))\n"},
};

constexpr Sample kLiterals[] = {
    {"x = 0", "let x = 0\n"},
    {"x = 32767", "let x = 32767\n"},
    {"x = 32768", "let x = 32768&\n"},
    {"x = 2147483647", "let x = 2147483647&\n"},
    {"x = 2147483648", "let x = 2147483648!\n"},
    {"x = 1.5", "let x = 1.5!\n"},
    {"x = .5", "let x = 0.5!\n"},
    {"x = 1e3", "let x = 1000!\n"},
    {"x = 1E-2", "let x = 0.01!\n"},
    {"x = 1e-999", "let x = 0!\n"},
    {"x = &hFF", "let x = 255\n"},
    {"x = &hFFFF", "let x = -1\n"},
    {"x = &hFFFF&", "let x = 65535&\n"},
    {"x = &h10000", "let x = 65536&\n"},
    {"x = &hFFFFFFFF", "let x = -1\n"},
    {"x = &H7FFFFFFF", "let x = 2147483647&\n"},
    {"x = &o17", "let x = 15\n"},
    {"x = &17", "let x = 15\n"},
    {"x = \"a\"\"b\"", "let x = \"a\"\"b\"\n"},
    {"x = \"\"", "let x = \"\"\n"},
    {"x = True And False", "let x = (and True False)\n"},
    {"f Null, Empty, Nothing", "call f Null Empty Nothing\n"},
    {"x = #1/2/2003#", "let x = #1/2/2003#\n"},
    {"x = #2003-01-02 4:05:06 PM#", "let x = #1/2/2003 4:05:06 PM#\n"},
};

constexpr Sample kCalls[] = {
    {"f", "call f\n"},
    {"f()", "call f\n"},
    {"f 1, 2", "call f 1 2\n"},
    {"f (1)", "call f (paren 1)\n"},
    {"f(1)", "call f (paren 1)\n"},
    {"f (1), 2", "call f (paren 1) 2\n"},
    {"f , 2", "call f _ 2\n"},
    {"f 1, , 3", "call f 1 _ 3\n"},
    {"f -1", "call f (negate 1)\n"},
    {"f Not a", "call f (not a)\n"},
    {"f \"x\" & y", "call f (& \"x\" y)\n"},
    {"f\"x\"", "call f \"x\"\n"},
    {"p (a + 1) * b", "call p (* (paren (+ a 1)) b)\n"},
    {"p (a) * b + c And d", "call p (and (+ (* (paren a) b) c) d)\n"},
    {"Response.Write(\"x\") & vbCrLf", "call Response.Write (& (paren \"x\") vbCrLf)\n"},
    {"conn.Execute (sql), , 1", "call conn.Execute (paren sql) _ 1\n"},
    {"a.b.c 1", "call a.b.c 1\n"},
    {"a(1).b 2", "call (call a 1).b 2\n"},
    {"a(1, 2).b", "call (call a 1 2).b\n"},
    {"a(1)(2)", "call (call a 1) (paren 2)\n"},
    {"Add New C", "call Add (new C)\n"},
    {"(New C).m()", "call (new C).m\n"},
    {"f (New C).m", "call f (new C).m\n"},
    {"f (New C)(1), 2", "call f (call (new C) 1) 2\n"},
    {"f(New C)", "call f (paren (new C))\n"},
    {"(New C)(a)", "call (new C) (paren a)\n"},
    {"Call f", "call f\n"},
    {"Call f(a, b)", "call f a b\n"},
    {"Call f(a)", "call f a\n"},
    {"Call a.b(c).d(e)", "call (call a.b c).d e\n"},
    {"Call GetRef(\"n\")()", "call (call GetRef \"n\")\n"},
    {"Me.f 1", "call Me.f 1\n"},
    {"UBound a", "call UBound a\n"},
    {"stop", "stop\n"},
    {"error 5", "call error 5\n"},
    {"property.x", "call property.x\n"},
    {"x = 5:", "let x = 5\n"},
    {"f 1 : g 2", "call f 1\ncall g 2\n"},
};

constexpr Sample kAssignments[] = {
    {"x.y(1).z = 2", "let (call x.y 1).z = 2\n"},
    {"a(i)(j) = 3", "let (call (call a i) j) = 3\n"},
    {"a(1, 2) = 3", "let (call a 1 2) = 3\n"},
    {"a (1) = 3", "let (call a 1) = 3\n"},
    {"Set x = New C", "set x = (new C)\n"},
    {"Set x.y(1) = Nothing", "set (call x.y 1) = Nothing\n"},
    {"default = step", "let default = step\n"},
    {"x = y = z", "let x = (= y z)\n"},
    {"[new] = 1", "let new = 1\n"},
    {"erase = 1", "let erase = 1\n"},
    {"stop = 1", "let stop = 1\n"},
};

constexpr Sample kBlocks[] = {
    {"If a Then\nb\nElseIf c Then\nd\nElse\ne\nEnd If",
     "if a\n  call b\nelseif c\n  call d\nelse\n  call e\n"},
    {"If a Then b", "if a\n  call b\n"},
    {"If a Then b : c", "if a\n  call b\n  call c\n"},
    {"If a Then b Else c\nd", "if a\n  call b\nelse\n  call c\ncall d\n"},
    {"If a Then b : Else c : d", "if a\n  call b\nelse\n  call c\n  call d\n"},
    {"If a < b Then m = a : Else m = b\nx", "if (< a b)\n  let m = a\nelse\n  let m = b\ncall x\n"},
    {"If a>50Then b", "if (> a 50)\n  call b\n"},
    {"If a=\"1\"Then b", "if (= a \"1\")\n  call b\n"},
    {"If f(a)Then b", "if (call f a)\n  call b\n"},
    {"If a Then b End If\nc", "if a\n  call b\ncall c\n"},
    {"If a Then : b = 1 : Else : c = 2 : End If", "if a\n  let b = 1\nelse\n  let c = 2\n"},
    {"If a Then If b Then c Else d", "if a\n  if b\n    call c\n  else\n    call d\n"},
    {"If a Then If b Then c Else d Else e",
     "if a\n  if b\n    call c\n  else\n    call d\nelse\n  call e\n"},
    {"If a Then b ElseIf c Then d Else e", "if a\n  call b\nelseif c\n  call d\nelse\n  call e\n"},
    {"If a Then\nElse f x\ng\nEnd If", "if a\nelse\n  call f x\n  call g\n"},
    {"If a Then\nb\nElseIf c Then d\ne\nEnd If", "if a\n  call b\nelseif c\n  call d\n  call e\n"},
    {"Sub s\nIf e Then Exit Sub End If\nEnd Sub", "sub s()\n  if e\n    exit sub\n"},
    {"For i = 1 To 3 : If a Then f\nNext", "for i = 1 to 3\n  if a\n    call f\n"},
    {"For i = 1 To 3 : If a Then f : Next", "for i = 1 to 3\n  if a\n    call f\n"},
    {"If a Then For i = 1 To 3 : f : Next Else g",
     "if a\n  for i = 1 to 3\n    call f\nelse\n  call g\n"},
    {"For i = a To b Step -1\nf\nNext", "for i = a to b step (negate 1)\n  call f\n"},
    {"For j=2To n\nNext", "for j = 2 to n\n"},
    {"For Each x In c.items\nf x\nNext", "for each x in c.items\n  call f x\n"},
    {"Do\nf\nLoop", "do\n  call f\nloop\n"},
    {"Do:f:Loop", "do\n  call f\nloop\n"},
    {"Do While a\nf\nLoop", "do while a\n  call f\n"},
    {"Do Until a\nf\nLoop", "do until a\n  call f\n"},
    {"Do\nf\nLoop While a", "do\n  call f\nloop while a\n"},
    {"Do\nf\nLoop Until a", "do\n  call f\nloop until a\n"},
    {"Do\nExit Do\nLoop", "do\n  exit do\nloop\n"},
    {"While a\nf\nWend", "while a\n  call f\n"},
    {"With a\n.b = 1\n.c.d 2\nf .b\nEnd With",
     "with a\n  let .b = 1\n  call .c.d 2\n  call f .b\n"},
    {"a .b", "call a.b\n"},
    {"Select Case a\nCase 1, 2\nf\nCase Else\ng\nEnd Select",
     "select a\ncase 1 2\n  call f\nelse\n  call g\n"},
    {"Select Case a\nCase 7 x = \"b\"\nEnd Select", "select a\ncase 7\n  let x = \"b\"\n"},
    {"Select Case a\nCase 1 If g Then x = 1 Else x = 2\nCase 2 : f\nEnd Select",
     "select a\ncase 1\n  if g\n    let x = 1\n  else\n    let x = 2\ncase 2\n  call f\n"},
    {"Select Case a\nCase Else f.g = 1\nEnd Select", "select a\nelse\n  let f.g = 1\n"},
    {"Select Case a\nEnd Select", "select a\n"},
    {"On Error Resume Next\nOn Error GoTo 0", "on error resume next\non error goto 0\n"},
    {"If a Then on error goto 0: err.Raise 6006",
     "if a\n  on error goto 0\n  call err.Raise 6006\n"},
};

constexpr Sample kDeclarations[] = {
    {"Option Explicit\nDim a, b(2, 3), c()", "option explicit\ndim a, b(2 3), c()\n"},
    {"f \"text\"\nOption Explicit", "option explicit\ncall f \"text\"\n"},
    {"Dim a(): ReDim a(n)", "dim a()\nredim a n\n"},
    {"Dim a(&h10)", "dim a(16)\n"},
    {"Public _\n a, b", "dim a, b\n"},
    {"Private a", "dim a\n"},
    {"Const a = 1, b = -2, c = \"x\", d = (3), e = True, f = #1/2/2003#",
     "const a = 1, b = -2, c = \"x\", d = 3, e = True, f = #1/2/2003#\n"},
    {"Const a = -32768", "const a = -32768&\n"},
    {"Public Const a = Nothing", "const a = Nothing\n"},
    {"ReDim a(1), b(2, n + 1)", "redim a 1\nredim b 2 (+ n 1)\n"},
    {"ReDim Preserve a.b(i)(5)", "redim preserve (call a.b i) 5\n"},
    {"ReDim a(-1)", "redim a (negate 1)\n"},
    {"Erase a, b.c", "erase a b.c\n"},
    {"Sub s\nEnd Sub", "sub s()\n"},
    {"Sub s()\nEnd Sub", "sub s()\n"},
    {"Private Sub s(a, ByVal b, ByRef c, d(), default)\nEnd Sub",
     "private sub s(a, byval b, c, d(), default)\n"},
    {"Sub m(ByRef m2())\nEnd Sub", "sub m(m2())\n"},
    {"Sub R() Rem note\nEnd Sub", "sub R()\n"},
    {"Function f(a)\nf = a\nExit Function\nEnd Function",
     "function f(a)\n  let f = a\n  exit function\n"},
    {"Function f\nEnd Function\nFunction f\nEnd Function", "function f()\nfunction f()\n"},
    {"f 1\nSub s\nEnd Sub\ng 2", "sub s()\ncall f 1\ncall g 2\n"},
    {"Class C\nPublic a, b(3)\nPrivate c\nDim d()\nEnd Class",
     "class C\n  public a\n  public b(3)\n  private c\n  public d()\n"},
    {"Class C\nPublic Default Property Get x(i)\nx = i\nEnd Property\n"
     "Property Let x(i, v)\nEnd Property\nPrivate Property Set x(i, v)\nEnd Property\nEnd Class",
     "class C\n  default property get x(i)\n    let x = i\n  property let x(i, v)\n"
     "  private property set x(i, v)\n"},
    {"Class C\nFunction P() m = True : Set P = Me End Function\n"
     "Public Property Get ID() ID = m End Property\nEnd Class",
     "class C\n  function P()\n    let m = True\n    set P = Me\n  property get ID()\n"
     "    let ID = m\n"},
    {"Class C\nPublic default\nPublic Function Left()\nEnd Function\nSub [Loop]\nEnd Sub\n"
     "Private Sub Class_Initialize\nEnd Sub\nEnd Class",
     "class C\n  public default\n  function Left()\n  sub Loop()\n"
     "  private sub Class_Initialize()\n"},
    {"Class C : Dim a : Sub s : Exit Sub : End Sub : End Class",
     "class C\n  public a\n  sub s()\n    exit sub\n"},
    {"Class C\nProperty Get p\nExit Property\nEnd Property\nEnd Class",
     "class C\n  property get p()\n    exit property\n"},
    {"Class C\nConst k = 1\nPrivate Const m = 2\nEnd Class", "class C\n  const k = 1, m = 2\n"},
};

INSTANTIATE_TEST_SUITE_P(Expressions, SyntaxTree, testing::ValuesIn(kExpressions));
INSTANTIATE_TEST_SUITE_P(Literals, SyntaxTree, testing::ValuesIn(kLiterals));
INSTANTIATE_TEST_SUITE_P(Calls, SyntaxTree, testing::ValuesIn(kCalls));
INSTANTIATE_TEST_SUITE_P(Assignments, SyntaxTree, testing::ValuesIn(kAssignments));
INSTANTIATE_TEST_SUITE_P(Blocks, SyntaxTree, testing::ValuesIn(kBlocks));
INSTANTIATE_TEST_SUITE_P(Declarations, SyntaxTree, testing::ValuesIn(kDeclarations));

TEST(SyntaxTreeLocale, DateLiteralsAreAmericanEverywhere) {
  const Locale& before = activeLocale();
  setActiveLocale(*findLocale("de-de"));
  const auto script = parseScript("x = #1/2/2003#");
  setActiveLocale(before);
  const auto& assign = static_cast<const AssignStatement&>(*script->body.front());
  const Value& date = static_cast<const LiteralExpression&>(*assign.value).value;
  EXPECT_EQ(toString(date).narrow(), "1/2/2003");
}

}  // namespace
}  // namespace quorvane::vbs
