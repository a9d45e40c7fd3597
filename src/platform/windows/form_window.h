#pragma once

#include <windows.h>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/server_window.h"
#include "platform/windows/list_control.h"
#include "platform/windows/window_style.h"

namespace quorvane {

/// What the user and the system do to the window. The calls come on the window's thread.
struct FormWindowEvents {
  std::function<void(int button)> buttonClicked;
  std::function<void(int list, std::size_t number)> lineClicked;
  std::function<void()> closeAsked;
  std::function<void()> sessionEnds;  ///< what is to be saved is saved when it returns
  std::function<void()> woken;        ///< by wake()
};

/// The server's window with its controls. Made, used and destroyed on one thread, which runs its
/// messages; only wake() and end() may be called from others.
class FormWindow {
 public:
  FormWindow(FormWindowEvents events, std::array<bool, 3> follows);
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  bool create();  ///< hidden
  void run();     ///< the messages, until end()
  void show(ServerWindowPicture picture);

  void wake() const { ::PostMessageW(window_, kWake, 0, 0); }
  void end() const { ::PostMessageW(window_, kEnd, 0, 0); }

 private:
  static constexpr UINT kWake = WM_APP;
  static constexpr UINT kEnd = WM_APP + 1;

  /// The controls' identifiers, by which they can be told apart from outside as well.
  static constexpr int kFirstList = 100;
  static constexpr int kFirstLabel = 110;
  static constexpr int kFirstButton = 120;
  static constexpr int kText = 130;

  static LRESULT CALLBACK handle(HWND window, UINT message, WPARAM w, LPARAM l);
  std::optional<LRESULT> answer(UINT message, WPARAM w, LPARAM l);
  bool createControls();
  HWND child(const wchar_t* kind, DWORD style, int identifier) const;
  void command(int identifier, int notice) const;
  void restyle(std::unique_ptr<WindowStyle> style);
  void moveTo(const RECT& area) const;
  void arrange() const;
  void boundSize(MINMAXINFO& sizes) const;
  LRESULT defaultButton() const;
  void keepFocus(bool active);

  void putTexts(const ServerWindowTexts& texts);
  void putToolTip(HWND control, const std::string& text) const;

  FormWindowEvents events_;
  std::unique_ptr<WindowStyle> style_;
  HWND window_ = nullptr;
  HWND toolTips_ = nullptr;
  HWND focus_ = nullptr;  ///< of the controls, while another window is the active one
  std::array<HWND, 3> Label1_{};
  std::array<ListControl, 3> llist_;
  HWND dbgText_ = nullptr;
  std::array<HWND, 2> btt_{};
  ServerWindowTexts texts_;
  std::string text_;
};

}  // namespace quorvane
