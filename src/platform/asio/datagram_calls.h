#pragma once

#include <asio/error_code.hpp>
#include <asio/ip/address_v4.hpp>
#include <asio/ip/udp.hpp>
#include <cstddef>
#include <string_view>

#include "platform/asio/loop_core.h"

namespace quorvane {

/// Datagrams with the address they were sent to, which the event-loop library does not tell. Each
/// system's folder implements these calls.

struct Envelope {
  asio::ip::udp::endpoint from;
  asio::ip::address_v4 asked;  ///< which of this machine's addresses
};

/// Has the system tell the envelopes of what arrives on a bound socket.
void prepareDatagrams(DatagramSocket& socket, asio::error_code& error);

/// Takes a datagram that waits, `would_block` when there is none.
std::size_t receiveDatagram(DatagramSocket& socket, char* out, std::size_t room, Envelope& envelope,
                            asio::error_code& error);

/// Answers from the address that was asked. What can't be sent is lost.
void answerDatagram(DatagramSocket& socket, const Envelope& envelope, std::string_view text);

/// Whether the error of a receive says that nobody has the port at the far side.
bool isRefusal(const asio::error_code& error);

}  // namespace quorvane
