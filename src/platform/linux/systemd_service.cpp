#include "platform/linux/systemd_service.h"

#include <systemd/sd-daemon.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "platform/linux/systemd_unit.h"
#include "platform/system.h"

namespace quorvane {

namespace {

using namespace std::chrono_literals;

/// The unit gives the server 20 seconds to stop before it is killed.
constexpr auto kStopPatience = 25s;
constexpr auto kStopPoll = 50ms;

constexpr int kStartAutomatically = 2;

/// The environment passes from a service down to whatever it starts, so the number of the process
/// that systemd has started itself counts too, where it is told.
bool startedBySystemd() {
  const char* socket = std::getenv("NOTIFY_SOCKET");
  if (!socket || !*socket) return false;
  const char* process = std::getenv("SYSTEMD_EXEC_PID");
  return !process || std::to_string(::getpid()) == process;
}

void tell(const std::string& what) {
  if (startedBySystemd()) ::sd_notify(0, what.c_str());
}

}  // namespace

std::vector<std::string> SystemdManager::serviceNames(Scope scope) const {
  std::vector<std::string> names = bus_.runningServices();
  if (scope == Scope::All) {
    const std::vector<std::string> installed = bus_.installedServices();
    names.insert(names.end(), installed.begin(), installed.end());
  }
  std::transform(names.begin(), names.end(), names.begin(),
                 [](const std::string& unit) { return serviceNameOf(unit); });
  return names;
}

std::string SystemdManager::unitOf(const std::string& service) const {
  std::string customary = unitNameOf(service);
  for (const std::string& unit : bus_.installedServices()) {
    if (sameServiceName(unit, customary)) return unit;
  }
  return customary;
}

bool SystemdManager::requestStart(const std::string& service) {
  return bus_.startUnit(unitOf(service));
}

bool SystemdManager::requestStop(const std::string& service) {
  return bus_.stopUnit(unitOf(service));
}

std::string SystemdHost::unitName() const {
  return instances ? std::string(kTemplateName) : unitNameOf(serviceName);
}

std::string SystemdHost::unitFile() const {
  return place_.unitFolder + '/' + unitName();
}

bool SystemdHost::install() {
  const auto text = unitText({displayName, place_.program, place_.settingsRoot, instances});
  if (!text || !bus_.reachable() || !files_.writeAll(unitFile(), *text)) return false;
  const std::string unit = unitName();
  if (instances) return bus_.reload();  // which of them start is for the administrator to say
  const bool enabled = startMode == kStartAutomatically ? bus_.enable(unit) : bus_.disable(unit);
  if (bus_.reload() && enabled) return true;
  files_.remove(unitFile());
  return false;
}

bool SystemdHost::uninstall() {
  if (!bus_.reachable() || !files_.stat(unitFile())) return false;
  const std::string unit = unitName();
  if (!bus_.disable(unit)) return false;
  for (const std::string& one : instances ? runningInstances() : std::vector{unit}) {
    if (bus_.stopUnit(one)) waitUntilStopped(one);
  }
  return files_.remove(unitFile()) && bus_.reload();
}

std::vector<std::string> SystemdHost::runningInstances() {
  std::vector<std::string> running = bus_.runningServices();
  std::erase_if(running,
                [](const std::string& unit) { return !unit.starts_with(kInstancePrefix); });
  return running;
}

void SystemdHost::waitUntilStopped(const std::string& unit) {
  const auto end = std::chrono::steady_clock::now() + kStopPatience;
  while (std::chrono::steady_clock::now() < end) {
    const std::vector<std::string> running = bus_.runningServices();
    if (std::find(running.begin(), running.end(), unit) == running.end()) return;
    std::this_thread::sleep_for(kStopPoll);
  }
}

bool SystemdHost::startService(std::function<void()> started, std::function<void()> stopped) {
  if (!startedBySystemd()) return false;
  runAsService(*this, loop_, std::move(started), std::move(stopped));
  return true;
}

void SystemdHost::reportReady() {
  tell("READY=1");
}

void SystemdHost::reportEnding() {
  tell("STOPPING=1");
}

void SystemdHost::reportStatus(const std::string& sentence) {
  tell("STATUS=" + sentence);
}

std::unique_ptr<ServiceManager> makeServiceManager() {
  return std::make_unique<SystemdManager>(connectToSystemd);
}

std::unique_ptr<ServiceHost> makeServiceHost(EventLoop& loop, const Files& files) {
  std::error_code error;
  ServicePlace place;
  place.unitFolder = "/etc/systemd/system";
  place.program = std::filesystem::read_symlink("/proc/self/exe", error).string();
  place.settingsRoot = settingsRoot();
  return std::make_unique<SystemdHost>(loop, files, std::move(place), connectToSystemd);
}

}  // namespace quorvane
