#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/event_loop.h"
#include "support/status_lines.h"

namespace quorvane {

/// What the control channel can do with a server.
class ServerControl {
 public:
  virtual ~ServerControl() = default;
  virtual void StartServer(bool forceServerStart = false) = 0;
  virtual void StopServer() = 0;
  virtual bool running() const = 0;
  virtual std::string uptime() const = 0;
  virtual std::string version() const = 0;
  virtual bool answersAnyAddress() const = 0;
  /// Closes the window, which ends the program.
  virtual void closeWindow() = 0;
};

/// Commands in datagrams, for a companion program: one datagram, one command, one reply. A command
/// is the whole datagram and nothing else is answered. Nothing proves who a sender is, so only
/// this machine's own are heard unless the server is told otherwise.
class ControlChannel final : public UdpSocketEvents {
 public:
  static constexpr std::uint16_t kPort = 7008;

  /// All outlive the channel.
  ControlChannel(EventLoop& loop, ServerControl& server, StatusLines& log);

  /// Without its port the channel is absent. Nobody is told, unless it is a port that somebody has
  /// chosen; that one is tried again.
  void open(std::optional<std::uint16_t> chosen);
  void close();

  void datagramArrival(UdpSocket& socket, const Datagram& datagram) override;
  void udpError() override { bind(); }

 private:
  void bind();
  void restart();

  EventLoop& loop_;
  ServerControl& server_;
  StatusLines& log_;
  std::optional<std::uint16_t> chosen_;
  std::unique_ptr<UdpSocket> socket_;
  std::unique_ptr<Timer> retries_;  ///< runs while the chosen port can't be had
};

}  // namespace quorvane
