#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "http/addresses.h"
#include "http/request_collector.h"
#include "http/response.h"
#include "http/response_heads.h"

namespace quorvane {

class Clock;
class clsHTTPParser;
struct ServerState;

/// How a server speaks HTTP: how it reads requests, what heads its answers have, and what it says
/// where it has nothing to send. A server goes by one of these as long as it runs: by its own,
/// which takes nearly everything for a request, or by that of the standard.
class Protocol {
 public:
  using Collected = request_collector::Collected;

  virtual ~Protocol() = default;

  /// Takes the next piece of a slot; see request_collector. Views in the result last until the
  /// next call.
  virtual Collected collect(SlotRecord& record, std::string_view data) = 0;

  /// Hands the text of the request that has just been collected over to the parser.
  virtual void parse(Collected& collected, clsHTTPParser& parser) = 0;

  virtual ResponseHeads& heads() = 0;

  /// How the answer to a request ends when a page sends it in parts.
  virtual Framing framingFor(const clsHTTPParser& request) const = 0;

  /// With what a page of the server's own dialect goes out that says no status.
  virtual Status statusOf(bool pageFailed) const = 0;

  /// What the request's method alone brings about, given what is there.
  virtual std::optional<Response> byMethod(const clsHTTPParser& request, const Place& place) = 0;

  /// To what is no request; the connection ends.
  virtual Response refusal(const Collected& refused) = 0;

  /// To a request for what is not there or not served; `name` tells the client what that was.
  virtual Response missing(const clsHTTPParser& request, const Place& place,
                           std::string_view name) = 0;

  /// Before a connection is given up within a request or an answer that never began; the
  /// connection ends.
  virtual std::optional<Response> givenUp(Status why) = 0;
};

/// The one that the settings name. Both outlive it.
std::unique_ptr<Protocol> makeProtocol(const ServerState& state, const Clock& clock);

}  // namespace quorvane
