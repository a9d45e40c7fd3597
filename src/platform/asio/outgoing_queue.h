#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/asio/file_sender.h"
#include "platform/asio/loop_core.h"
#include "platform/outgoing.h"

namespace quorvane {

/// Bytes on their way to one client, in the order they were queued. Keeps its small storage
/// between responses.
class OutgoingQueue {
 public:
  enum class Result {
    Empty,       ///< all was taken
    MoreToSend,  ///< the turn is over, the socket may take more
    WouldBlock,  ///< the socket is full
    UnderWay,    ///< the system sends part of a file, and the sender of files tells when it has
    Failed,      ///< the connection broke, or a file ended before its slice did
  };

  void push(std::string head, Body body);
  Result sendSome(StreamSocket& socket, FileSender& files);
  void clear();

  bool empty() const { return pending_ == 0; }
  std::uint64_t pending() const { return pending_; }

 private:
  Result sendMemory(StreamSocket& socket, std::size_t& sent);
  Result sendFile(StreamSocket& socket, FileSender& files, std::size_t& sent);
  Result takeFile(FileSender& files);
  Result sendFileThroughMemory(StreamSocket& socket, const FileSlice& slice, std::size_t& sent);
  void pushSegment(BodySegment segment);
  void consume(std::uint64_t bytes);

  std::vector<BodySegment> segments_;
  std::size_t first_ = 0;     ///< the segment being sent
  std::uint64_t offset_ = 0;  ///< bytes of it that were taken
  std::uint64_t pending_ = 0;
};

}  // namespace quorvane
