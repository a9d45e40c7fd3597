#include "platform/asio/file_sender.h"

#include <sys/sendfile.h>

#include <cerrno>

#include "platform/linux/open_file.h"

namespace quorvane {

/// Nothing is ever under way: the system's call takes what the socket has room for.
struct FileSender::Transfer {};

FileSender::~FileSender() = default;

// The header block before it does not wait for its file (MSG_MORE): sendfile then takes three times
// as long.
std::size_t FileSender::send(StreamSocket& socket, const std::shared_ptr<const OpenFile>& file,
                             std::uint64_t offset, std::size_t length, asio::error_code& error) {
  const auto* own = dynamic_cast<const LinuxFile*>(file.get());
  auto position = static_cast<off_t>(offset);
  const ssize_t count =
      own ? ::sendfile(socket.native_handle(), own->descriptor(), &position, length) : -1;
  if (count >= 0) {
    error.clear();
    return static_cast<std::size_t>(count);
  }
  const bool cannot = !own || errno == EINVAL || errno == ENOSYS;
  error = cannot ? asio::error_code(asio::error::operation_not_supported)
                 : asio::error_code(errno, asio::error::get_system_category());
  return 0;
}

std::size_t FileSender::take(asio::error_code& error) {
  error.clear();
  return 0;
}

bool FileSender::waitUntilOver(std::chrono::milliseconds) {
  return true;
}

}  // namespace quorvane
