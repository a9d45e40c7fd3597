#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "mutations.h"
#include "script_targets.h"

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kSeed = 20240229;
constexpr int kParses = 20'000;
constexpr int kRuns = 20'000;

std::vector<std::string> filesUnder(const fs::path& folder) {
  std::vector<fs::path> paths;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file() && entry.path().extension() == ".vbs") {
      paths.push_back(entry.path());
    }
  }
  std::sort(paths.begin(), paths.end());
  std::vector<std::string> texts;
  for (const fs::path& path : paths) {
    std::ifstream stream(path, std::ios::binary);
    texts.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
  }
  return texts;
}

/// The cases of the language tests, each a small script.
std::vector<std::string> corpus() {
  std::vector<std::string> cases;
  for (const std::string& file : filesUnder(LANGUAGE_TESTS)) {
    for (std::size_t at = file.find("'==="); at != file.npos;) {
      const std::size_t next = file.find("'===", at + 1);
      cases.push_back(file.substr(at, next - at));
      at = next;
    }
  }
  return cases;
}

TEST(Fuzz, ParserTakesChangedScripts) {
  Mutations mutations(corpus(), kSeed);
  for (int i = 0; i < kParses; ++i) fuzzParse(mutations.next());
}

TEST(Fuzz, ParserTakesEveryBeginningOfAScript) {
  for (const std::string& script : corpus()) {
    for (std::size_t end = 0; end < script.size(); end += 7) {
      fuzzParse(std::string_view(script).substr(0, end));
    }
  }
}

TEST(Fuzz, EngineRunsChangedScripts) {
  Mutations mutations(corpus(), kSeed);
  for (int i = 0; i < kRuns; ++i) fuzzRun(mutations.next());
}

TEST(Fuzz, WhatOnceWentWrong) {
  for (const std::string& script : filesUnder(CRASHES)) {
    fuzzParse(script);
    fuzzRun(script);
  }
}

}  // namespace
