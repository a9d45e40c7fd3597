#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "console/slots.h"
#include "console/visitors.h"
#include "http/clients.h"
#include "platform/event_loop.h"
#include "support/turns.h"

namespace quorvane {

class Clock;

/// Who is answered when. Pages run at once as long as they are quick. When they have taken a while,
/// those that come next wait until everybody else who has arrived was looked at; then the client
/// addresses take turns, a page each. Files and pages of one connection stay in order, as nothing
/// more is read of a client that waits.
class AnswerTurns final : public Clients {
 public:
  /// What pages may take together before others are looked at.
  static constexpr std::chrono::milliseconds kRound{50};

  struct Events {
    std::function<void(int index)> begin;  ///< the slot's record has a whole request to be answered
    std::function<void(int index, Response response)> answer;
  };

  /// All outlive this object.
  AnswerTurns(const Clock& clock, EventLoop& loop, Slots& slots, Visitors& visitors, Events events);
  AnswerTurns(const AnswerTurns&) = delete;
  AnswerTurns& operator=(const AnswerTurns&) = delete;
  ~AnswerTurns() override { *alive_ = false; }

  /// To be told when the handling of a request is over.
  void over();

  /// Whether nobody's page waits for its turn.
  bool empty() const { return waiting_.empty(); }

  /// Nobody waits any more.
  void clear() { waiting_.clear(); }

  Admission admit(int index, const RequestHead& head, Visitor& visitor) override {
    return visitors_.admit(index, head, visitor);
  }
  Client inSlot(int index) const override { return slots_.client(index); }
  bool isThere(const Client& client) const override;
  Turn turnOf(int index) override;
  void answerLater(int index) override { slots_.hold(index); }
  void answer(const Client& client, Response response) override;

 private:
  using Moment = std::chrono::steady_clock::time_point;

  void startRound();
  void round();

  const Clock& clock_;
  EventLoop& loop_;
  Slots& slots_;
  Visitors& visitors_;
  Events events_;
  Turns<Client> waiting_;
  int called_ = -1;                    ///< the slot whose turn it is
  Moment begun_;                       ///< of the page that runs
  std::chrono::nanoseconds spent_{0};  ///< by pages since the last round
  bool running_ = false;
  bool inRound_ = false;  ///< others are being looked at
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace quorvane
