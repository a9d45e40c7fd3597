// Does with a window what a person at the screen does, and says what stands in it. Commands come
// line by line on standard input; the answer to each is lines and then one with a dot.
//
//   find SECONDS TITLE     the window that all other commands are about; hidden ones as well
//   shown                  "yes" or "no"
//   text ID                of a control
//   lines ID               of a list, and before each "*" if it is chosen, else " "
//   areas                  the window and its controls: ID LEFT TOP WIDTH HEIGHT SHOWN
//   press ID               a click on a button
//   pick ID LINE           a click on a line of a list; "add" behind it: with the Ctrl key held
//   type ID KEYS           keys to a control, such as "ctrl+c", "down", "end"
//   menu ID LINE ITEM      the right button on a line, then that item of the menu, counted from 1
//   clipboard              the text on it
//   forget                 empties the clipboard
//   resize WIDTH HEIGHT    of the whole window
//   focus                  the identifier of the control that keys go to
//   close                  as by the cross in its corner

#include <windows.h>
// After it.
#include <commctrl.h>

#include <chrono>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;

HWND form = nullptr;

std::string utf8(const std::wstring& text) {
  const int room = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                       nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(room), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(), room,
                      nullptr, nullptr);
  return bytes;
}

std::wstring textOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, 0);
  text.resize(static_cast<std::size_t>(
      SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

std::string oneLine(const std::wstring& text) {
  std::string all;
  for (const char c : utf8(text)) {
    if (c != '\r') all += c == '\n' ? std::string("\\n") : std::string(1, c);
  }
  return all;
}

HWND control(int id) {
  return GetDlgItem(form, id);
}

struct Search {
  std::string title;
  HWND found = nullptr;
};

BOOL CALLBACK look(HWND window, LPARAM search) {
  auto& wanted = *reinterpret_cast<Search*>(search);
  wchar_t kind[64] = L"";
  GetClassNameW(window, kind, 64);
  if (std::wstring(kind) == L"Quorvane.mainForm" && utf8(textOf(window)) == wanted.title) {
    wanted.found = window;
  }
  return !wanted.found;
}

void find(const std::string& title, int seconds) {
  Search search{title};
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
  do {
    EnumWindows(look, reinterpret_cast<LPARAM>(&search));
    if (!search.found) std::this_thread::sleep_for(50ms);
  } while (!search.found && std::chrono::steady_clock::now() < end);
  form = search.found;
  std::cout << (form ? "found" : "none") << '\n';
}

void lines(HWND list) {
  const auto count = SendMessageW(list, LB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    const auto place = static_cast<WPARAM>(i);
    std::wstring line(static_cast<std::size_t>(SendMessageW(list, LB_GETTEXTLEN, place, 0)) + 1, 0);
    const auto length =
        SendMessageW(list, LB_GETTEXT, place, reinterpret_cast<LPARAM>(line.data()));
    line.resize(static_cast<std::size_t>(length));
    std::cout << (SendMessageW(list, LB_GETSEL, place, 0) > 0 ? '*' : ' ') << utf8(line) << '\n';
  }
}

void area(int id, HWND window, const RECT& place) {
  std::cout << id << ' ' << place.left << ' ' << place.top << ' ' << place.right - place.left << ' '
            << place.bottom - place.top << ' ' << (IsWindowVisible(window) ? 1 : 0) << '\n';
}

void areas() {
  RECT room{};
  GetClientRect(form, &room);
  area(0, form, room);
  for (const int id : {100, 101, 102, 110, 111, 112, 120, 121, 130}) {
    RECT place{};
    GetWindowRect(control(id), &place);
    MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&place), 2);
    area(id, control(id), place);
  }
}

void mouse(DWORD what) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = what;
  SendInput(1, &input, sizeof input);
}

void key(WORD code, bool down) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = code;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
  SendInput(1, &input, sizeof input);
}

void stroke(WORD code) {
  key(code, true);
  key(code, false);
}

/// What was done has reached the window when this returns.
void settle() {
  std::this_thread::sleep_for(150ms);
  SendMessageW(form, WM_NULL, 0, 0);
}

void moveTo(HWND window, POINT inside) {
  ClientToScreen(window, &inside);
  SetForegroundWindow(form);
  SetCursorPos(inside.x, inside.y);
  settle();
}

void moveToLine(HWND list, int line) {
  RECT place{};
  SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(&place));
  moveTo(list, {place.left + 10, (place.top + place.bottom) / 2});
}

void press(HWND button) {
  RECT room{};
  GetClientRect(button, &room);
  moveTo(button, {room.right / 2, room.bottom / 2});
  mouse(MOUSEEVENTF_LEFTDOWN);
  mouse(MOUSEEVENTF_LEFTUP);
  settle();
}

void pick(HWND list, int line, bool adding) {
  moveToLine(list, line);
  if (adding) key(VK_CONTROL, true);
  mouse(MOUSEEVENTF_LEFTDOWN);
  mouse(MOUSEEVENTF_LEFTUP);
  settle();
  if (adding) key(VK_CONTROL, false);
  settle();
}

void menu(HWND list, int line, int item) {
  moveToLine(list, line);
  mouse(MOUSEEVENTF_RIGHTDOWN);
  mouse(MOUSEEVENTF_RIGHTUP);
  std::this_thread::sleep_for(400ms);
  for (int i = 0; i < item; ++i) stroke(VK_DOWN);
  stroke(VK_RETURN);
  settle();
}

void type(HWND target, const std::string& keys) {
  static const std::map<std::string, WORD> kNamed{
      {"down", VK_DOWN}, {"up", VK_UP},       {"end", VK_END},      {"home", VK_HOME},
      {"tab", VK_TAB},   {"space", VK_SPACE}, {"enter", VK_RETURN}, {"insert", VK_INSERT}};
  if (target) {
    const DWORD its = GetWindowThreadProcessId(form, nullptr);
    SetForegroundWindow(form);
    AttachThreadInput(GetCurrentThreadId(), its, TRUE);
    SetFocus(target);
    AttachThreadInput(GetCurrentThreadId(), its, FALSE);
    settle();
  }
  const bool control = keys.rfind("ctrl+", 0) == 0;
  const std::string name = control ? keys.substr(5) : keys;
  const auto named = kNamed.find(name);
  const WORD code = named != kNamed.end()
                        ? named->second
                        : static_cast<WORD>(toupper(static_cast<unsigned char>(name[0])));
  if (control) key(VK_CONTROL, true);
  stroke(code);
  if (control) key(VK_CONTROL, false);
  settle();
}

void clipboard() {
  if (!OpenClipboard(nullptr)) return;
  if (const HANDLE held = GetClipboardData(CF_UNICODETEXT)) {
    std::cout << oneLine(static_cast<const wchar_t*>(GlobalLock(held))) << '\n';
    GlobalUnlock(held);
  }
  CloseClipboard();
}

void forget() {
  if (!OpenClipboard(nullptr)) return;
  EmptyClipboard();
  CloseClipboard();
}

int focus() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(form, nullptr), &info);
  return GetDlgCtrlID(info.hwndFocus);
}

void obey(const std::string& line) {
  std::istringstream words(line);
  std::string what;
  words >> what;
  int id = 0;
  int first = 0;
  int second = 0;
  std::string word;
  if (what == "find") {
    words >> first >> std::ws;
    std::getline(words, word);
    find(word, first);
  } else if (what == "shown") {
    std::cout << (IsWindowVisible(form) ? "yes" : "no") << '\n';
  } else if (what == "text") {
    words >> id;
    std::cout << oneLine(textOf(id ? control(id) : form)) << '\n';
  } else if (what == "lines") {
    words >> id;
    lines(control(id));
  } else if (what == "areas") {
    areas();
  } else if (what == "press") {
    words >> id;
    press(control(id));
  } else if (what == "pick") {
    words >> id >> first >> word;
    pick(control(id), first, word == "add");
  } else if (what == "type") {
    words >> id >> word;
    type(id ? control(id) : nullptr, word);
  } else if (what == "menu") {
    words >> id >> first >> second;
    menu(control(id), first, second);
  } else if (what == "clipboard") {
    clipboard();
  } else if (what == "forget") {
    forget();
  } else if (what == "resize") {
    words >> first >> second;
    SetWindowPos(form, nullptr, 0, 0, first, second, SWP_NOMOVE | SWP_NOZORDER);
    settle();
  } else if (what == "focus") {
    std::cout << focus() << '\n';
  } else if (what == "close") {
    PostMessageW(form, WM_SYSCOMMAND, SC_CLOSE, 0);
  } else {
    std::cout << "?\n";
  }
}

}  // namespace

int main() {
  std::string line;
  while (std::getline(std::cin, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    obey(line);
    std::cout << "." << std::endl;
  }
}
