#pragma once

#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/service_host.h"
#include "startup/SysInfo.h"

namespace quorvane {

/// The program's own service, as its service manager sees it. Every failure is silent; on systems
/// without services nothing is installed and nothing happens.
class modService {
 public:
  static constexpr const char* kServiceName = "Quorvane Server";

  /// All outlive this object.
  modService(ServiceManager& manager, EventLoop& loop, const Clock& clock, const SysInfo& system)
      : manager_(manager), loop_(loop), clock_(clock), system_(system) {}

  struct Status {
    bool installed = false;
    bool running = false;
  };
  Status status() const;

  /// Starts an installed service that is down and waits a few seconds for it. True when it runs
  /// afterwards.
  bool start();

  /// True when it does not run afterwards; at once when it is not installed.
  bool stop();

 private:
  bool lists(ServiceManager::Scope scope) const;
  Status waitUntil(bool running);

  ServiceManager& manager_;
  EventLoop& loop_;
  const Clock& clock_;
  const SysInfo& system_;
};

}  // namespace quorvane
