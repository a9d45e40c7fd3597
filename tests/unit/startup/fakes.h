#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/fake/fake_process.h"
#include "platform/instance_lock.h"
#include "platform/service_host.h"

namespace quorvane {

class FakeServiceManager final : public ServiceManager {
 public:
  std::vector<std::string> serviceNames(Scope scope) const override {
    ++asked;
    if (onAsk) onAsk();
    return scope == Scope::Active ? active : all;
  }
  bool requestStart(const std::string& service) override {
    requests.push_back("start " + service);
    if (obeys) active.push_back(service);
    return accepts;
  }
  bool requestStop(const std::string& service) override {
    requests.push_back("stop " + service);
    if (obeys) std::erase(active, service);
    return accepts;
  }

  std::vector<std::string> active;
  std::vector<std::string> all;
  std::vector<std::string> requests;
  std::function<void()> onAsk;
  bool obeys = true;
  bool accepts = true;
  mutable int asked = 0;
};

class FakeServiceHost final : public ServiceHost {
 public:
  bool install() override {
    calls += "install ";
    return obeys;
  }
  bool uninstall() override {
    calls += "uninstall ";
    return obeys;
  }
  bool startService(std::function<void()> onStart, std::function<void()> onStop) override {
    calls += "startService ";
    started = std::move(onStart);
    stopped = std::move(onStop);
    return isThere;
  }
  void reportReady() override { reports.emplace_back("ready"); }
  void reportEnding() override { reports.emplace_back("ending"); }
  void reportStatus(const std::string& sentence) override { reports.push_back(sentence); }

  std::string calls;
  std::vector<std::string> reports;
  std::function<void()> started;
  std::function<void()> stopped;
  bool isThere = true;
  bool obeys = true;
};

class FakeInstanceLock final : public InstanceLock {
 public:
  bool acquire() override {
    ++asked;
    return isFree;
  }
  bool isFree = true;
  int asked = 0;
};

}  // namespace quorvane
