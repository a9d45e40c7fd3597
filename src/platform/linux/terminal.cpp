#include "platform/terminal.h"

// The curses library defines short names as macros unless told not to.
#define NCURSES_NOMACROS 1
#define NCURSES_WIDECHAR 1
#include <curses.h>
#include <fcntl.h>
#include <langinfo.h>
#include <sys/epoll.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <asio/posix/stream_descriptor.hpp>
#include <asio/signal_set.hpp>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/asio/loop_core.h"
#include "platform/linux/terminal_rescue.h"
#include "platform/linux/unblocked_write.h"
#include "platform/system.h"

namespace quorvane {

namespace {

/// How long the rest of a key's sequence may take to arrive after its first byte, milliseconds.
constexpr int kEscapeDelay = 25;

/// How long a terminal may take to accept what gives its screen back, milliseconds.
constexpr int kPatienceAtEnd = 500;

constexpr int kControlC = 3;

/// Texts are shown in UTF-8 unless the user's locale names another character set. A program
/// started without any locale gets one whose characters are UTF-8.
void chooseCharacterSet() {
  std::setlocale(LC_CTYPE, "");
  if (std::string_view(::nl_langinfo(CODESET)) == "ANSI_X3.4-1968") {
    std::setlocale(LC_CTYPE, "C.UTF-8");
  }
}

short cursesColour(TerminalColour colour) {
  switch (colour) {
    case TerminalColour::Default:
      return -1;
    case TerminalColour::Black:
      return COLOR_BLACK;
    case TerminalColour::Red:
      return COLOR_RED;
    case TerminalColour::Green:
      return COLOR_GREEN;
    case TerminalColour::Yellow:
      return COLOR_YELLOW;
    case TerminalColour::Blue:
      return COLOR_BLUE;
    case TerminalColour::Magenta:
      return COLOR_MAGENTA;
    case TerminalColour::Cyan:
      return COLOR_CYAN;
    case TerminalColour::White:
      return COLOR_WHITE;
  }
  return -1;
}

std::optional<KeyPress> keyOf(wint_t code) {
  switch (code) {
    case KEY_UP:
      return KeyPress{TerminalKey::Up, 0};
    case KEY_DOWN:
      return KeyPress{TerminalKey::Down, 0};
    case KEY_LEFT:
      return KeyPress{TerminalKey::Left, 0};
    case KEY_RIGHT:
      return KeyPress{TerminalKey::Right, 0};
    case KEY_PPAGE:
      return KeyPress{TerminalKey::PageUp, 0};
    case KEY_NPAGE:
      return KeyPress{TerminalKey::PageDown, 0};
    case KEY_HOME:
      return KeyPress{TerminalKey::Home, 0};
    case KEY_END:
      return KeyPress{TerminalKey::End, 0};
    case KEY_BTAB:
      return KeyPress{TerminalKey::BackTab, 0};
    case KEY_ENTER:
      return KeyPress{TerminalKey::Enter, 0};
    default:
      return std::nullopt;
  }
}

KeyPress characterKey(wint_t character) {
  if (character == '\t') return {TerminalKey::Tab, 0};
  if (character == '\r' || character == '\n') return {TerminalKey::Enter, 0};
  if (character == kControlC) return {TerminalKey::Interrupt, 0};
  return {TerminalKey::Character, static_cast<char32_t>(character)};
}

std::optional<MouseAction> mouseOf(const MEVENT& event) {
  MouseAction action;
  action.row = event.y;
  action.column = event.x;
  if (event.bstate & BUTTON1_PRESSED) return action;
  if (event.bstate & BUTTON4_PRESSED) {
    action.kind = MouseAction::Kind::WheelUp;
    return action;
  }
  if (event.bstate & BUTTON5_PRESSED) {
    action.kind = MouseAction::Kind::WheelDown;
    return action;
  }
  return std::nullopt;
}

/// The curses library draws on one terminal at a time, so there is one of these open at a time.
class CursesTerminal final : public Terminal {
 public:
  explicit CursesTerminal(LoopCore& core)
      : keys_(core.io), resizes_(core.io), self_(std::make_shared<CursesTerminal*>(this)) {}
  CursesTerminal(const CursesTerminal&) = delete;
  CursesTerminal& operator=(const CursesTerminal&) = delete;
  ~CursesTerminal() override { CursesTerminal::close(); }

  /// A program in the background of its terminal would be stopped for touching it.
  bool isThere() const override {
    return ::isatty(STDIN_FILENO) && ::isatty(STDOUT_FILENO) &&
           ::tcgetpgrp(STDIN_FILENO) == ::getpgrp();
  }
  bool open(TerminalEvents& events) override;
  void close() override;

  int rows() const override { return screen_ ? getmaxy(stdscr) : 0; }
  int columns() const override { return screen_ ? getmaxx(stdscr) : 0; }
  bool hasColours() const override { return colours_; }

  void put(int row, int column, std::wstring_view text, const TerminalStyle& style) override;
  bool show() override;

 private:
  bool openChannel();
  bool openCanvas();
  bool watchKeys();
  void takeOver();
  void fitToWindow();
  bool sendFrame();
  void takeFrame();
  void setUpScreen();
  void waitForKeys();
  void waitForResize();
  void readKeys();
  void keyRead(int kind, wint_t code);
  void mouseRead();
  attr_t attributes(const TerminalStyle& style) const;
  short pairOf(const TerminalStyle& style);

  asio::posix::stream_descriptor keys_;
  asio::signal_set resizes_;
  TerminalEvents* events_ = nullptr;
  struct FileClosed {
    void operator()(FILE* file) const { std::fclose(file); }
  };
  using File = std::unique_ptr<FILE, FileClosed>;

  File channelIn_;
  File channelOut_;
  File canvas_;        ///< what the curses library believes to be the terminal
  std::string frame_;  ///< of what it has drawn, what the terminal has not taken yet
  SCREEN* screen_ = nullptr;
  bool colours_ = false;
  std::map<std::pair<TerminalColour, TerminalColour>, short> pairs_;
  termios before_{};  ///< the terminal's modes as this program found them
  std::optional<TerminalRescue> rescue_;
  std::shared_ptr<CursesTerminal*> self_;  ///< empty for handlers that outlive this object
};

bool CursesTerminal::open(TerminalEvents& events) {
  if (screen_ || !isThere()) return false;
  if (::tcgetattr(STDIN_FILENO, &before_) != 0) return false;
  chooseCharacterSet();
  // Before the library looks: it leaves a signal alone that somebody has taken.
  asio::error_code error;
  resizes_.add(SIGWINCH, error);
  if (!openChannel() || !openCanvas()) return false;
  screen_ = ::newterm(nullptr, canvas_.get(), channelOut_.get());
  if (!screen_ || !canMoveCursor() || !watchKeys()) {
    close();
    return false;
  }
  rescue_.emplace(STDOUT_FILENO, before_);
  takeOver();
  setUpScreen();
  fitToWindow();
  events_ = &events;
  waitForKeys();
  waitForResize();
  return true;
}

/// The curses library waits for more once it has met a mouse report that it finds uninteresting,
/// which would hold up everything else. So it reads from a pipe that never makes it wait, and what
/// the user types is put in there.
bool CursesTerminal::openChannel() {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return false;
  channelOut_.reset(::fdopen(ends[0], "r"));
  channelIn_.reset(::fdopen(ends[1], "w"));
  return channelOut_ && channelIn_;
}

/// The curses library waits for a terminal that takes nothing, and tries for ever where it can't
/// wait. So it draws into a file in memory, which takes everything at once; what it has drawn goes
/// on to the terminal as the terminal takes it, and there is no next picture before that.
bool CursesTerminal::openCanvas() {
  const int memory = ::memfd_create("screen", MFD_CLOEXEC);
  if (memory < 0) return false;
  canvas_.reset(::fdopen(memory, "w"));
  return canvas_ != nullptr;
}

/// The library can't set the modes of a terminal that it doesn't see: every key arrives as typed,
/// nothing is shown by itself, and what is drawn is left as it is.
void CursesTerminal::takeOver() {
  termios modes = before_;
  ::cfmakeraw(&modes);
  ::tcsetattr(STDIN_FILENO, TCSANOW, &modes);
}

void CursesTerminal::fitToWindow() {
  winsize size{};
  if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_row > 0 && size.ws_col > 0) {
    ::resizeterm(size.ws_row, size.ws_col);
  }
}

/// The loop makes what it watches non-blocking, and a terminal shares that mode with the shell and
/// with what this program writes. So the loop watches a watcher of the terminal.
bool CursesTerminal::watchKeys() {
  const int watcher = ::epoll_create1(EPOLL_CLOEXEC);
  if (watcher < 0) return false;
  asio::error_code error;
  keys_.assign(watcher, error);
  epoll_event readable{};
  readable.events = EPOLLIN;
  return !error && ::epoll_ctl(watcher, EPOLL_CTL_ADD, STDIN_FILENO, &readable) == 0;
}

void CursesTerminal::setUpScreen() {
  ::raw();
  ::noecho();
  ::nonl();
  ::keypad(stdscr, TRUE);
  ::nodelay(stdscr, TRUE);
  ::set_escdelay(kEscapeDelay);
  ::curs_set(0);
  ::mouseinterval(0);
  ::mousemask(BUTTON1_PRESSED | BUTTON4_PRESSED | BUTTON5_PRESSED, nullptr);
  colours_ = ::has_colors() && ::start_color() == OK && ::use_default_colors() == OK;
}

void CursesTerminal::close() {
  *self_ = nullptr;
  self_ = std::make_shared<CursesTerminal*>(this);
  asio::error_code ignored;
  keys_.close(ignored);
  resizes_.clear(ignored);
  events_ = nullptr;
  if (screen_) {
    ::mousemask(0, nullptr);
    ::endwin();
    takeFrame();
    writePatiently(STDOUT_FILENO, frame_, kPatienceAtEnd);
    frame_.clear();
    ::delscreen(std::exchange(screen_, nullptr));
    ::tcsetattr(STDIN_FILENO, TCSANOW, &before_);
  }
  channelIn_.reset();
  channelOut_.reset();
  canvas_.reset();
  rescue_.reset();
  pairs_.clear();
}

void CursesTerminal::waitForKeys() {
  keys_.async_wait(asio::posix::stream_descriptor::wait_read,
                   [self = self_](const asio::error_code& error) {
                     if (error || !*self) return;
                     (*self)->readKeys();
                     if (*self && (*self)->events_) (*self)->waitForKeys();
                   });
}

void CursesTerminal::readKeys() {
  std::array<char, 1024> typed;
  const ssize_t length = ::read(STDIN_FILENO, typed.data(), typed.size());
  if (length <= 0) {
    if (length == 0 || errno != EINTR) std::exchange(events_, nullptr)->terminalLost();
    return;
  }
  // The pipe is empty and has room for more than this.
  if (::write(::fileno(channelIn_.get()), typed.data(), static_cast<size_t>(length)) < 0) return;
  const auto self = self_;
  wint_t code = 0;
  for (int kind = ::get_wch(&code); kind != ERR; kind = ::get_wch(&code)) {
    keyRead(kind, code);
    if (!*self) return;
  }
}

void CursesTerminal::keyRead(int kind, wint_t code) {
  if (kind != KEY_CODE_YES) {
    events_->keyPressed(characterKey(code));
  } else if (code == KEY_MOUSE) {
    mouseRead();
  } else if (const auto press = keyOf(code)) {
    events_->keyPressed(*press);
  }
}

/// One key may stand for several quick actions, which are handed out the newest first.
void CursesTerminal::mouseRead() {
  std::vector<MouseAction> actions;
  for (MEVENT event{}; ::getmouse(&event) == OK;) {
    if (const auto action = mouseOf(event)) actions.push_back(*action);
  }
  const auto self = self_;
  for (auto action = actions.rbegin(); *self && action != actions.rend(); ++action) {
    events_->mouseUsed(*action);
  }
}

void CursesTerminal::waitForResize() {
  resizes_.async_wait([self = self_](const asio::error_code& error, int) {
    if (error || !*self) return;
    (*self)->fitToWindow();
    (*self)->waitForResize();
    if ((*self)->events_) (*self)->events_->terminalResized();
  });
}

attr_t CursesTerminal::attributes(const TerminalStyle& style) const {
  attr_t attributes = A_NORMAL;
  if (style.bold) attributes |= A_BOLD;
  if (style.dim) attributes |= A_DIM;
  if (style.reverse) attributes |= A_REVERSE;
  return attributes;
}

/// Pairs are numbered as they are met; a terminal with few of them shows the rest uncoloured.
short CursesTerminal::pairOf(const TerminalStyle& style) {
  const std::pair colours{style.text, style.ground};
  if (!colours_ || colours == std::pair{TerminalColour::Default, TerminalColour::Default}) return 0;
  if (const auto known = pairs_.find(colours); known != pairs_.end()) return known->second;
  const auto number = static_cast<short>(pairs_.size() + 1);
  if (number >= COLOR_PAIRS) return 0;
  ::init_pair(number, cursesColour(style.text), cursesColour(style.ground));
  pairs_.emplace(colours, number);
  return number;
}

void CursesTerminal::put(int row, int column, std::wstring_view text, const TerminalStyle& style) {
  if (!screen_ || row < 0 || row >= rows() || column < 0 || column >= columns()) return;
  const auto room = static_cast<std::size_t>(columns() - column);
  const std::wstring_view shown = text.substr(0, room);
  ::wattr_set(stdscr, attributes(style), pairOf(style), nullptr);
  ::mvwaddnwstr(stdscr, row, column, shown.data(), static_cast<int>(shown.size()));
}

bool CursesTerminal::show() {
  if (!screen_) return true;
  if (!sendFrame()) return false;
  ::wrefresh(stdscr);
  takeFrame();
  return sendFrame();
}

/// Whether the terminal has taken all of it.
bool CursesTerminal::sendFrame() {
  frame_.erase(0, writeUnblocked(STDOUT_FILENO, frame_));
  return frame_.empty();
}

/// Moves what the library has drawn from the canvas to the end of the frame.
void CursesTerminal::takeFrame() {
  const int canvas = ::fileno(canvas_.get());
  const off_t drawn = ::lseek(canvas, 0, SEEK_CUR);
  if (drawn <= 0) return;
  const std::size_t before = frame_.size();
  frame_.resize(before + static_cast<std::size_t>(drawn));
  const ssize_t count = ::pread(canvas, frame_.data() + before, static_cast<std::size_t>(drawn), 0);
  frame_.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  ::lseek(canvas, 0, SEEK_SET);
}

}  // namespace

std::unique_ptr<Terminal> makeTerminal(EventLoop& loop) {
  LoopCore* core = loopCoreOf(loop);
  return core ? std::make_unique<CursesTerminal>(*core) : nullptr;
}

}  // namespace quorvane
