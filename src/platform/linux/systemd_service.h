#pragma once

#include <string>
#include <vector>

#include "platform/event_loop.h"
#include "platform/linux/systemd_bus.h"
#include "platform/service_host.h"
#include "support/files.h"

namespace quorvane {

/// systemd as the service manager.
class SystemdManager final : public ServiceManager {
 public:
  explicit SystemdManager(SystemdBus::Connect connect) : bus_(std::move(connect)) {}

  std::vector<std::string> serviceNames(Scope scope) const override;
  bool requestStart(const std::string& service) override;
  bool requestStop(const std::string& service) override;

 private:
  std::string unitOf(const std::string& service) const;

  mutable SystemdBus bus_;  ///< connects when first asked
};

/// Where an installed service has its parts.
struct ServicePlace {
  std::string unitFolder;    ///< for the administrator's unit files, no separator at its end
  std::string program;       ///< absolute path
  std::string settingsRoot;  ///< absolute path
};

/// This program as a service of systemd: a unit file of its own, readiness told through the
/// notification socket, and the termination signal as the stop event. `loop` and `files` outlive
/// the host.
class SystemdHost final : public ServiceHost {
 public:
  SystemdHost(EventLoop& loop, const Files& files, ServicePlace place, SystemdBus::Connect connect)
      : loop_(loop), files_(files), place_(std::move(place)), bus_(std::move(connect)) {}

  bool install() override;
  /// Waits, for as long as the unit may take to stop, until the service is down.
  bool uninstall() override;
  bool startService(std::function<void()> started, std::function<void()> stopped) override;
  void reportReady() override;
  void reportEnding() override;
  void reportStatus(const std::string& sentence) override;

 private:
  std::string unitName() const;
  std::string unitFile() const;
  std::vector<std::string> runningInstances();
  void waitUntilStopped(const std::string& unit);

  EventLoop& loop_;
  const Files& files_;
  ServicePlace place_;
  SystemdBus bus_;
};

}  // namespace quorvane
