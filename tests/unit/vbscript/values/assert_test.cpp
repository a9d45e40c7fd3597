#include "vbscript/values/assert.h"

#include <gtest/gtest.h>

namespace quorvane {

TEST(Assert, SaysWhatDoesNotHold) {
  const int registers = 3;
  VBS_ASSERT(registers == 3);
#ifndef NDEBUG
  EXPECT_DEATH(VBS_ASSERT(registers < 3), "assert_test.cpp:[0-9]+: does not hold: registers < 3");
#endif
}

}  // namespace quorvane
