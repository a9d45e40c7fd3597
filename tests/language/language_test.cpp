#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "language_case.h"
#include "language_host.h"
#include "testing/component_host.h"
#include "vbscript/engine.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> scriptFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(LANGUAGE_TESTS)) {
    if (entry.path().extension() == ".vbs") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string readFile(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::string expectedText(const LanguageCase& test) {
  std::string text;
  for (const std::string& line : test.output) text += line + '\n';
  return text;
}

void checkError(const LanguageCase::Part& test, const std::optional<vbs::ErrorReport>& error) {
  if (!test.error) {
    if (error) {
      ADD_FAILURE() << "line " << error->line << ": " << error->number << ' ' << error->description;
    }
    return;
  }
  ASSERT_TRUE(error) << "no error, expected " << test.error->number;
  EXPECT_EQ(error->number, test.error->number) << error->description;
  EXPECT_EQ(error->line, test.error->line) << error->description;
  if (!test.error->text.empty()) {
    EXPECT_EQ(error->description, test.error->text);
  }
}

void runCase(const LanguageCase& test) {
  ComponentHost host;
  static vbs::ProgramCache cache;
  const auto output = vbs::make<TestOutput>();
  {
    vbs::Engine engine(host, cache, kCaseLimits);
    engine.addObject("Test", *output, true);
    ASSERT_FALSE(engine.run(kPrelude));
    for (const LanguageCase::Part& part : test.parts) checkError(part, engine.run(part.source));
  }
  EXPECT_EQ(output->text(), expectedText(test));
}

bool checksNothing(const LanguageCase& test) {
  return test.output.empty() && !test.parts.front().error;
}

class Language : public testing::TestWithParam<fs::path> {};

TEST_P(Language, BehavesAsWritten) {
  const auto cases = parseLanguageCases(readFile(GetParam()));
  ASSERT_FALSE(cases.empty());
  for (const LanguageCase& test : cases) {
    SCOPED_TRACE(GetParam().filename().string() + ": " + test.name);
    EXPECT_FALSE(checksNothing(test)) << "the case checks nothing";
    runCase(test);
  }
}

std::string testName(const testing::TestParamInfo<fs::path>& info) {
  std::string name = fs::relative(info.param, LANGUAGE_TESTS).replace_extension().string();
  std::replace_if(
      name.begin(), name.end(), [](char c) { return !std::isalnum(c); }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Files, Language, testing::ValuesIn(scriptFiles()), testName);

}  // namespace

}  // namespace quorvane
