#pragma once

#include <algorithm>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/event_loop.h"

namespace quorvane {

class FakeEventLoop;

/// True for as long as it lives, also when an event ends by an exception.
class FlagRaised {
 public:
  explicit FlagRaised(bool& flag) : flag_(flag) { flag_ = true; }
  FlagRaised(const FlagRaised&) = delete;
  FlagRaised& operator=(const FlagRaised&) = delete;
  ~FlagRaised() { flag_ = false; }

 private:
  bool& flag_;
};

/// Ports of one kind, each for one socket.
class FakePorts {
 public:
  /// The port, or any free one for 0; nothing when it is taken.
  std::optional<std::uint16_t> take(std::uint16_t port) {
    if (port == 0) {
      do port = nextFree_++;
      while (used_.contains(port));
    }
    return used_.insert(port).second ? std::optional(port) : std::nullopt;
  }
  void release(std::uint16_t port) { used_.erase(port); }

 private:
  std::set<std::uint16_t> used_;
  std::uint16_t nextFree_ = 49152;
};

class FakeRequest final : public ConnectionRequest {
 public:
  FakeRequest(std::string ip, std::uint16_t port) : ip_(std::move(ip)), port_(port) {}
  const std::string& remoteHostIP() const override { return ip_; }
  std::uint16_t remotePort() const override { return port_; }

  class FakeSocket* taken = nullptr;

 private:
  std::string ip_;
  std::uint16_t port_;
};

class FakeSocket final : public TcpSocket {
 public:
  FakeSocket(FakeEventLoop& loop, int socketIndex, TcpSocketEvents& events)
      : index(socketIndex), loop_(loop), events_(events) {}
  FakeSocket(const FakeSocket&) = delete;
  FakeSocket& operator=(const FakeSocket&) = delete;
  inline ~FakeSocket() override;

  // What the server does.
  SocketState state() const override { return state_; }
  bool accept(ConnectionRequest& request) override {
    auto& asking = static_cast<FakeRequest&>(request);
    if (state_ != SocketState::Closed || asking.taken || acceptFails) return false;
    asking.taken = this;
    ip_ = request.remoteHostIP();
    port_ = request.remotePort();
    state_ = SocketState::Connected;
    sent.clear();
    paused = reset = false;
    return true;
  }
  void close() override { state_ = SocketState::Closed; }
  void pause() override { paused = true; }
  void resume() override { paused = false; }
  bool isWaiting() const override { return waiting; }
  bool isReset() const override { return reset; }
  void abort() override {
    if (state_ != SocketState::Closed) ++aborts;
    state_ = SocketState::Closed;
  }
  void send(std::string head, Body body) override {
    if (state_ != SocketState::Connected) return;
    if (throwsOnSend) throw std::runtime_error("out of luck");
    sent += head + bytesOf(body.first);
    for (const auto& segment : body.rest) sent += bytesOf(segment);
    ++sends;
  }
  std::uint64_t pendingBytes() const override { return pending; }
  std::uint64_t unconfirmedBytes() const override { return pending + unconfirmed; }
  bool drainTo(std::uint64_t bytes, const DrainPatience& patience) override {
    drained = {bytes, patience};
    if (stalls) state_ = SocketState::Error;
    return state_ == SocketState::Connected;
  }
  const std::string& remoteHostIP() const override { return ip_; }
  std::uint16_t remotePort() const override { return port_; }
  std::string localHostIP() const override { return "127.0.0.1"; }
  std::uint16_t localPort() const override { return 7007; }

  // What the client and the network do.
  inline void arrive(std::string_view data);
  void completeSend() { events_.sendComplete(index); }
  void peerClose() {
    state_ = SocketState::PeerClosing;
    events_.peerClosed(index);
  }
  void fail() {
    state_ = SocketState::Error;
    events_.socketError(index);
  }
  void become(SocketState state) { state_ = state; }  ///< without an event

  std::string sent;                                 ///< since the last accept
  std::pair<std::uint64_t, DrainPatience> drained;  ///< what drainTo was asked for
  std::uint64_t pending = 0;                        ///< as if the client took too little
  std::uint64_t unconfirmed = 0;                    ///< by the client, of what the system has taken
  bool throwsOnSend = false;
  bool paused = false;
  bool stalls = false;   ///< takes nothing until patience is at its end
  bool waiting = false;  ///< as if bytes had come
  bool reset = false;    ///< by the client, and not told yet
  int sends = 0;
  int aborts = 0;
  bool acceptFails = false;
  const int index;

 private:
  static std::string bytesOf(const BodySegment& segment) {
    if (const auto* own = std::get_if<std::string>(&segment)) return *own;
    if (const auto* shared = std::get_if<std::shared_ptr<const std::string>>(&segment)) {
      return *shared ? **shared : std::string();
    }
    const auto& slice = std::get<FileSlice>(segment);
    std::string bytes(static_cast<std::size_t>(slice.length), '\0');
    bytes.resize(slice.file->read(slice.offset, bytes.data(), bytes.size()));
    return bytes;
  }

  FakeEventLoop& loop_;
  TcpSocketEvents& events_;
  SocketState state_ = SocketState::Closed;
  std::string ip_;
  std::uint16_t port_ = 0;
};

class FakeListener final : public TcpListener {
 public:
  FakeListener(FakeEventLoop& loop, TcpListenerEvents& events) : loop_(loop), events_(events) {}
  FakeListener(const FakeListener&) = delete;
  FakeListener& operator=(const FakeListener&) = delete;
  inline ~FakeListener() override;
  SocketState state() const override { return state_; }
  std::uint16_t localPort() const override { return port_; }
  inline bool listen(const ListenAddress& where) override;
  const std::string& fault() const override { return fault_; }
  inline void close() override;

  bool hasWaiting() const override { return waiting; }
  void become(SocketState state) { state_ = state; }
  void fail() {
    state_ = SocketState::Error;
    events_.listenerError();
  }

  /// A client connects. Null when it was not accepted.
  FakeSocket* connect(const std::string& ip = "127.0.0.1", std::uint16_t port = 50000) {
    FakeRequest request(ip, port);
    if (state_ == SocketState::Listening) events_.connectionRequest(request);
    return request.taken;
  }

  bool waiting = false;  ///< as if somebody had connected
  int listens = 0;
  ListenAddress place;  ///< last asked for

 private:
  FakeEventLoop& loop_;
  TcpListenerEvents& events_;
  SocketState state_ = SocketState::Closed;
  std::uint16_t port_ = 0;
  bool bound_ = false;
  std::string fault_;
};

class FakeUdpSocket final : public UdpSocket {
 public:
  FakeUdpSocket(FakeEventLoop& loop, UdpSocketEvents& events) : loop_(loop), events_(events) {}
  FakeUdpSocket(const FakeUdpSocket&) = delete;
  FakeUdpSocket& operator=(const FakeUdpSocket&) = delete;
  ~FakeUdpSocket() override { FakeUdpSocket::close(); }
  inline bool bind(std::uint16_t port) override;
  inline void close() override;
  bool isOpen() const override { return port_.has_value(); }
  std::uint16_t localPort() const override { return port_.value_or(0); }
  void reply(std::string_view text) override {
    if (*answering_) replies.emplace_back(text);
  }

  void deliver(std::string_view text, bool fromThisMachine = true) {
    if (!port_) return;
    const auto answering = answering_;  // the socket may go meanwhile
    *answering = true;
    events_.datagramArrival(*this, {text, "127.0.0.1", 40000, fromThisMachine});
    *answering = false;
  }
  void fail() { events_.udpError(); }

  std::vector<std::string> replies;
  int binds = 0;
  bool bindFails = false;

 private:
  FakeEventLoop& loop_;
  UdpSocketEvents& events_;
  std::optional<std::uint16_t> port_;
  std::shared_ptr<bool> answering_ = std::make_shared<bool>(false);
};

class FakeTimer final : public Timer {
 public:
  FakeTimer(FakeEventLoop& loop, std::chrono::milliseconds every, std::function<void()> what)
      : interval(every), loop_(loop), tick_(std::move(what)) {}
  FakeTimer(const FakeTimer&) = delete;
  FakeTimer& operator=(const FakeTimer&) = delete;
  inline ~FakeTimer() override;
  void start() override { enabled_ = true; }
  void stop() override { enabled_ = false; }
  bool enabled() const override { return enabled_; }
  void tick() {
    if (!enabled_) return;
    const auto tick = tick_;  // which may destroy its timer
    tick();
  }

  const std::chrono::milliseconds interval;

 private:
  FakeEventLoop& loop_;
  std::function<void()> tick_;
  bool enabled_ = false;
};

/// Does its work on the loop's own thread, as an event.
class FakeWorkers final : public Workers {
 public:
  explicit FakeWorkers(EventLoop& loop) : loop_(loop) {}
  FakeWorkers(const FakeWorkers&) = delete;
  FakeWorkers& operator=(const FakeWorkers&) = delete;
  ~FakeWorkers() override { *alive_ = false; }
  void run(std::function<void()> work, std::function<void()> done) override {
    loop_.post([alive = alive_, work = std::move(work), done = std::move(done)] {
      if (*alive) work();
      if (*alive) done();
    });
  }

 private:
  EventLoop& loop_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

/// An event loop whose network a test plays by hand: it connects, delivers bytes, takes what was
/// sent and lets timers tick. Events run within the call that causes them.
class FakeEventLoop final : public EventLoop {
 public:
  /// Returns when nothing is left to run, too, as nothing more would come.
  void run() override {
    ++runs;
    stopped = false;
    while (!stopped && runOne()) continue;
  }
  void stop() override { stopped = true; }
  void post(std::function<void()> task) override { posted_.push_back(std::move(task)); }

  void runPending(std::chrono::milliseconds atMost, const std::function<bool()>& done) override {
    ++pendingRuns;
    longestPending = std::max(longestPending, atMost);
    if (inDataArrival || nested_) return;
    const FlagRaised nested(nested_);
    bool over = done && done();
    while (!over && !stopped && runOne()) over = done && done();
    if (over) return;
    if (duringPending) std::exchange(duringPending, nullptr)();
    if (done) done();
  }

  std::unique_ptr<TcpListener> makeListener(TcpListenerEvents& events) override {
    auto made = std::make_unique<FakeListener>(*this, events);
    listener = made.get();
    listeners.push_back(made.get());
    return made;
  }
  std::unique_ptr<TcpSocket> makeSocket(int index, TcpSocketEvents& events) override {
    auto made = std::make_unique<FakeSocket>(*this, index, events);
    sockets[index] = made.get();
    return made;
  }
  std::unique_ptr<UdpSocket> makeUdpSocket(UdpSocketEvents& events) override {
    auto made = std::make_unique<FakeUdpSocket>(*this, events);
    udp = made.get();
    return made;
  }
  std::unique_ptr<Timer> makeTimer(std::chrono::milliseconds interval,
                                   std::function<void()> tick) override {
    auto made = std::make_unique<FakeTimer>(*this, interval, std::move(tick));
    timers.push_back(made.get());
    return made;
  }
  std::unique_ptr<Workers> makeWorkers(int) override {
    return std::make_unique<FakeWorkers>(*this);
  }
  void onTerminationRequest(std::function<void()> asked) override { terminate = std::move(asked); }
  void onNotice(std::function<void(Notice)> told) override { notice = std::move(told); }

  void runPosted() {
    while (runOne()) continue;
  }
  FakeTimer* timer(std::chrono::milliseconds interval) {
    const auto it = std::find_if(timers.begin(), timers.end(),
                                 [&](const FakeTimer* t) { return t->interval == interval; });
    return it == timers.end() ? nullptr : *it;
  }

  FakeListener* listener = nullptr;      ///< made last
  std::vector<FakeListener*> listeners;  ///< those that exist
  std::map<int, FakeSocket*> sockets;    ///< those that exist
  FakeUdpSocket* udp = nullptr;          ///< made last
  std::vector<FakeTimer*> timers;        ///< those that exist
  std::set<std::uint16_t> takenPorts;    ///< binding them fails
  std::function<void()> duringPending;   ///< happens once within the next runPending
  std::function<void()> terminate;
  std::function<void(Notice)> notice;
  std::chrono::milliseconds longestPending{0};
  int pendingRuns = 0;
  int runs = 0;
  bool stopped = false;
  bool inDataArrival = false;
  FakePorts tcpPorts;
  FakePorts udpPorts;

 private:
  bool runOne() {
    if (posted_.empty()) return false;
    const auto task = std::move(posted_.front());
    posted_.pop_front();
    task();
    return true;
  }

  std::deque<std::function<void()>> posted_;
  bool nested_ = false;
};

inline FakeSocket::~FakeSocket() {
  loop_.sockets.erase(index);
}

inline FakeTimer::~FakeTimer() {
  std::erase(loop_.timers, this);
}

inline void FakeSocket::arrive(std::string_view data) {
  const FlagRaised within(loop_.inDataArrival);
  events_.dataArrival(index, data);
}

inline FakeListener::~FakeListener() {
  FakeListener::close();
  std::erase(loop_.listeners, this);
}

/// Files take no port and are always to be had.
inline bool FakeListener::listen(const ListenAddress& where) {
  close();
  ++listens;
  place = where;
  if (where.kind == ListenAddress::Kind::Local) {
    state_ = SocketState::Listening;
    return true;
  }
  const bool canBe =
      where.kind != ListenAddress::Kind::Unclear && !loop_.takenPorts.contains(where.port);
  const auto taken = canBe ? loop_.tcpPorts.take(where.port) : std::nullopt;
  fault_ = taken ? "" : "it is taken";
  if (!taken) return false;
  port_ = *taken;
  bound_ = true;
  state_ = SocketState::Listening;
  return true;
}

inline void FakeListener::close() {
  if (std::exchange(bound_, false)) loop_.tcpPorts.release(port_);
  state_ = SocketState::Closed;
}

inline bool FakeUdpSocket::bind(std::uint16_t port) {
  close();
  ++binds;
  if (!bindFails) port_ = loop_.udpPorts.take(port);
  return isOpen();
}

inline void FakeUdpSocket::close() {
  *answering_ = false;
  if (port_) loop_.udpPorts.release(*port_);
  port_.reset();
}

}  // namespace quorvane
