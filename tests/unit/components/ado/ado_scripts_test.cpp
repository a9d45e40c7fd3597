#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "ado/news.h"
#include "components/script_host.h"
#include "language_case.h"
#include "language_host.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_process.h"
#include "platform/fake/fake_random.h"
#include "platform/services.h"
#include "platform/system.h"
#include "support/server_state.h"
#include "testing/recorded_lines.h"
#include "testing/temporary_folder.h"
#include "vbscript/engine.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

/// Scripts see the system's own files, from a folder of this test alone on.
struct Outside {
  Outside() {
    state.Components = ComponentSource::Own;
    state.ScriptFolders = folder.path();
    process.current = folder.path();
  }

  TemporaryFolder folder;
  ServerState state;
  RecordedLines log;
  FakeClock clock;
  std::unique_ptr<Files> files = makeFiles();
  CountingRandom random;
  FakeProcess process;
  Services services{state, log, clock, *files, random, process};
};

/// The time that a script takes is real.
class RealTimeHost final : public ScriptHost {
 public:
  using ScriptHost::ScriptHost;
  std::chrono::steady_clock::time_point steadyNow() override {
    return std::chrono::steady_clock::now();
  }
};

std::string readFile(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<fs::path> scriptFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(ADO_SCRIPTS)) {
    if (entry.path().extension() == ".vbs") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

class AdoScripts : public testing::TestWithParam<fs::path> {};

TEST_P(AdoScripts, BehaveAsWritten) {
  const auto cases = parseLanguageCases(readFile(GetParam()));
  ASSERT_FALSE(cases.empty());
  for (const LanguageCase& test : cases) {
    SCOPED_TRACE(GetParam().filename().string() + ": " + test.name);
    EXPECT_FALSE(test.output.empty()) << "the case checks nothing";
    Outside outside;
    RealTimeHost host(outside.services);
    vbs::ProgramCache cache;
    const std::int64_t before = vbs::runContext.memory.used;
    const auto output = vbs::make<TestOutput>();
    {
      vbs::Engine engine(host, cache);
      engine.addObject("Test", *output, true);
      ASSERT_FALSE(engine.run(kPrelude));
      ASSERT_FALSE(engine.run(kNews));
      for (const auto& part : test.parts) {
        const auto error = engine.run(part.source);
        EXPECT_FALSE(error) << "line " << error->line << ": " << error->description;
      }
    }
    std::string expected;
    for (const std::string& line : test.output) expected += line + '\n';
    EXPECT_EQ(output->text(), expected);
    EXPECT_LT(vbs::runContext.memory.used - before, 4096) << "something is left behind";
  }
}

INSTANTIATE_TEST_SUITE_P(Files, AdoScripts, testing::ValuesIn(scriptFiles()),
                         [](const testing::TestParamInfo<fs::path>& file) {
                           return file.param.stem().string();
                         });

std::string errorOf(std::string_view source, const vbs::Limits& limits) {
  Outside outside;
  RealTimeHost host(outside.services);
  vbs::ProgramCache cache;
  vbs::Engine engine(host, cache, limits);
  EXPECT_FALSE(engine.run(kNews));
  const auto error = engine.run(source);
  return error ? std::to_string(error->number) : "none";
}

constexpr std::string_view kManyRows =
    "Db.Execute \"INSERT INTO news (title) SELECT a.title FROM news a, news b, news c, news d, \" "
    "& _\n  \"news e, news f, news g\"\n";

TEST(AdoLimits, RowsCountTowardTheMemory) {
  vbs::Limits limits;
  limits.memoryBytes = 300'000;
  const std::string read =
      std::string(kManyRows) +
      "Set rs = CreateObject(\"ADODB.Recordset\")\nrs.Open \"SELECT * FROM news\", Db, 3, 1\n";
  EXPECT_EQ(errorOf(read, limits), "7");
  EXPECT_EQ(errorOf(read, {}), "none");
}

TEST(AdoLimits, AStatementEndsWithTheScriptsTime) {
  vbs::Limits limits;
  limits.time = std::chrono::milliseconds(200);
  const std::string endless =
      std::string(kManyRows) +
      "n = Db.Execute(\"SELECT COUNT(*) FROM news a, news b, news c, news d "
      "WHERE a.hits + b.hits + c.hits + d.hits = -1\")(0)\n";
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(errorOf(endless, limits), "113");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST(AdoLimits, FilesOutsideOfTheFoldersAreDenied) {
  EXPECT_EQ(errorOf("Set c = CreateObject(\"ADODB.Connection\")\n"
                    "c.Open \"Driver=SQLite3;Database=../elsewhere.db\"\n",
                    {}),
            "70");
  EXPECT_EQ(errorOf("Set cat = CreateObject(\"ADOX.Catalog\")\n"
                    "cat.Create \"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=/etc/x.mdb\"\n",
                    {}),
            "70");
}

}  // namespace

}  // namespace quorvane
