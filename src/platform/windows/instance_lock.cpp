#include "platform/instance_lock.h"

#include <algorithm>
#include <string>

#include "platform/system.h"
#include "platform/windows/handle.h"
#include "platform/windows/wide_text.h"
#include "support/text.h"

namespace quorvane {

namespace {

/// A name that all sessions of the machine share; the system gives it back with the process.
class NamedLock final : public InstanceLock {
 public:
  explicit NamedLock(std::wstring name) : name_(std::move(name)) {}

  bool acquire() override {
    if (held_.isOpen()) return true;
    SystemHandle mutex(::CreateMutexW(nullptr, FALSE, name_.c_str()));
    // Another user's may not be opened; its being there is answer enough.
    const DWORD error = ::GetLastError();
    if (error == ERROR_ALREADY_EXISTS || error == ERROR_ACCESS_DENIED) return false;
    held_ = std::move(mutex);
    return true;
  }

 private:
  std::wstring name_;
  SystemHandle held_;
};

}  // namespace

/// A backslash in a name would end the part that says who shares it.
std::unique_ptr<InstanceLock> makeInstanceLock(const std::string& root, std::int32_t number) {
  std::string own = lowerCase(root);
  std::replace(own.begin(), own.end(), '\\', '/');
  if (number != 0) own += '-' + std::to_string(number);
  return std::make_unique<NamedLock>(L"Global\\Quorvane Server " + wideOf(own));
}

}  // namespace quorvane
