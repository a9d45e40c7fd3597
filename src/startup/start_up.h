#pragma once

#include <string>

#include "console/mainForm.h"
#include "platform/instance_lock.h"
#include "platform/process.h"
#include "platform/service_host.h"
#include "startup/SysInfo.h"
#include "startup/command_line.h"
#include "startup/mainMod.h"
#include "startup/modService.h"
#include "support/files.h"
#include "support/server_state.h"

namespace quorvane {

/// What start-up works with. Everything outlives it.
struct StartUpParts {
  ServerState& state;
  mainMod& settings;
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
class StartUp {
 public:
  enum class Run {
    Over,   ///< a one-shot command, or a second instance
    Lives,  ///< the event loop is to be run
  };

  explicit StartUp(const StartUpParts& parts) : parts_(parts), line_(parts.process.commandLine()) {}

  Run run();

 private:
  bool serviceCommand();
  void findFolders();
  void takeSwitches();
  void installOrUninstall();
  void openLog();
  void writeBanner();
  void runServer();
  bool handOver();

  StartUpParts parts_;
  CommandLine line_;
};

}  // namespace quorvane
