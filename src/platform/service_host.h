#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quorvane {

/// The system's service manager, as far as the program asks it about its own service.
class ServiceManager {
 public:
  virtual ~ServiceManager() = default;

  enum class Scope { Active, All };
  /// The names of the services; empty when the manager can't be asked.
  virtual std::vector<std::string> serviceNames(Scope scope) const = 0;

  /// Asks for the change and does not wait for it. False when it could not even be asked for.
  virtual bool requestStart(const std::string& service) = 0;
  virtual bool requestStop(const std::string& service) = 0;
};

class EventLoop;

/// The side of the program that the service manager talks to.
class ServiceHost {
 public:
  virtual ~ServiceHost() = default;

  std::string serviceName;
  std::string displayName;
  int startMode = 3;  ///< 2: automatic, 3: on demand
  int interactive = 0;
  bool instances = false;  ///< install() and uninstall() are about numbered ones

  virtual bool install() = 0;
  virtual bool uninstall() = 0;

  /// Hands the process over: `started` and `stopped` run as events on the event loop when the
  /// manager says so, and the manager is told. False when there is no service manager above this
  /// process.
  virtual bool startService(std::function<void()> started, std::function<void()> stopped) = 0;

  /// What the manager above this process, if there is one, is told: that the process is up, that it
  /// is about to end, and in a sentence what it is doing.
  virtual void reportReady() = 0;
  virtual void reportEnding() = 0;
  virtual void reportStatus(const std::string& sentence) = 0;
};

/// What startService() does once there is a manager above this process.
void runAsService(ServiceHost& host, EventLoop& loop, std::function<void()> started,
                  std::function<void()> stopped);

/// Where there is no service manager: nothing is installed, nothing happens.
class NoServiceManager final : public ServiceManager {
 public:
  std::vector<std::string> serviceNames(Scope) const override { return {}; }
  bool requestStart(const std::string&) override { return false; }
  bool requestStop(const std::string&) override { return false; }
};

class NoServiceHost final : public ServiceHost {
 public:
  bool install() override { return false; }
  bool uninstall() override { return false; }
  bool startService(std::function<void()>, std::function<void()>) override { return false; }
  void reportReady() override {}
  void reportEnding() override {}
  void reportStatus(const std::string&) override {}
};

}  // namespace quorvane
