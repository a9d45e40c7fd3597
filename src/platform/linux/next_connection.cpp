#include "platform/asio/next_connection.h"

#include <poll.h>

namespace quorvane {

/// The system's queue keeps them until they are asked for.
struct NextConnection::Waiting {};

void NextConnection::await(Acceptor& acceptor, std::shared_ptr<NextConnectionEvents> told) {
  acceptor.async_accept(
      [told = std::move(told)](const asio::error_code& error, StreamSocket accepted) {
        told->accepted(error, std::move(accepted));
      });
}

bool NextConnection::hasCome(Acceptor& acceptor) const {
  pollfd waiting{acceptor.native_handle(), POLLIN, 0};
  return ::poll(&waiting, 1, 0) > 0;
}

}  // namespace quorvane
