#include "platform/asio/outgoing_queue.h"

#include <algorithm>
#include <array>
#include <asio/buffer.hpp>
#include <span>

namespace quorvane {

namespace {

constexpr std::size_t kKiB = 1024;
constexpr std::size_t kMostSpent = 1024;           ///< segments sent whose places are kept
constexpr std::size_t kGathered = 8;               ///< memory segments sent in one call
constexpr std::size_t kTurn = 1024 * kKiB;         ///< bytes before others have their turn
constexpr std::size_t kThroughMemory = 64 * kKiB;  ///< one read of a file the system can't send
constexpr std::size_t kCopied = 16 * kKiB;         ///< stretches of files copied in one call

std::string_view memoryOf(const BodySegment& segment) {
  if (const auto* own = std::get_if<std::string>(&segment)) return *own;
  const auto* shared = std::get_if<std::shared_ptr<const std::string>>(&segment);
  return shared && *shared ? std::string_view(**shared) : std::string_view();
}

/// Whether the segment is in memory, or can be brought there: a short stretch of a file is copied,
/// which saves a call and a packet; above some 16 KiB the system sends it sooner by itself. A file
/// that has become too short is left to the sending of files, which fails.
bool broughtToMemory(BodySegment& segment, std::size_t room) {
  const auto* slice = std::get_if<FileSlice>(&segment);
  if (!slice) return true;
  if (!slice->file || slice->length > room) return false;
  std::string bytes(static_cast<std::size_t>(slice->length), '\0');
  if (slice->file->read(slice->offset, bytes.data(), bytes.size()) != bytes.size()) return false;
  segment = std::move(bytes);
  return true;
}

OutgoingQueue::Result resultOf(const asio::error_code& error) {
  if (!error || error == asio::error::interrupted) return OutgoingQueue::Result::MoreToSend;
  if (error == asio::error::in_progress) return OutgoingQueue::Result::UnderWay;
  return error == asio::error::would_block ? OutgoingQueue::Result::WouldBlock
                                           : OutgoingQueue::Result::Failed;
}

OutgoingQueue::Result resultOfFile(const asio::error_code& error, std::size_t sent) {
  return !error && sent == 0 ? OutgoingQueue::Result::Failed : resultOf(error);
}

}  // namespace

void OutgoingQueue::push(std::string head, Body body) {
  pushSegment(std::move(head));
  pushSegment(std::move(body.first));
  for (BodySegment& segment : body.rest) pushSegment(std::move(segment));
}

void OutgoingQueue::pushSegment(BodySegment segment) {
  const std::uint64_t length = segmentLength(segment);
  if (length == 0) return;
  pending_ += length;
  segments_.push_back(std::move(segment));
}

OutgoingQueue::Result OutgoingQueue::sendSome(StreamSocket& socket, FileSender& files) {
  if (files.isUnderWay()) {
    const Result result = takeFile(files);
    if (result != Result::MoreToSend) return result;
  }
  std::size_t turn = 0;
  while (pending_ > 0 && turn < kTurn) {
    std::size_t sent = 0;
    const bool isFile = std::holds_alternative<FileSlice>(segments_[first_]);
    const Result result = isFile ? sendFile(socket, files, sent) : sendMemory(socket, sent);
    if (result != Result::MoreToSend) return result;
    consume(sent);
    turn += sent;
  }
  return pending_ == 0 ? Result::Empty : Result::MoreToSend;
}

OutgoingQueue::Result OutgoingQueue::sendMemory(StreamSocket& socket, std::size_t& sent) {
  std::array<asio::const_buffer, kGathered> pieces;
  std::size_t count = 0;
  std::size_t room = kCopied;
  for (std::size_t next = first_; next < segments_.size() && count < kGathered; ++next) {
    if (!broughtToMemory(segments_[next], room)) break;
    std::string_view bytes = memoryOf(segments_[next]);
    room -= std::min(room, bytes.size());
    if (next == first_) bytes.remove_prefix(static_cast<std::size_t>(offset_));
    pieces[count++] = asio::buffer(bytes);
  }
  asio::error_code error;
  sent = socket.send(std::span<const asio::const_buffer>(pieces.data(), count), 0, error);
  return resultOf(error);
}

OutgoingQueue::Result OutgoingQueue::takeFile(FileSender& files) {
  asio::error_code error;
  const std::size_t sent = files.take(error);
  const Result result = resultOfFile(error, sent);
  if (result == Result::MoreToSend) consume(sent);
  return result;
}

OutgoingQueue::Result OutgoingQueue::sendFile(StreamSocket& socket, FileSender& files,
                                              std::size_t& sent) {
  const auto& slice = std::get<FileSlice>(segments_[first_]);
  if (!slice.file) return Result::Failed;
  const auto length =
      static_cast<std::size_t>(std::min<std::uint64_t>(slice.length - offset_, kTurn));
  asio::error_code error;
  sent = files.send(socket, slice.file, slice.offset + offset_, length, error);
  if (error == asio::error::operation_not_supported) {
    return sendFileThroughMemory(socket, slice, sent);
  }
  return resultOfFile(error, sent);
}

OutgoingQueue::Result OutgoingQueue::sendFileThroughMemory(StreamSocket& socket,
                                                           const FileSlice& slice,
                                                           std::size_t& sent) {
  std::string bytes(
      static_cast<std::size_t>(std::min<std::uint64_t>(slice.length - offset_, kThroughMemory)),
      '\0');
  const std::size_t count = slice.file->read(slice.offset + offset_, bytes.data(), bytes.size());
  if (count == 0) return Result::Failed;
  asio::error_code error;
  sent = socket.send(asio::buffer(bytes.data(), count), 0, error);
  return resultOf(error);
}

void OutgoingQueue::consume(std::uint64_t bytes) {
  pending_ -= bytes;
  offset_ += bytes;
  while (first_ < segments_.size() && offset_ >= segmentLength(segments_[first_])) {
    offset_ -= segmentLength(segments_[first_]);
    segments_[first_++].emplace<std::string>();  // an assignment would keep the memory
  }
  if (pending_ == 0) return clear();
  if (first_ < kMostSpent) return;
  segments_.erase(segments_.begin(), segments_.begin() + static_cast<std::ptrdiff_t>(first_));
  first_ = 0;
}

void OutgoingQueue::clear() {
  segments_.clear();
  first_ = 0;
  offset_ = 0;
  pending_ = 0;
}

}  // namespace quorvane
