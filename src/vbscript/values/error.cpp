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

}  // namespace

std::string_view errorText(std::int32_t number) {
  const auto found =
      std::lower_bound(kTexts.begin(), kTexts.end(), number,
                       [](const NumberedText& row, std::int32_t n) { return row.number < n; });
  if (found == kTexts.end() || found->number != number) return "Unknown runtime error";
  return found->text;
}

void throwError(ErrorCode code) {
  const auto number = static_cast<std::int32_t>(code);
  throw ScriptError{number, std::string(errorText(number)), {}, {}, 0};
}

void throwError(ErrorCode code, std::string_view name) {
  const auto number = static_cast<std::int32_t>(code);
  std::string text(errorText(number));
  text.append(": '").append(name).append("'");
  throw ScriptError{number, std::move(text), {}, {}, 0};
}

}  // namespace quorvane::vbs
