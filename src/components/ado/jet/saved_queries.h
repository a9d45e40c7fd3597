#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quorvane::ado::jet {

/// A row of the table that holds saved queries in pieces.
struct QueryPart {
  int attribute = 0;  ///< which piece it is
  int flag = 0;
  std::string expression;
  std::string name;
  std::string other;
};

struct SavedQuery {
  std::uint32_t id = 0;
  std::string name;
  std::vector<QueryPart> parts;
};

/// The query as Jet's SQL spells it. Nothing for one that does not just select (or asks for
/// parameters).
std::optional<std::string> selectText(const SavedQuery& query);

}  // namespace quorvane::ado::jet
