#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/event_loop.h"
#include "support/server_state.h"

namespace quorvane {

/// Where the server listens: on its port, or in every place of the setting Listen. Each place
/// stands for itself, so that one which can't be had keeps nobody from the others.
class Listeners {
 public:
  /// All outlive this object.
  Listeners(const ServerState& state, EventLoop& loop, TcpListenerEvents& events);

  /// Listens anew wherever the settings say. False when no place can be had.
  bool listen();

  /// Has those that have failed listen again where they did.
  void revive();

  /// Tries the places again that are not listened on. Calls `regained` with the text of each that
  /// now is.
  void retry(const std::function<void(const std::string& place)>& regained);

  void close();

  /// Listening as long as any of them does.
  SocketState state() const;

  /// Whether every place is listened on.
  bool isWhole() const;
  bool hasWaiting() const;

  /// Of the first place.
  std::uint16_t localPort() const { return all_.front().listener->localPort(); }

  /// The places that are listened on, for people: "port 7007", "127.0.0.1:7007, [::1]:7007".
  std::string served() const;

  /// Why the others are not, a text each.
  std::vector<std::string> faults() const;

  /// A line for each place: "Localhost:7007 = 2".
  std::vector<std::string> lines() const;

 private:
  struct Listener {
    ListenAddress where;
    std::unique_ptr<TcpListener> listener;

    bool listens() const { return listener->state() == SocketState::Listening; }
  };

  void takePlaces();
  std::string textOf(const Listener& one) const;

  const ServerState& state_;
  EventLoop& loop_;
  TcpListenerEvents& events_;
  std::vector<Listener> all_;  ///< one at least
};

}  // namespace quorvane
