#include <gtest/gtest.h>

#include <string_view>

#include "vbscript/dumps/dumps.h"
#include "vbscript/engine.h"
#include "vbscript/syntax/parser.h"

namespace quorvane::vbs {
namespace {

struct Fault {
  std::string_view source;
  std::string_view report;  ///< line:column, number and text
};

class SyntaxErrors : public testing::TestWithParam<Fault> {};

TEST_P(SyntaxErrors, AreReportedWhereTheyStand) {
  EXPECT_EQ(dumpTree(GetParam().source), std::string(GetParam().report) + "\n")
      << GetParam().source;
}

constexpr Fault kFaults[] = {
    {"x = (1", "1:7 error 1006 Expected ')'"},
    {"x = (", "1:6 error 1023 Expected expression"},
    {"x = f(1 2)", "1:9 error 1006 Expected ')'"},
    {"x = [abc", "1:9 error 1007 Expected ']'"},
    {"ReDim a", "1:8 error 1005 Expected '('"},
    {"Dim 5", "1:5 error 1010 Expected identifier"},
    {"Dim", "1:4 error 1010 Expected identifier"},
    {"Dim a,", "1:7 error 1010 Expected identifier"},
    {"Set = 1", "1:5 error 1010 Expected identifier"},
    {"x = a.", "1:7 error 1010 Expected identifier"},
    {"x = New 5", "1:9 error 1010 Expected identifier"},
    {"Function End\nEnd Function", "1:10 error 1010 Expected identifier"},
    {"Sub s(a,)\nEnd Sub", "1:9 error 1010 Expected identifier"},
    {"Set x 1", "1:7 error 1011 Expected '='"},
    {"For i 1 To 2\nNext", "1:7 error 1011 Expected '='"},
    {"Const c", "1:8 error 1011 Expected '='"},
    {"If a Then\nEnd Sub", "2:5 error 1012 Expected 'If'"},
    {"For i = 1 2\nNext", "1:11 error 1013 Expected 'To'"},
    {"If a Then\nb", "2:2 error 1014 Expected 'End'"},
    {"Sub s\nx = 1", "2:6 error 1014 Expected 'End'"},
    {"Class c\nDim a", "2:6 error 1014 Expected 'End'"},
    {"With a\n.b = 1", "2:7 error 1014 Expected 'End'"},
    {"Select Case a\nCase 1", "2:7 error 1014 Expected 'End'"},
    {"Function f\nEnd Sub", "2:5 error 1015 Expected 'Function'"},
    {"Sub s\nEnd Function", "2:5 error 1016 Expected 'Sub'"},
    {"If a\nEnd If", "1:5 error 1017 Expected 'Then'"},
    {"If a Then\nElseIf b\nEnd If", "2:9 error 1017 Expected 'Then'"},
    {"While a\nb", "2:2 error 1018 Expected 'Wend'"},
    {"Do\nb", "2:2 error 1019 Expected 'Loop'"},
    {"For i = 1 To 2\nb", "2:2 error 1020 Expected 'Next'"},
    {"For Each i In a\nb", "2:2 error 1020 Expected 'Next'"},
    {"Select a", "1:8 error 1021 Expected 'Case'"},
    {"Select Case a\nb = 1\nEnd Select", "2:1 error 1021 Expected 'Case'"},
    {"Select Case a\nCase 1\nEnd If", "3:5 error 1022 Expected 'Select'"},
    {"x =", "1:4 error 1023 Expected expression"},
    {"x = 1 +", "1:8 error 1023 Expected expression"},
    {"x = 1 + Then", "1:9 error 1002 Syntax error"},
    {"x = * 2", "1:5 error 1002 Syntax error"},
    {"f 1,", "1:5 error 1023 Expected expression"},
    {"ReDim a()", "1:10 error 1023 Expected expression"},
    {"5 = x", "1:1 error 1024 Expected statement"},
    {"\"text\"", "1:1 error 1024 Expected statement"},
    {"(x)", "1:4 error 1024 Expected statement"},
    {"End If", "1:1 error 1024 Expected statement"},
    {"Else", "1:1 error 1024 Expected statement"},
    {"Wend", "1:1 error 1024 Expected statement"},
    {"New x", "1:1 error 1024 Expected statement"},
    {"x = 1 y = 2", "1:7 error 1025 Expected end of statement"},
    {"Dim x As T", "1:7 error 1025 Expected end of statement"},
    {"Dim x = 0", "1:7 error 1025 Expected end of statement"},
    {"For i = 1 To 2\nNext i", "2:6 error 1025 Expected end of statement"},
    {"Const c = 1 + 2", "1:13 error 1025 Expected end of statement"},
    {"x * 2", "1:3 error 1025 Expected end of statement"},
    {"f )", "1:3 error 1025 Expected end of statement"},
    {"f() 1", "1:5 error 1025 Expected end of statement"},
    {"Do While a\nLoop Until b", "2:6 error 1025 Expected end of statement"},
    {"Dim a(n)", "1:7 error 1026 Expected integer constant"},
    {"Dim a(1.5)", "1:7 error 1026 Expected integer constant"},
    {"Dim a(-1)", "1:7 error 1026 Expected integer constant"},
    {"Do x\nLoop", "1:4 error 1028 Expected 'While', 'Until' or end of statement"},
    {"With a\nEnd If", "2:5 error 1029 Expected 'With'"},
    {"x = 1e999", "1:5 error 1031 Invalid number"},
    {"x = ?", "1:5 error 1032 Invalid character"},
    {"x = \"abc", "1:9 error 1033 Unterminated string constant"},
    {"Class c\nSub s\nMe = 1\nEnd Sub\nEnd Class", "3:4 error 1037 Invalid use of 'Me' keyword"},
    {"Loop", "1:1 error 1038 'loop' without 'do'"},
    {"If a Then\nLoop", "2:1 error 1038 'loop' without 'do'"},
    {"Exit Do", "1:6 error 1039 Invalid 'exit' statement"},
    {"Exit For", "1:6 error 1039 Invalid 'exit' statement"},
    {"While a\nExit Do\nWend", "2:6 error 1039 Invalid 'exit' statement"},
    {"Exit Sub", "1:6 error 1039 Invalid 'exit' statement"},
    {"Function f\nExit Sub\nEnd Function", "2:6 error 1039 Invalid 'exit' statement"},
    {"Sub s\nExit Property\nEnd Sub", "2:6 error 1039 Invalid 'exit' statement"},
    {"Sub s\nExit While\nEnd Sub", "2:6 error 1039 Invalid 'exit' statement"},
    {"For a(1) = 1 To 2\nNext", "1:6 error 1040 Invalid 'for' loop control variable"},
    {"For a.b = 1 To 2\nNext", "1:6 error 1040 Invalid 'for' loop control variable"},
    {"Dim a, A", "1:8 error 1041 Name redefined"},
    {"Dim a\nConst A = 1", "2:7 error 1041 Name redefined"},
    {"Dim f\nFunction F\nEnd Function", "2:10 error 1041 Name redefined"},
    {"Class c\nEnd Class\nClass C\nEnd Class", "3:7 error 1041 Name redefined"},
    {"Sub s(a, a)\nEnd Sub", "1:10 error 1041 Name redefined"},
    {"Sub s(a)\nDim a\nEnd Sub", "2:5 error 1041 Name redefined"},
    {"Class c\nDim a\nSub a\nEnd Sub\nEnd Class", "3:1 error 1041 Name redefined"},
    {"Class c\nSub a\nEnd Sub\nSub a\nEnd Sub\nEnd Class", "4:1 error 1041 Name redefined"},
    {"Class c\nProperty Get a\nEnd Property\nProperty Get a\nEnd Property\nEnd Class",
     "4:1 error 1041 Name redefined"},
    {"f(1, 2)", "1:8 error 1044 Cannot use parentheses when calling a Sub"},
    {"a.b(1, 2)", "1:10 error 1044 Cannot use parentheses when calling a Sub"},
    {"Const c = f(1)", "1:11 error 1045 Expected literal constant"},
    {"Const c = vbCrLf", "1:11 error 1045 Expected literal constant"},
    {"Const c = -\"x\"", "1:11 error 1045 Expected literal constant"},
    {"For Each x Of c\nNext", "1:12 error 1046 Expected 'In'"},
    {"Class c\nEnd Sub", "2:5 error 1047 Expected 'Class'"},
    {"Property Get x\nEnd Property", "1:1 error 1048 Must be defined inside a Class"},
    {"Class c\nProperty x\nEnd Property\nEnd Class",
     "2:10 error 1049 Expected Let or Set or Get in property declaration"},
    {"Class c\nProperty Get x\nEnd Function\nEnd Class", "3:5 error 1050 Expected 'Property'"},
    {"Class c\nProperty Get x\nEnd Property\nProperty Let x(i, v)\nEnd Property\nEnd Class",
     "4:1 error 1051 Number of arguments must be consistent across properties specification"},
    {"Class c\nPublic Default Sub a\nEnd Sub\nPublic Default Sub b\nEnd Sub\nEnd Class",
     "4:16 error 1052 Cannot have multiple default property/method in a Class"},
    {"Class c\nSub Class_Initialize(a)\nEnd Sub\nEnd Class",
     "2:1 error 1053 Class initialize or terminate do not have arguments"},
    {"Class c\nProperty Let x\nEnd Property\nEnd Class",
     "2:1 error 1054 Property set or let must have at least one argument"},
    {"Next", "1:1 error 1055 Unexpected 'Next'"},
    {"If a Then\nNext\nEnd If", "2:1 error 1055 Unexpected 'Next'"},
    {"Class c\nPublic Default x\nEnd Class",
     "2:8 error 1056 'Default' can be specified only on 'Property' or 'Function' or 'Sub'"},
    {"Class c\nPrivate Default Function f\nEnd Function\nEnd Class",
     "2:9 error 1057 'Default' specification must also specify 'Public'"},
    {"Class c\nDefault Function f\nEnd Function\nEnd Class",
     "2:1 error 1057 'Default' specification must also specify 'Public'"},
    {"Class c\nPublic Default Property Let x(v)\nEnd Property\nEnd Class",
     "2:16 error 1058 'Default' specification can only be on Property Get"},
    {"If a Then\nSub s\nEnd Sub\nEnd If", "2:1 error 1002 Syntax error"},
    {"Sub s\nSub t\nEnd Sub\nEnd Sub", "2:1 error 1002 Syntax error"},
    {"Sub s\nPublic x\nEnd Sub", "2:1 error 1002 Syntax error"},
    {"Class c\nx = 1\nEnd Class", "2:1 error 1002 Syntax error"},
    {"On Error GoTo 5", "1:15 error 1002 Syntax error"},
    {"On Error Resume x", "1:17 error 1002 Syntax error"},
    {"Option x", "1:8 error 1002 Syntax error"},
    {"x = #no date#", "1:5 error 1002 Syntax error"},
};

INSTANTIATE_TEST_SUITE_P(Table, SyntaxErrors, testing::ValuesIn(kFaults));

TEST(SyntaxError, AnExpressionMayNotBeFollowedByMore) {
  try {
    parseExpression("1 2");
    FAIL() << "accepted";
  } catch (const CompileError& error) {
    EXPECT_EQ(error.number, 1025);
    EXPECT_EQ(error.position.column, 3u);
  }
}

}  // namespace
}  // namespace quorvane::vbs
