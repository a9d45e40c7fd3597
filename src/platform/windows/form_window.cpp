#include "platform/windows/form_window.h"

#include <windows.h>
// After it.
#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "platform/windows/wide_text.h"
#include "platform/windows/window_layout.h"

namespace quorvane {

namespace {

constexpr const wchar_t* kClass = L"Quorvane.mainForm";
constexpr int kIcon = 1;  ///< its number among the program's resources

/// At 96 dots an inch.
constexpr int kUsualWidth = 760;
constexpr int kUsualHeight = 600;

HICON iconOf(int sizeMetric) {
  const int size = ::GetSystemMetrics(sizeMetric);
  return static_cast<HICON>(::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kIcon),
                                         IMAGE_ICON, size, size, LR_SHARED));
}

bool registerClass(WNDPROC handler) {
  WNDCLASSEXW kind{};
  kind.cbSize = sizeof kind;
  kind.lpfnWndProc = handler;
  kind.hInstance = ::GetModuleHandleW(nullptr);
  kind.hIcon = iconOf(SM_CXICON);
  kind.hIconSm = iconOf(SM_CXSMICON);
  kind.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
  kind.hbrBackground = ::GetSysColorBrush(COLOR_3DFACE);
  kind.lpszClassName = kClass;
  return ::RegisterClassExW(&kind) != 0 || ::GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

void loadControls() {
  INITCOMMONCONTROLSEX kinds{sizeof(INITCOMMONCONTROLSEX), ICC_STANDARD_CLASSES | ICC_BAR_CLASSES};
  ::InitCommonControlsEx(&kinds);
}

void setText(HWND control, const std::string& text) {
  ::SetWindowTextW(control, wideOf(text).c_str());
}

/// The whole window around such a room for its controls.
SIZE around(HWND window, SIZE room) {
  RECT area{0, 0, room.cx, room.cy};
  const auto style = static_cast<DWORD>(::GetWindowLongPtrW(window, GWL_STYLE));
  ::AdjustWindowRectEx(&area, style, FALSE, 0);
  return {area.right - area.left, area.bottom - area.top};
}

/// A text of several lines would keep Tab and Enter, as if it could be written to.
LRESULT CALLBACK readOnlyText(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR) {
  return message == WM_GETDLGCODE ? DLGC_WANTARROWS : ::DefSubclassProc(window, message, w, l);
}

}  // namespace

FormWindow::FormWindow(FormWindowEvents events, std::array<bool, 3> follows)
    : events_(std::move(events)),
      llist_{ListControl(follows[0]), ListControl(follows[1]), ListControl(follows[2])} {}

bool FormWindow::create() {
  loadControls();
  if (!registerClass(&FormWindow::handle)) return false;
  ::CreateWindowExW(WS_EX_CONTROLPARENT, kClass, L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                    CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr,
                    ::GetModuleHandleW(nullptr), this);
  if (!window_ || !createControls()) return false;
  restyle(std::make_unique<WindowStyle>(window_));
  ::SetWindowPos(window_, nullptr, 0, 0, style_->pixels(kUsualWidth), style_->pixels(kUsualHeight),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  focus_ = llist_[0].handle();
  return true;
}

HWND FormWindow::child(const wchar_t* kind, DWORD style, int identifier) const {
  const DWORD edge = identifier == kText ? WS_EX_CLIENTEDGE : 0;
  return ::CreateWindowExW(edge, kind, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)),
                           ::GetModuleHandleW(nullptr), nullptr);
}

/// In the order in which Tab visits them. A label comes right before its list, whose name it is to
/// those who have the screen read to them.
bool FormWindow::createControls() {
  for (const std::size_t list : {1U, 2U, 0U}) {
    const int place = static_cast<int>(list);
    Label1_[list] = child(L"STATIC", SS_NOPREFIX | SS_NOTIFY | SS_ENDELLIPSIS, kFirstLabel + place);
    if (!Label1_[list] || !llist_[list].create(window_, kFirstList + place)) return false;
  }
  dbgText_ =
      child(L"EDIT", ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | WS_VSCROLL | WS_TABSTOP, kText);
  if (!dbgText_) return false;
  ::SendMessageW(dbgText_, EM_SETLIMITTEXT, 0, 0);
  ::SetWindowSubclass(dbgText_, &readOnlyText, 0, 0);
  for (std::size_t button = 0; button < btt_.size(); ++button) {
    btt_[button] =
        child(L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, kFirstButton + static_cast<int>(button));
    if (!btt_[button]) return false;
  }
  toolTips_ = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, TTS_ALWAYSTIP | WS_POPUP,
                                0, 0, 0, 0, window_, nullptr, ::GetModuleHandleW(nullptr), nullptr);
  return true;
}

void FormWindow::run() {
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (::IsDialogMessageW(window_, &message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

LRESULT CALLBACK FormWindow::handle(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_NCCREATE) {
    auto* form = static_cast<FormWindow*>(reinterpret_cast<CREATESTRUCTW*>(l)->lpCreateParams);
    form->window_ = window;
    ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(form));
  }
  auto* form = reinterpret_cast<FormWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  const auto answer = form ? form->answer(message, w, l) : std::nullopt;
  return answer ? *answer : ::DefWindowProcW(window, message, w, l);
}

std::optional<LRESULT> FormWindow::answer(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case kWake:
      events_.woken();
      return 0;
    case kEnd:
      ::DestroyWindow(window_);
      return 0;
    case WM_DESTROY:
      ::PostQuitMessage(0);
      return 0;
    case WM_CLOSE:
      events_.closeAsked();
      return 0;
    case WM_ENDSESSION:
      if (w) events_.sessionEnds();
      return 0;
    case WM_COMMAND:
      command(LOWORD(w), HIWORD(w));
      return 0;
    case WM_SIZE:
      arrange();
      return 0;
    case WM_GETMINMAXINFO:
      boundSize(*reinterpret_cast<MINMAXINFO*>(l));
      return 0;
    case WM_DPICHANGED:
      restyle(std::make_unique<WindowStyle>(LOWORD(w)));
      moveTo(*reinterpret_cast<const RECT*>(l));
      return 0;
    case DM_GETDEFID:
      return defaultButton();
    case WM_ACTIVATE:
      keepFocus(LOWORD(w) != WA_INACTIVE);
      return 0;
    default:
      return std::nullopt;
  }
}

void FormWindow::command(int identifier, int notice) const {
  const int button = identifier - kFirstButton;
  if (notice == BN_CLICKED && button >= 0 && button < static_cast<int>(btt_.size())) {
    events_.buttonClicked(button);
  }
  const int list = identifier - kFirstList;
  if (notice != LBN_SELCHANGE || list < 0 || list >= static_cast<int>(llist_.size())) return;
  if (const auto line = llist_[static_cast<std::size_t>(list)].currentLine()) {
    events_.lineClicked(list, *line);
  }
}

/// Enter presses the button that has the focus.
LRESULT FormWindow::defaultButton() const {
  const HWND focus = ::GetFocus();
  const bool onButton = std::find(btt_.begin(), btt_.end(), focus) != btt_.end();
  return onButton ? MAKELRESULT(::GetDlgCtrlID(focus), DC_HASDEFID) : 0;
}

void FormWindow::keepFocus(bool active) {
  if (active) {
    ::SetFocus(focus_);
  } else if (const HWND focus = ::GetFocus(); ::IsChild(window_, focus)) {
    focus_ = focus;
  }
}

/// The old style goes once no control has its font.
void FormWindow::restyle(std::unique_ptr<WindowStyle> style) {
  for (ListControl& list : llist_) list.setStyle(*style);
  for (const HWND control :
       {Label1_[0], Label1_[1], Label1_[2], dbgText_, btt_[0], btt_[1], toolTips_}) {
    ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(style->font()), TRUE);
  }
  style_ = std::move(style);
  arrange();
}

void FormWindow::moveTo(const RECT& area) const {
  ::SetWindowPos(window_, nullptr, area.left, area.top, area.right - area.left,
                 area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::arrange() const {
  RECT room{};
  if (!style_ || !::GetClientRect(window_, &room)) return;
  WindowLayoutWishes wishes{{room.right, room.bottom}, {}};
  for (std::size_t i = 0; i < btt_.size(); ++i) {
    wishes.buttonWidths[i] = style_->widthOf(wideOf(texts_.buttons[i].caption));
  }
  const WindowLayout layout = layoutFor(wishes, *style_);
  const auto place = [](HWND control, const RECT& area) {
    ::MoveWindow(control, area.left, area.top, area.right - area.left, area.bottom - area.top,
                 TRUE);
  };
  for (std::size_t i = 0; i < llist_.size(); ++i) {
    place(Label1_[i], layout.labels[i]);
    place(llist_[i].handle(), layout.lists[i]);
  }
  place(dbgText_, layout.text);
  for (std::size_t i = 0; i < btt_.size(); ++i) place(btt_[i], layout.buttons[i]);
}

void FormWindow::boundSize(MINMAXINFO& sizes) const {
  if (!style_) return;
  const SIZE least = around(window_, leastRoom(*style_));
  sizes.ptMinTrackSize = {least.cx, least.cy};
}

void FormWindow::show(ServerWindowPicture picture) {
  if (picture.texts != texts_) putTexts(picture.texts);
  for (std::size_t i = 0; i < llist_.size(); ++i) llist_[i].take(picture.lists[i]);
  if (picture.text != text_) setText(dbgText_, picture.text);
  text_ = std::move(picture.text);
  if (picture.visible && !::IsWindowVisible(window_)) ::ShowWindow(window_, SW_SHOWNORMAL);
}

void FormWindow::putTexts(const ServerWindowTexts& texts) {
  texts_ = texts;
  setText(window_, texts.title);
  for (std::size_t i = 0; i < llist_.size(); ++i) {
    setText(Label1_[i], texts.lists[i].caption);
    putToolTip(Label1_[i], texts.lists[i].toolTip);
    putToolTip(llist_[i].handle(), texts.lists[i].toolTip);
    llist_[i].setMenu(wideOf(texts.copy), wideOf(texts.copyAll));
  }
  for (std::size_t i = 0; i < btt_.size(); ++i) {
    setText(btt_[i], texts.buttons[i].caption);
    putToolTip(btt_[i], texts.buttons[i].toolTip);
  }
  putToolTip(dbgText_, texts.textToolTip);
  arrange();
}

/// Told again it takes the place of what was there; an empty one isn't shown.
void FormWindow::putToolTip(HWND control, const std::string& text) const {
  std::wstring wide = wideOf(text);
  TOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = window_;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  ::SendMessageW(toolTips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  tool.lpszText = wide.data();
  ::SendMessageW(toolTips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace quorvane
