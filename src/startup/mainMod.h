#pragma once

#include <string>

#include "console/mainForm.h"
#include "platform/instance_lock.h"
#include "platform/process.h"
#include "platform/service_host.h"
#include "startup/SysInfo.h"
#include "startup/command_line.h"
#include "startup/modService.h"
#include "startup/settings.h"
#include "support/files.h"
#include "support/server_state.h"

namespace quorvane {

/// What start-up works with. Everything outlives it.
struct mainModParts {
  ServerState& state;
  Settings& settings;
  const Process& process;
  const Files& files;
  const Clock& clock;
  EventLoop& loop;
  const SysInfo& system;
  modService& service;
  ServiceHost& nts;
  InstanceLock& instance;
  mainForm& window;
};

/// Start-up: from the command line and the settings it decides what this run of the program is,
/// and does it. Runs once.
class mainMod {
 public:
  enum class Run {
    Over,   ///< a one-shot command, or a second instance
    Lives,  ///< the event loop is to be run
  };

  explicit mainMod(const mainModParts& parts) : parts_(parts), line_(parts.process.commandLine()) {}

  Run Main();

 private:
  bool serviceCommand();
  void findFolders();
  void takeSwitches();
  void installOrUninstall();
  void openLog();
  void writeBanner();
  void runServer();
  bool handOver();

  mainModParts parts_;
  CommandLine line_;
};

}  // namespace quorvane
