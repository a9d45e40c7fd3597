#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace quorvane {

/// One question and its answer by datagram, for small programs that do nothing else meanwhile.
struct DatagramExchange {
  enum class Outcome {
    Answered,
    Silence,      ///< nothing came in time
    Refused,      ///< the host is there but nothing listens on the port
    UnknownHost,  ///< the name could not be turned into an address
    Failed,       ///< the system could not send
  };

  Outcome outcome = Outcome::Failed;
  std::string answer;
};

/// Sends `question` to `host` (a name or an address) and waits for the first datagram from there
/// that `accept` takes. Of several addresses the first where something listens is asked; all of
/// them share the time. Looking up a name may take longer than `atMost`.
DatagramExchange exchangeDatagrams(const std::string& host, std::uint16_t port,
                                   std::string_view question, std::chrono::milliseconds atMost,
                                   const std::function<bool(std::string_view)>& accept);

}  // namespace quorvane
