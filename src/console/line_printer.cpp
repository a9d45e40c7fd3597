#include "console/line_printer.h"

#include <utility>

#include "support/visible_text.h"

namespace quorvane {

namespace {

constexpr std::chrono::milliseconds kRetryInterval{100};

}  // namespace

LinePrinter::LinePrinter(EventLoop& loop, Write write)
    : write_(std::move(write)), retries_(loop.makeTimer(kRetryInterval, [this] { flush(); })) {}

void LinePrinter::print(std::string_view line) {
  if (waiting_.size() >= kMostWaiting) flush();
  if (dropped_ > 0 || waiting_.size() >= kMostWaiting) {
    ++dropped_;
  } else {
    append(line);
  }
  flush();
}

void LinePrinter::append(std::string_view line) {
  waiting_ += visibleLine(line.substr(0, kMostWaiting));
  waiting_ += '\n';
}

void LinePrinter::flush() {
  waiting_.erase(0, write_(waiting_));
  if (waiting_.empty() && dropped_ > 0) {
    append("(" + std::to_string(std::exchange(dropped_, 0)) + " lines dropped: nobody read)");
    waiting_.erase(0, write_(waiting_));
  }
  if (waiting_.empty()) {
    retries_->stop();
  } else if (!retries_->enabled()) {
    retries_->start();
  }
}

}  // namespace quorvane
