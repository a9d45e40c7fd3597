#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "http/clients.h"
#include "http/request_collector.h"
#include "platform/event_loop.h"

namespace quorvane {

/// The per-connection sockets and what has been received on each. Slot 0 always exists; a started
/// server has ten; more are made on demand and unmade when they are no longer needed.
///
/// The pool hands out the lowest closed slot. A slot closes through close() here, so that the pool
/// knows of it without looking.
class Slots {
 public:
  static constexpr int kCached = 10;

  /// Bytes of unfinished requests that all slots hold together, at most.
  static constexpr std::uint64_t kMostHeld = std::uint64_t{1} << 30;

  /// Both outlive the pool.
  Slots(EventLoop& loop, TcpSocketEvents& events, std::uint64_t mostHeld = kMostHeld);

  int highest() const { return static_cast<int>(slots_.size()) - 1; }
  bool exists(int index) const { return index >= 0 && index <= highest(); }
  TcpSocket& socket(int index) { return *slots_[static_cast<std::size_t>(index)].socket; }
  const TcpSocket& socket(int index) const {
    return *slots_[static_cast<std::size_t>(index)].socket;
  }
  SlotRecord& record(int index) { return slots_[static_cast<std::size_t>(index)].record; }

  /// Whether the slot's client has sent another request behind the one before, or its beginning.
  bool hasNext(int index) const {
    return exists(index) && slots_[static_cast<std::size_t>(index)].record.hasNext();
  }

  /// Takes a connection into the lowest closed slot, or a new one, with an empty record. Nothing
  /// when the connection has gone.
  std::optional<int> accept(ConnectionRequest& request);

  /// Counts what the slot's record holds now. When it is too much with the others', the answer is
  /// the slot that holds the most, whose client is to be turned away.
  std::optional<int> noteHeld(int index);

  /// The connection that a slot has now; another has another number.
  Client client(int index) const { return {index, slots_[static_cast<std::size_t>(index)].taken}; }

  /// While a slot is held, the client waits for the server and nothing more of it is read.
  void hold(int index);
  void release(int index);
  bool isHeld(int index) const { return slots_[static_cast<std::size_t>(index)].isHeld; }

  /// To be told of every whole request.
  void noteRequest(int index) { slots_[static_cast<std::size_t>(index)].lastRequest = ++requests_; }

  /// Numbers that grow: by when a slot last brought a whole request, or else was taken.
  std::uint64_t lastRequest(int index) const {
    return slots_[static_cast<std::size_t>(index)].lastRequest;
  }
  /// Whether a request has come on the slot's connection.
  bool hasAsked(int index) const {
    const Slot& slot = slots_[static_cast<std::size_t>(index)];
    return slot.lastRequest != slot.taken;
  }

  /// Closes the slot's socket and clears its tag.
  void close(int index);

  /// The same at once, whatever the client has not taken yet.
  void abort(int index);

  /// Closes and unmakes everything but the closed slot 0.
  void closeAll();
  /// closeAll, then the ten slots of a started server.
  void reset();

  /// Closes every socket whose peer is closing or that is in error; then unmakes closed slots from
  /// the highest down, to ten at least and up to the first that isn't closed.
  void tidyUp();

 private:
  struct Slot {
    std::unique_ptr<TcpSocket> socket;
    SlotRecord record;
    std::uint64_t held = 0;  ///< bytes of the record that are counted in held_
    std::uint64_t taken = 0;
    std::uint64_t lastRequest = 0;
    bool isHeld = false;
  };

  void grow();
  void dropLowest();  ///< from closed_
  int lowestClosed();
  void noteClosed(int index);
  void noteEmptied(int index);

  EventLoop& loop_;
  TcpSocketEvents& events_;
  const std::uint64_t mostHeld_;
  std::uint64_t held_ = 0;      ///< bytes of unfinished requests, of all slots
  std::uint64_t requests_ = 0;  ///< and connections, counted on
  std::deque<Slot> slots_;      ///< a deque: records keep their place while slots are added

  /// A heap, lowest first, with every closed slot in it and perhaps some that are closed no more.
  std::vector<int> closed_;
};

}  // namespace quorvane
