#include "platform/windows/list_control.h"

#include <windows.h>
// After it.
#include <commctrl.h>
#include <windowsx.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/windows/wide_text.h"

namespace quorvane {

namespace {

/// Of longer lines the rest is cut: the control draws all of a line whatever can be seen of it.
constexpr std::size_t kLongestLine = 4000;
constexpr wchar_t kNoGlyph = L'\u00b7';
constexpr wchar_t kEllipsis = L'\u2026';

constexpr int kTabWidth = 32;  ///< quarters of a character's width
constexpr int kSidePadding = 8;

enum MenuItem : UINT { kCopy = 1, kCopyAll = 2 };

std::wstring shown(const std::string& line) {
  std::wstring text = wideOf(line.substr(0, kLongestLine));
  if (line.size() > kLongestLine) text.push_back(kEllipsis);
  std::replace(text.begin(), text.end(), L'\0', kNoGlyph);  // where the control's texts end
  return text;
}

bool isDown(int key) {
  return ::GetKeyState(key) < 0;
}

/// Keeps the control from drawing every step of a change.
class DrawnOnce {
 public:
  explicit DrawnOnce(HWND window) : window_(window) {
    ::SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
  }
  DrawnOnce(const DrawnOnce&) = delete;
  DrawnOnce& operator=(const DrawnOnce&) = delete;
  ~DrawnOnce() {
    ::SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
    ::InvalidateRect(window_, nullptr, TRUE);
  }

 private:
  HWND window_;
};

void putOnClipboard(HWND owner, const std::wstring& text) {
  if (!::OpenClipboard(owner)) return;
  ::EmptyClipboard();
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  if (const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes)) {
    if (void* place = ::GlobalLock(memory)) {
      std::memcpy(place, text.c_str(), bytes);
      ::GlobalUnlock(memory);
    }
    if (!::SetClipboardData(CF_UNICODETEXT, memory)) ::GlobalFree(memory);
  }
  ::CloseClipboard();
}

}  // namespace

bool ListControl::create(HWND parent, int identifier) {
  constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL |
                           LBS_NOTIFY | LBS_EXTENDEDSEL | LBS_NOINTEGRALHEIGHT | LBS_USETABSTOPS;
  handle_ = ::CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", L"", kStyle, 0, 0, 0, 0, parent,
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)),
                              ::GetModuleHandleW(nullptr), nullptr);
  if (!handle_) return false;
  const int tab = kTabWidth;
  ask(LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&tab));
  return ::SetWindowSubclass(handle_, &ListControl::handle, 0, reinterpret_cast<DWORD_PTR>(this)) !=
         0;
}

void ListControl::setStyle(const WindowStyle& style) {
  if (style_) widest_ = ::MulDiv(widest_, style.lineHeight(), style_->lineHeight());
  style_ = &style;
  ask(WM_SETFONT, reinterpret_cast<WPARAM>(style.font()), TRUE);
  ask(LB_SETITEMHEIGHT, 0, style.lineHeight());
  ask(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest_));
}

void ListControl::setMenu(std::wstring copy, std::wstring copyAll) {
  copyText_ = std::move(copy);
  copyAllText_ = std::move(copyAll);
}

int ListControl::rows() const {
  RECT area{};
  ::GetClientRect(handle_, &area);
  const auto height = std::max<LRESULT>(ask(LB_GETITEMHEIGHT), 1);
  return static_cast<int>(area.bottom / height);
}

/// Whether the user looks at the newest line and has chosen no other.
bool ListControl::isAtEnd() const {
  const int lines = count();
  if (lines == 0) return true;
  const auto top = static_cast<int>(ask(LB_GETTOPINDEX));
  if (top + rows() < lines) return false;
  const LRESULT chosen = ask(LB_GETSELCOUNT);
  return chosen == 0 || (chosen == 1 && ask(LB_GETSEL, static_cast<WPARAM>(lines - 1)) > 0);
}

void ListControl::take(const ServerWindowLines& lines) {
  if (lines.dropped == 0 && lines.added.empty()) return;
  const auto top = static_cast<int>(ask(LB_GETTOPINDEX));
  const bool isRemade = lines.dropped == static_cast<std::size_t>(count());
  const DrawnOnce drawnOnce(handle_);
  dropFirst(lines.dropped);
  ask(LB_INITSTORAGE, lines.added.size(),
      static_cast<LPARAM>(lines.added.size() * sizeof(wchar_t)));
  for (const std::string& line : lines.added) add(line);
  ask(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest_));
  if (isFollowing_) return goToEnd();
  const int dropped = isRemade ? 0 : static_cast<int>(lines.dropped);
  ask(LB_SETTOPINDEX, static_cast<WPARAM>(std::max(top - dropped, 0)));
}

void ListControl::dropFirst(std::size_t lines) {
  gone_ += lines;
  if (lines >= static_cast<std::size_t>(count())) {
    ask(LB_RESETCONTENT);
    widest_ = 0;
    return;
  }
  for (std::size_t i = 0; i < lines; ++i) ask(LB_DELETESTRING, 0);
}

void ListControl::add(const std::string& line) {
  const std::wstring text = shown(line);
  ask(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
  if (style_) widest_ = std::max(widest_, style_->widthOf(text) + style_->pixels(kSidePadding));
}

void ListControl::goToEnd() {
  const int last = count() - 1;
  if (last < 0) return;
  ask(LB_SETSEL, FALSE, -1);
  ask(LB_SETSEL, TRUE, last);
  ask(LB_SETCARETINDEX, static_cast<WPARAM>(last), FALSE);
}

std::optional<std::size_t> ListControl::currentLine() const {
  const LRESULT line = ask(LB_GETCARETINDEX);
  if (line < 0 || line >= count()) return std::nullopt;
  return gone_ + static_cast<std::size_t>(line);
}

LRESULT CALLBACK ListControl::handle(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                     DWORD_PTR self) {
  auto& list = *reinterpret_cast<ListControl*>(self);
  const auto answer = list.answer(message, w, l);
  const LRESULT result = answer ? *answer : ::DefSubclassProc(window, message, w, l);
  list.noteUse(message);
  return result;
}

void ListControl::noteUse(UINT message) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_CONTEXTMENU:
    case WM_VSCROLL:
    case WM_MOUSEWHEEL:
      isFollowing_ = follows_ && isAtEnd();
      return;
    case WM_SIZE:
      if (isFollowing_) ask(LB_SETTOPINDEX, static_cast<WPARAM>(std::max(count() - 1, 0)));
      return;
    default:
      return;
  }
}

std::optional<LRESULT> ListControl::answer(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_CONTEXTMENU) {
    openMenu(l);
    return 0;
  }
  // Characters of control keys would be looked for in the list.
  if (message == WM_CHAR && w < L' ') return 0;
  if (message != WM_KEYDOWN || !isDown(VK_CONTROL)) return std::nullopt;
  if (w == 'C' || w == VK_INSERT) {
    copy(Part::Chosen);
  } else if (w == 'A') {
    ask(LB_SETSEL, TRUE, -1);
  } else {
    return std::nullopt;
  }
  return 0;
}

void ListControl::chooseAt(POINT onScreen) {
  ::ScreenToClient(handle_, &onScreen);
  const LRESULT found = ask(LB_ITEMFROMPOINT, 0, MAKELPARAM(onScreen.x, onScreen.y));
  const int line = LOWORD(found);
  if (HIWORD(found) != 0 || line >= count() || ask(LB_GETSEL, static_cast<WPARAM>(line)) > 0) {
    return;
  }
  ask(LB_SETSEL, FALSE, -1);
  ask(LB_SETSEL, TRUE, line);
}

/// `where` is a point on the screen, or -1 when the menu was asked for by a key.
void ListControl::openMenu(LPARAM where) {
  POINT point{GET_X_LPARAM(where), GET_Y_LPARAM(where)};
  if (where == -1) {
    point = {0, 0};
    ::ClientToScreen(handle_, &point);
  } else {
    chooseAt(point);
  }
  const HMENU menu = ::CreatePopupMenu();
  const UINT chosen = ask(LB_GETSELCOUNT) > 0 ? MF_ENABLED : MF_GRAYED;
  ::AppendMenuW(menu, MF_STRING | chosen, kCopy, copyText_.c_str());
  ::AppendMenuW(menu, MF_STRING | (count() > 0 ? MF_ENABLED : MF_GRAYED), kCopyAll,
                copyAllText_.c_str());
  const auto item = static_cast<UINT>(::TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON,
                                                       point.x, point.y, 0, handle_, nullptr));
  ::DestroyMenu(menu);
  if (item == kCopy) copy(Part::Chosen);
  if (item == kCopyAll) copy(Part::All);
}

std::wstring ListControl::textOf(Part part) const {
  std::wstring all;
  std::wstring line;
  for (int i = 0; i < count(); ++i) {
    if (part == Part::Chosen && ask(LB_GETSEL, static_cast<WPARAM>(i)) <= 0) continue;
    line.resize(
        static_cast<std::size_t>(std::max<LRESULT>(ask(LB_GETTEXTLEN, static_cast<WPARAM>(i)), 0)));
    ask(LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(line.data()));
    all.append(line).append(L"\r\n");
  }
  return all;
}

/// With nothing chosen the clipboard keeps what it has.
void ListControl::copy(Part part) const {
  const std::wstring text = textOf(part);
  if (!text.empty()) putOnClipboard(handle_, text);
}

}  // namespace quorvane
