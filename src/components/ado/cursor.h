#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "components/ado/row_store.h"

namespace quorvane::ado {

/// A place among the rows of a store: before the first, at one, or behind the last.
class Cursor {
 public:
  Cursor() = default;
  /// `forwardOnly`: rows that lie behind the place are given up.
  Cursor(std::shared_ptr<RowStore> store, bool forwardOnly);

  RowStore& store() const { return *store_; }
  const std::shared_ptr<RowStore>& shared() const { return store_; }
  bool forwardOnly() const { return forwardOnly_; }
  /// Reads all rows, so that the place may go anywhere.
  void makeScrollable();

  /// A row that was deleted is a place like others until it is left.
  bool bof() const { return at_ < 0 || (isEmpty() && !isDeleted(at_)); }
  bool eof() const { return (at_ >= 0 && !exists(at_)) || (isEmpty() && !isDeleted(at_)); }
  /// Null when there is no current row, or it is deleted.
  StoredRow* current() const;
  std::size_t currentIndex() const { return indexOf(at_); }  ///< in the store, with a current row

  void moveFirst();
  void moveLast();
  void moveBy(std::int64_t count);  ///< stops before the first and behind the last
  bool canGoBack() const { return !forwardOnly_ || store_->forgotten() == 0; }

  /// Rows that can be reached; all are read for it.
  std::size_t count() const;
  std::size_t position() const;               ///< from 1
  void moveToPosition(std::size_t position);  ///< behind the last when there are fewer

  bool moveToIndex(std::size_t index);  ///< false when the row is not in view
  void moveToEnd() { at_ = total(); }

  /// The rows that stay in view, in which order; nothing: all as they were read.
  void setView(std::optional<std::vector<std::size_t>> view);
  void showAdded(std::size_t index);  ///< a row that has come to stand in the store
  std::size_t rowsInView() const { return static_cast<std::size_t>(total()); }
  StoredRow* rowAt(std::size_t place) const { return row(static_cast<std::int64_t>(place)); }

 private:
  bool isEmpty() const;
  bool exists(std::int64_t at) const;
  std::int64_t total() const;
  std::size_t indexOf(std::int64_t at) const;
  StoredRow* row(std::int64_t at) const;
  bool isDeleted(std::int64_t at) const;

  std::shared_ptr<RowStore> store_;
  std::optional<std::vector<std::size_t>> view_;
  std::int64_t at_ = 0;
  bool forwardOnly_ = false;
};

}  // namespace quorvane::ado
