#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "platform/datagram_exchange.h"
#include "tools/exit_code.h"

namespace quorvane {

/// How a question reaches the server: exchangeDatagrams, or a stand-in.
using AskServer = std::function<DatagramExchange(
    const std::string& host, std::uint16_t port, std::string_view question,
    std::chrono::milliseconds atMost, const std::function<bool(std::string_view)>& accept)>;

/// Tells what of the server's settings does not count, a line each: untakenSettings, or a stand-in.
using CheckSettings = std::function<std::vector<std::string>()>;

/// Imports an Access file and says how that goes; false when it failed.
using ImportFile = std::function<bool(const std::string& path)>;

/// What the tool has to do with the world.
struct ControlToolParts {
  const AskServer& ask;
  const CheckSettings& check;
  const ImportFile& import;
  std::ostream& out;
  std::ostream& err;
};

/// Controls and queries a running server. `arguments` are those after the program's name.
ExitCode runControlTool(const std::vector<std::string>& arguments, const ControlToolParts& parts);

}  // namespace quorvane
