#include <algorithm>
#include <array>

#include "components/ado/recordset.h"

namespace quorvane::ado {

using vbs::Args;
using vbs::Value;

namespace {

constexpr std::int32_t kAllRows = -1;

}  // namespace

/// One name or number, or an array of them; all columns when nothing is given.
std::vector<std::size_t> Recordset::columnsWanted(Args args, std::size_t place) {
  std::vector<std::size_t> wanted;
  if (!isGiven(args, place)) {
    for (std::size_t i = 0; i < columns().size(); ++i) wanted.push_back(i);
    return wanted;
  }
  const Value& given = args[place].deref();
  if (!given.isArray()) return {columnOf(given)};
  for (std::size_t i = 0; i < given.asArray()->count; ++i) {
    wanted.push_back(columnOf(given.asArray()->element(i)));
  }
  return wanted;
}

/// rows, start, fields: an array of columns by rows
Value Recordset::callGetRows(Args args) {
  leaveRow();
  Cursor& place = cursor();
  const std::int32_t rows = arguments::number(args, 0, kAllRows);
  if (isGiven(args, 1)) startAt(args[1]);
  const std::vector<std::size_t> wanted = columnsWanted(args, 2);
  if (!place.current()) fail(AdoError::NoCurrentRecord, "Recordset");
  std::vector<Value> values;
  std::int32_t count = 0;
  for (; rows == kAllRows || count < rows; ++count) {
    const StoredRow* row = place.current();
    if (!row) break;
    for (const std::size_t column : wanted) values.push_back(row->values[column]);
    place.moveBy(1);
  }
  const std::array<std::int32_t, 2> extents{static_cast<std::int32_t>(wanted.size()), count};
  vbs::ArrayRep* array = vbs::ArrayRep::create(extents);  // the first index runs fastest
  std::move(values.begin(), values.end(), array->elements);
  return Value::array(array);
}

/// format, rows, column delimiter, row delimiter, text for Null
Value Recordset::callGetString(Args args) {
  leaveRow();
  Cursor& place = cursor();
  const auto textAt = [&](std::size_t i, const char* otherwise) {
    return isGiven(args, i) ? vbs::toString(args[i]) : vbs::String(otherwise);
  };
  const std::int32_t rows = arguments::number(args, 1, kAllRows);
  const vbs::String betweenColumns = textAt(2, "\t");
  const vbs::String behindRows = textAt(3, "\r");
  const vbs::String forNull = textAt(4, "");
  if (!place.current()) fail(AdoError::NoCurrentRecord, "Recordset");
  vbs::String text;
  for (std::int32_t count = 0; rows == kAllRows || count < rows; ++count) {
    const StoredRow* row = place.current();
    if (!row) break;
    for (std::size_t i = 0; i < columns().size(); ++i) {
      if (i > 0) text.append(betweenColumns);
      const Value& value = row->values[i];
      text.append(value.isNull() || value.isArray() ? forNull : vbs::toString(value));
    }
    text.append(behindRows);
    place.moveBy(1);
  }
  return text;
}

}  // namespace quorvane::ado
