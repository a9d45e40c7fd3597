#include "console/control_channel.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quorvane {

namespace {

constexpr std::chrono::seconds kRetryInterval{30};

enum class Command { Restart, Stop, Start, Quit, State, Uptime, Version };

struct Spelling {
  std::string_view text;
  Command command;
};
constexpr std::array kCommands{
    Spelling{"[>restart]", Command::Restart}, Spelling{"[>stop]", Command::Stop},
    Spelling{"[>start]", Command::Start},     Spelling{"[>quit]", Command::Quit},
    Spelling{"[?state]", Command::State},     Spelling{"[?uptime]", Command::Uptime},
    Spelling{"[?version]", Command::Version},
};

}  // namespace

ControlChannel::ControlChannel(EventLoop& loop, ServerControl& server, StatusLines& log)
    : loop_(loop),
      server_(server),
      log_(log),
      socket_(loop.makeUdpSocket(*this)),
      retries_(loop.makeTimer(kRetryInterval, [this] { bind(); })) {}

void ControlChannel::open(std::optional<std::uint16_t> chosen) {
  chosen_ = chosen;
  bind();
}

void ControlChannel::close() {
  retries_->stop();
  socket_->close();
}

/// The first of several failures is told, and so is the end of them.
void ControlChannel::bind() {
  const bool isOpen = socket_->bind(chosen_.value_or(kPort));
  if (!chosen_ || isOpen != retries_->enabled()) return;
  const std::string port = std::to_string(*chosen_);
  if (isOpen) {
    retries_->stop();
    log_.LogLine("Control channel open on port " + port);
  } else {
    retries_->start();
    log_.LogLine("Control channel: unable to bind to port " + port + "; tried again every 30 s");
  }
}

void ControlChannel::datagramArrival(UdpSocket& socket, const Datagram& datagram) {
  if (!datagram.fromThisMachine && !server_.answersAnyAddress()) return;
  const auto* known = std::find_if(kCommands.begin(), kCommands.end(),
                                   [&](const Spelling& s) { return s.text == datagram.data; });
  if (known == kCommands.end()) return;

  std::string result = "OK";
  switch (known->command) {
    case Command::Restart:
      restart();
      break;
    case Command::Quit:
    case Command::Stop:
      server_.StopServer();
      break;
    case Command::Start:
      server_.StartServer();
      break;
    case Command::State:
      result = server_.running() ? "1" : "0";
      break;
    case Command::Version:
      result = server_.version();
      break;
    case Command::Uptime:
      if (!server_.running()) return;
      result = server_.uptime();
      break;
  }
  socket.reply(std::string(known->text) + ":" + result);
  if (known->command == Command::Quit) server_.closeWindow();
}

void ControlChannel::restart() {
  server_.StopServer();
  loop_.runPending(std::chrono::milliseconds(0), nullptr);
  server_.StartServer();
}

}  // namespace quorvane
