#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/instance_lock.h"
#include "platform/process.h"
#include "platform/random.h"
#include "platform/service_host.h"
#include "platform/settings_storage.h"
#include "platform/terminal.h"
#include "support/files.h"

namespace quorvane {

/// The host system's implementation of each interface; the build picks which. What one of these
/// is given by reference must outlive the result.

std::unique_ptr<Clock> makeClock();
std::unique_ptr<EventLoop> makeEventLoop();
std::unique_ptr<Files> makeFiles();
std::unique_ptr<Random> makeRandom();
std::unique_ptr<Process> makeProcess(int argc, char** argv);

/// The folder, or other name, under which this run's settings are kept, whatever the current folder
/// becomes. Instances that share it are the same program, unless they have numbers of their own.
std::string settingsRoot();
std::unique_ptr<SettingsStorage> makeSettingsStorage(const Files& files, const std::string& root);

/// The number of this instance among several with the same settings; 0: there is one alone.
std::int32_t instanceNumber();
std::unique_ptr<InstanceLock> makeInstanceLock(const std::string& root, std::int32_t number = 0);

std::unique_ptr<ServiceManager> makeServiceManager();
/// A host for this very program, whose settings are those under settingsRoot().
std::unique_ptr<ServiceHost> makeServiceHost(EventLoop& loop, const Files& files);

/// Whether somebody may be watching what goes to standard error.
bool standardErrorIsTerminal();

/// Draws on the terminal that the program's standard input and output are.
std::unique_ptr<Terminal> makeTerminal(EventLoop& loop);

}  // namespace quorvane
