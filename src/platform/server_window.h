#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/event_loop.h"

namespace quorvane {

/// A window of the system's own, as far as the server needs one: three lists of lines with a label
/// each, a text that can be read but not changed, two buttons. Lists and buttons are counted from
/// 0. It draws, scrolls, copies and is moved about by itself, whatever the server does meanwhile.

struct ServerWindowTexts {
  struct Part {
    std::string caption;
    std::string toolTip;
    friend bool operator==(const Part&, const Part&) = default;
  };
  std::string title;
  std::array<Part, 3> lists;
  std::array<Part, 2> buttons;
  std::string textToolTip;
  std::string copy;     ///< what a list's menu offers for the chosen lines
  std::string copyAll;  ///< and for all of them
  friend bool operator==(const ServerWindowTexts&, const ServerWindowTexts&) = default;
};

/// What has become of a list's lines: some went from the front, then some came at the end.
struct ServerWindowLines {
  std::size_t dropped = 0;
  std::vector<std::string> added;
};

/// How the window is to look after this; the lines add to those it has.
struct ServerWindowPicture {
  bool visible = false;
  ServerWindowTexts texts;
  std::string text;
  std::array<ServerWindowLines, 3> lists;
};

/// What a window tells its owner, who outlives it. All events come from the event loop's one
/// thread.
class ServerWindowEvents {
 public:
  virtual ~ServerWindowEvents() = default;
  virtual void buttonClicked(int button) = 0;
  /// Lines are numbered by their order of coming, those that have gone since included.
  virtual void lineClicked(int list, std::size_t number) = 0;
  virtual void closeAsked() = 0;
};

class ServerWindow {
 public:
  virtual ~ServerWindow() = default;

  /// Makes the window, hidden, and the events begin. False when there can't be one. A list that
  /// follows shows its newest line unless the user looks at others.
  virtual bool open(ServerWindowEvents& events, std::array<bool, 3> follows) = 0;
  virtual void close() = 0;

  /// Whether it has taken in what it was last given to show; it is given nothing else before.
  virtual bool isReady() const = 0;
  virtual void show(ServerWindowPicture picture) = 0;
};

/// Null where the server's window is drawn on a terminal.
std::unique_ptr<ServerWindow> makeServerWindow(EventLoop& loop);

}  // namespace quorvane
