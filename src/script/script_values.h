#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "support/calendar_time.h"
#include "vbscript/values/error.h"
#include "vbscript/values/object.h"

namespace quorvane {

/// Between script values and the bytes of Windows-1252 that pages and requests are made of.
/// Everything here throws vbs::ScriptError for a value that has no such form.
namespace script_values {

/// The text of any value; a character without a byte becomes "?".
std::string text(const vbs::Value& value);

/// Adds the text of `value` to `out`. Null adds nothing.
void appendText(std::string& out, const vbs::Value& value);

/// Gives out the bytes that a value is as binary data, piece by piece: of an array its elements, of
/// a text two a character, the lower first.
void eachBinaryPiece(const vbs::Value& value,
                     const std::function<void(std::string_view bytes)>& take);

/// The text of the argument at `index`; empty when it is left out.
std::string textArgument(vbs::Args args, std::size_t index);
bool hasArgument(vbs::Args args, std::size_t index);

/// The place that a number counted from 1 means among `count`; error 9 beyond.
std::size_t place(const vbs::Value& number, std::size_t count);

/// Null becomes Nothing. Takes over the reference.
template <class T>
vbs::Value objectValue(vbs::Ref<T> object) {
  return vbs::Value::object(object.get());
}

/// Between script dates and calendar fields, in whole seconds. `days` must be in a date's range.
CalendarTime calendarTime(double days);
double days(const CalendarTime& time);

/// From here on the running page writes and reads texts in this locale. Error 447 for one that is
/// not known.
void useLocale(std::int32_t id);

/// Throws an error of the engine's with a description of the server's.
[[noreturn]] void fail(vbs::ErrorCode code, std::string description);

}  // namespace script_values

}  // namespace quorvane
