#include "platform/linux/unblocked_write.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>

#include "platform/standard_streams.h"

namespace quorvane {

namespace {

class Unblocked {
 public:
  explicit Unblocked(int descriptor)
      : descriptor_(descriptor), flags_(::fcntl(descriptor, F_GETFL)) {
    if (flags_ >= 0) ::fcntl(descriptor_, F_SETFL, flags_ | O_NONBLOCK);
  }
  Unblocked(const Unblocked&) = delete;
  Unblocked& operator=(const Unblocked&) = delete;
  ~Unblocked() {
    if (flags_ >= 0) ::fcntl(descriptor_, F_SETFL, flags_);
  }

 private:
  int descriptor_;
  int flags_;
};

}  // namespace

std::size_t writeUnblocked(int descriptor, std::string_view bytes) {
  const Unblocked meanwhile(descriptor);
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = ::write(descriptor, bytes.data() + done, bytes.size() - done);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && errno == EAGAIN) return done;
    if (count <= 0) return bytes.size();
    done += static_cast<std::size_t>(count);
  }
  return done;
}

void writePatiently(int descriptor, std::string_view bytes, int milliseconds) {
  using std::chrono::steady_clock;
  const auto end = steady_clock::now() + std::chrono::milliseconds(milliseconds);
  for (;;) {
    bytes.remove_prefix(writeUnblocked(descriptor, bytes));
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(end - steady_clock::now()).count();
    if (bytes.empty() || left <= 0) return;
    pollfd room{descriptor, POLLOUT, 0};
    ::poll(&room, 1, static_cast<int>(left));
  }
}

std::size_t writeAtOnce(StandardStream stream, std::string_view bytes) {
  return writeUnblocked(stream == StandardStream::Output ? STDOUT_FILENO : STDERR_FILENO, bytes);
}

/// The C library gathers all there is, and lines for those who watch.
bool gatherStandardOutput() {
  return false;
}

}  // namespace quorvane
