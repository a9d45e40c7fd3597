#include "components/ado/row_store.h"

#include <utility>

#include "support/text.h"
#include "vbscript/values/memory_meter.h"

namespace quorvane::ado {

RowStore::RowStore(std::shared_ptr<Results> results)
    : columns(results->columns()), keys(results->keys()), results_(std::move(results)) {}

RowStore::~RowStore() {
  vbs::runContext.memory.release(charged_);
}

void RowStore::charge(std::size_t bytes) {
  vbs::runContext.memory.charge(bytes);
  charged_ += bytes;
}

StoredRow& RowStore::add(Row values) {
  charge(sizeof(StoredRow) + values.size() * sizeof(vbs::Value) + 2 * sizeof(void*));
  rows.emplace_back();
  rows.back().values = std::move(values);
  return rows.back();
}

bool RowStore::fetch(std::size_t count) {
  bool any = false;
  for (; results_ && count > 0; --count) {
    Row row;
    if (rows.size() + forgotten_ >= most_ || !results_->next(row)) {
      results_.reset();
      break;
    }
    add(std::move(row));
    any = true;
  }
  if (results_ && results_->finished()) results_.reset();
  return any;
}

void RowStore::fetchAll() {
  constexpr std::size_t kBlock = 1000;
  while (!complete()) fetch(kBlock);
}

void RowStore::forgetRows() {
  forgotten_ += rows.size();
  rows.clear();
  vbs::runContext.memory.release(std::exchange(charged_, 0));
}

void RowStore::markDeleted(StoredRow& row) {
  if (!std::exchange(row.deleted, true)) ++deleted_;
}

void RowStore::unmarkDeleted(StoredRow& row) {
  if (std::exchange(row.deleted, false)) --deleted_;
}

std::size_t RowStore::columnOf(std::string_view name) const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (equalsNoCase(columns[i].name, name)) return i;
  }
  const std::size_t dot = name.rfind('.');
  if (dot == name.npos) return columns.size();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (equalsNoCase(columns[i].column, name.substr(dot + 1)) &&
        equalsNoCase(columns[i].table, name.substr(0, dot))) {
      return i;
    }
  }
  return columns.size();
}

}  // namespace quorvane::ado
