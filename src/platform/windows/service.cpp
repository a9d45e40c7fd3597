#include "platform/service_host.h"

#include "platform/system.h"

namespace quorvane {

std::unique_ptr<ServiceManager> makeServiceManager() {
  return std::make_unique<NoServiceManager>();
}

std::unique_ptr<ServiceHost> makeServiceHost(EventLoop&, const Files&) {
  return std::make_unique<NoServiceHost>();
}

}  // namespace quorvane
