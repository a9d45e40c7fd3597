#pragma once

#include <gtest/gtest.h>

#include <string>

namespace quorvane {

/// A contract's tests run once for each kind of thing that is to keep it; the kind names itself.
struct KindNames {
  template <typename Kind>
  static std::string GetName(int) {
    return Kind::kName;
  }
};

}  // namespace quorvane
