#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/keyed_collection.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/string.h"

namespace quorvane::customary {

/// What a query, a form or a cookie says: names without regard to letter case, in their order, each
/// with its values as they came.
class NameValues {
 public:
  using Values = std::vector<vbs::String>;

  NameValues() = default;

  /// `name=value` between separators (`&`, of cookies `;`), both decoded: "+" is a blank, "%XX" a
  /// byte of the code page, "%uXXXX" a character; any other "%" is itself.
  static NameValues decoded(std::string_view text, char separator, std::int32_t codePage);

  void add(std::string name, vbs::String value);

  const Values* find(std::string_view name) const { return names_.find(name); }
  std::size_t count() const { return order_.size(); }
  /// Counted from 0; must be there.
  const std::string& name(std::size_t place) const { return order_[place]; }

 private:
  KeyedCollection<Values> names_;
  std::vector<std::string> order_;
  vbs::MemoryCharge charge_{0};
};

/// Undoes the encoding of queries.
vbs::String decodeUrl(std::string_view text, std::int32_t codePage);

}  // namespace quorvane::customary
