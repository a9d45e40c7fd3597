#pragma once

#include <asio/error_code.hpp>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/asio/loop_core.h"

namespace quorvane {

class OpenFile;

/// Who has a file sent; outlives the sender.
class FileSenderEvents {
 public:
  virtual ~FileSenderEvents() = default;
  /// What was under way is over, and take() tells how it went.
  virtual void fileSent() = 0;
};

/// Has the system send files over one connection without bringing them into this process. Some
/// systems take at once what there is room for; others go on by themselves. Each system's folder
/// implements it.
class FileSender {
 public:
  explicit FileSender(FileSenderEvents& events) : events_(events) {}
  FileSender(const FileSender&) = delete;
  FileSender& operator=(const FileSender&) = delete;
  ~FileSender();

  /// Sends up to `length` bytes of `file` from `offset` on, while nothing is under way. Gives back
  /// how many the system took: none at the end of the file. `in_progress` when it goes on by
  /// itself: fileSent() follows. `operation_not_supported` when the system can't send this file so.
  std::size_t send(StreamSocket& socket, const std::shared_ptr<const OpenFile>& file,
                   std::uint64_t offset, std::size_t length, asio::error_code& error);

  bool isUnderWay() const { return transfer_ != nullptr; }

  /// How many bytes were taken of what was under way: none at the end of the file. `in_progress`
  /// while it is; fileSent() does not follow when it is not any more.
  std::size_t take(asio::error_code& error);

  /// Blocks until what is under way is over. False when `atMost` passes before.
  bool waitUntilOver(std::chrono::milliseconds atMost);

 private:
  struct Transfer;

  FileSenderEvents& events_;
  std::shared_ptr<Transfer> transfer_;  ///< what is under way, the system's share in it
  std::size_t stretch_ = 0;             ///< bytes that the client takes in a moment
};

}  // namespace quorvane
