#include "startup/start_up.h"

#include <memory>

#include "startup/untaken_settings.h"
#include "support/clsLog.h"
#include "support/paths.h"

namespace quorvane {

namespace {

constexpr std::size_t kRuleLength = 73;
constexpr const char* kCredits = "A small, fast HTTP/1.1 server with script pages";
constexpr int kAutomaticStart = 2;

std::string places(const ServerState& state) {
  if (state.Listen.empty()) return std::to_string(state.ServerPort);
  std::string all;
  for (const ListenAddress& where : state.Listen) all += (all.empty() ? "" : ", ") + where.text();
  return all;
}

std::string encodings(const ServerState& state) {
  std::string words;
  if (state.EncodeDynamic) words += "dynamic ";
  if (state.EncodeImages) words += "images ";
  if (state.EncodeStatic) words += "static ";
  return words.empty() ? "none" : words;
}

}  // namespace

std::optional<ExitStatus> StartUp::run() {
  parts_.settings.LoadSettings();
  parts_.state.IsWinNT = parts_.system.isNT();
  if (serviceCommand()) return ExitStatus::Done;
  findFolders();
  takeSwitches();
  if (parts_.state.InstallRequested || parts_.state.UninstallRequested) {
    return installOrUninstall();
  }
  if (!parts_.state.IsWinNT && parts_.state.RunAsService) {
    parts_.settings.SaveServerSetting("RunAsService", "0");
    parts_.state.RunAsService = false;
  }
  if (!parts_.instance.acquire()) return ExitStatus::AlreadyRunning;
  openLog();
  writeBanner();
  tellUntakenSettings();
  runServer();
  return std::nullopt;
}

/// "/start" and "/stop" end the program whether there was something to do or not.
bool StartUp::serviceCommand() {
  const modService::Status status = parts_.service.status();
  if (line_.has("/start")) {
    if (status.installed && !status.running) parts_.service.start();
    return true;
  }
  if (line_.has("/stop")) {
    if (status.installed && status.running) parts_.service.stop();
    return true;
  }
  return false;
}

void StartUp::findFolders() {
  ServerState& state = parts_.state;
  state.DevMode = line_.has("/devmode");
  state.MainPath = paths::withSeparator(state.DevMode ? developerFolder()
                                                      : parts_.services.process.programFolder());
  const std::string server = state.MainPath + "Server" + paths::kSeparator;
  state.CacheFolder = server + "Cache";
  state.ScriptsFolder = server + "Scripts";
  state.LogsFolder = server + "Logs";
  // One level each: a tree without its "Server" folder is left as it is.
  for (std::string* folder : {&state.LogsFolder, &state.CacheFolder}) {
    parts_.services.files.makeFolder(*folder);
    if (state.Instance == 0) continue;
    *folder += paths::kSeparator + std::to_string(state.Instance);
    parts_.services.files.makeFolder(*folder);
  }
}

/// Made absolute, since pages change the current folder. Without any the separator stands for it.
std::string StartUp::developerFolder() const {
  const std::string folder = parts_.settings.developerFolder();
  return folder.empty() ? folder : paths::absolute(folder, parts_.services.process.currentFolder());
}

void StartUp::takeSwitches() {
  ServerState& state = parts_.state;
  state.NoQvm = line_.has("/noqvm");
  state.DebugMode = line_.has("/debug");
  state.IdleStart = line_.has("/idle");
  state.LogHeaders = line_.has("/logheaders");
  state.InstallRequested = line_.has("/install");
  state.UninstallRequested = line_.has("/uninstall");
}

ExitStatus StartUp::installOrUninstall() {
  if (!parts_.state.IsWinNT) return ExitStatus::NotDone;
  if (!parts_.system.IsUserAdmin(true)) return ExitStatus::NoRights;
  bool done = false;
  parts_.window.load();
  parts_.nts.displayName = modService::kServiceName;
  parts_.nts.serviceName = modService::kServiceName;
  parts_.nts.instances = line_.has("/instances");
  if (parts_.state.InstallRequested) {
    parts_.settings.SaveServerSetting("RunAsService", "1");
    parts_.nts.startMode = kAutomaticStart;
    parts_.nts.interactive = 0;
    done = parts_.nts.install();
  } else {
    parts_.settings.SaveServerSetting("RunAsService", "0");
    done = parts_.nts.uninstall();
  }
  parts_.loop.runPending(std::chrono::milliseconds(0), nullptr);
  parts_.window.closeWindow();
  return done ? ExitStatus::Done : ExitStatus::NotDone;
}

void StartUp::openLog() {
  ServerState& state = parts_.state;
  state.ServerLog = std::make_unique<clsLog>(
      parts_.services.files, [&clock = parts_.services.clock] { return clock.local(clock.now()); });
  state.ServerLog->setOutputFolder(state.LogsFolder);
}

void StartUp::writeBanner() {
  const ServerState& state = parts_.state;
  StatusLines& status = parts_.window.status();
  const std::string rule(kRuleLength, '#');
  status.LogLine(rule);
  status.LogLine("Quorvane Server " + state.AppVersion);
  status.LogLine(kCredits);
  status.LogLine(rule);
  if (!line_.text().empty()) status.LogLine("Running Arguments: " + line_.text());
  status.LogLine("Port:\t" + places(state));
  status.LogLine("Home:\t" + state.ScriptsFolder);
  status.LogLine("Logs:\t" + state.LogsFolder);
  status.LogLine("Cache:\t" + state.CacheFolder);
  status.LogLine("Encoding: " + encodings(state));
  status.LogLine(std::string("Access Control: ") +
                 (state.LocalAddrControl ? "Local Addresses Only" : "Unrestricted"));
  status.LogLine(std::string("Resource Mode: ") + (state.NoQvm ? "File Reader" : "QVM"));
  status.LogLine("");
}

void StartUp::tellUntakenSettings() {
  for (const std::string& line : untakenSettings(parts_.storage)) {
    parts_.window.status().LogLine(line);
  }
}

void StartUp::runServer() {
  parts_.window.load();
  if (parts_.state.DebugMode) {
    parts_.window.form().visible = true;
    parts_.window.form().changed();
  }
  if (parts_.state.RunAsService && !parts_.state.DebugMode && handOver()) return;
  if (parts_.state.IdleStart) {
    parts_.nts.reportStatus("Waiting to be started");
  } else {
    parts_.window.StartServer();
  }
  parts_.nts.reportReady();
}

/// False when no service manager has started this process; it then serves like any program.
bool StartUp::handOver() {
  return parts_.nts.startService([&window = parts_.window] { window.serviceStarted(); },
                                 [&window = parts_.window] { window.serviceStopped(); });
}

}  // namespace quorvane
