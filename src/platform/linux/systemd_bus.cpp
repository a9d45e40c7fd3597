#include "platform/linux/systemd_bus.h"

#include <systemd/sd-daemon.h>

#include <string_view>

namespace quorvane {

namespace {

constexpr const char* kDestination = "org.freedesktop.systemd1";
constexpr const char* kManagerPath = "/org/freedesktop/systemd1";
constexpr const char* kManagerInterface = "org.freedesktop.systemd1.Manager";
constexpr std::uint64_t kCallTimeout = 5'000'000;  // microseconds

/// systemd listens for the administrator itself, on systems without a message bus.
constexpr const char* kPrivateAddress = "unix:path=/run/systemd/private";

BusConnection connectDirectly() {
  sd_bus* made = nullptr;
  if (sd_bus_new(&made) < 0) return nullptr;
  BusConnection bus(made);
  if (sd_bus_set_address(made, kPrivateAddress) < 0 || sd_bus_start(made) < 0) return nullptr;
  return bus;
}

std::string baseName(std::string_view path) {
  return std::string(path.substr(path.rfind('/') + 1));
}

/// Appends an array of one text.
bool appendOne(sd_bus_message* message, const char* text) {
  return sd_bus_message_append(message, "as", 1, text) >= 0;
}

}  // namespace

BusConnection connectToSystemd() {
  if (sd_booted() <= 0) return nullptr;
  sd_bus* made = nullptr;
  if (sd_bus_open_system(&made) >= 0) return BusConnection(made);
  return connectDirectly();
}

bool SystemdBus::reachable() {
  if (!bus_) {
    bus_ = connect_();
    if (bus_) sd_bus_set_method_call_timeout(bus_.get(), kCallTimeout);
  }
  return bus_ != nullptr;
}

SystemdBus::Message SystemdBus::newCall(const char* member) {
  if (!reachable()) return nullptr;
  sd_bus_message* call = nullptr;
  if (sd_bus_message_new_method_call(bus_.get(), &call, kDestination, kManagerPath,
                                     kManagerInterface, member) < 0) {
    return nullptr;
  }
  // A bus without systemd on it must not try to start one.
  sd_bus_message_set_auto_start(call, 0);
  return Message(call);
}

SystemdBus::Message SystemdBus::send(const Message& call) {
  if (!call) return nullptr;
  sd_bus_message* answer = nullptr;
  const int result = sd_bus_call(bus_.get(), call.get(), 0, nullptr, &answer);
  if (result >= 0) return Message(answer);
  if (sd_bus_is_open(bus_.get()) <= 0) bus_.reset();
  return nullptr;
}

std::vector<std::string> SystemdBus::runningServices() {
  const Message call = newCall("ListUnitsByPatterns");
  if (!call ||
      sd_bus_message_append(call.get(), "as", 3, "active", "reloading", "deactivating") < 0 ||
      !appendOne(call.get(), "*.service")) {
    return {};
  }
  const Message answer = send(call);
  if (!answer || sd_bus_message_enter_container(answer.get(), 'a', "(ssssssouso)") < 0) return {};
  std::vector<std::string> units;
  while (sd_bus_message_enter_container(answer.get(), 'r', "ssssssouso") > 0) {
    const char* name = nullptr;
    if (sd_bus_message_read(answer.get(), "s", &name) <= 0) break;
    units.emplace_back(name);
    sd_bus_message_skip(answer.get(), "sssssouso");
    sd_bus_message_exit_container(answer.get());
  }
  return units;
}

std::vector<std::string> SystemdBus::installedServices() {
  const Message call = newCall("ListUnitFilesByPatterns");
  if (!call || sd_bus_message_append(call.get(), "as", 0) < 0 ||
      !appendOne(call.get(), "*.service")) {
    return {};
  }
  const Message answer = send(call);
  if (!answer || sd_bus_message_enter_container(answer.get(), 'a', "(ss)") < 0) return {};
  std::vector<std::string> units;
  const char* path = nullptr;
  const char* state = nullptr;
  while (sd_bus_message_read(answer.get(), "(ss)", &path, &state) > 0) {
    // A masked unit is one that the administrator has taken away.
    if (!std::string_view(state).starts_with("masked")) units.push_back(baseName(path));
  }
  return units;
}

bool SystemdBus::unitJob(const char* member, const std::string& unit) {
  const Message call = newCall(member);
  return call && sd_bus_message_append(call.get(), "ss", unit.c_str(), "replace") >= 0 &&
         send(call);
}

bool SystemdBus::startUnit(const std::string& unit) {
  return unitJob("StartUnit", unit);
}
bool SystemdBus::stopUnit(const std::string& unit) {
  return unitJob("StopUnit", unit);
}

bool SystemdBus::enable(const std::string& unit) {
  constexpr int kForThisBootOnly = 0;
  constexpr int kReplaceLinks = 1;
  const Message call = newCall("EnableUnitFiles");
  return call && appendOne(call.get(), unit.c_str()) &&
         sd_bus_message_append(call.get(), "bb", kForThisBootOnly, kReplaceLinks) >= 0 &&
         send(call);
}

bool SystemdBus::disable(const std::string& unit) {
  constexpr int kForThisBootOnly = 0;
  const Message call = newCall("DisableUnitFiles");
  return call && appendOne(call.get(), unit.c_str()) &&
         sd_bus_message_append(call.get(), "b", kForThisBootOnly) >= 0 && send(call);
}

bool SystemdBus::reload() {
  return send(newCall("Reload")) != nullptr;
}

}  // namespace quorvane
