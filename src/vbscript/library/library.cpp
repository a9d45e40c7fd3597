#include "vbscript/library/library.h"

#include <algorithm>

#include "vbscript/library/functions.h"
#include "vbscript/values/error.h"

namespace quorvane::vbs {

namespace {

constexpr Intrinsic kIntrinsics[] = {
    {"abs", "Abs", 1, 1, intrinsic::abs},
    {"array", "Array", 0, 255, intrinsic::array},
    {"asc", "Asc", 1, 1, intrinsic::asc},
    {"ascb", "AscB", 1, 1, intrinsic::ascB},
    {"ascw", "AscW", 1, 1, intrinsic::ascW},
    {"atn", "Atn", 1, 1, intrinsic::atn},
    {"cbool", "CBool", 1, 1, intrinsic::cBool},
    {"cbyte", "CByte", 1, 1, intrinsic::cByte},
    {"ccur", "CCur", 1, 1, intrinsic::cCur},
    {"cdate", "CDate", 1, 1, intrinsic::cDate},
    {"cdbl", "CDbl", 1, 1, intrinsic::cDbl},
    {"chr", "Chr", 1, 1, intrinsic::chr},
    {"chrb", "ChrB", 1, 1, intrinsic::chrB},
    {"chrw", "ChrW", 1, 1, intrinsic::chrW},
    {"cint", "CInt", 1, 1, intrinsic::cInt},
    {"clng", "CLng", 1, 1, intrinsic::cLng},
    {"cos", "Cos", 1, 1, intrinsic::cos},
    {"createobject", "CreateObject", 1, 2, intrinsic::createObject},
    {"csng", "CSng", 1, 1, intrinsic::cSng},
    {"cstr", "CStr", 1, 1, intrinsic::cStr},
    {"date", "Date", 0, 0, intrinsic::date},
    {"dateadd", "DateAdd", 3, 3, intrinsic::dateAdd},
    {"datediff", "DateDiff", 3, 5, intrinsic::dateDiff},
    {"datepart", "DatePart", 2, 4, intrinsic::datePart},
    {"dateserial", "DateSerial", 3, 3, intrinsic::dateSerial},
    {"datevalue", "DateValue", 1, 1, intrinsic::dateValue},
    {"day", "Day", 1, 1, intrinsic::day},
    {"escape", "Escape", 1, 1, intrinsic::escape},
    {"exp", "Exp", 1, 1, intrinsic::exp},
    {"filter", "Filter", 2, 4, intrinsic::filter},
    {"fix", "Fix", 1, 1, intrinsic::fix},
    {"formatcurrency", "FormatCurrency", 1, 5, intrinsic::formatCurrency},
    {"formatdatetime", "FormatDateTime", 1, 2, intrinsic::formatDateTime},
    {"formatnumber", "FormatNumber", 1, 5, intrinsic::formatNumber},
    {"formatpercent", "FormatPercent", 1, 5, intrinsic::formatPercent},
    {"getlocale", "GetLocale", 0, 0, intrinsic::getLocale},
    {"getobject", "GetObject", 0, 2, intrinsic::getObject},
    {"hex", "Hex", 1, 1, intrinsic::hex},
    {"hour", "Hour", 1, 1, intrinsic::hour},
    {"inputbox", "InputBox", 1, 7, intrinsic::refuse},
    {"instr", "InStr", 2, 4, intrinsic::inStr},
    {"instrb", "InStrB", 2, 4, intrinsic::inStrB},
    {"instrrev", "InStrRev", 2, 4, intrinsic::inStrRev},
    {"int", "Int", 1, 1, intrinsic::floor},
    {"isarray", "IsArray", 1, 1, intrinsic::isArray},
    {"isdate", "IsDate", 1, 1, intrinsic::isDate},
    {"isempty", "IsEmpty", 1, 1, intrinsic::isEmpty},
    {"isnull", "IsNull", 1, 1, intrinsic::isNull},
    {"isnumeric", "IsNumeric", 1, 1, intrinsic::isNumeric},
    {"isobject", "IsObject", 1, 1, intrinsic::isObject},
    {"join", "Join", 1, 2, intrinsic::join},
    {"lbound", "LBound", 1, 2, intrinsic::lBound},
    {"lcase", "LCase", 1, 1, intrinsic::lCase},
    {"left", "Left", 2, 2, intrinsic::left},
    {"leftb", "LeftB", 2, 2, intrinsic::leftB},
    {"len", "Len", 1, 1, intrinsic::len},
    {"lenb", "LenB", 1, 1, intrinsic::lenB},
    {"loadpicture", "LoadPicture", 0, 5, intrinsic::refuse},
    {"log", "Log", 1, 1, intrinsic::log},
    {"ltrim", "LTrim", 1, 1, intrinsic::lTrim},
    {"mid", "Mid", 2, 3, intrinsic::mid},
    {"midb", "MidB", 2, 3, intrinsic::midB},
    {"minute", "Minute", 1, 1, intrinsic::minute},
    {"month", "Month", 1, 1, intrinsic::month},
    {"monthname", "MonthName", 1, 2, intrinsic::monthName},
    {"msgbox", "MsgBox", 1, 5, intrinsic::refuse},
    {"now", "Now", 0, 0, intrinsic::now},
    {"oct", "Oct", 1, 1, intrinsic::oct},
    {"randomize", "Randomize", 0, 1, intrinsic::randomize},
    {"replace", "Replace", 3, 6, intrinsic::replace},
    {"rgb", "RGB", 3, 3, intrinsic::rgb},
    {"right", "Right", 2, 2, intrinsic::right},
    {"rightb", "RightB", 2, 2, intrinsic::rightB},
    {"rnd", "Rnd", 0, 1, intrinsic::rnd},
    {"round", "Round", 1, 2, intrinsic::round},
    {"rtrim", "RTrim", 1, 1, intrinsic::rTrim},
    {"scriptengine", "ScriptEngine", 0, 0, intrinsic::scriptEngine},
    {"scriptenginebuildversion", "ScriptEngineBuildVersion", 0, 0,
     intrinsic::scriptEngineBuildVersion},
    {"scriptenginemajorversion", "ScriptEngineMajorVersion", 0, 0,
     intrinsic::scriptEngineMajorVersion},
    {"scriptengineminorversion", "ScriptEngineMinorVersion", 0, 0,
     intrinsic::scriptEngineMinorVersion},
    {"second", "Second", 1, 1, intrinsic::second},
    {"setlocale", "SetLocale", 0, 1, intrinsic::setLocale},
    {"sgn", "Sgn", 1, 1, intrinsic::sgn},
    {"sin", "Sin", 1, 1, intrinsic::sin},
    {"space", "Space", 1, 1, intrinsic::space},
    {"split", "Split", 1, 4, intrinsic::split},
    {"sqr", "Sqr", 1, 1, intrinsic::sqr},
    {"strcomp", "StrComp", 2, 3, intrinsic::strComp},
    {"string", "String", 2, 2, intrinsic::string},
    {"strreverse", "StrReverse", 1, 1, intrinsic::strReverse},
    {"tan", "Tan", 1, 1, intrinsic::tan},
    {"time", "Time", 0, 0, intrinsic::time},
    {"timer", "Timer", 0, 0, intrinsic::timer},
    {"timeserial", "TimeSerial", 3, 3, intrinsic::timeSerial},
    {"timevalue", "TimeValue", 1, 1, intrinsic::timeValue},
    {"trim", "Trim", 1, 1, intrinsic::trim},
    {"typename", "TypeName", 1, 1, intrinsic::typeNameOf},
    {"ubound", "UBound", 1, 2, intrinsic::uBound},
    {"ucase", "UCase", 1, 1, intrinsic::uCase},
    {"unescape", "Unescape", 1, 1, intrinsic::unescape},
    {"vartype", "VarType", 1, 1, intrinsic::varTypeOf},
    {"weekday", "Weekday", 1, 2, intrinsic::weekday},
    {"weekdayname", "WeekdayName", 1, 3, intrinsic::weekdayName},
    {"year", "Year", 1, 1, intrinsic::year},
};

constexpr bool isBefore(const Intrinsic& a, const Intrinsic& b) {
  return a.name < b.name;
}
static_assert(std::is_sorted(std::begin(kIntrinsics), std::end(kIntrinsics), isBefore));

}  // namespace

const Intrinsic* findIntrinsic(std::string_view lowerName) {
  const auto* found =
      std::lower_bound(std::begin(kIntrinsics), std::end(kIntrinsics), lowerName,
                       [](const Intrinsic& row, std::string_view name) { return row.name < name; });
  return found != std::end(kIntrinsics) && found->name == lowerName ? found : nullptr;
}

bool isConversion(const Intrinsic& function) {
  static constexpr std::string_view kNames[] = {"cbool", "cbyte", "ccur", "cdate", "cdbl",
                                                "cint",  "clng",  "csng", "cstr"};
  return std::binary_search(std::begin(kNames), std::end(kNames), function.name);
}

void nameIntrinsic(ScriptError& error, const Intrinsic& function) {
  const bool isOwn = error.source.empty() && error.description == errorText(error.number);
  if (isOwn && error.subject.empty()) error.subject = function.title;
}

}  // namespace quorvane::vbs
