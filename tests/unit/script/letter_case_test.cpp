#include <gtest/gtest.h>

#include "support/text.h"
#include "vbscript/values/text_case.h"

namespace quorvane {

namespace {

/// The engine stands on its own and so has a table of letter case beside the server's; a page's
/// names are compared by either.
TEST(LetterCase, IsTheSameInTheServerAndInTheEngine) {
  for (int code = 0; code < 256; ++code) {
    const char c = static_cast<char>(code);
    EXPECT_EQ(lowerChar(c), vbs::lowerAnsi(c)) << code;
    EXPECT_EQ(upperChar(c), vbs::upperAnsi(c)) << code;
  }
}

}  // namespace

}  // namespace quorvane
