#include "platform/windows/window_style.h"

namespace quorvane {

namespace {

constexpr UINT kUsualResolution = 96;

/// A device context that has a font selected.
class Measuring {
 public:
  explicit Measuring(HFONT font)
      : context_(::GetDC(nullptr)), before_(::SelectObject(context_, font)) {}
  Measuring(const Measuring&) = delete;
  Measuring& operator=(const Measuring&) = delete;
  ~Measuring() {
    ::SelectObject(context_, before_);
    ::ReleaseDC(nullptr, context_);
  }
  HDC context() const { return context_; }

 private:
  HDC context_;
  HGDIOBJ before_;
};

/// A call that the oldest releases of the system lack; null there.
template <typename Call>
Call* userCall(const char* name) {
  const HMODULE library = ::GetModuleHandleW(L"user32.dll");
  return library ? reinterpret_cast<Call*>(reinterpret_cast<void*>(::GetProcAddress(library, name)))
                 : nullptr;
}

UINT resolutionOf(HWND window) {
  static const auto call = userCall<decltype(::GetDpiForWindow)>("GetDpiForWindow");
  if (const UINT known = call ? call(window) : 0) return known;
  const HDC context = ::GetDC(nullptr);
  const int known = ::GetDeviceCaps(context, LOGPIXELSX);
  ::ReleaseDC(nullptr, context);
  return known > 0 ? static_cast<UINT>(known) : kUsualResolution;
}

/// The font of message boxes, which is the one for windows of the system's own controls.
HFONT fontFor(UINT dotsPerInch) {
  static const auto call =
      userCall<decltype(::SystemParametersInfoForDpi)>("SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  const bool isKnown =
      call ? call(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dotsPerInch)
           : ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  return isKnown ? ::CreateFontIndirectW(&metrics.lfMessageFont) : nullptr;
}

}  // namespace

WindowStyle::WindowStyle(HWND window) : WindowStyle(resolutionOf(window)) {}

WindowStyle::WindowStyle(UINT dotsPerInch)
    : dotsPerInch_(dotsPerInch), font_(fontFor(dotsPerInch)) {
  const Measuring measuring(font_.get());
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(measuring.context(), &metrics);
  lineHeight_ = metrics.tmHeight + metrics.tmExternalLeading;
}

int WindowStyle::widthOf(const std::wstring& text) const {
  const Measuring measuring(font_.get());
  SIZE size{};
  ::GetTextExtentPoint32W(measuring.context(), text.c_str(), static_cast<int>(text.size()), &size);
  return size.cx;
}

}  // namespace quorvane
