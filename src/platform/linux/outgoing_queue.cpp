#include "platform/linux/outgoing_queue.h"

#include <sys/sendfile.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "platform/linux/open_file.h"

namespace quorvane {

namespace {

constexpr std::size_t kKiB = 1024;
constexpr std::size_t kGathered = 8;               ///< memory segments sent in one call
constexpr std::size_t kTurn = 1024 * kKiB;         ///< bytes before others have their turn
constexpr std::size_t kThroughMemory = 64 * kKiB;  ///< one read of a file the kernel can't send
constexpr std::size_t kCopied = 16 * kKiB;         ///< stretches of files copied in one call

std::string_view memoryOf(const BodySegment& segment) {
  if (const auto* own = std::get_if<std::string>(&segment)) return *own;
  const auto* shared = std::get_if<std::shared_ptr<const std::string>>(&segment);
  return shared && *shared ? std::string_view(**shared) : std::string_view();
}

/// Whether the segment is in memory, or can be brought there: a short stretch of a file is copied,
/// which saves a call and a packet; above some 16 KiB the kernel sends it sooner by itself. A file
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

OutgoingQueue::Result resultOf(ssize_t count, std::size_t& sent) {
  if (count >= 0) {
    sent = static_cast<std::size_t>(count);
    return OutgoingQueue::Result::MoreToSend;
  }
  if (errno == EINTR) return OutgoingQueue::Result::MoreToSend;
  return errno == EAGAIN ? OutgoingQueue::Result::WouldBlock : OutgoingQueue::Result::Failed;
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

OutgoingQueue::Result OutgoingQueue::sendSome(StreamSocket& socket) {
  std::size_t turn = 0;
  while (pending_ > 0 && turn < kTurn) {
    std::size_t sent = 0;
    const bool isFile = std::holds_alternative<FileSlice>(segments_[first_]);
    const Result result = isFile ? sendFile(socket, sent) : sendMemory(socket, sent);
    if (result != Result::MoreToSend) return result;
    consume(sent);
    turn += sent;
  }
  return pending_ == 0 ? Result::Empty : Result::MoreToSend;
}

OutgoingQueue::Result OutgoingQueue::sendMemory(StreamSocket& socket, std::size_t& sent) {
  std::array<iovec, kGathered> pieces;
  std::size_t count = 0;
  std::size_t room = kCopied;
  for (std::size_t next = first_; next < segments_.size() && count < kGathered; ++next) {
    if (!broughtToMemory(segments_[next], room)) break;
    std::string_view bytes = memoryOf(segments_[next]);
    room -= std::min(room, bytes.size());
    if (next == first_) bytes.remove_prefix(static_cast<std::size_t>(offset_));
    pieces[count++] = {const_cast<char*>(bytes.data()), bytes.size()};
  }
  msghdr message{};
  message.msg_iov = pieces.data();
  message.msg_iovlen = count;
  // A header block does not wait for its file (MSG_MORE): sendfile then takes three times as long.
  return resultOf(::sendmsg(socket.native_handle(), &message, MSG_NOSIGNAL | MSG_DONTWAIT), sent);
}

OutgoingQueue::Result OutgoingQueue::sendFile(StreamSocket& socket, std::size_t& sent) {
  const auto& slice = std::get<FileSlice>(segments_[first_]);
  const auto* file = dynamic_cast<const LinuxFile*>(slice.file.get());
  if (!file) return sendFileThroughMemory(socket, slice, sent);

  auto position = static_cast<off_t>(slice.offset + offset_);
  const auto length =
      static_cast<std::size_t>(std::min<std::uint64_t>(slice.length - offset_, kTurn));
  const ssize_t count = ::sendfile(socket.native_handle(), file->descriptor(), &position, length);
  if (count == 0) return Result::Failed;
  if (count < 0 && (errno == EINVAL || errno == ENOSYS)) {
    return sendFileThroughMemory(socket, slice, sent);
  }
  return resultOf(count, sent);
}

OutgoingQueue::Result OutgoingQueue::sendFileThroughMemory(StreamSocket& socket,
                                                           const FileSlice& slice,
                                                           std::size_t& sent) {
  std::string bytes(
      static_cast<std::size_t>(std::min<std::uint64_t>(slice.length - offset_, kThroughMemory)),
      '\0');
  if (!slice.file) return Result::Failed;
  const std::size_t count = slice.file->read(slice.offset + offset_, bytes.data(), bytes.size());
  if (count == 0) return Result::Failed;
  return resultOf(::send(socket.native_handle(), bytes.data(), count, MSG_NOSIGNAL | MSG_DONTWAIT),
                  sent);
}

void OutgoingQueue::consume(std::uint64_t bytes) {
  pending_ -= bytes;
  offset_ += bytes;
  while (first_ < segments_.size() && offset_ >= segmentLength(segments_[first_])) {
    offset_ -= segmentLength(segments_[first_]);
    segments_[first_] = std::string();
    ++first_;
  }
  if (pending_ == 0) clear();
}

void OutgoingQueue::clear() {
  segments_.clear();
  first_ = 0;
  offset_ = 0;
  pending_ = 0;
}

}  // namespace quorvane
