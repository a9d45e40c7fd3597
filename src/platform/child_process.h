#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// A program to start. It is found as the system finds programs by name; no shell reads the words.
struct ChildCommand {
  std::vector<std::string> words;  ///< the program's name and its arguments
  bool piped = false;  ///< its standard streams lead to the ChildProcess; else they lead nowhere
  std::uint64_t mostMemory = 0;   ///< bytes that it may ask the system for; 0: no bound
  std::uint32_t mostSeconds = 0;  ///< of a processor that it may take; 0: no bound
};

/// A program that was started and is waited for. Ends with this object, with all that it started
/// itself and that did not leave its group of processes.
class ChildProcess {
 public:
  enum class Output { Standard, Error };

  virtual ~ChildProcess() = default;

  virtual std::int32_t id() const = 0;

  /// The exit status, of a program that ended by a signal 128 and its number. Nothing while it
  /// runs; waits at most `milliseconds` for its end.
  virtual std::optional<std::int32_t> exitStatus(int milliseconds) = 0;

  /// What the program has written, up to `length` bytes; 0 at the end. Nothing when nothing came
  /// within `milliseconds`.
  virtual std::optional<std::size_t> read(Output from, char* out, std::size_t length,
                                          int milliseconds) = 0;

  /// How many bytes the program's input took within `milliseconds`; nothing when it takes no more.
  virtual std::optional<std::size_t> write(std::string_view bytes, int milliseconds) = 0;
  virtual void closeInput() = 0;

  virtual void terminate() = 0;
};

}  // namespace quorvane
