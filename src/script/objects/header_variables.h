#pragma once

#include <cstddef>
#include <string_view>

#include "http/request_head.h"
#include "support/keyed_collection.h"

namespace quorvane {

/// The header lines of a request by name, in their order; of lines with the same name the first
/// counts. A line whose value starts with the session cookie's name is left out, so that pages
/// never see the session's number.
class HeaderVariables {
 public:
  using Line = RequestHead::Header;

  /// The lines last as long as the text of `head` does.
  explicit HeaderVariables(const RequestHead& head);

  std::size_t count() const { return lines_.size(); }
  const Line* at(std::size_t position) const;  ///< counting from 1; null outside
  const Line* named(std::string_view name) const { return lines_.find(name); }

  KeyedCollection<Line>::ConstIterator begin() const { return lines_.begin(); }
  KeyedCollection<Line>::ConstIterator end() const { return lines_.end(); }

 private:
  KeyedCollection<Line> lines_;
};

}  // namespace quorvane
