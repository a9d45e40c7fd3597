#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "components/ado/row_store.h"

namespace quorvane::ado {

/// The condition of Filter and Find: comparisons of columns with constants, joined by AND and OR.
class Criteria {
 public:
  /// Error 3001 for what is no condition, 3265 for a column that is not there.
  Criteria(std::string_view text, const RowStore& store);

  bool holdsFor(const StoredRow& row) const { return test_(row); }

 private:
  std::function<bool(const StoredRow&)> test_;
};

/// What Sort names: columns with ASC or DESC.
struct SortKey {
  std::size_t column = 0;
  bool descending = false;
};
std::vector<SortKey> sortKeys(std::string_view text, const RowStore& store);

/// Order of two values of a column: Null first, texts without regard to letter case.
int compareValues(const vbs::Value& a, const vbs::Value& b);

}  // namespace quorvane::ado
