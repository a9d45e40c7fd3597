#pragma once

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/systemd_bus.h"

namespace quorvane {

/// The manager object of systemd, as far as the program uses it, served over socket pairs by a
/// thread of its own. Each connect() makes a connection; unit files are those added here and those
/// that stand in the unit folder when Reload is called.
class FakeSystemd {
 public:
  explicit FakeSystemd(std::string unitFolder = {});
  FakeSystemd(const FakeSystemd&) = delete;
  FakeSystemd& operator=(const FakeSystemd&) = delete;
  ~FakeSystemd();

  BusConnection connect();
  SystemdBus::Connect connector() {
    return [this] { return connect(); };
  }
  void dropConnections();

  void addUnitFile(const std::string& unit, const std::string& state = "disabled");
  void setActiveState(const std::string& unit, const std::string& state);
  std::string activeState(const std::string& unit);
  std::string fileState(const std::string& unit);  ///< empty: no such file

  /// Every call that changes something, in order: "StartUnit quorvane-server.service", ...
  std::vector<std::string> calls();

  /// Answers every call that changes something with "access denied".
  std::atomic<bool> denies{false};
  /// A unit told to stop stays "deactivating" for so many more looks at the list.
  std::atomic<int> looksUntilStopped{0};

 private:
  struct Client;

  static int called(sd_bus_message* call, void* self, sd_bus_error* error);
  int answer(sd_bus_message* call, sd_bus_error* error);
  int listUnits(sd_bus_message* call);
  int listUnitFiles(sd_bus_message* call);
  int unitJob(sd_bus_message* call, const std::string& member);
  int enableOrDisable(sd_bus_message* call, const std::string& member);
  int reload(sd_bus_message* call);
  void serve();

  std::string unitFolder_;
  std::mutex mutex_;
  std::map<std::string, std::string> files_;   // unit, state of its file
  std::map<std::string, std::string> active_;  // unit, active state
  std::vector<std::string> calls_;
  std::vector<std::unique_ptr<Client>> clients_;
  std::atomic<bool> over_{false};
  std::thread thread_;
};

}  // namespace quorvane
