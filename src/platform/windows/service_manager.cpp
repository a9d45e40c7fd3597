#include <cstddef>
#include <vector>

#include "platform/service_host.h"
#include "platform/system.h"
#include "platform/windows/service_control.h"

namespace quorvane {

namespace {

DWORD stateOf(ServiceManager::Scope scope) {
  return scope == ServiceManager::Scope::Active ? SERVICE_ACTIVE : SERVICE_STATE_ALL;
}

class WindowsServiceManager final : public ServiceManager {
 public:
  /// Asks first for the room that the list takes. What is added between the two questions is left
  /// out.
  std::vector<std::string> serviceNames(Scope scope) const override {
    const ServiceHandle manager = openServiceManager(SC_MANAGER_ENUMERATE_SERVICE);
    DWORD room = 0;
    DWORD count = 0;
    DWORD next = 0;
    if (!manager || ::EnumServicesStatusA(manager.get(), SERVICE_WIN32, stateOf(scope), nullptr, 0,
                                          &room, &count, &next)) {
      return {};
    }
    if (::GetLastError() != ERROR_MORE_DATA) return {};
    std::vector<ENUM_SERVICE_STATUSA> services(room / sizeof(ENUM_SERVICE_STATUSA) + 1);
    const auto bytes = static_cast<DWORD>(services.size() * sizeof(ENUM_SERVICE_STATUSA));
    next = 0;
    if (!::EnumServicesStatusA(manager.get(), SERVICE_WIN32, stateOf(scope), services.data(), bytes,
                               &room, &count, &next) &&
        ::GetLastError() != ERROR_MORE_DATA) {
      return {};
    }
    services.resize(count);
    std::vector<std::string> names;
    names.reserve(count);
    for (const ENUM_SERVICE_STATUSA& service : services) names.emplace_back(service.lpServiceName);
    return names;
  }

  bool requestStart(const std::string& service) override {
    const ServiceHandle handle = openService(service, SERVICE_ALL_ACCESS);
    return handle && ::StartServiceW(handle.get(), 0, nullptr);
  }

  bool requestStop(const std::string& service) override {
    const ServiceHandle handle = openService(service, SERVICE_ALL_ACCESS);
    SERVICE_STATUS status{};
    return handle && ::ControlService(handle.get(), SERVICE_CONTROL_STOP, &status);
  }
};

}  // namespace

ServiceHandle openServiceManager(DWORD access) {
  return ServiceHandle(::OpenSCManagerA(nullptr, SERVICES_ACTIVE_DATABASEA, access));
}

ServiceHandle openService(const std::string& name, DWORD access) {
  const ServiceHandle manager = openServiceManager(SC_MANAGER_ALL_ACCESS);
  if (!manager) return nullptr;
  return ServiceHandle(::OpenServiceA(manager.get(), name.c_str(), access));
}

std::unique_ptr<ServiceManager> makeServiceManager() {
  return std::make_unique<WindowsServiceManager>();
}

}  // namespace quorvane
