#include "platform/service_host.h"

#include <windows.h>

#include <chrono>
#include <csignal>
#include <thread>
#include <vector>

#include "platform/environment.h"
#include "platform/event_loop.h"
#include "platform/system.h"
#include "platform/windows/event_record.h"
#include "platform/windows/program_file.h"
#include "platform/windows/service_control.h"
#include "platform/windows/service_process.h"
#include "platform/windows/wide_text.h"
#include "support/text.h"

namespace quorvane {

namespace {

using namespace std::chrono_literals;

constexpr auto kStopPatience = 25s;
constexpr auto kStopPoll = 50ms;
constexpr auto kStillEnding = 2s;

constexpr int kStartAutomatically = 2;
constexpr DWORD kRestartDelay = 1000;   ///< milliseconds, after a crash
constexpr DWORD kForgetCrashes = 3600;  ///< seconds without one

constexpr const wchar_t* kDescription =
    L"Serves a folder of files and script pages to browsers by HTTP.";

/// What is not in the manager's own calls: the variables that a service is started with.
void setEnvironment(const std::wstring& service, const std::vector<std::wstring>& variables) {
  const std::wstring key = L"SYSTEM\\CurrentControlSet\\Services\\" + service;
  std::wstring block;
  for (const std::wstring& variable : variables) block.append(variable).push_back(L'\0');
  if (block.empty()) {
    ::RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"Environment");
    return;
  }
  block.push_back(L'\0');
  ::RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"Environment", REG_MULTI_SZ, block.data(),
                    static_cast<DWORD>(block.size() * sizeof(wchar_t)));
}

void describe(SC_HANDLE service) {
  std::wstring text = kDescription;
  SERVICE_DESCRIPTIONW description{text.data()};
  ::ChangeServiceConfig2W(service, SERVICE_CONFIG_DESCRIPTION, &description);
}

void restartAfterCrashes(SC_HANDLE service) {
  SC_ACTION restart{SC_ACTION_RESTART, kRestartDelay};
  SERVICE_FAILURE_ACTIONSW actions{};
  actions.dwResetPeriod = kForgetCrashes;
  actions.cActions = 1;
  actions.lpsaActions = &restart;
  ::ChangeServiceConfig2W(service, SERVICE_CONFIG_FAILURE_ACTIONS, &actions);
}

void stopAndWait(SC_HANDLE service) {
  SERVICE_STATUS status{};
  ::ControlService(service, SERVICE_CONTROL_STOP, &status);
  const auto end = std::chrono::steady_clock::now() + kStopPatience;
  while (::QueryServiceStatus(service, &status) && status.dwCurrentState != SERVICE_STOPPED &&
         std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(kStopPoll);
  }
}

bool removeService(const std::string& name) {
  const ServiceHandle service = openService(name, SERVICE_ALL_ACCESS);
  if (!service) return false;
  stopAndWait(service.get());
  event_record::forgetSource(wideOf(name));
  return ::DeleteService(service.get()) != 0;
}

/// This program as a service of the service control manager. The stop event passes as the signal
/// that asks a program to end, so that what takes long sees it too.
class WindowsServiceHost final : public ServiceHost {
 public:
  explicit WindowsServiceHost(EventLoop& loop)
      : loop_(loop), stillEnding_(loop.makeTimer(kStillEnding, [this] { reportEnding(); })) {}

  bool install() override;
  bool uninstall() override;
  bool startService(std::function<void()> started, std::function<void()> stopped) override;
  void reportReady() override { process_.report(SERVICE_RUNNING); }
  void reportEnding() override;
  void reportStatus(const std::string& sentence) override;

 private:
  std::string suffix() const;
  std::vector<std::string> numberedServices() const;
  ServiceHandle create(const std::wstring& name, const std::wstring& shown) const;
  std::vector<std::wstring> environment() const;

  EventLoop& loop_;
  std::unique_ptr<Timer> stillEnding_;
  ServiceProcess process_;
};

/// What tells the services of several instances apart: the number of this one.
std::string WindowsServiceHost::suffix() const {
  return instances ? ' ' + std::to_string(instanceNumber()) : "";
}

std::vector<std::wstring> WindowsServiceHost::environment() const {
  std::vector<std::wstring> variables;
  if (!environmentText("QUORVANE_REGISTRY").empty()) {
    variables.push_back(L"QUORVANE_REGISTRY=" + wideOf(settingsRoot()));
  }
  if (instances) variables.push_back(L"QUORVANE_INSTANCE=" + std::to_wstring(instanceNumber()));
  return variables;
}

/// One that is there already gets this program and start mode.
ServiceHandle WindowsServiceHost::create(const std::wstring& name,
                                         const std::wstring& shown) const {
  const ServiceHandle manager = openServiceManager(SC_MANAGER_ALL_ACCESS);
  if (!manager) return nullptr;
  const std::wstring command = L'"' + programFile() + L'"';
  const DWORD type = SERVICE_WIN32_OWN_PROCESS | (interactive ? SERVICE_INTERACTIVE_PROCESS : 0);
  const DWORD start = startMode == kStartAutomatically ? SERVICE_AUTO_START : SERVICE_DEMAND_START;
  ServiceHandle service(::CreateServiceW(
      manager.get(), name.c_str(), shown.c_str(), SERVICE_ALL_ACCESS, type, start,
      SERVICE_ERROR_NORMAL, command.c_str(), nullptr, nullptr, nullptr, nullptr, nullptr));
  if (service || ::GetLastError() != ERROR_SERVICE_EXISTS) return service;
  service.reset(::OpenServiceW(manager.get(), name.c_str(), SERVICE_ALL_ACCESS));
  const bool isChanged =
      service &&
      ::ChangeServiceConfigW(service.get(), type, start, SERVICE_ERROR_NORMAL, command.c_str(),
                             nullptr, nullptr, nullptr, nullptr, nullptr, shown.c_str());
  return isChanged ? std::move(service) : nullptr;
}

/// Of several instances each is a service of its own, for the number that this run has.
bool WindowsServiceHost::install() {
  if (instances && instanceNumber() == 0) return false;
  const std::wstring name = wideOf(serviceName + suffix());
  const ServiceHandle service = create(name, wideOf(displayName + suffix()));
  if (!service) return false;
  describe(service.get());
  restartAfterCrashes(service.get());
  setEnvironment(name, environment());
  event_record::registerSource(name, programFile());
  return true;
}

/// Without a number of its own this run takes all the numbered ones away.
bool WindowsServiceHost::uninstall() {
  if (!instances || instanceNumber() != 0) return removeService(serviceName + suffix());
  bool done = true;
  for (const std::string& name : numberedServices()) done = removeService(name) && done;
  return done;
}

std::vector<std::string> WindowsServiceHost::numberedServices() const {
  std::vector<std::string> names = makeServiceManager()->serviceNames(ServiceManager::Scope::All);
  const std::string prefix = lowerCase(serviceName) + ' ';
  std::erase_if(names, [&](const std::string& name) {
    return !lowerCase(name).starts_with(prefix) ||
           name.find_first_not_of("0123456789", prefix.size()) != std::string::npos;
  });
  return names;
}

bool WindowsServiceHost::startService(std::function<void()> started,
                                      std::function<void()> stopped) {
  if (!process_.connect([] { std::raise(SIGTERM); })) return false;
  runAsService(*this, loop_, std::move(started), std::move(stopped));
  return true;
}

/// Until the process ends the manager hears now and then that things go on.
void WindowsServiceHost::reportEnding() {
  process_.report(SERVICE_STOP_PENDING);
  if (process_.isConnected() && !stillEnding_->enabled()) stillEnding_->start();
}

void WindowsServiceHost::reportStatus(const std::string& sentence) {
  if (process_.isConnected()) event_record::note(process_.name(), sentence);
}

}  // namespace

std::unique_ptr<ServiceHost> makeServiceHost(EventLoop& loop, const Files&) {
  return std::make_unique<WindowsServiceHost>(loop);
}

}  // namespace quorvane
