#include "vbscript/syntax/compile_errors.h"

namespace quorvane::vbs {

std::string_view compileErrorText(CompileErrorCode code) {
  switch (code) {
    case CompileErrorCode::OutOfMemory:
      return "Out of memory";
    case CompileErrorCode::SyntaxError:
      return "Syntax error";
    case CompileErrorCode::ExpectedColon:
      return "Expected ':'";
    case CompileErrorCode::ExpectedLeftParen:
      return "Expected '('";
    case CompileErrorCode::ExpectedRightParen:
      return "Expected ')'";
    case CompileErrorCode::ExpectedRightBracket:
      return "Expected ']'";
    case CompileErrorCode::ExpectedIdentifier:
      return "Expected identifier";
    case CompileErrorCode::ExpectedEquals:
      return "Expected '='";
    case CompileErrorCode::ExpectedIf:
      return "Expected 'If'";
    case CompileErrorCode::ExpectedTo:
      return "Expected 'To'";
    case CompileErrorCode::ExpectedEnd:
      return "Expected 'End'";
    case CompileErrorCode::ExpectedFunction:
      return "Expected 'Function'";
    case CompileErrorCode::ExpectedSub:
      return "Expected 'Sub'";
    case CompileErrorCode::ExpectedThen:
      return "Expected 'Then'";
    case CompileErrorCode::ExpectedWend:
      return "Expected 'Wend'";
    case CompileErrorCode::ExpectedLoop:
      return "Expected 'Loop'";
    case CompileErrorCode::ExpectedNext:
      return "Expected 'Next'";
    case CompileErrorCode::ExpectedCase:
      return "Expected 'Case'";
    case CompileErrorCode::ExpectedSelect:
      return "Expected 'Select'";
    case CompileErrorCode::ExpectedExpression:
      return "Expected expression";
    case CompileErrorCode::ExpectedStatement:
      return "Expected statement";
    case CompileErrorCode::ExpectedEndOfStatement:
      return "Expected end of statement";
    case CompileErrorCode::ExpectedIntegerConstant:
      return "Expected integer constant";
    case CompileErrorCode::ExpectedWhileOrUntil:
      return "Expected 'While' or 'Until'";
    case CompileErrorCode::ExpectedWhileUntilOrEnd:
      return "Expected 'While', 'Until' or end of statement";
    case CompileErrorCode::ExpectedWith:
      return "Expected 'With'";
    case CompileErrorCode::IdentifierTooLong:
      return "Identifier too long";
    case CompileErrorCode::InvalidNumber:
      return "Invalid number";
    case CompileErrorCode::InvalidCharacter:
      return "Invalid character";
    case CompileErrorCode::UnterminatedString:
      return "Unterminated string constant";
    case CompileErrorCode::UnterminatedComment:
      return "Unterminated comment";
    case CompileErrorCode::InvalidMe:
      return "Invalid use of 'Me' keyword";
    case CompileErrorCode::LoopWithoutDo:
      return "'loop' without 'do'";
    case CompileErrorCode::InvalidExit:
      return "Invalid 'exit' statement";
    case CompileErrorCode::InvalidForVariable:
      return "Invalid 'for' loop control variable";
    case CompileErrorCode::NameRedefined:
      return "Name redefined";
    case CompileErrorCode::MustBeFirst:
      return "Must be first statement on the line";
    case CompileErrorCode::NonByValArgument:
      return "Cannot assign to non-ByVal argument";
    case CompileErrorCode::ParenthesesOnSub:
      return "Cannot use parentheses when calling a Sub";
    case CompileErrorCode::ExpectedLiteral:
      return "Expected literal constant";
    case CompileErrorCode::ExpectedIn:
      return "Expected 'In'";
    case CompileErrorCode::ExpectedClass:
      return "Expected 'Class'";
    case CompileErrorCode::MustBeInsideClass:
      return "Must be defined inside a Class";
    case CompileErrorCode::ExpectedPropertyKind:
      return "Expected Let or Set or Get in property declaration";
    case CompileErrorCode::ExpectedProperty:
      return "Expected 'Property'";
    case CompileErrorCode::InconsistentArguments:
      return "Number of arguments must be consistent across properties specification";
    case CompileErrorCode::MultipleDefaults:
      return "Cannot have multiple default property/method in a Class";
    case CompileErrorCode::InitializeWithArguments:
      return "Class initialize or terminate do not have arguments";
    case CompileErrorCode::PropertyWithoutArgument:
      return "Property set or let must have at least one argument";
    case CompileErrorCode::UnexpectedNext:
      return "Unexpected 'Next'";
    case CompileErrorCode::DefaultMisplaced:
      return "'Default' can be specified only on 'Property' or 'Function' or 'Sub'";
    case CompileErrorCode::DefaultNeedsPublic:
      return "'Default' specification must also specify 'Public'";
    case CompileErrorCode::DefaultOnlyOnGet:
      return "'Default' specification can only be on Property Get";
  }
  return "Syntax error";
}

}  // namespace quorvane::vbs
