#include "platform/windows/service_process.h"

#include <array>
#include <utility>

namespace quorvane {

namespace {

ServiceProcess* thisService = nullptr;

/// How long the manager waits for the next word while something is under way.
constexpr DWORD kPatience = 10'000;

bool isPending(DWORD state) {
  return state == SERVICE_START_PENDING || state == SERVICE_STOP_PENDING;
}

bool isEnding(DWORD state) {
  return state == SERVICE_STOP_PENDING || state == SERVICE_STOPPED;
}

}  // namespace

ServiceProcess::~ServiceProcess() {
  if (connected_) report(SERVICE_STOPPED);
  if (dispatcher_.joinable()) dispatcher_.join();
  thisService = nullptr;
}

bool ServiceProcess::connect(std::function<void()> stopAsked) {
  if (dispatcher_.joinable()) return connected_;
  thisService = this;
  stopAsked_ = std::move(stopAsked);
  dispatcher_ = std::thread([this] { dispatch(); });
  connected_ = entered_.get_future().get();
  return connected_;
}

/// Returns when the service has stopped, or at once with an error where no manager waits for this
/// process. The name counts only where one process has several services.
void ServiceProcess::dispatch() {
  std::array<wchar_t, 1> anyName{};
  const std::array table{SERVICE_TABLE_ENTRYW{anyName.data(), &ServiceProcess::serviceMain},
                         SERVICE_TABLE_ENTRYW{nullptr, nullptr}};
  if (!::StartServiceCtrlDispatcherW(table.data())) entered_.set_value(false);
}

/// The service's name comes first among its arguments.
void ServiceProcess::serviceMain(DWORD count, wchar_t** arguments) {
  thisService->enter(count > 0 ? arguments[0] : L"");
}

void ServiceProcess::enter(std::wstring name) {
  name_ = std::move(name);
  {
    const std::lock_guard lock(mutex_);
    handle_ = ::RegisterServiceCtrlHandlerExW(name_.c_str(), &ServiceProcess::control, this);
    status_.dwServiceType = SERVICE_WIN32_OWN_PROCESS;
  }
  report(SERVICE_START_PENDING);
  entered_.set_value(handle_ != nullptr);
}

void ServiceProcess::report(DWORD state) {
  const std::lock_guard lock(mutex_);
  if (!handle_ || (isEnding(status_.dwCurrentState) && !isEnding(state))) return;
  status_.dwCurrentState = state;
  status_.dwControlsAccepted =
      state == SERVICE_RUNNING ? SERVICE_ACCEPT_STOP | SERVICE_ACCEPT_SHUTDOWN : 0;
  status_.dwCheckPoint = isPending(state) ? status_.dwCheckPoint + 1 : 0;
  status_.dwWaitHint = isPending(state) ? kPatience : 0;
  ::SetServiceStatus(handle_, &status_);
}

DWORD ServiceProcess::control(DWORD code, DWORD, void*, void* self) {
  auto& service = *static_cast<ServiceProcess*>(self);
  switch (code) {
    case SERVICE_CONTROL_STOP:
    case SERVICE_CONTROL_SHUTDOWN:
      service.report(SERVICE_STOP_PENDING);
      service.stopAsked_();
      return NO_ERROR;
    case SERVICE_CONTROL_INTERROGATE:
      return NO_ERROR;
    default:
      return ERROR_CALL_NOT_IMPLEMENTED;
  }
}

}  // namespace quorvane
