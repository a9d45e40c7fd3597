#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>

namespace quorvane {

/// A handle of the service control manager's, closed with its owner.
struct ServiceHandleCloser {
  void operator()(SC_HANDLE handle) const { ::CloseServiceHandle(handle); }
};
using ServiceHandle = std::unique_ptr<std::remove_pointer_t<SC_HANDLE>, ServiceHandleCloser>;

/// Null when the user may not have such access.
ServiceHandle openServiceManager(DWORD access);

/// Null when there is no such service, or the user may not have such access.
ServiceHandle openService(const std::string& name, DWORD access);

}  // namespace quorvane
