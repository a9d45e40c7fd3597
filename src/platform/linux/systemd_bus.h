#pragma once

#include <systemd/sd-bus.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quorvane {

struct BusClosed {
  void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};
using BusConnection = std::unique_ptr<sd_bus, BusClosed>;

/// A connection to systemd, or none when there is no systemd here.
BusConnection connectToSystemd();

/// The manager object of systemd: the calls that hosting a service needs. The connection is made
/// when it is first needed and again after it broke. Failures, a lack of rights among them, are
/// false or empty results. Each call blocks until the answer, for a few seconds at most.
class SystemdBus {
 public:
  using Connect = std::function<BusConnection()>;

  explicit SystemdBus(Connect connect = connectToSystemd) : connect_(std::move(connect)) {}

  bool reachable();

  std::vector<std::string> runningServices();    ///< unit names
  std::vector<std::string> installedServices();  ///< unit names

  /// These ask for a job and don't wait until it is done.
  bool startUnit(const std::string& unit);
  bool stopUnit(const std::string& unit);

  bool enable(const std::string& unit);
  bool disable(const std::string& unit);
  bool reload();  ///< makes systemd read its unit files again

 private:
  struct MessageUnref {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
  };
  using Message = std::unique_ptr<sd_bus_message, MessageUnref>;

  Message newCall(const char* member);
  Message send(const Message& call);
  bool unitJob(const char* member, const std::string& unit);

  Connect connect_;
  BusConnection bus_;
};

}  // namespace quorvane
