#include "tools/qvsctl.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <ostream>

#include "support/text.h"

namespace quorvane {

namespace {

using Arguments = std::vector<std::string>;
using Outcome = DatagramExchange::Outcome;

constexpr std::string_view kHelp =
    "qvsctl - controls a running server\n"
    "\n"
    "  qvsctl start      start serving\n"
    "  qvsctl stop       stop serving; the program stays\n"
    "  qvsctl restart    stop and start; sessions are lost\n"
    "  qvsctl quit       end the program\n"
    "  qvsctl state      say \"running\" or \"stopped\"\n"
    "  qvsctl uptime     say for how long it has been running\n"
    "  qvsctl version    say which version it is\n"
    "  qvsctl check      say which lines of the settings don't count, and why; asks no server\n"
    "  qvsctl import FILE  read an Access file into the SQLite file beside it, as its first use "
    "by\n"
    "                    a page would; asks no server\n"
    "\n"
    "  --host NAME       the server's machine, by default 127.0.0.1\n"
    "  --port NUMBER     the port of its control channel, by default 7008\n"
    "  --timeout SECONDS how long to wait for each answer, by default 5\n"
    "\n"
    "Exit code: 0 done, or running; 1 stopped, or it did not start or stop as asked, or a line "
    "does\n"
    "not count, or a file is not imported; 2 wrong arguments; 3 no answer.\n";

enum class Command { Start, Stop, Restart, Quit, State, Uptime, Version, Check, Import };

struct Spelling {
  std::string_view name;
  Command command;
  std::string_view datagram;  ///< empty: the server isn't asked
};
constexpr std::array kCommands{
    Spelling{"start", Command::Start, "[>start]"},
    Spelling{"stop", Command::Stop, "[>stop]"},
    Spelling{"restart", Command::Restart, "[>restart]"},
    Spelling{"quit", Command::Quit, "[>quit]"},
    Spelling{"state", Command::State, "[?state]"},
    Spelling{"uptime", Command::Uptime, "[?uptime]"},
    Spelling{"version", Command::Version, "[?version]"},
    Spelling{"check", Command::Check, ""},
    Spelling{"import", Command::Import, ""},
};

std::string_view datagramOf(Command command) {
  return std::find_if(kCommands.begin(), kCommands.end(),
                      [&](const Spelling& s) { return s.command == command; })
      ->datagram;
}

struct Request {
  std::optional<Command> command;
  std::string file;  ///< that is to be imported
  std::string host = "127.0.0.1";
  std::uint16_t port = 7008;
  std::chrono::milliseconds timeout{5000};
  bool help = false;
  std::string mistake;  ///< empty when the arguments make sense
};

constexpr double kLongestTimeout = 3600;

void setPort(const std::string& value, Request& request) {
  request.port = wholeNumber<std::uint16_t>(value).value_or(0);
  if (request.port == 0) request.mistake = "\"" + value + "\" is no port";
}

void setTimeout(const std::string& value, Request& request) {
  double seconds = 0;
  const char* end = value.data() + value.size();
  const auto [stop, error] = std::from_chars(value.data(), end, seconds);
  if (error == std::errc() && stop == end && seconds > 0 && seconds <= kLongestTimeout) {
    request.timeout = std::chrono::milliseconds(std::lround(std::ceil(seconds * 1000)));
  } else {
    request.mistake = "\"" + value + "\" is no number of seconds up to an hour";
  }
}

void setOption(const std::string& name, const std::string& value, Request& request) {
  if (name == "--host") {
    request.host = value;
  } else if (name == "--port") {
    setPort(value, request);
  } else {
    setTimeout(value, request);
  }
}

void setCommand(const std::string& name, Request& request) {
  if (request.command == Command::Import && request.file.empty()) {
    request.file = name;
    return;
  }
  const auto* known = std::find_if(kCommands.begin(), kCommands.end(),
                                   [&](const Spelling& s) { return s.name == name; });
  if (known == kCommands.end()) {
    request.mistake = "unknown command \"" + name + "\"";
  } else if (request.command) {
    request.mistake = "more than one command";
  } else {
    request.command = known->command;
  }
}

Request parse(const Arguments& arguments) {
  Request request;
  for (std::size_t i = 0; i < arguments.size() && request.mistake.empty(); ++i) {
    const std::string name = arguments[i].substr(0, arguments[i].find('='));
    if (name == "--help" || name == "-h") {
      request.help = true;
    } else if (name == "--host" || name == "--port" || name == "--timeout") {
      if (name.size() < arguments[i].size()) {
        setOption(name, arguments[i].substr(name.size() + 1), request);
      } else if (i + 1 < arguments.size()) {
        setOption(name, arguments[++i], request);
      } else {
        request.mistake = name + " takes a value";
      }
    } else {
      setCommand(arguments[i], request);
    }
  }
  if (request.mistake.empty() && !request.command) request.mistake = "a command is missing";
  if (request.command == Command::Import && request.file.empty()) {
    request.mistake = "import takes a file";
  }
  return request;
}

/// One run of the tool.
class ControlTool {
 public:
  ControlTool(Request request, const ControlToolParts& parts)
      : request_(std::move(request)), parts_(parts), out_(parts.out), err_(parts.err) {}

  ExitCode run() {
    switch (*request_.command) {
      case Command::Start:
        return bring(Command::Start, true, "running");
      case Command::Restart:
        return bring(Command::Restart, true, "running");
      case Command::Stop:
        return bring(Command::Stop, false, "stopped");
      case Command::Quit:
        return question(Command::Quit) ? say("ended") : ExitCode::Failed;
      case Command::State:
        return state();
      case Command::Uptime:
        return uptime();
      case Command::Version:
        return tell(Command::Version);
      case Command::Check:
        return check();
      case Command::Import:
        return parts_.import(request_.file) ? ExitCode::Done : ExitCode::Finding;
    }
    return ExitCode::Failed;
  }

 private:
  /// The server says "OK" even when it could not bind its port, so it is asked what came of it.
  ExitCode bring(Command command, bool wanted, std::string_view success) {
    if (!question(command)) return ExitCode::Failed;
    const auto running = isRunning();
    if (!running) return ExitCode::Failed;
    if (*running == wanted) return say(success);
    err_ << "qvsctl: the server is still " << (wanted ? "stopped" : "running")
         << "; its log says why\n";
    return ExitCode::Finding;
  }

  ExitCode state() {
    const auto running = isRunning();
    if (!running) return ExitCode::Failed;
    say(*running ? "running" : "stopped");
    return *running ? ExitCode::Done : ExitCode::Finding;
  }

  /// A stopped server has no uptime and answers nothing.
  ExitCode uptime() {
    const auto running = isRunning();
    if (!running) return ExitCode::Failed;
    if (*running) return tell(Command::Uptime);
    say("stopped");
    return ExitCode::Finding;
  }

  ExitCode check() {
    const std::vector<std::string> untaken = parts_.check();
    for (const std::string& line : untaken) say(line);
    return untaken.empty() ? say("every line of the settings counts") : ExitCode::Finding;
  }

  ExitCode tell(Command command) {
    const auto answer = question(command);
    return answer ? say(*answer) : ExitCode::Failed;
  }

  std::optional<bool> isRunning() {
    const auto answer = question(Command::State);
    if (!answer) return std::nullopt;
    return *answer == "1";
  }

  /// The answer without the command that it begins with; nothing, and a line that says why, when
  /// none came.
  std::optional<std::string> question(Command command) {
    const std::string_view datagram = datagramOf(command);
    const std::string start = std::string(datagram) + ':';
    const DatagramExchange exchange =
        parts_.ask(request_.host, request_.port, datagram, request_.timeout,
                   [&](std::string_view answer) { return answer.starts_with(start); });
    if (exchange.outcome == Outcome::Answered) return exchange.answer.substr(start.size());
    err_ << "qvsctl: " << reason(exchange.outcome) << '\n';
    return std::nullopt;
  }

  std::string reason(Outcome outcome) const {
    const std::string place = request_.host + " port " + std::to_string(request_.port);
    switch (outcome) {
      case Outcome::Silence:
        return "no answer from " + place;
      case Outcome::Refused:
        return "no server listens at " + place;
      case Outcome::UnknownHost:
        return "unknown host " + request_.host;
      case Outcome::Failed:
      case Outcome::Answered:
        break;
    }
    return "can't send to " + place;
  }

  /// The answer of a stranger may hold anything; a terminal gets to see printable characters.
  ExitCode say(std::string_view text) {
    for (const char c : text) out_ << (static_cast<unsigned char>(c) < 32 || c == 127 ? '?' : c);
    out_ << '\n';
    return ExitCode::Done;
  }

  Request request_;
  const ControlToolParts& parts_;
  std::ostream& out_;
  std::ostream& err_;
};

}  // namespace

ExitCode runControlTool(const Arguments& arguments, const ControlToolParts& parts) {
  Request request = parse(arguments);
  if (request.help) {
    parts.out << kHelp;
    return ExitCode::Done;
  }
  if (!request.mistake.empty()) {
    parts.err << "qvsctl: " << request.mistake << "; \"qvsctl --help\" tells more\n";
    return ExitCode::Usage;
  }
  return ControlTool(std::move(request), parts).run();
}

}  // namespace quorvane
