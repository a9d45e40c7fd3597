#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane::vbs {

/// The classic numbers of faults that keep a script from compiling.
enum class CompileErrorCode : std::int32_t {
  OutOfMemory = 1001,
  SyntaxError = 1002,
  ExpectedColon = 1003,
  ExpectedLeftParen = 1005,
  ExpectedRightParen = 1006,
  ExpectedRightBracket = 1007,
  ExpectedIdentifier = 1010,
  ExpectedEquals = 1011,
  ExpectedIf = 1012,
  ExpectedTo = 1013,
  ExpectedEnd = 1014,
  ExpectedFunction = 1015,
  ExpectedSub = 1016,
  ExpectedThen = 1017,
  ExpectedWend = 1018,
  ExpectedLoop = 1019,
  ExpectedNext = 1020,
  ExpectedCase = 1021,
  ExpectedSelect = 1022,
  ExpectedExpression = 1023,
  ExpectedStatement = 1024,
  ExpectedEndOfStatement = 1025,
  ExpectedIntegerConstant = 1026,
  ExpectedWhileOrUntil = 1027,
  ExpectedWhileUntilOrEnd = 1028,
  ExpectedWith = 1029,
  IdentifierTooLong = 1030,
  InvalidNumber = 1031,
  InvalidCharacter = 1032,
  UnterminatedString = 1033,
  UnterminatedComment = 1034,
  InvalidMe = 1037,
  LoopWithoutDo = 1038,
  InvalidExit = 1039,
  InvalidForVariable = 1040,
  NameRedefined = 1041,
  MustBeFirst = 1042,
  NonByValArgument = 1043,
  ParenthesesOnSub = 1044,
  ExpectedLiteral = 1045,
  ExpectedIn = 1046,
  ExpectedClass = 1047,
  MustBeInsideClass = 1048,
  ExpectedPropertyKind = 1049,
  ExpectedProperty = 1050,
  InconsistentArguments = 1051,
  MultipleDefaults = 1052,
  InitializeWithArguments = 1053,
  PropertyWithoutArgument = 1054,
  UnexpectedNext = 1055,
  DefaultMisplaced = 1056,
  DefaultNeedsPublic = 1057,
  DefaultOnlyOnGet = 1058,
};

/// The text for a number, in English (United States).
std::string_view compileErrorText(CompileErrorCode code);

}  // namespace quorvane::vbs
