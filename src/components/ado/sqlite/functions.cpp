#include "components/ado/sqlite/functions.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "components/ado/sql/stored_date.h"
#include "components/ado/sqlite/like.h"
#include "components/ado/sqlite/pattern_format.h"
#include "components/ado/sqlite/values.h"
#include "platform/clock.h"
#include "platform/random.h"
#include "platform/services.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/serial_date.h"
#include "vbscript/values/text_locale.h"

namespace quorvane::ado {

using vbs::Value;

namespace {

using Arguments = std::vector<Value>;

struct Function {
  const char* name;
  int arguments;  ///< -1: any number
  Value (*call)(FunctionContext&, Arguments&);
  bool nullGivesNull = true;
  bool sameEachTime = true;  ///< within one statement
};

/// Runs a function's body in English, and keeps what it throws from passing through the library.
template <class Body>
void guarded(sqlite3_context* context, FunctionContext& own, Body body) {
  try {
    const vbs::TextScope locale(own.host);
    body();
  } catch (const vbs::ScriptError& error) {
    sqlite3_result_error(context, vbs::String(error.description).utf8().c_str(), -1);
  } catch (...) {
    own.pending = std::current_exception();
    sqlite3_result_error(context, "interrupted", -1);
  }
}

Value dateValue(const Value& value) {
  if (!value.isString()) return value;
  const auto date = dateOfStored(value.asString().utf8());
  return date ? Value::date(*date) : value;
}

/// The script language's functions. Those of dates take stored dates for dates.
struct ScriptFunction {
  const char* name;
  const char* intrinsic;
  bool ofDates = false;
};

constexpr ScriptFunction kScriptFunctions[] = {
    {"vb_ascw", "ascw"},
    {"vb_cbyte", "cbyte"},
    {"vb_cdate", "cdate", true},
    {"vb_cdbl", "cdbl"},
    {"vb_chr", "chr"},
    {"vb_chrw", "chrw"},
    {"vb_cint", "cint"},
    {"vb_clng", "clng"},
    {"vb_csng", "csng"},
    {"vb_cstr", "cstr"},
    {"vb_date", "date"},
    {"vb_dateadd", "dateadd", true},
    {"vb_datediff", "datediff", true},
    {"vb_datepart", "datepart", true},
    {"vb_dateserial", "dateserial"},
    {"vb_datevalue", "datevalue", true},
    {"vb_day", "day", true},
    {"vb_fix", "fix"},
    {"vb_formatcurrency", "formatcurrency"},
    {"vb_formatdatetime", "formatdatetime", true},
    {"vb_formatnumber", "formatnumber"},
    {"vb_formatpercent", "formatpercent"},
    {"vb_hour", "hour", true},
    {"vb_instr", "instr"},
    {"vb_int", "int"},
    {"vb_isdate", "isdate"},
    {"vb_isnumeric", "isnumeric"},
    {"vb_lcase", "lcase"},
    {"vb_left", "left"},
    {"vb_minute", "minute", true},
    {"vb_month", "month", true},
    {"vb_monthname", "monthname"},
    {"vb_now", "now"},
    {"vb_right", "right"},
    {"vb_second", "second", true},
    {"vb_sgn", "sgn"},
    {"vb_space", "space"},
    {"vb_strcomp", "strcomp"},
    {"vb_string", "string"},
    {"vb_strreverse", "strreverse"},
    {"vb_time", "time"},
    {"vb_timeserial", "timeserial"},
    {"vb_timevalue", "timevalue", true},
    {"vb_ucase", "ucase"},
    {"vb_weekday", "weekday", true},
    {"vb_weekdayname", "weekdayname"},
    {"vb_year", "year", true},
};

/// A script function that the library calls: its row, and whom it works for.
struct BoundFunction {
  FunctionContext* context;
  const ScriptFunction* row;
  const vbs::Intrinsic* function;
};

void callScriptFunction(sqlite3_context* context, int count, sqlite3_value** given) {
  auto& bound = *static_cast<BoundFunction*>(sqlite3_user_data(context));
  guarded(context, *bound.context, [&] {
    Arguments args;
    for (int i = 0; i < count; ++i) {
      args.push_back(valueOf(given[i]));
      if (args.back().isNull()) return sqlite3_result_null(context);
      if (bound.row->ofDates) args.back() = dateValue(args.back());
    }
    if (count < bound.function->minArgs || count > bound.function->maxArgs) {
      vbs::throwError(vbs::ErrorCode::WrongArgumentCount);
    }
    resultValue(context, bound.function->call(bound.context->runtime, args));
  });
}

bool isNumeric(const Value& value) {
  return !value.isString() || vbs::parseNumber(value.asString()).has_value();
}

Value sumOf(double a, double b) {
  const double result = a + b;
  const bool isWhole = result == std::floor(result) && std::abs(result) < 2147483648.0;
  return isWhole ? Value::longInt(static_cast<std::int32_t>(result)) : Value::number(result);
}

Value add(FunctionContext&, Arguments& args) {
  const Value a = dateValue(args[0]);
  const Value b = dateValue(args[1]);
  const bool date = a.is(vbs::Type::Date) || b.is(vbs::Type::Date);
  if (date && isNumeric(a) && isNumeric(b)) return Value::date(vbs::toDouble(a) + vbs::toDouble(b));
  if (a.isString() && b.isString()) return vbs::String::joined(a.asString(), b.asString());
  if (!isNumeric(a) || !isNumeric(b)) {
    return vbs::String::joined(vbs::toString(args[0]), vbs::toString(args[1]));
  }
  return sumOf(vbs::toDouble(a), vbs::toDouble(b));
}

Value subtract(FunctionContext&, Arguments& args) {
  const Value a = dateValue(args[0]);
  const Value b = dateValue(args[1]);
  const double result = vbs::toDouble(a) - vbs::toDouble(b);
  const bool date = a.is(vbs::Type::Date) && !b.is(vbs::Type::Date);
  return date ? Value::date(result) : sumOf(result, 0);
}

Value concat(FunctionContext&, Arguments& args) {
  vbs::String text;
  for (const Value& arg : args) {
    if (!arg.isNull()) text.append(vbs::toString(arg));
  }
  return text;
}

Value date(FunctionContext&, Arguments& args) {
  if (!args[0].isString()) return args[0];
  const auto days = dateOfText(args[0].asString().utf8());
  return days ? Value::date(*days) : args[0];
}

Value callIntrinsic(FunctionContext& context, std::string_view name, Arguments args) {
  return vbs::findIntrinsic(name)->call(context.runtime, args);
}

Value dateName(FunctionContext& context, Arguments& args) {
  const std::string interval = vbs::toString(args[0]).narrow();
  const Value part = callIntrinsic(context, "datepart", {args[0], dateValue(args[1])});
  if (interval == "m") return callIntrinsic(context, "monthname", {part});
  if (interval == "w") return callIntrinsic(context, "weekdayname", {part});
  return vbs::toString(part);
}

Value money(FunctionContext&, Arguments& args) {
  return Value::currency(vbs::toCurrency(args[0]));
}

Value newId(FunctionContext& context, Arguments&) {
  const std::string hex = upperCase(hexDigits(context.services.random.guid()));
  const std::string text = "{" + hex.substr(0, 8) + "-" + hex.substr(8, 4) + "-" +
                           hex.substr(12, 4) + "-" + hex.substr(16, 4) + "-" + hex.substr(20) + "}";
  return Value(std::string_view(text));
}

Value rnd(FunctionContext& context, Arguments&) {
  return Value::number(context.services.random.fraction());
}

Value replicate(FunctionContext&, Arguments& args) {
  const vbs::String text = vbs::toString(args[0]);
  vbs::String result;
  for (std::int32_t count = vbs::toLong(args[1]); count > 0 && !text.empty(); --count) {
    result.append(text);
  }
  return result;
}

Value str(FunctionContext&, Arguments& args) {
  const vbs::String text = vbs::formatDouble(vbs::toDouble(args[0]));
  return text.narrow().starts_with('-') ? text : vbs::String::joined(vbs::String(" "), text);
}

Value stuff(FunctionContext&, Arguments& args) {
  const vbs::String text = vbs::toString(args[0]);
  const std::int32_t start = vbs::toLong(args[1]);
  const std::int32_t length = vbs::toLong(args[2]);
  if (start < 1 || length < 0 || static_cast<std::size_t>(start) > text.length()) {
    return Value::null();
  }
  const auto begin = static_cast<std::size_t>(start) - 1;
  vbs::String result = text.substr(0, begin);
  result.append(vbs::toString(args[3]));
  result.append(text.substr(begin + static_cast<std::size_t>(length), text.length()));
  return result;
}

/// The number that a text begins with.
Value val(FunctionContext&, Arguments& args) {
  if (!args[0].isString()) return args[0];
  std::string text = args[0].asString().narrow();
  std::erase(text, ' ');
  const std::size_t end = text.find_first_not_of("+-.0123456789eE");
  const double number = std::strtod(text.substr(0, end).c_str(), nullptr);
  return Value::number(std::isfinite(number) ? number : 0);
}

Value bytes(FunctionContext&, Arguments& args) {
  if (args[0].isArray()) {
    return Value::longInt(static_cast<std::int32_t>(args[0].asArray()->bytes.raw().size()));
  }
  return Value::longInt(static_cast<std::int32_t>(vbs::toString(args[0]).byteLength()));
}

Value truth(FunctionContext&, Arguments& args) {
  const Value& value = args[0];
  if (value.isString()) {
    const std::string text = lowerCase(value.asString().narrow());
    if (text == "true" || text == "yes") return Value::longInt(1);
    if (text == "false" || text == "no" || text.empty()) return Value::longInt(0);
  }
  return Value::longInt(vbs::toDouble(value) != 0 ? 1 : 0);
}

Value whole(FunctionContext&, Arguments& args) {
  const double divisor = std::nearbyint(vbs::toDouble(args[1]));
  if (divisor == 0) return Value::null();
  return sumOf(std::trunc(std::nearbyint(vbs::toDouble(args[0])) / divisor), 0);
}

Value utc(FunctionContext& context, Arguments&) {
  const CalendarTime time = context.services.clock.utc(context.services.clock.now());
  return Value::date(vbs::combineDate(vbs::dayNumber(time.year, time.month, time.day),
                                      (time.hour * 60 + time.minute) * 60 + time.second));
}

Value styled(FunctionContext&, Arguments& args) {
  const Value value = dateValue(args[0]);
  if (!value.is(vbs::Type::Date)) return vbs::toString(value);
  return Value(std::string_view(dateInStyle(value.asDouble(), vbs::toLong(args[1]))));
}

Value format(FunctionContext&, Arguments& args) {
  Value value = dateValue(args[0]);
  if (args.size() < 2) return vbs::toString(value);
  const std::string pattern = vbs::toString(args[1]).utf8();
  if (value.is(vbs::Type::Date)) {
    return vbs::String::fromUtf8(formattedDate(value.asDouble(), pattern));
  }
  if (!isNumeric(value)) return value;
  return vbs::String::fromUtf8(formattedNumber(vbs::toDouble(value), pattern));
}

Value like(FunctionContext&, Arguments& args) {  // the pattern comes first
  char16_t escape = 0;
  if (args.size() > 2) {
    const vbs::String mark = vbs::toString(args[2]);
    if (mark.length() == 1) escape = mark.at(0);
  }
  return Value::longInt(isLike(vbs::toString(args[1]), vbs::toString(args[0]), escape) ? 1 : 0);
}

Value patIndex(FunctionContext&, Arguments& args) {
  return Value::longInt(placeLike(vbs::toString(args[1]), vbs::toString(args[0])));
}

constexpr Function kFunctions[] = {
    {"q_add", 2, add},
    {"q_subtract", 2, subtract},
    {"q_bytes", 1, bytes},
    {"q_concat", -1, concat, false},
    {"q_date", 1, date},
    {"q_datename", 2, dateName},
    {"q_format", -1, format},
    {"q_money", 1, money},
    {"q_newid", 0, newId, true, false},
    {"q_patindex", 2, patIndex},
    {"q_replicate", 2, replicate},
    {"q_rnd", -1, rnd, false, false},
    {"q_str", -1, str},
    {"q_stuff", 4, stuff},
    {"q_styled", 2, styled},
    {"q_truth", 1, truth},
    {"q_utc", 0, utc},
    {"q_val", 1, val},
    {"q_whole", 2, whole},
    {"like", 2, like},
    {"like", 3, like},
};

struct BoundOwn {
  FunctionContext* context;
  const Function* function;
};

void callOwn(sqlite3_context* context, int count, sqlite3_value** given) {
  auto& bound = *static_cast<BoundOwn*>(sqlite3_user_data(context));
  guarded(context, *bound.context, [&] {
    Arguments args;
    for (int i = 0; i < count; ++i) {
      args.push_back(valueOf(given[i]));
      if (bound.function->nullGivesNull && args.back().isNull())
        return sqlite3_result_null(context);
    }
    if (args.empty() && bound.function->arguments == -1 && bound.function->nullGivesNull) {
      vbs::throwError(vbs::ErrorCode::WrongArgumentCount);
    }
    resultValue(context, bound.function->call(*bound.context, args));
  });
}

/// What an aggregate keeps from row to row; the library gives it zeroed.
struct Group {
  std::int64_t count;
  double mean;
  double squares;  ///< of the distances from the mean
  sqlite3_value* kept;
};

Group* groupOf(sqlite3_context* context) {
  return static_cast<Group*>(sqlite3_aggregate_context(context, sizeof(Group)));
}

void countNumber(sqlite3_context* context, int, sqlite3_value** given) {
  Group* group = groupOf(context);
  if (!group || sqlite3_value_type(given[0]) == SQLITE_NULL) return;
  const double number = sqlite3_value_double(given[0]);
  const double distance = number - group->mean;
  group->mean += distance / static_cast<double>(++group->count);
  group->squares += distance * (number - group->mean);
}

template <bool kSample, bool kRoot>
void spread(sqlite3_context* context) {
  const Group* group = groupOf(context);
  const std::int64_t least = kSample ? 2 : 1;
  if (!group || group->count < least) return sqlite3_result_null(context);
  const double variance = group->squares / static_cast<double>(group->count - (kSample ? 1 : 0));
  sqlite3_result_double(context, kRoot ? std::sqrt(variance) : variance);
}

template <bool kLast>
void keepRow(sqlite3_context* context, int, sqlite3_value** given) {
  Group* group = groupOf(context);
  if (!group || (group->kept && !kLast)) return;
  sqlite3_value_free(group->kept);
  group->kept = sqlite3_value_dup(given[0]);
}

void keptRow(sqlite3_context* context) {
  Group* group = groupOf(context);
  if (!group || !group->kept) return sqlite3_result_null(context);
  sqlite3_result_value(context, group->kept);
  sqlite3_value_free(group->kept);
  group->kept = nullptr;
}

struct Aggregate {
  const char* name;
  void (*step)(sqlite3_context*, int, sqlite3_value**);
  void (*end)(sqlite3_context*);
};

constexpr Aggregate kAggregates[] = {
    {"q_first", keepRow<false>, keptRow},         {"q_last", keepRow<true>, keptRow},
    {"q_stdev", countNumber, spread<true, true>}, {"q_stdevp", countNumber, spread<false, true>},
    {"q_var", countNumber, spread<true, false>},  {"q_varp", countNumber, spread<false, false>},
};

}  // namespace

void registerFunctions(sqlite3* connection, FunctionContext& context) {
  constexpr int kSame = SQLITE_UTF8 | SQLITE_INNOCUOUS | SQLITE_DETERMINISTIC;
  constexpr int kOther = SQLITE_UTF8 | SQLITE_INNOCUOUS;
  for (const ScriptFunction& row : kScriptFunctions) {
    auto* bound = new BoundFunction{&context, &row, vbs::findIntrinsic(row.intrinsic)};
    sqlite3_create_function_v2(connection, row.name, -1, kSame, bound, callScriptFunction, nullptr,
                               nullptr, [](void* p) { delete static_cast<BoundFunction*>(p); });
  }
  for (const Function& row : kFunctions) {
    auto* bound = new BoundOwn{&context, &row};
    sqlite3_create_function_v2(connection, row.name, row.arguments,
                               row.sameEachTime ? kSame : kOther, bound, callOwn, nullptr, nullptr,
                               [](void* p) { delete static_cast<BoundOwn*>(p); });
  }
  for (const Aggregate& row : kAggregates) {
    sqlite3_create_function_v2(connection, row.name, 1, kSame, nullptr, nullptr, row.step, row.end,
                               nullptr);
  }
}

}  // namespace quorvane::ado
