#pragma once

#include <functional>
#include <string>

namespace quorvane {

/// What the server's window, however it is drawn, asks the server and tells it.
struct WindowServer {
  std::function<void(int button)> clickButton;
  std::function<void(int line)> clickStatusLine;
  std::function<void()> closeWindow;
  std::function<bool()> running;
  std::function<std::string()> uptime;
};

}  // namespace quorvane
