#pragma once

#include <windows.h>

#include <array>

#include "platform/windows/window_style.h"

namespace quorvane {

/// Where the controls of the server's window stand: the second and third list side by side above
/// the first one, below them the text, and the buttons in the lower right corner.
struct WindowLayout {
  std::array<RECT, 3> labels{};
  std::array<RECT, 3> lists{};
  RECT text{};
  std::array<RECT, 2> buttons{};
};

struct WindowLayoutWishes {
  SIZE room;
  std::array<int, 2> buttonWidths;  ///< of their captions
};

WindowLayout layoutFor(const WindowLayoutWishes& wishes, const WindowStyle& style);

/// The least room in which everything can be seen.
SIZE leastRoom(const WindowStyle& style);

}  // namespace quorvane
