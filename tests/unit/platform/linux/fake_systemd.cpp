#include "fake_systemd.h"

#include <sys/socket.h>

#include <algorithm>
#include <filesystem>

namespace quorvane {

struct FakeSystemd::Client {
  BusConnection bus;
};

namespace {

std::vector<std::string> readTexts(sd_bus_message* message) {
  std::vector<std::string> texts;
  sd_bus_message_enter_container(message, 'a', "s");
  const char* text = nullptr;
  while (sd_bus_message_read(message, "s", &text) > 0) texts.emplace_back(text);
  sd_bus_message_exit_container(message);
  return texts;
}

bool contains(const std::vector<std::string>& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

bool isService(const std::string& unit) {
  return unit.ends_with(".service");
}

}  // namespace

FakeSystemd::FakeSystemd(std::string unitFolder)
    : unitFolder_(std::move(unitFolder)), thread_([this] { serve(); }) {}

FakeSystemd::~FakeSystemd() {
  over_ = true;
  thread_.join();
}

BusConnection FakeSystemd::connect() {
  int ends[2];
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return nullptr;
  sd_bus* server = nullptr;
  sd_id128_t id{};
  sd_id128_randomize(&id);
  sd_bus_new(&server);
  sd_bus_set_fd(server, ends[0], ends[0]);
  sd_bus_set_server(server, 1, id);
  sd_bus_add_object(server, nullptr, "/org/freedesktop/systemd1", called, this);
  sd_bus_start(server);
  {
    const std::lock_guard lock(mutex_);
    clients_.push_back(std::make_unique<Client>(Client{BusConnection(server)}));
  }
  sd_bus* client = nullptr;
  sd_bus_new(&client);
  sd_bus_set_fd(client, ends[1], ends[1]);
  sd_bus_start(client);
  return BusConnection(client);
}

void FakeSystemd::dropConnections() {
  const std::lock_guard lock(mutex_);
  clients_.clear();
}

void FakeSystemd::serve() {
  while (!over_) {
    {
      const std::lock_guard lock(mutex_);
      for (const auto& client : clients_) {
        while (sd_bus_process(client->bus.get(), nullptr) > 0) {
        }
      }
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  clients_.clear();
}

void FakeSystemd::addUnitFile(const std::string& unit, const std::string& state) {
  const std::lock_guard lock(mutex_);
  files_[unit] = state;
}

void FakeSystemd::setActiveState(const std::string& unit, const std::string& state) {
  const std::lock_guard lock(mutex_);
  active_[unit] = state;
}

std::string FakeSystemd::activeState(const std::string& unit) {
  const std::lock_guard lock(mutex_);
  return active_[unit];
}

std::string FakeSystemd::fileState(const std::string& unit) {
  const std::lock_guard lock(mutex_);
  return files_[unit];
}

std::vector<std::string> FakeSystemd::calls() {
  const std::lock_guard lock(mutex_);
  return calls_;
}

int FakeSystemd::called(sd_bus_message* call, void* self, sd_bus_error* error) {
  return static_cast<FakeSystemd*>(self)->answer(call, error);
}

int FakeSystemd::answer(sd_bus_message* call, sd_bus_error* error) {
  const std::string interface = sd_bus_message_get_interface(call);
  const std::string member = sd_bus_message_get_member(call);
  if (interface != "org.freedesktop.systemd1.Manager" ||
      std::string(sd_bus_message_get_destination(call)) != "org.freedesktop.systemd1") {
    return 0;
  }
  if (member == "ListUnitsByPatterns") return listUnits(call);
  if (member == "ListUnitFilesByPatterns") return listUnitFiles(call);
  if (denies) return sd_bus_error_set(error, SD_BUS_ERROR_ACCESS_DENIED, "not you");
  if (member == "StartUnit" || member == "StopUnit") return unitJob(call, member);
  if (member == "EnableUnitFiles" || member == "DisableUnitFiles") {
    return enableOrDisable(call, member);
  }
  return member == "Reload" ? reload(call) : 0;
}

int FakeSystemd::listUnits(sd_bus_message* call) {
  const std::vector<std::string> states = readTexts(call);
  const std::vector<std::string> patterns = readTexts(call);
  if (!contains(patterns, "*.service")) return -EINVAL;
  sd_bus_message* reply = nullptr;
  sd_bus_message_new_method_return(call, &reply);
  sd_bus_message_open_container(reply, 'a', "(ssssssouso)");
  for (auto& [unit, state] : active_) {
    if (state == "deactivating" && looksUntilStopped-- <= 0) state = "inactive";
    if (!isService(unit) || !contains(states, state)) continue;
    sd_bus_message_append(reply, "(ssssssouso)", unit.c_str(), "A description", "loaded",
                          state.c_str(), "running", "", "/unit", 0U, "", "/");
  }
  sd_bus_message_close_container(reply);
  const int sent = sd_bus_send(nullptr, reply, nullptr);
  sd_bus_message_unref(reply);
  return sent < 0 ? sent : 1;
}

int FakeSystemd::listUnitFiles(sd_bus_message* call) {
  sd_bus_message* reply = nullptr;
  sd_bus_message_new_method_return(call, &reply);
  sd_bus_message_open_container(reply, 'a', "(ss)");
  for (const auto& [unit, state] : files_) {
    if (state.empty()) continue;
    sd_bus_message_append(reply, "(ss)", ("/lib/systemd/system/" + unit).c_str(), state.c_str());
  }
  sd_bus_message_close_container(reply);
  const int sent = sd_bus_send(nullptr, reply, nullptr);
  sd_bus_message_unref(reply);
  return sent < 0 ? sent : 1;
}

int FakeSystemd::unitJob(sd_bus_message* call, const std::string& member) {
  const char* unit = nullptr;
  const char* mode = nullptr;
  if (sd_bus_message_read(call, "ss", &unit, &mode) <= 0) return -EINVAL;
  calls_.push_back(member + ' ' + unit);
  if (files_[unit].empty()) return -ENOENT;
  active_[unit] = member == "StartUnit" ? "active" : "deactivating";
  return sd_bus_reply_method_return(call, "o", "/job/1");
}

int FakeSystemd::enableOrDisable(sd_bus_message* call, const std::string& member) {
  const bool enable = member == "EnableUnitFiles";
  const std::vector<std::string> units = readTexts(call);
  int forThisBootOnly = 1;
  int replace = 1;
  sd_bus_message_read(call, "b", &forThisBootOnly);
  if (enable) sd_bus_message_read(call, "b", &replace);
  if (units.size() != 1 || forThisBootOnly) return -EINVAL;
  calls_.push_back(member + ' ' + units.front());
  const bool known =
      !files_[units.front()].empty() || std::filesystem::exists(unitFolder_ + '/' + units.front());
  if (!known && enable) return -ENOENT;
  if (known) files_[units.front()] = enable ? "enabled" : "disabled";
  return enable ? sd_bus_reply_method_return(call, "ba(sss)", 1, 0)
                : sd_bus_reply_method_return(call, "a(sss)", 0);
}

int FakeSystemd::reload(sd_bus_message* call) {
  calls_.emplace_back("Reload");
  if (!unitFolder_.empty()) {
    for (auto& [unit, state] : files_) {
      if (!std::filesystem::exists(unitFolder_ + '/' + unit)) state.clear();
    }
  }
  return sd_bus_reply_method_return(call, "");
}

}  // namespace quorvane
