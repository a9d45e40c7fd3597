#include <iostream>

#include "platform/datagram_exchange.h"
#include "platform/system.h"
#include "startup/untaken_settings.h"
#include "tools/qvsctl.h"

namespace quorvane {

namespace {

std::vector<std::string> checkSettings() {
  const auto files = makeFiles();
  return untakenSettings(*makeSettingsStorage(*files, settingsRoot()));
}

int run(int argc, char** argv) {
  return static_cast<int>(runControlTool({argv + 1, argv + argc}, exchangeDatagrams, checkSettings,
                                         std::cout, std::cerr));
}

}  // namespace

}  // namespace quorvane

int main(int argc, char** argv) {
  return quorvane::run(argc, argv);
}
