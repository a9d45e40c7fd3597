#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "console/slots.h"
#include "http/clients.h"
#include "http/request_head.h"
#include "proxies/visitor.h"
#include "support/server_state.h"
#include "support/status_lines.h"

namespace quorvane {

/// Who is at the other end of each slot. That is the peer of the connection, unless the settings
/// trust it to speak for others: then it is whom the peer names, at the beginning of the connection
/// or in the head of each request, and the access rules wait until it is named.
///
/// Without such settings nothing is kept and nothing costs.
class Visitors {
 public:
  /// All outlive this object.
  Visitors(const ServerState& state, Slots& slots, StatusLines& status)
      : state_(state), slots_(slots), status_(status) {}

  /// Whether a connection from there is taken.
  bool mayConnect(std::string_view address) const;

  /// To be told when a slot has taken one.
  void begin(int index);

  /// Whether the connection has yet to begin with the client's name.
  bool isUnnamed(int index) const { return isKept(index) && kept(index).awaitsPreface; }

  /// Takes what has come on such a connection; what is left of `data` for requests. Nothing when
  /// the connection is to be closed.
  std::optional<std::string_view> takePreface(int index, std::string_view data);

  /// The client of the connection, as far as it is one client's alone.
  const std::string& addressOf(int index) const;

  /// The client of the connection's last request.
  const std::string& lastAddressOf(int index) const;

  /// As of Clients, asked for the slot's next request.
  Clients::Admission admit(int index, const RequestHead& head, Visitor& visitor);

 private:
  /// What is kept of a slot's connection.
  struct Kept {
    Visitor visitor;          ///< the peer, or the client that it has named for all requests
    std::string lastAddress;  ///< of the last request's client
    std::string preface;      ///< has come so far
    bool isProxied = false;   ///< the access rules wait for the client's name
    bool headsName = false;   ///< heads of requests name their clients
    bool awaitsPreface = false;
  };

  bool isKept(int index) const { return static_cast<std::size_t>(index) < kept_.size(); }
  const Kept& kept(int index) const { return kept_[static_cast<std::size_t>(index)]; }

  const ServerState& state_;
  Slots& slots_;
  StatusLines& status_;
  std::vector<Kept> kept_;  ///< by slot, as far as anything has to be kept
};

}  // namespace quorvane
