#include <iostream>

#include "components/ado/jet/import.h"
#include "platform/datagram_exchange.h"
#include "platform/services.h"
#include "platform/system.h"
#include "startup/Registry.h"
#include "startup/mainMod.h"
#include "startup/setting_rules.h"
#include "startup/untaken_settings.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/status_lines.h"
#include "tools/qvsctl.h"

namespace quorvane {

namespace {

std::vector<std::string> checkSettings() {
  const auto files = makeFiles();
  return untakenSettings(*makeSettingsStorage(*files, settingsRoot()));
}

class PrintedLines final : public StatusLines {
 public:
  void LogLine(std::string_view text) override { std::cout << text << '\n' << std::flush; }
};

bool importFile(const std::string& path) {
  const auto files = makeFiles();
  const auto storage = makeSettingsStorage(*files, settingsRoot());
  const Registry registry(*storage);
  ServerState state;
  for (const SettingRule& rule : settingRules()) {
    const std::string name(rule.name);
    rule.take(state, registry.GetRegString(RegistryRoot::LocalMachine, mainMod::kServerKey, name));
  }
  PrintedLines lines;
  const auto clock = makeClock();
  const auto random = makeRandom();
  const auto process = makeProcess(0, nullptr);
  const Services services{state, lines, *clock, *files, *random, *process};
  return ado::jet::importFile(services, paths::absolute(path, process->currentFolder())).empty();
}

int run(int argc, char** argv) {
  const AskServer ask = exchangeDatagrams;
  const CheckSettings check = checkSettings;
  const ImportFile import = importFile;
  return static_cast<int>(
      runControlTool({argv + 1, argv + argc}, {ask, check, import, std::cout, std::cerr}));
}

}  // namespace

}  // namespace quorvane

int main(int argc, char** argv) {
  return quorvane::run(argc, argv);
}
