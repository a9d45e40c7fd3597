#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/event_loop.h"

namespace quorvane {

/// Prints lines for somebody who may stop reading. What is not taken at once waits, up to a bound;
/// lines beyond it are dropped, and a line says how many once there is room again. Each line is
/// printed as one, its control characters made visible.
class LinePrinter {
 public:
  /// Writes the beginning of the bytes that is taken at once and returns its length.
  using Write = std::function<std::size_t(std::string_view bytes)>;

  static constexpr std::size_t kMostWaiting = std::size_t{64} * 1024;

  /// The loop outlives the printer.
  LinePrinter(EventLoop& loop, Write write);
  LinePrinter(const LinePrinter&) = delete;
  LinePrinter& operator=(const LinePrinter&) = delete;
  ~LinePrinter() { flush(); }

  void print(std::string_view line);

 private:
  void flush();
  void append(std::string_view line);

  Write write_;
  std::string waiting_;
  std::size_t dropped_ = 0;
  std::unique_ptr<Timer> retries_;  ///< runs while something waits
};

}  // namespace quorvane
