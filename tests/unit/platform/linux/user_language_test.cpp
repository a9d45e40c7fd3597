#include "platform/user_language.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <map>
#include <string>

namespace quorvane {

namespace {

/// Clears the variables that decide and puts them back.
class LocaleTest : public testing::Test {
 protected:
  LocaleTest() {
    for (const char* name : kNames) {
      if (const char* value = std::getenv(name)) before_[name] = value;
      unsetenv(name);
    }
  }
  ~LocaleTest() override {
    for (const char* name : kNames) unsetenv(name);
    for (const auto& [name, value] : before_) setenv(name.c_str(), value.c_str(), 1);
  }

 private:
  static constexpr std::array kNames = {"LC_ALL", "LC_MESSAGES", "LANG"};
  std::map<std::string, std::string> before_;
};

TEST_F(LocaleTest, TheFirstVariableThatIsNotEmptyDecides) {
  EXPECT_EQ(userLanguageName(), "");
  setenv("LANG", "de_DE.UTF-8", 1);
  EXPECT_EQ(userLanguageName(), "de_DE.UTF-8");
  setenv("LC_MESSAGES", "pt_BR", 1);
  EXPECT_EQ(userLanguageName(), "pt_BR");
  setenv("LC_ALL", "", 1);
  EXPECT_EQ(userLanguageName(), "pt_BR");
  setenv("LC_ALL", "C", 1);
  EXPECT_EQ(userLanguageName(), "C");
}

}  // namespace

}  // namespace quorvane
