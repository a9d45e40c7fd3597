#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "console/slots.h"
#include "platform/event_loop.h"
#include "support/server_state.h"

namespace quorvane {

/// Ends connections whose clients keep a slot and do nothing with it: that send no whole head, or
/// nothing of an announced body, ask for nothing more, or take nothing of an answer. How long each
/// may go on so stands in the settings.
///
/// While anybody is connected it looks at every slot once a second and compares with what it saw
/// the time before, so that a connection has no timer of its own and an event costs nothing. What
/// it counts are its own looks: the time that the server itself was busy is nobody's fault.
class SlotWatch {
 public:
  /// Ends the connection of a slot, whose client has begun a request and says no more of it, with a
  /// word to the client. False when there is none; the connection is then aborted.
  using CloseSaying = std::function<bool(int index)>;

  /// All outlive the watch.
  SlotWatch(const ServerState& state, EventLoop& loop, Slots& slots, CloseSaying closeSaying);

  /// To be told when a connection has come.
  void begin();
  void stop() { timer_->stop(); }

  /// Ends the connection that has been idle for longest, to make room for another. False when
  /// everybody connected is being answered.
  bool makeRoom();

  void tick();

 private:
  enum class Phase : std::uint8_t {
    Away,     ///< closed, or it is the server's turn
    Head,     ///< a head has not come whole
    Body,     ///< an announced body has not come whole
    Idle,     ///< everything asked for is answered
    Sending,  ///< an answer has not been taken whole
  };
  /// What a slot is at. While nothing of it changes the client does nothing that counts.
  struct Sight {
    Phase phase = Phase::Away;
    std::uint64_t progress = 0;

    friend bool operator==(const Sight&, const Sight&) = default;
  };
  struct Seen {
    std::uint64_t connection = 0;
    Sight sight;
    std::uint32_t since = 0;  ///< in looks
  };

  Sight look(int index);
  bool isIdle(int index);
  void end(int index, Phase phase);
  std::uint32_t patience(Phase phase) const;

  const ServerState& state_;
  Slots& slots_;
  const CloseSaying closeSaying_;
  std::vector<Seen> seen_;  ///< by slot
  std::uint32_t now_ = 0;   ///< in looks
  std::unique_ptr<Timer> timer_;
};

}  // namespace quorvane
