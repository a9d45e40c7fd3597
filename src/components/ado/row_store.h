#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "components/ado/driver.h"

namespace quorvane::ado {

struct StoredRow {
  enum class Change : std::uint8_t { None, New, Changed, Deleted };

  Row values;    ///< of the columns, then the keys
  Row original;  ///< as the database has them, while a change waits; empty otherwise
  Change waiting = Change::None;  ///< for UpdateBatch
  bool deleted = false;
};

/// The rows of a result, read from the database as they are wanted. Recordsets that are clones
/// share one. What it holds is charged to the script's memory.
class RowStore {
 public:
  std::vector<Column> columns;
  std::vector<KeyPlace> keys;
  std::vector<StoredRow> rows;

  RowStore() = default;
  explicit RowStore(std::shared_ptr<Results> results);
  ~RowStore();
  RowStore(const RowStore&) = delete;
  RowStore& operator=(const RowStore&) = delete;

  /// Reads up to `count` rows more; false when there were none.
  bool fetch(std::size_t count);
  void fetchAll();
  bool complete() const { return !results_; }
  /// Gives up the rows that are held; those to come count on from there.
  void forgetRows();
  std::size_t forgotten() const { return forgotten_; }
  void limitRows(std::size_t most) { most_ = most; }

  StoredRow& add(Row values);
  std::size_t deletedCount() const { return deleted_; }
  void markDeleted(StoredRow& row);
  void unmarkDeleted(StoredRow& row);

  /// Where a name stands among the columns, without regard to letter case; also "table.column".
  /// columns.size() when it doesn't.
  std::size_t columnOf(std::string_view name) const;

 private:
  void charge(std::size_t bytes);

  std::shared_ptr<Results> results_;  ///< null when all is read
  std::size_t forgotten_ = 0;
  std::size_t deleted_ = 0;
  std::size_t charged_ = 0;
  std::size_t most_ = SIZE_MAX;
};

}  // namespace quorvane::ado
