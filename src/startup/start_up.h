#pragma once

#include <optional>

#include "console/mainForm.h"
#include "platform/instance_lock.h"
#include "platform/process.h"
#include "platform/service_host.h"
#include "platform/settings_storage.h"
#include "startup/SysInfo.h"
#include "startup/command_line.h"
#include "startup/exit_status.h"
#include "startup/mainMod.h"
#include "startup/modService.h"
#include "support/files.h"
#include "support/server_state.h"

namespace quorvane {

/// What start-up works with. Everything outlives it.
struct StartUpParts {
  ServerState& state;
  mainMod& settings;
  const SettingsStorage& storage;  ///< of the settings
  const Services& services;
  EventLoop& loop;
  const SysInfo& system;
  modService& service;
  ServiceHost& nts;
  InstanceLock& instance;
  mainForm& window;
};

/// Start-up: from the command line and the settings it decides what this run of the program is,
/// and does it. Runs once.
class StartUp {
 public:
  explicit StartUp(const StartUpParts& parts)
      : parts_(parts), line_(parts.services.process.commandLine()) {}

  /// How the program ends at once, after a one-shot command or as a second instance; nothing when
  /// the event loop is to be run.
  std::optional<ExitStatus> run();

 private:
  bool serviceCommand();
  void findFolders();
  std::string developerFolder() const;
  void takeSwitches();
  ExitStatus installOrUninstall();
  void openLog();
  void writeBanner();
  void tellUntakenSettings();
  void runServer();
  bool handOver();

  StartUpParts parts_;
  CommandLine line_;
};

}  // namespace quorvane
