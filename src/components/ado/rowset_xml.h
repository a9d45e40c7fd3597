#pragma once

#include <memory>
#include <string>
#include <vector>

#include "components/ado/row_store.h"

namespace quorvane::xml {
class Tree;
}

/// Rows as XML in the customary form: a schema of the columns, and an element a row with its
/// values for attributes; what waits for UpdateBatch is told apart.
namespace quorvane::ado {

/// In UTF-8, without a declaration. `rows` are of the store.
std::string rowsetXml(const RowStore& store, const std::vector<const StoredRow*>& rows,
                      bool updatable);

/// The rows that such a document holds; null when it is none.
std::shared_ptr<RowStore> rowsetOf(const xml::Tree& tree);

}  // namespace quorvane::ado
