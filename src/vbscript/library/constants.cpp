#include <algorithm>
#include <string_view>
#include <vector>

#include "vbscript/library/library.h"
#include "vbscript/values/object.h"

namespace quorvane::vbs {

namespace {

struct NumberRow {
  std::string_view name;
  std::int32_t number;
};

/// Longs, however small they are.
constexpr NumberRow kLongs[] = {
    // Colours
    {"vbblack", 0x000000},
    {"vbred", 0x0000FF},
    {"vbgreen", 0x00FF00},
    {"vbyellow", 0x00FFFF},
    {"vbblue", 0xFF0000},
    {"vbmagenta", 0xFF00FF},
    {"vbcyan", 0xFFFF00},
    {"vbwhite", 0xFFFFFF},
    // A message box's own
    {"vbmsgboxhelpbutton", 16384},
};

/// Integers where they fit.
constexpr NumberRow kNumbers[] = {
    // Comparison
    {"vbbinarycompare", 0},
    {"vbtextcompare", 1},
    {"vbdatabasecompare", 2},
    // Dates
    {"vbusesystem", 0},
    {"vbusesystemdayofweek", 0},
    {"vbsunday", 1},
    {"vbmonday", 2},
    {"vbtuesday", 3},
    {"vbwednesday", 4},
    {"vbthursday", 5},
    {"vbfriday", 6},
    {"vbsaturday", 7},
    {"vbfirstjan1", 1},
    {"vbfirstfourdays", 2},
    {"vbfirstfullweek", 3},
    {"vbgeneraldate", 0},
    {"vblongdate", 1},
    {"vbshortdate", 2},
    {"vblongtime", 3},
    {"vbshorttime", 4},
    // Errors and tristates
    {"vbobjecterror", -2147221504},
    {"vbusedefault", -2},
    {"vbtrue", -1},
    {"vbfalse", 0},
    // Message boxes
    {"vbokonly", 0},
    {"vbokcancel", 1},
    {"vbabortretryignore", 2},
    {"vbyesnocancel", 3},
    {"vbyesno", 4},
    {"vbretrycancel", 5},
    {"vbcritical", 16},
    {"vbquestion", 32},
    {"vbexclamation", 48},
    {"vbinformation", 64},
    {"vbdefaultbutton1", 0},
    {"vbdefaultbutton2", 256},
    {"vbdefaultbutton3", 512},
    {"vbdefaultbutton4", 768},
    {"vbapplicationmodal", 0},
    {"vbsystemmodal", 4096},
    {"vbmsgboxsetforeground", 65536},
    {"vbmsgboxright", 524288},
    {"vbmsgboxrtlreading", 1048576},
    {"vbok", 1},
    {"vbcancel", 2},
    {"vbabort", 3},
    {"vbretry", 4},
    {"vbignore", 5},
    {"vbyes", 6},
    {"vbno", 7},
    // What VarType shows
    {"vbempty", 0},
    {"vbnull", 1},
    {"vbinteger", 2},
    {"vblong", 3},
    {"vbsingle", 4},
    {"vbdouble", 5},
    {"vbcurrency", 6},
    {"vbdate", 7},
    {"vbstring", 8},
    {"vbobject", 9},
    {"vberror", 10},
    {"vbboolean", 11},
    {"vbvariant", 12},
    {"vbdataobject", 13},
    {"vbdecimal", 14},
    {"vbbyte", 17},
    {"vbarray", 8192},
};

struct TextRow {
  std::string_view name;
  std::string_view text;
};

constexpr TextRow kTexts[] = {
    {"vbcr", "\r"},       {"vbcrlf", "\r\n"},    {"vbformfeed", "\f"},
    {"vblf", "\n"},       {"vbnewline", "\r\n"}, {"vbnullchar", std::string_view("\0", 1)},
    {"vbnullstring", ""}, {"vbtab", "\t"},       {"vbverticaltab", "\v"},
};

struct Constant {
  std::string_view name;
  Value value;
};

/// Of each thread, because the texts are counted.
struct Constants : RunPart {
  Constants();
  std::vector<Constant> all;  ///< sorted by name
};

Constants::Constants() {
  for (const auto& [name, number] : kLongs) all.push_back({name, Value::longInt(number)});
  for (const auto& [name, number] : kNumbers) all.push_back({name, Value::whole(number)});
  for (const auto& [name, text] : kTexts) all.push_back({name, Value(String(text))});
  std::sort(all.begin(), all.end(), [](auto& a, auto& b) { return a.name < b.name; });
}

}  // namespace

const Value* findConstant(std::string_view lowerName) {
  if (!lowerName.starts_with("vb")) return nullptr;
  const auto& constants = runContext.parts.get<Constants>().all;
  const auto found = std::lower_bound(
      constants.begin(), constants.end(), lowerName,
      [](const Constant& constant, std::string_view name) { return constant.name < name; });
  return found != constants.end() && found->name == lowerName ? &found->value : nullptr;
}

}  // namespace quorvane::vbs
