#include <algorithm>

#include "components/ado/criteria.h"
#include "components/ado/recordset.h"

namespace quorvane::ado {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

enum Position : std::int32_t { kUnknown = -1, kBof = -2, kEof = -3 };
enum BookmarkPlace : std::int32_t { kCurrent = 0, kFirst = 1, kLast = 2 };

Value bookmarkOf(std::size_t index) {
  return Value::number(static_cast<double>(index + 1));
}

/// The row in the store that a bookmark means.
std::size_t indexOf(const Value& bookmark) {
  const double number = vbs::toDouble(bookmark);
  if (!(number >= 1) || number > 4e9) fail(AdoError::InvalidArgument, "Recordset");
  return static_cast<std::size_t>(number) - 1;
}

}  // namespace

Value Recordset::getEof(Args) {
  const Cursor& place = cursor();
  return Value::boolean(editMode_ != kEditAdd && place.eof());
}

Value Recordset::getBof(Args) {
  const Cursor& place = cursor();
  return Value::boolean(editMode_ != kEditAdd && place.bof());
}

void Recordset::leaveRow() {
  ++visit_;
  if (editMode_ != kEditNone) update();
}

Value Recordset::callMoveNext(Args) {
  leaveRow();
  Cursor& place = cursor();
  if (place.eof()) fail(AdoError::NoCurrentRecord, "Recordset");
  place.moveBy(1);
  return {};
}

Value Recordset::callMovePrevious(Args) {
  leaveRow();
  Cursor& place = cursor();
  if (place.forwardOnly()) fail(kCannotScrollBack, "Recordset");
  if (place.bof()) fail(AdoError::NoCurrentRecord, "Recordset");
  place.moveBy(-1);
  return {};
}

/// One that goes forward only asks its command again when its first rows are gone.
Value Recordset::callMoveFirst(Args) {
  leaveRow();
  if (!cursor().canGoBack()) {
    close();
    readAgain();
  }
  Cursor& place = cursor();
  if (place.bof() && place.eof()) fail(AdoError::NoCurrentRecord, "Recordset");
  place.moveFirst();
  return {};
}

Value Recordset::callMoveLast(Args) {
  leaveRow();
  Cursor& place = cursor();
  place.makeScrollable();
  if (place.bof() && place.eof()) fail(AdoError::NoCurrentRecord, "Recordset");
  place.moveLast();
  return {};
}

void Recordset::startAt(const Value& start) {
  Cursor& place = cursor();
  const Value plain = vbs::plainValue(start);
  if (plain.is(vbs::Type::Double)) {
    if (!place.moveToIndex(indexOf(plain))) fail(AdoError::InvalidArgument, "Recordset");
    return;
  }
  const std::int32_t where = vbs::toLong(plain);
  if (where == kFirst) {
    place.moveFirst();
  } else if (where == kLast) {
    place.makeScrollable();
    place.moveLast();
  } else if (where != kCurrent) {
    fail(AdoError::InvalidArgument, "Recordset");
  }
}

/// count, start
Value Recordset::callMove(Args args) {
  leaveRow();
  const std::int32_t count = vbs::toLong(args[0]);
  Cursor& place = cursor();
  if (isGiven(args, 1)) startAt(args[1]);
  if (place.bof() && place.eof()) fail(AdoError::NoCurrentRecord, "Recordset");
  if (count < 0 && place.forwardOnly()) fail(kCannotScrollBack, "Recordset");
  if ((count > 0 && place.eof()) || (count < 0 && place.bof())) {
    fail(AdoError::NoCurrentRecord, "Recordset");
  }
  place.moveBy(count);
  return {};
}

Value Recordset::getRecordCount(Args) {
  const Cursor& place = cursor();
  if (cursorLocation_ != kUseClient && cursorType_ == kForwardOnly && lockType_ == kReadOnly) {
    return Value::longInt(-1);
  }
  return Value::longInt(static_cast<std::int32_t>(place.count()));
}

Value Recordset::getPageSize(Args) {
  return Value::longInt(pageSize_);
}

void Recordset::putPageSize(Args args, CallKind) {
  const std::int32_t size = vbs::toLong(args[0]);
  if (size < 1) fail(AdoError::InvalidArgument, "Recordset");
  pageSize_ = size;
}

Value Recordset::getPageCount(Args) {
  Cursor& place = cursor();
  place.makeScrollable();
  const auto size = static_cast<std::size_t>(pageSize_);
  return Value::longInt(static_cast<std::int32_t>((place.count() + size - 1) / size));
}

Value Recordset::getAbsolutePage(Args) {
  const Cursor& place = cursor();
  if (place.eof()) return Value::longInt(kEof);
  if (place.bof()) return Value::longInt(kBof);
  const auto size = static_cast<std::size_t>(pageSize_);
  return Value::longInt(static_cast<std::int32_t>((place.position() - 1) / size) + 1);
}

void Recordset::putAbsolutePage(Args args, CallKind) {
  leaveRow();
  const std::int32_t page = vbs::toLong(args[0]);
  if (page < 1) fail(AdoError::InvalidArgument, "Recordset");
  Cursor& place = cursor();
  place.makeScrollable();
  if (place.bof() && place.eof()) fail(AdoError::NoCurrentRecord, "Recordset");
  place.moveToPosition(static_cast<std::size_t>(page - 1) * static_cast<std::size_t>(pageSize_) +
                       1);
}

Value Recordset::getAbsolutePosition(Args) {
  const Cursor& place = cursor();
  if (place.eof()) return Value::longInt(kEof);
  if (place.bof()) return Value::longInt(kBof);
  return Value::longInt(static_cast<std::int32_t>(place.position()));
}

void Recordset::putAbsolutePosition(Args args, CallKind) {
  leaveRow();
  const std::int32_t position = vbs::toLong(args[0]);
  if (position < 1) fail(AdoError::InvalidArgument, "Recordset");
  Cursor& place = cursor();
  place.makeScrollable();
  if (place.bof() && place.eof()) fail(AdoError::NoCurrentRecord, "Recordset");
  place.moveToPosition(static_cast<std::size_t>(position));
}

Value Recordset::getBookmark(Args) {
  Cursor& place = cursor();
  place.makeScrollable();
  currentRow();
  return bookmarkOf(place.currentIndex());
}

/// The order in which two rows stand in the store, which no sorting changes.
Value Recordset::callCompareBookmarks(Args args) {
  enum Order : std::int32_t { kLess = 0, kEqual = 1, kGreater = 2 };
  cursor();
  const std::size_t first = indexOf(vbs::plainValue(args[0]));
  const std::size_t second = indexOf(vbs::plainValue(args[1]));
  return Value::longInt(first < second ? kLess : first == second ? kEqual : kGreater);
}

void Recordset::putBookmark(Args args, CallKind) {
  leaveRow();
  Cursor& place = cursor();
  place.makeScrollable();
  if (!place.moveToIndex(indexOf(args[0]))) fail(AdoError::InvalidArgument, "Recordset");
}

/// criteria, rows to skip, direction, start
Value Recordset::callFind(Args args) {
  leaveRow();
  Cursor& place = cursor();
  const Criteria criteria(utf8Of(args[0]), place.store());
  const std::int32_t skipped = arguments::number(args, 1, 0);
  const bool backward = arguments::number(args, 2, 1) < 0;
  if (backward) place.makeScrollable();
  if (isGiven(args, 3)) startAt(args[3]);
  if (place.bof() && place.eof()) return {};
  if (!place.current() && !isGiven(args, 3)) fail(AdoError::NoCurrentRecord, "Recordset");
  if (skipped > 0) place.moveBy(backward ? -skipped : skipped);
  for (;;) {
    const StoredRow* row = place.current();
    if (!row || criteria.holdsFor(*row)) return {};
    place.moveBy(backward ? -1 : 1);
  }
}

Value Recordset::getFilter(Args) {
  return filter_;
}

/// A condition, an array of bookmarks, or one of the numbers: 0 shows all again, 1 those with
/// changes that wait, and the others what has no meaning here.
void Recordset::putFilter(Args args, CallKind) {
  leaveRow();
  cursor();
  Value given = vbs::plainValue(args[0]);
  if (given.isString() && given.asString().empty()) given = Value::longInt(0);
  if (given.isString()) Criteria(utf8Of(given), cursor().store());  // whether it is one
  filter_ = std::move(given);
  arrange();
}

Value Recordset::getSort(Args) {
  return textValue(sort_);
}

void Recordset::putSort(Args args, CallKind) {
  leaveRow();
  const std::string text = utf8Of(args[0]);
  sortKeys(text, cursor().store());
  sort_ = text;
  arrange();
}

void Recordset::arrange() {
  constexpr std::int32_t kFilterPending = 1;
  Cursor& place = cursor();
  place.makeScrollable();
  RowStore& store = place.store();
  const bool all = !filter_.isString() && !filter_.isArray() && vbs::toLong(filter_) == 0;
  if (all && sort_.empty()) return place.setView(std::nullopt);
  std::vector<std::size_t> view;
  if (filter_.isArray()) {
    for (std::size_t i = 0; i < filter_.asArray()->count; ++i) {
      const std::size_t index = indexOf(filter_.asArray()->element(i));
      if (index < store.rows.size()) view.push_back(index);
    }
  } else {
    std::optional<Criteria> criteria;
    if (filter_.isString()) criteria.emplace(utf8Of(filter_), store);
    const bool pending = !all && !criteria && vbs::toLong(filter_) == kFilterPending;
    for (std::size_t i = 0; i < store.rows.size(); ++i) {
      const StoredRow& row = store.rows[i];
      if (row.deleted || (criteria && !criteria->holdsFor(row))) continue;
      if (pending && row.waiting == StoredRow::Change::None) continue;
      view.push_back(i);
    }
  }
  const std::vector<SortKey> keys = sortKeys(sort_, store);
  std::stable_sort(view.begin(), view.end(), [&](std::size_t a, std::size_t b) {
    for (const SortKey& key : keys) {
      const int order =
          compareValues(store.rows[a].values[key.column], store.rows[b].values[key.column]);
      if (order != 0) return key.descending ? order > 0 : order < 0;
    }
    return false;
  });
  place.setView(std::move(view));
}

}  // namespace quorvane::ado
