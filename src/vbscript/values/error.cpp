#include "vbscript/values/error.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quorvane::vbs {

namespace {

struct NumberedText {
  std::int32_t number;
  std::string_view text;
};

constexpr std::array kTexts = {
    NumberedText{3, "Return without GoSub"},
    NumberedText{5, "Invalid procedure call or argument"},
    NumberedText{6, "Overflow"},
    NumberedText{7, "Out of memory"},
    NumberedText{9, "Subscript out of range"},
    NumberedText{10, "This array is fixed or temporarily locked"},
    NumberedText{11, "Division by zero"},
    NumberedText{13, "Type mismatch"},
    NumberedText{14, "Out of string space"},
    NumberedText{17, "Can't perform requested operation"},
    NumberedText{28, "Out of stack space"},
    NumberedText{35, "Sub or Function not defined"},
    NumberedText{48, "Error in loading DLL"},
    NumberedText{51, "Internal error"},
    NumberedText{52, "Bad file name or number"},
    NumberedText{53, "File not found"},
    NumberedText{54, "Bad file mode"},
    NumberedText{55, "File already open"},
    NumberedText{57, "Device I/O error"},
    NumberedText{58, "File already exists"},
    NumberedText{61, "Disk full"},
    NumberedText{62, "Input past end of file"},
    NumberedText{67, "Too many files"},
    NumberedText{68, "Device unavailable"},
    NumberedText{70, "Permission denied"},
    NumberedText{71, "Disk not ready"},
    NumberedText{74, "Can't rename with different drive"},
    NumberedText{75, "Path/File access error"},
    NumberedText{76, "Path not found"},
    NumberedText{91, "Object variable not set"},
    NumberedText{92, "For loop not initialized"},
    NumberedText{94, "Invalid use of Null"},
    NumberedText{322, "Can't create necessary temporary file"},
    NumberedText{424, "Object required"},
    NumberedText{429, "ActiveX component can't create object"},
    NumberedText{430, "Class doesn't support Automation"},
    NumberedText{432, "File name or class name not found during Automation operation"},
    NumberedText{438, "Object doesn't support this property or method"},
    NumberedText{440, "Automation error"},
    NumberedText{445, "Object doesn't support this action"},
    NumberedText{446, "Object doesn't support named arguments"},
    NumberedText{447, "Object doesn't support current locale setting"},
    NumberedText{448, "Named argument not found"},
    NumberedText{449, "Argument not optional"},
    NumberedText{450, "Wrong number of arguments or invalid property assignment"},
    NumberedText{451, "Object not a collection"},
    NumberedText{453, "Specified DLL function not found"},
    NumberedText{455, "Code resource lock error"},
    NumberedText{457, "This key is already associated with an element of this collection"},
    NumberedText{458, "Variable uses an Automation type not supported in VBScript"},
    NumberedText{462, "The remote server machine does not exist or is unavailable"},
    NumberedText{481, "Invalid picture"},
    NumberedText{500, "Variable is undefined"},
    NumberedText{501, "Illegal assignment"},
    NumberedText{502, "Object not safe for scripting"},
    NumberedText{503, "Object not safe for initializing"},
    NumberedText{504, "Object not safe for creating"},
    NumberedText{505, "Invalid or unqualified reference"},
    NumberedText{506, "Class not defined"},
    NumberedText{507, "An exception occurred"},
    NumberedText{5008, "Illegal assignment"},
    NumberedText{5016, "Regular Expression object expected"},
    NumberedText{5017, "Syntax error in regular expression"},
    NumberedText{5018, "Unexpected quantifier"},
    NumberedText{5019, "Expected ']' in regular expression"},
    NumberedText{5020, "Expected ')' in regular expression"},
    NumberedText{5021, "Invalid range in character set"},
    NumberedText{32811, "Element not found"},
};
static_assert(std::is_sorted(kTexts.begin(), kTexts.end(),
                             [](auto& a, auto& b) { return a.number < b.number; }));

struct SystemCode {
  std::uint32_t code;
  std::int32_t number;
};

constexpr std::array kSystemCodes = {
    SystemCode{0x80004001, 445},  // not implemented
    SystemCode{0x80004002, 430},  // no such interface
    SystemCode{0x80020001, 438},  // unknown interface
    SystemCode{0x80020003, 438},  // no such member
    SystemCode{0x80020004, 448},  // no such parameter
    SystemCode{0x80020005, 13},   // wrong type
    SystemCode{0x80020006, 438},  // unknown name
    SystemCode{0x80020007, 446},  // no named arguments
    SystemCode{0x80020008, 458},  // bad kind of value
    SystemCode{0x8002000A, 6},    // out of range
    SystemCode{0x8002000B, 9},    // bad index
    SystemCode{0x8002000C, 447},  // unknown locale
    SystemCode{0x8002000D, 10},   // array is locked
    SystemCode{0x8002000E, 450},  // wrong number of arguments
    SystemCode{0x8002000F, 449},  // argument not optional
    SystemCode{0x80020011, 451},  // no collection
    SystemCode{0x8002802F, 453},  // no such function in the library
    SystemCode{0x80028CA0, 13},   // type mismatch
    SystemCode{0x80028CA1, 9},    // out of bounds
    SystemCode{0x80028CA2, 57},   // device error
    SystemCode{0x80028CA3, 322},  // no temporary file
    SystemCode{0x80029C4A, 48},   // library can't be loaded
    SystemCode{0x80029C83, 48},   // function can't be loaded
    SystemCode{0x80030002, 53},   // file not found
    SystemCode{0x80030003, 76},   // path not found
    SystemCode{0x80030004, 67},   // too many open files
    SystemCode{0x80030005, 70},   // access denied
    SystemCode{0x80030008, 7},    // not enough memory
    SystemCode{0x80030012, 67},   // no more files
    SystemCode{0x80030013, 70},   // disk is write-protected
    SystemCode{0x80030019, 5},    // seek failed
    SystemCode{0x8003001D, 57},   // write failed
    SystemCode{0x8003001E, 57},   // read failed
    SystemCode{0x80030020, 70},   // shared with others
    SystemCode{0x80030021, 70},   // locked by others
    SystemCode{0x80030050, 58},   // file exists
    SystemCode{0x80030070, 61},   // disk is full
    SystemCode{0x800300FC, 53},   // bad name
    SystemCode{0x80030100, 70},   // in use
    SystemCode{0x80030101, 70},   // not current
    SystemCode{0x80030103, 57},   // can't be saved
    SystemCode{0x80040154, 429},  // class not registered
    SystemCode{0x800401E3, 429},  // object unavailable
    SystemCode{0x800401E4, 432},  // bad syntax of a name
    SystemCode{0x800401E6, 432},  // bad extension
    SystemCode{0x800401EA, 432},  // can't be opened
    SystemCode{0x800401F3, 429},  // bad class name
    SystemCode{0x800401F5, 429},  // application not found
    SystemCode{0x800401FE, 429},  // object not registered
    SystemCode{0x80070005, 70},   // access denied
    SystemCode{0x8007000E, 7},    // out of memory
    SystemCode{0x80070057, 5},    // bad argument
    SystemCode{0x800706BA, 462},  // server unavailable
    SystemCode{0x80080005, 429},  // server did not start
};
static_assert(std::is_sorted(kSystemCodes.begin(), kSystemCodes.end(),
                             [](auto& a, auto& b) { return a.code < b.code; }));

}  // namespace

std::string_view errorText(std::int32_t number) {
  const auto found =
      std::lower_bound(kTexts.begin(), kTexts.end(), number,
                       [](const NumberedText& row, std::int32_t n) { return row.number < n; });
  if (found == kTexts.end() || found->number != number) return "Unknown runtime error";
  return found->text;
}

void throwError(ErrorCode code) {
  throwError(code, {});
}

void throwError(ErrorCode code, std::string_view subject) {
  ScriptError error;
  error.number = static_cast<std::int32_t>(code);
  error.description = errorText(error.number);
  error.subject = subject;
  throw error;
}

std::string fullDescription(const ScriptError& error) {
  return error.subject.empty() ? error.description
                               : error.description + ": '" + error.subject + "'";
}

std::int32_t scriptErrorNumber(std::int32_t code) {
  constexpr std::uint32_t kScriptErrors = 0x800A0000;
  const auto bits = static_cast<std::uint32_t>(code);
  if ((bits & 0xFFFF0000) == kScriptErrors) return static_cast<std::int32_t>(bits & 0xFFFF);
  const auto found = std::lower_bound(
      kSystemCodes.begin(), kSystemCodes.end(), bits,
      [](const SystemCode& row, std::uint32_t wanted) { return row.code < wanted; });
  return found != kSystemCodes.end() && found->code == bits ? found->number : code;
}

}  // namespace quorvane::vbs
