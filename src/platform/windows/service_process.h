#pragma once

#include <windows.h>

#include <functional>
#include <future>
#include <mutex>
#include <string>
#include <thread>

namespace quorvane {

/// This process as the service control manager sees it. The manager's calls come on threads of
/// their own. There is one at most in a process, for the manager's entry into it is given nothing
/// by which to find another.
class ServiceProcess {
 public:
  ServiceProcess() = default;
  ServiceProcess(const ServiceProcess&) = delete;
  ServiceProcess& operator=(const ServiceProcess&) = delete;
  /// The manager learns that the service has stopped.
  ~ServiceProcess();

  /// Waits until it is known whether the manager has started this process. From then on
  /// `stopAsked` runs, on another thread, whenever the manager wants the service to end.
  bool connect(std::function<void()> stopAsked);
  bool isConnected() const { return connected_; }
  const std::wstring& name() const { return name_; }  ///< of the service, once connected

  /// One of the system's SERVICE_RUNNING, SERVICE_STOP_PENDING and so on; said again of one that
  /// is pending, it tells that things go on. Never goes back from ending to running.
  void report(DWORD state);

 private:
  static void WINAPI serviceMain(DWORD count, wchar_t** arguments);
  static DWORD WINAPI control(DWORD code, DWORD event, void* data, void* self);
  void dispatch();
  void enter(std::wstring name);

  std::function<void()> stopAsked_;
  std::promise<bool> entered_;
  std::thread dispatcher_;
  bool connected_ = false;
  std::wstring name_;

  std::mutex mutex_;  ///< of what follows
  SERVICE_STATUS_HANDLE handle_ = nullptr;
  SERVICE_STATUS status_{};
};

}  // namespace quorvane
