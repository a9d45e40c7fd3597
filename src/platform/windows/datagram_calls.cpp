#include "platform/asio/datagram_calls.h"

#include <mswsock.h>
#include <winsock2.h>
#include <ws2tcpip.h>

#include <cstring>

namespace quorvane {

namespace {

/// A message with room for the one part that tells the address asked, either way.
struct Message {
  Message(char* bytes, std::size_t length) : data{static_cast<ULONG>(length), bytes} {
    header.name = reinterpret_cast<sockaddr*>(&peer);
    header.namelen = sizeof peer;
    header.lpBuffers = &data;
    header.dwBufferCount = 1;
    header.Control = {sizeof control, control};
  }
  Message(const Message&) = delete;
  Message& operator=(const Message&) = delete;

  sockaddr_in peer{};
  WSABUF data;
  alignas(WSACMSGHDR) char control[WSA_CMSG_SPACE(sizeof(in_pktinfo))] = {};
  WSAMSG header{};
};

asio::ip::address_v4 addressOf(const in_addr& address) {
  return asio::ip::address_v4(ntohl(address.s_addr));
}

in_addr systemAddress(const asio::ip::address_v4& address) {
  in_addr result{};
  result.s_addr = htonl(address.to_uint());
  return result;
}

/// Neither call is among those that a program is linked with.
template <typename Call>
Call extension(DatagramSocket& socket, GUID id) {
  Call call = nullptr;
  DWORD count = 0;
  ::WSAIoctl(socket.native_handle(), SIO_GET_EXTENSION_FUNCTION_POINTER, &id, sizeof id, &call,
             sizeof call, &count, nullptr, nullptr);
  return call;
}

void takeEnvelope(Message& message, Envelope& envelope) {
  envelope.from = {addressOf(message.peer.sin_addr), ntohs(message.peer.sin_port)};
  for (WSACMSGHDR* part = WSA_CMSG_FIRSTHDR(&message.header); part;
       part = WSA_CMSG_NXTHDR(&message.header, part)) {
    if (part->cmsg_level != IPPROTO_IP || part->cmsg_type != IP_PKTINFO) continue;
    in_pktinfo info{};
    std::memcpy(&info, WSA_CMSG_DATA(part), sizeof info);
    envelope.asked = addressOf(info.ipi_addr);
  }
}

}  // namespace

/// An answer that found nobody would otherwise be told as an error of the next datagram.
void prepareDatagrams(DatagramSocket& socket, asio::error_code& error) {
  socket.set_option(asio::detail::socket_option::boolean<IPPROTO_IP, IP_PKTINFO>(true), error);
  constexpr DWORD kTellUnreachable = _WSAIOW(IOC_VENDOR, 12);
  BOOL off = FALSE;
  DWORD count = 0;
  ::WSAIoctl(socket.native_handle(), kTellUnreachable, &off, sizeof off, nullptr, 0, &count,
             nullptr, nullptr);
}

std::size_t receiveDatagram(DatagramSocket& socket, char* out, std::size_t room, Envelope& envelope,
                            asio::error_code& error) {
  static const auto receive = extension<LPFN_WSARECVMSG>(socket, WSAID_WSARECVMSG);
  Message message(out, room);
  DWORD count = 0;
  if (!receive || receive(socket.native_handle(), &message.header, &count, nullptr, nullptr) != 0) {
    error.assign(receive ? ::WSAGetLastError() : WSAEOPNOTSUPP, asio::error::get_system_category());
    return 0;
  }
  error.clear();
  takeEnvelope(message, envelope);
  return count;
}

void answerDatagram(DatagramSocket& socket, const Envelope& envelope, std::string_view text) {
  static const auto send = extension<LPFN_WSASENDMSG>(socket, WSAID_WSASENDMSG);
  Message message(const_cast<char*>(text.data()), text.size());
  message.peer.sin_family = AF_INET;
  message.peer.sin_port = htons(envelope.from.port());
  message.peer.sin_addr = systemAddress(envelope.from.address().to_v4());
  WSACMSGHDR* part = WSA_CMSG_FIRSTHDR(&message.header);
  part->cmsg_level = IPPROTO_IP;
  part->cmsg_type = IP_PKTINFO;
  part->cmsg_len = WSA_CMSG_LEN(sizeof(in_pktinfo));
  in_pktinfo info{};
  info.ipi_addr = systemAddress(envelope.asked);
  std::memcpy(WSA_CMSG_DATA(part), &info, sizeof info);
  DWORD count = 0;
  if (send && send(socket.native_handle(), &message.header, 0, &count, nullptr, nullptr) == 0)
    return;
  // From whichever of this machine's addresses leads there.
  ::sendto(socket.native_handle(), text.data(), static_cast<int>(text.size()), 0,
           message.header.name, message.header.namelen);
}

/// The system has numbers of its own below those of the sockets, and the library translates some.
bool isRefusal(const asio::error_code& error) {
  return error == asio::error::connection_refused || error == asio::error::connection_reset ||
         error.value() == ERROR_CONNECTION_REFUSED;
}

}  // namespace quorvane
