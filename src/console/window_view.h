#pragma once

#include <array>
#include <functional>

#include "console/form_model.h"
#include "console/frames.h"
#include "console/list_changes.h"
#include "console/window_server.h"
#include "platform/event_loop.h"
#include "platform/server_window.h"

namespace quorvane {

/// The server's window as the system has them: it shows the form, hidden until the form is
/// visible. Where there can't be one, who watched the form before does so again. Form, window and
/// loop outlive it.
class WindowView final : private ServerWindowEvents {
 public:
  /// Without a window it does nothing.
  WindowView(FormModel& form, ServerWindow* window, EventLoop& loop, WindowServer server);
  ~WindowView() override;
  WindowView(const WindowView&) = delete;
  WindowView& operator=(const WindowView&) = delete;

 private:
  void buttonClicked(int button) override { server_.clickButton(button); }
  void lineClicked(int list, std::size_t number) override;
  void closeAsked() override { server_.closeWindow(); }

  void formChanged();
  bool paint();
  void collect();

  FormModel& form_;
  ServerWindow* window_;
  WindowServer server_;
  std::function<void()> before_;  ///< told of changes of the form until now
  Frames frames_;
  bool open_ = false;
  std::array<ListChanges, 3> changes_{ListChanges(false), ListChanges(true), ListChanges(true)};
};

}  // namespace quorvane
