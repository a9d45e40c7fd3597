// All scripts that test components run once more, with their objects watched: so it comes out which
// members there are and that each of them has been used, and docs/components.md can be held against
// them.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "ado/news.h"
#include "components/components.h"
#include "language_case.h"
#include "language_host.h"
#include "members/canned_server.h"
#include "members/component_list.h"
#include "members/members_host.h"
#include "testing/component_host.h"
#include "testing/spelling.h"
#include "vbscript/engine.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

std::string readFile(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<fs::path> scriptsIn(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() == ".vbs") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

/// Where the system has its own, it is not ours to test.
bool hasMail() {
  const auto names = componentNames();
  return std::find(names.begin(), names.end(), "cdo.message") != names.end();
}

/// What a case writes. `onEnd` is told each part of it and the error that it ends with.
template <class OnEnd>
std::string outputOf(const LanguageCase& test, vbs::Host& host, const std::string& before,
                     OnEnd onEnd) {
  vbs::ProgramCache cache;
  const auto output = vbs::make<TestOutput>();
  {
    vbs::Engine engine(host, cache, kCaseLimits);
    engine.addObject("Test", *output, true);
    EXPECT_FALSE(engine.run(kPrelude));
    EXPECT_FALSE(engine.run(before));
    for (const LanguageCase::Part& part : test.parts) onEnd(part, engine.run(part.source));
  }
  return output->text();
}

/// Of a case that is tested elsewhere.
void runCase(const LanguageCase& test, vbs::Host& host, const std::string& before) {
  outputOf(test, host, before, [](auto&&...) {});
}

void checkCase(const LanguageCase& test, vbs::Host& host, const std::string& before) {
  const auto checkEnd = [](const LanguageCase::Part& part,
                           const std::optional<vbs::ErrorReport>& error) {
    EXPECT_EQ(error ? error->number : 0, part.error ? part.error->number : 0)
        << "line "
        << (error        ? error->line
            : part.error ? part.error->line
                         : 0)
        << ": " << (error ? error->description : "");
  };
  std::string expected;
  for (const std::string& line : test.output) expected += line + '\n';
  EXPECT_EQ(outputOf(test, host, before, checkEnd), expected);
}

/// Programs that succeed, fail, and write what they read if it is the right thing.
const std::string kPrograms = kDrive.empty()
                                  ? "Succeeds = \"true\": Fails = \"false\": Copies = \"cat\"\n"
                                  : "Succeeds = \"cmd /c exit 0\": Fails = \"cmd /c exit 1\": "
                                    "Copies = \"find \"\"there\"\"\"\n";

/// Runs the scripts.
class Members {
 public:
  void runAll() {
    createAll();
    const fs::path language = LANGUAGE_TESTS;
    const fs::path components = COMPONENT_TESTS;
    for (const fs::path& file : scriptsIn(language / "components")) runOnFakes(file);
    runOnFakes(language / "library/dictionary.vbs");
    for (const fs::path& file : scriptsIn(components / "ado")) {
      runOutside(file, std::string(kNews), runCase);
    }
    const CannedServer server;
    const std::string outside =
        "Site = \"http://127.0.0.1:" + std::to_string(server.port()) + "/\"\n" + kPrograms;
    for (const fs::path& file : scriptsIn(components / "members")) {
      runOutside(file, outside, checkCase);
    }
  }

  WatchedObjects book;

 private:
  template <class Run>
  void eachCase(const fs::path& file, Run run) {
    if (file.filename() == "mail.vbs" && !hasMail()) return;
    for (const LanguageCase& test : parseLanguageCases(readFile(file))) {
      SCOPED_TRACE(file.filename().string() + ": " + test.name);
      run(test);
    }
  }
  void runOnFakes(const fs::path& file) {
    eachCase(file, [&](const LanguageCase& test) {
      Watching<ComponentHost> host(book);
      runCase(test, host, "");
    });
  }
  void runOutside(const fs::path& file, const std::string& before, decltype(runCase)& run) {
    eachCase(file, [&](const LanguageCase& test) {
      MembersHost host(book);
      run(test, host.host(), before);
    });
  }

  void createAll() {
    MembersHost outside(book);
    for (const std::string_view name : componentNames()) outside.host().createObject(name);
  }
};

/// What the scripts have used. They run when it is first asked for.
const WatchedObjects& used() {
  static const std::unique_ptr<Members> members = [] {
    auto run = std::make_unique<Members>();
    run->runAll();
    return run;
  }();
  return members->book;
}

TEST(MembersOfComponents, AreAllCalled) {
  for (const auto& [name, kind] : namedKinds(used())) {
    for (const vbs::MemberUse& member : kind->members) {
      EXPECT_TRUE(kind->used.contains(member.name))
          << "no script of the tests uses " << name << '.' << member.name;
    }
  }
}

TEST(MembersOfComponents, AreListed) {
  std::vector<std::string> complaints;
  const fs::path documents = DOCUMENTS;
  const std::string list =
      componentList(parseNotes(readFile(documents / "components.notes")), used(), complaints);
  for (const std::string& complaint : complaints) ADD_FAILURE() << complaint;
  if (std::getenv("QUORVANE_WRITE_COMPONENTS")) {
    std::ofstream(documents / "components.md", std::ios::binary) << list;
  }
  EXPECT_TRUE(readFile(documents / "components.md") == list)
      << "docs/components.md is out of date: tools/component_list writes it";
}

TEST(MembersOfComponents, OthersAreError438) {
  WatchedObjects book;
  MembersHost outside(book);
  for (const std::string_view name : componentNames()) {
    if (name == "mswc.browsertype") continue;  // every name may be one of its members
    SCOPED_TRACE(name);
    vbs::ProgramCache cache;
    for (const char* const use : {"x = o.NoSuchMember", "o.NoSuchMember = 1", "o.NoSuchMember 1"}) {
      vbs::Engine engine(outside.host(), cache);
      const auto error =
          engine.run("Set o = CreateObject(\"" + std::string(name) + "\")\n" + use + "\n");
      ASSERT_TRUE(error) << use;
      EXPECT_EQ(error->number, 438) << use;
    }
  }
}

}  // namespace

}  // namespace quorvane
