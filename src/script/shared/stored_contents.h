#pragma once

#include <string>

#include "components/shared_values.h"
#include "script/shared/value_bytes.h"

namespace quorvane {

/// Behind values of a session that stands in the shared store: takes none that it can't keep. What
/// the page changes is written back as a whole when the page ends.
class StoredContents : public SharedValues::Backing {
 public:
  void prepare(SharedValues&) override {}
  void put(const vbs::Value&, const vbs::Value& value) override {
    std::string unused;
    value_bytes::append(unused, value);
  }
  void remove(const vbs::Value&) override {}
  void clear() override {}
};

}  // namespace quorvane
