#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane {

/// The terminal that a user sits at: a grid of character cells, keys and a mouse. Rows and columns
/// count from 0 at the top left. All events come from the event loop's one thread.

enum class TerminalColour : std::uint8_t {
  Default,
  Black,
  Red,
  Green,
  Yellow,
  Blue,
  Magenta,
  Cyan,
  White
};

struct TerminalStyle {
  TerminalColour text = TerminalColour::Default;
  TerminalColour ground = TerminalColour::Default;
  bool bold = false;
  bool dim = false;
  bool reverse = false;
};

enum class TerminalKey : std::uint8_t {
  Character,
  Up,
  Down,
  Left,
  Right,
  PageUp,
  PageDown,
  Home,
  End,
  Tab,
  BackTab,
  Enter,
  Interrupt,  ///< Ctrl-C, which arrives as a key
};

struct KeyPress {
  TerminalKey key = TerminalKey::Character;
  char32_t character = 0;  ///< for TerminalKey::Character
};

struct MouseAction {
  enum class Kind : std::uint8_t { Press, WheelUp, WheelDown };
  Kind kind = Kind::Press;
  int row = 0;
  int column = 0;
};

/// What a terminal tells its owner, who outlives it.
class TerminalEvents {
 public:
  virtual ~TerminalEvents() = default;
  virtual void keyPressed(const KeyPress& press) = 0;
  virtual void mouseUsed(const MouseAction& action) = 0;
  virtual void terminalResized() = 0;
  /// The user has gone; nothing more can be shown or read.
  virtual void terminalLost() = 0;
};

class Terminal {
 public:
  virtual ~Terminal() = default;

  /// Whether there is a terminal at all, rather than a file or another program.
  virtual bool isThere() const = 0;

  /// Takes over the screen, and the events begin. False when it can't be drawn on. While it is
  /// open a crash of the program puts the terminal back as it was.
  virtual bool open(TerminalEvents& events) = 0;
  virtual void close() = 0;  ///< gives the screen back as it was

  virtual int rows() const = 0;
  virtual int columns() const = 0;
  virtual bool hasColours() const = 0;

  /// Writes into the next picture; what lies outside of the screen is cut off. Every character
  /// takes one cell.
  virtual void put(int row, int column, std::wstring_view text, const TerminalStyle& style) = 0;

  /// Brings the picture to the screen, sending only what differs from the last one. False when the
  /// terminal takes no more at the moment; the next call makes up for it.
  virtual bool show() = 0;
};

}  // namespace quorvane
