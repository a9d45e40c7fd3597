#include "platform/datagram_exchange.h"

#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/ip/udp.hpp>

#include "platform/asio/datagram_calls.h"

namespace quorvane {

namespace {

using asio::ip::udp;
using Outcome = DatagramExchange::Outcome;
using Accept = std::function<bool(std::string_view)>;
using Clock = std::chrono::steady_clock;

/// No datagram is longer.
constexpr std::size_t kMostBytes = 65536;

DatagramExchange failure(const asio::error_code& error) {
  return {isRefusal(error) ? Outcome::Refused : Outcome::Failed, {}};
}

/// A refusal may come at once; some systems tell it only to who waits already.
DatagramExchange askAndAwait(asio::io_context& io, udp::socket& socket, std::string_view question,
                             Clock::time_point deadline, const Accept& accept) {
  std::string room(kMostBytes, '\0');
  DatagramExchange result{Outcome::Silence, {}};
  bool isOver = false;
  std::function<void()> receive = [&] {
    socket.async_receive(asio::buffer(room), [&](const asio::error_code& error, std::size_t count) {
      if (isOver) return;
      const auto answer = std::string_view(room).substr(0, count);
      if (error) {
        result = failure(error);
      } else if (accept(answer)) {
        result = {Outcome::Answered, std::string(answer)};
      } else {
        receive();
      }
    });
  };
  receive();
  asio::error_code error;
  socket.send(asio::buffer(question), 0, error);
  if (!error) io.run_until(deadline);
  if (error) result = failure(error);
  isOver = true;
  asio::error_code ignored;
  socket.close(ignored);
  io.restart();
  io.run();  // the receive that was broken off
  return result;
}

/// Connecting makes the system pass on datagrams from this one address only.
DatagramExchange exchangeWith(asio::io_context& io, const udp::endpoint& address,
                              std::string_view question, Clock::time_point deadline,
                              const Accept& accept) {
  udp::socket socket(io);
  asio::error_code error;
  socket.connect(address, error);
  return error ? failure(error) : askAndAwait(io, socket, question, deadline, accept);
}

}  // namespace

DatagramExchange exchangeDatagrams(const std::string& host, std::uint16_t port,
                                   std::string_view question, std::chrono::milliseconds atMost,
                                   const Accept& accept) {
  asio::io_context io;
  asio::error_code error;
  const auto found =
      udp::resolver(io).resolve(host, std::to_string(port), udp::resolver::numeric_service, error);
  if (error) return {Outcome::UnknownHost, {}};
  const auto deadline = Clock::now() + atMost;
  DatagramExchange result;
  for (const auto& address : found) {
    result = exchangeWith(io, address.endpoint(), question, deadline, accept);
    if (result.outcome != Outcome::Refused && result.outcome != Outcome::Failed) break;
  }
  return result;
}

}  // namespace quorvane
