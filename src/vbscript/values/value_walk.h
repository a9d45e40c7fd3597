#pragma once

#include <cstddef>
#include <utility>

#include "vbscript/values/object.h"

namespace quorvane::vbs {

/// Walks the elements of a vector as it was when the loop began: what most collections need,
/// because a loop's body may change the collection.
class ValueWalk final : public Enumerator {
 public:
  explicit ValueWalk(Value vector) : vector_(std::move(vector)) {}
  explicit ValueWalk(std::vector<Value> values)
      : vector_(Value::array(ArrayRep::fromValues(std::move(values)))) {}

  bool next(Value& item) override {
    if (at_ == vector_.asArray()->count) return false;
    item = vector_.asArray()->elements[at_++];
    return true;
  }

 private:
  Value vector_;
  std::size_t at_ = 0;
};

}  // namespace quorvane::vbs
