#include <algorithm>
#include <utility>

#include "platform/windows/pictures.h"
#include "platform/windows/wide_text.h"

namespace quorvane::picture_tools {

namespace {

/// What is drawn on in memory, white on black: 32 bits a pixel, of which one colour tells how much
/// a pixel is covered.
class Sheet {
 public:
  Sheet() : context_(::CreateCompatibleDC(nullptr)) {}
  ~Sheet() {
    ::DeleteDC(context_);
    if (font_) ::DeleteObject(font_);
    if (bitmap_) ::DeleteObject(bitmap_);
  }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

  HDC context() const { return context_; }
  int coverAt(int x, int y) const { return bits_[(std::size_t{1} * y * size_.width + x) * 4 + 1]; }
  Size size() const { return size_; }

  bool takeFont(const TextStyle& style) {
    const std::wstring family =
        wideOfUtf8(style.family).substr(0, LF_FACESIZE - 1);  // longer ones are refused
    font_ =
        ::CreateFontW(-style.pixels, 0, 0, 0, style.bold ? FW_BOLD : FW_NORMAL, style.italic,
                      style.underlined, FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS,
                      ANTIALIASED_QUALITY, DEFAULT_PITCH | FF_DONTCARE, family.c_str());
    return font_ && ::SelectObject(context_, font_);
  }

  bool unroll(Size size) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height;  // from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    bitmap_ = ::CreateDIBSection(context_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap_ || !::SelectObject(context_, bitmap_)) return false;
    bits_ = static_cast<const std::uint8_t*>(bits);
    size_ = size;
    ::SetBkMode(context_, TRANSPARENT);
    ::SetTextColor(context_, RGB(255, 255, 255));
    return true;
  }

 private:
  HDC context_;
  HFONT font_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  const std::uint8_t* bits_ = nullptr;
  Size size_;
};

/// Letters beyond so many are outside of every picture; the system draws no more than the other
/// number at once.
std::wstring drawableOf(std::string_view text, const TextStyle& style) {
  constexpr std::size_t kMostLetters = 8192;
  const std::size_t most = std::size_t{2} * kMostSide / static_cast<std::size_t>(style.pixels) + 1;
  std::wstring letters = wideOfUtf8(text.substr(0, 4 * kMostLetters));
  letters.resize(std::min({letters.size(), most, kMostLetters}));
  std::ranges::replace_if(
      letters, [](wchar_t letter) { return letter < L' '; }, L' ');
  return letters;
}

/// The part of a sheet that is covered at all; `origin` is where the text begins on it.
TextMask covered(const Sheet& sheet, int origin, int advance) {
  int left = sheet.size().width;
  int top = sheet.size().height;
  int right = 0;
  int bottom = 0;
  for (int y = 0; y < sheet.size().height; ++y) {
    for (int x = 0; x < sheet.size().width; ++x) {
      if (sheet.coverAt(x, y) == 0) continue;
      left = std::min(left, x);
      right = std::max(right, x + 1);
      top = std::min(top, y);
      bottom = y + 1;
    }
  }
  if (right == 0) return {};
  TextMask mask{{right - left, bottom - top}, left - origin, top, advance, {}};
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) mask.covers += static_cast<char>(sheet.coverAt(x, y));
  }
  return mask;
}

}  // namespace

std::optional<TextMask> drawnMask(std::string_view text, const TextStyle& style) {
  if (style.pixels < 1 || style.pixels > kMostSide) return std::nullopt;
  if (text.find_first_not_of(" \t\r\n") == text.npos) return TextMask{};
  const std::wstring letters = drawableOf(text, style);
  const auto count = static_cast<int>(letters.size());
  Sheet sheet;
  SIZE extent{};
  if (!sheet.context() || !sheet.takeFont(style) ||
      !::GetTextExtentPoint32W(sheet.context(), letters.c_str(), count, &extent)) {
    return std::nullopt;
  }
  // Leaning letters reach beyond their room on both sides.
  const int height = std::clamp(static_cast<int>(extent.cy), 1, 2 * kMostSide);
  const int margin = std::min(style.pixels, static_cast<int>(kMostPixels / height / 4));
  const int most = static_cast<int>(kMostPixels / height) - 2 * margin;
  const int width = std::clamp(static_cast<int>(extent.cx), 1, std::max(most, 1));
  if (!sheet.unroll({width + 2 * margin, height}) ||
      !::ExtTextOutW(sheet.context(), margin, 0, 0, nullptr, letters.c_str(),
                     static_cast<UINT>(count), nullptr)) {
    return std::nullopt;
  }
  ::GdiFlush();
  return covered(sheet, margin, static_cast<int>(extent.cx));
}

}  // namespace quorvane::picture_tools
