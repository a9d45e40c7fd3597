#include "platform/asio/file_sender.h"

#include <mswsock.h>
#include <versionhelpers.h>
#include <winsock2.h>

#include <algorithm>
#include <asio/windows/overlapped_ptr.hpp>

#include "platform/windows/handle.h"
#include "platform/windows/open_file.h"

namespace quorvane {

namespace {

using std::chrono::steady_clock;

/// Bytes that are asked of the system at a time. How far it has come with them it does not tell,
/// and a client is watched for whether it takes anything; so a slow one gets little at a time, and
/// a fast one, for whom every stretch means a way to it and back, much.
constexpr std::size_t kLeast = std::size_t{64} << 10;
constexpr std::size_t kMost = std::size_t{512} << 10;
constexpr std::chrono::milliseconds kBrief{250};
constexpr std::chrono::milliseconds kLong{2000};

/// The editions for single users send two files at a time, whoever else waits: two clients that
/// take nothing would keep all others waiting.
bool sendsManyFilesAtOnce() {
  static const bool answer = IsWindowsServer();
  return answer;
}

}  // namespace

/// Lives until the system has done with it.
struct FileSender::Transfer {
  Transfer(FileSender& from, std::shared_ptr<const OpenFile> what)
      : sender(&from), file(std::move(what)), over(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}

  void told(const asio::error_code& fault, std::size_t count) {
    pending = nullptr;
    file.reset();
    error = fault;
    sent = count;
    if (sender) sender->events_.fileSent();
  }

  FileSender* sender;  ///< null once nobody waits
  std::shared_ptr<const OpenFile> file;
  SystemHandle over;
  steady_clock::time_point begun = steady_clock::now();
  OVERLAPPED* pending = nullptr;  ///< until it was told
  asio::error_code error;
  std::size_t sent = 0;
};

FileSender::~FileSender() {
  if (transfer_) transfer_->sender = nullptr;
}

std::size_t FileSender::send(StreamSocket& socket, const std::shared_ptr<const OpenFile>& file,
                             std::uint64_t offset, std::size_t length, asio::error_code& error) {
  const auto* own = dynamic_cast<const HandleFile*>(file.get());
  if (!own || !sendsManyFilesAtOnce()) {
    error = asio::error::operation_not_supported;
    return 0;
  }
  const auto transfer = std::make_shared<Transfer>(*this, file);
  asio::windows::overlapped_ptr operation(
      socket.get_executor(), [transfer](const asio::error_code& fault, std::size_t count) {
        transfer->told(fault, count);
      });
  operation.get()->Offset = static_cast<DWORD>(offset);
  operation.get()->OffsetHigh = static_cast<DWORD>(offset >> 32);
  operation.get()->hEvent = transfer->over.get();
  stretch_ = std::clamp(stretch_, kLeast, kMost);
  const auto count = static_cast<DWORD>(std::min(length, stretch_));
  const bool isBegun = ::TransmitFile(socket.native_handle(), own->handle(), count, 0,
                                      operation.get(), nullptr, 0) != 0;
  const int fault = isBegun ? WSA_IO_PENDING : ::WSAGetLastError();
  if (fault != WSA_IO_PENDING) {
    error.assign(fault, asio::error::get_system_category());
    return 0;
  }
  transfer->pending = operation.release();
  transfer_ = transfer;
  error = asio::error::in_progress;
  return 0;
}

std::size_t FileSender::take(asio::error_code& error) {
  const OVERLAPPED* pending = transfer_->pending;
  if (pending && !HasOverlappedIoCompleted(pending)) {
    error = asio::error::in_progress;
    return 0;
  }
  const auto transfer = std::exchange(transfer_, nullptr);
  if (pending) {
    transfer->sender = nullptr;
    transfer->sent = pending->InternalHigh;
    if (pending->Internal != 0) transfer->error = asio::error::connection_aborted;
  }
  const auto took = steady_clock::now() - transfer->begun;
  if (took < kBrief) stretch_ *= 2;
  if (took > kLong) stretch_ /= 2;
  error = transfer->error;
  return transfer->sent;
}

bool FileSender::waitUntilOver(std::chrono::milliseconds atMost) {
  return ::WaitForSingleObject(transfer_->over.get(), static_cast<DWORD>(atMost.count())) ==
         WAIT_OBJECT_0;
}

}  // namespace quorvane
