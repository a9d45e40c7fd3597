#include "platform/asio/datagram_calls.h"

#include <netinet/in.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstring>

namespace quorvane {

namespace {

/// A message with room for the one part that tells the address asked, either way.
struct Message {
  Message(char* bytes, std::size_t length) : data{bytes, length} {
    header.msg_name = &peer;
    header.msg_namelen = sizeof peer;
    header.msg_iov = &data;
    header.msg_iovlen = 1;
    header.msg_control = control;
    header.msg_controllen = sizeof control;
  }
  Message(const Message&) = delete;
  Message& operator=(const Message&) = delete;

  sockaddr_in peer{};
  iovec data;
  alignas(cmsghdr) char control[CMSG_SPACE(sizeof(in_pktinfo))] = {};
  msghdr header{};
};

asio::ip::address_v4 addressOf(const in_addr& address) {
  return asio::ip::address_v4(ntohl(address.s_addr));
}

in_addr systemAddress(const asio::ip::address_v4& address) {
  return {htonl(address.to_uint())};
}

}  // namespace

void prepareDatagrams(DatagramSocket& socket, asio::error_code& error) {
  socket.set_option(asio::detail::socket_option::boolean<IPPROTO_IP, IP_PKTINFO>(true), error);
}

std::size_t receiveDatagram(DatagramSocket& socket, char* out, std::size_t room, Envelope& envelope,
                            asio::error_code& error) {
  Message message(out, room);
  const ssize_t count = ::recvmsg(socket.native_handle(), &message.header, MSG_DONTWAIT);
  if (count < 0) {
    error.assign(errno, asio::error::get_system_category());
    return 0;
  }
  error.clear();
  envelope.from = {addressOf(message.peer.sin_addr), ntohs(message.peer.sin_port)};
  for (cmsghdr* part = CMSG_FIRSTHDR(&message.header); part;
       part = CMSG_NXTHDR(&message.header, part)) {
    if (part->cmsg_level != IPPROTO_IP || part->cmsg_type != IP_PKTINFO) continue;
    in_pktinfo info{};
    std::memcpy(&info, CMSG_DATA(part), sizeof info);
    envelope.asked = addressOf(info.ipi_addr);
  }
  return static_cast<std::size_t>(count);
}

void answerDatagram(DatagramSocket& socket, const Envelope& envelope, std::string_view text) {
  Message message(const_cast<char*>(text.data()), text.size());
  message.peer.sin_family = AF_INET;
  message.peer.sin_port = htons(envelope.from.port());
  message.peer.sin_addr = systemAddress(envelope.from.address().to_v4());
  cmsghdr* part = CMSG_FIRSTHDR(&message.header);
  part->cmsg_level = IPPROTO_IP;
  part->cmsg_type = IP_PKTINFO;
  part->cmsg_len = CMSG_LEN(sizeof(in_pktinfo));
  in_pktinfo info{};
  info.ipi_spec_dst = systemAddress(envelope.asked);
  std::memcpy(CMSG_DATA(part), &info, sizeof info);
  ::sendmsg(socket.native_handle(), &message.header, MSG_DONTWAIT | MSG_NOSIGNAL);
}

bool isRefusal(const asio::error_code& error) {
  return error == asio::error::connection_refused;
}

}  // namespace quorvane
