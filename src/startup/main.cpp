#include <chrono>
#include <cstdio>
#include <string_view>

#include "automation/system_objects.h"
#include "console/line_printer.h"
#include "console/mainForm.h"
#include "console/terminal_console.h"
#include "console/window_view.h"
#include "platform/allocation.h"
#include "platform/image_library.h"
#include "platform/server_window.h"
#include "platform/standard_streams.h"
#include "platform/system.h"
#include "platform/user_language.h"
#include "startup/Registry.h"
#include "startup/SysInfo.h"
#include "startup/mainMod.h"
#include "startup/modService.h"
#include "startup/start_up.h"
#include "startup/version.h"
#include "support/locale_id.h"
#include "support/server_state.h"

namespace quorvane {

namespace {

void printComplaint(std::string_view text) {
  writeAtOnce(StandardStream::Error, "quorvane-server: " + std::string(text) + '\n');
}

WindowServer serverOf(mainForm& window) {
  WindowServer server;
  server.clickButton = [&window](int button) { window.clickButton(button); };
  server.clickStatusLine = [&window](int line) { window.clickStatusLine(line); };
  server.closeWindow = [&window] { window.closeWindow(); };
  server.running = [&window] { return window.running(); };
  server.uptime = [&window] { return window.uptime(); };
  return server;
}

int run(int argc, char** argv) {
  keepFreeMemory();
  const auto process = makeProcess(argc, argv);
  ServerState state;
  state.AppVersion = kAppVersion;
  const CommandLine line(process->commandLine());
  if (const auto answer = answerAbout(line, VersionText(state))) {
    std::fputs(answer->c_str(), stdout);
    return static_cast<int>(ExitStatus::Done);
  }

  const auto files = makeFiles();
  const auto clock = makeClock();
  const auto random = makeRandom();
  const auto loop = makeEventLoop();
  const std::string root = settingsRoot();
  const auto storage = makeSettingsStorage(*files, root);
  state.Instance = instanceNumber();
  const auto instance = makeInstanceLock(root, state.Instance);
  const auto manager = makeServiceManager();
  const auto nts = makeServiceHost(*loop, *files);

  Registry registry(*storage);
  mainMod settings(registry, state);
  const SysInfo system(*process);
  modService service(*manager, *loop, *clock, system);

  const auto images = makeImageLibrary(*files);
  FormModel form;
  StatusLists status(state, *clock, form);
  const Services services{state,   status,   *clock,       *files,
                          *random, *process, images.get(), storage.get()};
  mainForm window({services, *loop, form, status, settings, localeIdOf(userLanguageName())});
  const auto terminal = makeTerminal(*loop);
  status.onComplaint = printComplaint;
  LinePrinter printer(
      *loop, [](std::string_view bytes) { return writeAtOnce(StandardStream::Output, bytes); });
  const TerminalConsole console(form, status.echo, terminal.get(), *loop, serverOf(window),
                                [&printer](std::string_view text) { printer.print(text); });
  const auto realWindow = makeServerWindow(*loop);
  const WindowView view(form, realWindow.get(), *loop, serverOf(window));
  window.onState = [&nts](const std::string& sentence) { nts->reportStatus(sentence); };
  loop->onTerminationRequest([&window, &nts] {
    nts->reportEnding();
    window.closeWhenDrained();
  });
  loop->onNotice([&window, &console](EventLoop::Notice notice) {
    const bool isOver = notice == EventLoop::Notice::HangUp && console.isDrawn();
    isOver ? window.closeWindow() : window.startNewLog();
  });

  const auto calls = loop->makeTimer(std::chrono::milliseconds{100}, automation::takeCalls);
  if (automation::othersCall()) calls->start();

  StartUp startUp(
      {state, settings, *storage, services, *loop, system, service, *nts, *instance, window});
  if (const auto ended = startUp.run()) return static_cast<int>(*ended);
  loop->run();
  return static_cast<int>(ExitStatus::Done);
}

}  // namespace

}  // namespace quorvane

int main(int argc, char** argv) {
  return quorvane::run(argc, argv);
}
