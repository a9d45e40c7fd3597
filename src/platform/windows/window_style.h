#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>

namespace quorvane {

/// The user's font at the resolution of the monitor that a window stands on, and sizes that go
/// with it.
class WindowStyle {
 public:
  explicit WindowStyle(HWND window);
  /// Told with the message that a window has moved to a monitor of another resolution.
  explicit WindowStyle(UINT dotsPerInch);

  int pixels(int at96) const { return ::MulDiv(at96, static_cast<int>(dotsPerInch_), 96); }
  HFONT font() const { return font_.get(); }
  int lineHeight() const { return lineHeight_; }
  int widthOf(const std::wstring& text) const;

 private:
  struct FontDeleter {
    void operator()(HFONT font) const { ::DeleteObject(font); }
  };
  UINT dotsPerInch_;
  std::unique_ptr<std::remove_pointer_t<HFONT>, FontDeleter> font_;
  int lineHeight_ = 0;
};

}  // namespace quorvane
