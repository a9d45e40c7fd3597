#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "platform/server_window.h"
#include "platform/windows/window_style.h"

namespace quorvane {

/// A list of lines of which the user may choose several, and copy them by Ctrl+C or by the menu of
/// the right mouse button. Used on the window's thread.
class ListControl {
 public:
  /// One that follows shows its newest line unless the user looks at others.
  explicit ListControl(bool follows) : follows_(follows), isFollowing_(follows) {}
  ListControl(const ListControl&) = delete;
  ListControl& operator=(const ListControl&) = delete;

  /// The window owns the control.
  bool create(HWND parent, int identifier);
  HWND handle() const { return handle_; }

  /// The style stays until another one has been set.
  void setStyle(const WindowStyle& style);
  void setMenu(std::wstring copy, std::wstring copyAll);
  void take(const ServerWindowLines& lines);

  /// The number, by the order of coming, of the line that the user has gone to.
  std::optional<std::size_t> currentLine() const;

 private:
  enum class Part { Chosen, All };

  static LRESULT CALLBACK handle(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                 DWORD_PTR self);
  std::optional<LRESULT> answer(UINT message, WPARAM w, LPARAM l);
  void noteUse(UINT message);
  LRESULT ask(UINT message, WPARAM w = 0, LPARAM l = 0) const {
    return ::SendMessageW(handle_, message, w, l);
  }
  int count() const { return static_cast<int>(ask(LB_GETCOUNT)); }
  int rows() const;
  bool isAtEnd() const;
  void dropFirst(std::size_t lines);
  void add(const std::string& line);
  void goToEnd();
  void chooseAt(POINT onScreen);
  void openMenu(LPARAM where);
  std::wstring textOf(Part part) const;
  void copy(Part part) const;

  bool follows_;
  bool isFollowing_;  ///< and has not been led elsewhere by the user
  HWND handle_ = nullptr;
  const WindowStyle* style_ = nullptr;
  std::wstring copyText_;
  std::wstring copyAllText_;
  std::size_t gone_ = 0;  ///< lines dropped since there is the list
  int widest_ = 0;
};

}  // namespace quorvane
