#include "platform/datagram_exchange.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>

namespace quorvane {

namespace {

using Outcome = DatagramExchange::Outcome;
using Accept = std::function<bool(std::string_view)>;
using Clock = std::chrono::steady_clock;

/// No datagram is longer.
constexpr std::size_t kMostBytes = 65536;

class Socket {
 public:
  explicit Socket(const addrinfo& address)
      : descriptor_(
            ::socket(address.ai_family, address.ai_socktype | SOCK_CLOEXEC, address.ai_protocol)) {}
  ~Socket() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;

  int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

bool waitReadable(int descriptor, Clock::time_point deadline) {
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    if (left.count() <= 0) return false;
    pollfd wanted{descriptor, POLLIN, 0};
    const auto wait =
        static_cast<int>(std::min<std::chrono::milliseconds::rep>(left.count(), 60000));
    const int ready = ::poll(&wanted, 1, wait);
    if (ready > 0) return true;
    if (ready < 0 && errno != EINTR) return false;
  }
}

DatagramExchange awaitAnswer(int descriptor, Clock::time_point deadline, const Accept& accept) {
  std::string buffer(kMostBytes, '\0');
  while (waitReadable(descriptor, deadline)) {
    const ssize_t count = ::recv(descriptor, buffer.data(), buffer.size(), 0);
    // The kernel reports here that the far side has answered "no such port".
    if (count < 0 && errno == ECONNREFUSED) return {Outcome::Refused, {}};
    if (count < 0 && errno != EINTR && errno != EAGAIN) return {Outcome::Failed, {}};
    const auto answer =
        std::string_view(buffer).substr(0, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count >= 0 && accept(answer)) return {Outcome::Answered, std::string(answer)};
  }
  return {Outcome::Silence, {}};
}

/// Connecting makes the kernel pass on datagrams from this one address only.
DatagramExchange exchangeWith(const addrinfo& address, std::string_view question,
                              Clock::time_point deadline, const Accept& accept) {
  const Socket socket(address);
  if (socket.descriptor() < 0 ||
      ::connect(socket.descriptor(), address.ai_addr, address.ai_addrlen) != 0) {
    return {Outcome::Failed, {}};
  }
  const ssize_t sent = ::send(socket.descriptor(), question.data(), question.size(), MSG_NOSIGNAL);
  if (sent < 0) return {errno == ECONNREFUSED ? Outcome::Refused : Outcome::Failed, {}};
  return awaitAnswer(socket.descriptor(), deadline, accept);
}

}  // namespace

DatagramExchange exchangeDatagrams(const std::string& host, std::uint16_t port,
                                   std::string_view question, std::chrono::milliseconds atMost,
                                   const Accept& accept) {
  addrinfo hints{};
  hints.ai_socktype = SOCK_DGRAM;
  hints.ai_flags = AI_NUMERICSERV;
  addrinfo* found = nullptr;
  if (::getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0) {
    return {Outcome::UnknownHost, {}};
  }
  const std::unique_ptr<addrinfo, void (*)(addrinfo*)> held(found, ::freeaddrinfo);
  const auto deadline = Clock::now() + atMost;
  DatagramExchange result;
  for (const addrinfo* address = found; address != nullptr; address = address->ai_next) {
    result = exchangeWith(*address, question, deadline, accept);
    if (result.outcome != Outcome::Refused && result.outcome != Outcome::Failed) break;
  }
  return result;
}

}  // namespace quorvane
