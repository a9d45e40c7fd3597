#include "platform/fold_case.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

TEST(FoldCase, CoversAccentedLettersAndLeavesTheRest) {
  EXPECT_EQ(foldCase("Index.QVS"), "index.qvs");
  EXPECT_EQ(foldCase("\xC3\x84\xC3\x96.TXT"), "\xC3\xA4\xC3\xB6.txt");
  EXPECT_EQ(foldCase("\xC3\x97\xC3\x9F"), "\xC3\x97\xC3\x9F") << "no letters with a capital";
  EXPECT_EQ(foldCase("\xE2\x82\x80"), "\xE2\x82\x80");
}

}  // namespace

}  // namespace quorvane
