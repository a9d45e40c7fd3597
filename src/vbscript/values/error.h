#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane::vbs {

/// The classic run-time error numbers. The texts stand in error.cpp, in English (United States).
enum class ErrorCode : std::int32_t {
  None = 0,
  ReturnWithoutGoSub = 3,
  InvalidCall = 5,  ///< "Invalid procedure call or argument"
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  ArrayLocked = 10,  ///< "This array is fixed or temporarily locked"
  DivisionByZero = 11,
  TypeMismatch = 13,
  OutOfStringSpace = 14,
  CannotPerform = 17,
  OutOfStackSpace = 28,
  NotDefined = 35,  ///< "Sub or Function not defined"
  InternalError = 51,
  BadFileName = 52,
  FileNotFound = 53,
  BadFileMode = 54,
  FileAlreadyOpen = 55,
  DeviceIo = 57,
  FileExists = 58,
  DiskFull = 61,
  PastEndOfFile = 62,
  DeviceUnavailable = 68,
  PermissionDenied = 70,
  DiskNotReady = 71,
  PathNotFound = 76,
  ObjectNotSet = 91,
  ForLoopNotInitialized = 92,
  InvalidNull = 94,
  ObjectRequired = 424,
  CannotCreateObject = 429,
  NoSuchAutomation = 430,
  NameNotFound = 432,
  NoPropertyOrMethod = 438,
  AutomationError = 440,
  NoSuchAction = 445,
  NoNamedArguments = 446,
  NoDefaultLocale = 447,
  MissingArgument = 448,
  ArgumentNotOptional = 449,
  WrongArgumentCount = 450,
  NotACollection = 451,
  KeyExists = 457,
  UnsupportedType = 458,
  VariableUndefined = 500,
  IllegalAssignment = 501,
  NotSafeForScripting = 502,
  NotSafeToInitialize = 503,
  NotSafeToCreate = 504,
  InvalidReference = 505,  ///< "Invalid or unqualified reference"
  ClassNotDefined = 506,
  UnexpectedException = 507,
  RegExpExpected = 5016,
  RegExpSyntax = 5017,
  RegExpQuantifier = 5018,
  RegExpBracket = 5019,
  RegExpParen = 5020,
  RegExpRange = 5021,
  ElementNotFound = 32811,
};

/// A run-time or compile error on its way to the script's own trap or to the host. Thrown by
/// conversions, operators, library functions and objects; caught by the virtual machine's loop
/// and by the engine's public entries, nowhere else.
struct ScriptError {
  std::int32_t number = 0;
  std::string description;  ///< bytes of Windows-1252
  std::string source;       ///< empty: the engine's own "Microsoft VBScript runtime error"
  std::string helpFile;
  std::int32_t helpContext = 0;
  std::uint32_t line = 0;  ///< 1-based, filled in by the machine; 0: not known yet
  std::uint32_t column = 0;
  /// Whom it befell: a variable, a function, a text. The report of an error that nobody traps shows
  /// it behind the description; a script that traps it reads the description alone.
  std::string subject = {};
};

/// The text for a number, or "Unknown runtime error".
std::string_view errorText(std::int32_t number);

[[noreturn]] void throwError(ErrorCode code);
/// With a subject: "Variable is undefined: 'x'".
[[noreturn]] void throwError(ErrorCode code, std::string_view subject);

/// The description with the subject behind it, where there is one.
std::string fullDescription(const ScriptError& error);

/// The number that a script knows a system's error code by, or the code itself.
std::int32_t scriptErrorNumber(std::int32_t code);

}  // namespace quorvane::vbs
