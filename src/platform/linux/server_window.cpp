#include "platform/server_window.h"

namespace quorvane {

std::unique_ptr<ServerWindow> makeServerWindow(EventLoop&) {
  return nullptr;
}

}  // namespace quorvane
