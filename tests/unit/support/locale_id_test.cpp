#include "support/locale_id.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

TEST(LocaleId, LanguageAndTerritory) {
  EXPECT_EQ(localeIdOf("en_US.UTF-8"), 1033);
  EXPECT_EQ(localeIdOf("en_GB"), 2057);
  EXPECT_EQ(localeIdOf("de_DE@euro"), 1031);
  EXPECT_EQ(localeIdOf("de_AT.iso88591@euro"), 3079);
  EXPECT_EQ(localeIdOf("pt_PT"), 2070);
  EXPECT_EQ(localeIdOf("pt_BR.UTF-8"), 1046);
  EXPECT_EQ(localeIdOf("fr_FR"), 1036);
}

TEST(LocaleId, LetterCaseAndDashDontMatter) {
  EXPECT_EQ(localeIdOf("PT-br"), 1046);
  EXPECT_EQ(localeIdOf("de-ch"), 2055);
}

TEST(LocaleId, ALanguageAloneStandsForItsMostCommonTerritory) {
  EXPECT_EQ(localeIdOf("de"), 1031);
  EXPECT_EQ(localeIdOf("pt.UTF-8"), 2070);
  EXPECT_EQ(localeIdOf("de_BE"), 1031) << "a territory without a number of its own";
  EXPECT_EQ(localeIdOf("zh"), 2052);
}

TEST(LocaleId, EverythingElseIsEnglish) {
  for (const char* name : {"", "C", "C.UTF-8", "POSIX", "xx_YY", "_", ".", "@", "d", "deutsch"}) {
    EXPECT_EQ(localeIdOf(name), 1033) << name;
  }
}

}  // namespace

}  // namespace quorvane
