#include "platform/linux/terminal_rescue.h"

#define NCURSES_NOMACROS 1
#include <curses.h>
#include <fcntl.h>
#include <term.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <string>

namespace quorvane {

namespace {

constexpr std::array kCrashes = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};

/// All that the handler touches: fixed storage, filled before the handlers are set.
struct Rescue {
  int terminal = -1;
  termios before{};
  std::array<char, 512> sequence{};
  std::size_t length = 0;
  std::array<struct sigaction, kCrashes.size()> former{};
};
Rescue rescue;

/// A stack of its own, since a crash may come from a stack that is full.
std::array<char, std::size_t{64} * 1024> handlerStack;

/// A terminal that takes nothing must not keep a crashed program alive.
void onCrash(int signal) {
  const int flags = ::fcntl(rescue.terminal, F_GETFL);
  ::fcntl(rescue.terminal, F_SETFL, flags | O_NONBLOCK);
  const ssize_t written = ::write(rescue.terminal, rescue.sequence.data(), rescue.length);
  ::fcntl(rescue.terminal, F_SETFL, flags);
  if (written >= 0) ::tcsetattr(rescue.terminal, TCSANOW, &rescue.before);
  for (std::size_t i = 0; i < kCrashes.size(); ++i) {
    if (kCrashes[i] == signal) ::sigaction(signal, &rescue.former[i], nullptr);
  }
  // Blocked until this handler returns, then met by whoever came before.
  ::raise(signal);
}

void useStackOfItsOwn() {
  stack_t present{};
  if (::sigaltstack(nullptr, &present) != 0 || !(present.ss_flags & SS_DISABLE)) return;
  stack_t own{};
  own.ss_sp = handlerStack.data();
  own.ss_size = handlerStack.size();
  ::sigaltstack(&own, nullptr);
}

/// Switches off every kind of mouse report, in case of a crash; the terminal's own description has
/// no word for it.
constexpr const char* kMouseOff = "\x1b[?1000l\x1b[?1002l\x1b[?1003l\x1b[?1006l";

std::string* collected = nullptr;  // tputs() takes a plain function

int collect(int c) {
  collected->push_back(static_cast<char>(c));
  return c;
}

/// A word of the language that the terminal's description says it speaks, or null.
const char* word(const char* name) {
  const char* text = ::tigetstr(name);
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  return text == reinterpret_cast<const char*>(-1) ? nullptr : text;
}

/// What the terminal is sent to leave the state that this program has put it in.
std::string leavingSequence() {
  std::string sequence;
  collected = &sequence;
  for (const char* name : {"sgr0", "op", "rmkx", "cnorm", "rmcup"}) {
    if (const char* text = word(name)) ::tputs(text, 1, collect);
  }
  collected = nullptr;
  return sequence + kMouseOff;
}

}  // namespace

bool canMoveCursor() {
  return word("cup") != nullptr;
}

TerminalRescue::TerminalRescue(int terminal, const termios& before) {
  const std::string sequence = leavingSequence();
  rescue.terminal = terminal;
  rescue.before = before;
  rescue.length = std::min(sequence.size(), rescue.sequence.size());
  std::copy_n(sequence.begin(), rescue.length, rescue.sequence.begin());
  useStackOfItsOwn();
  struct sigaction action {};
  action.sa_handler = onCrash;
  action.sa_flags = SA_ONSTACK;
  for (std::size_t i = 0; i < kCrashes.size(); ++i) {
    ::sigaction(kCrashes[i], &action, &rescue.former[i]);
  }
}

TerminalRescue::~TerminalRescue() {
  for (std::size_t i = 0; i < kCrashes.size(); ++i) {
    ::sigaction(kCrashes[i], &rescue.former[i], nullptr);
  }
}

}  // namespace quorvane
