#include "console/mainForm.h"

#include <exception>
#include <utility>

#include "console/uptime_text.h"
#include "http/protocol.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::int32_t kEnglish = 1033;
constexpr std::string_view kCloseWhenSent = "X";

/// How often a port that was taken is tried again.
constexpr std::chrono::seconds kRetryInterval{30};

/// A page that flushes faster than its client reads waits for the client, so that it can't fill
/// the memory. Nobody else is served meanwhile, so a client that takes nothing is dropped, and so
/// is one that keeps a single flush waiting for longer than any page may run.
constexpr std::uint64_t kMostFlushedAhead = std::uint64_t{8} << 20;
constexpr std::chrono::seconds kFlushStalled{30};
constexpr std::chrono::seconds kFlushStalledWhileOthersWait{3};
constexpr std::chrono::seconds kLongestFlush{60};

}  // namespace

mainForm::mainForm(mainFormParts parts)
    : parts_(parts),
      services_(parts_.services),
      form_(parts_.form),
      status_(parts_.status),
      wsTalker(parts_.loop, *this),
      visitors_(services_.state, wsTalker, status_),
      wsHost(services_.state, parts_.loop, *this),
      housekeeping_(
          {services_, parts_.loop, *this, wsHost, wsTalker, visitors_, status_, form_, objects_}),
      draining_(parts_.loop, wsHost, wsTalker),
      slotWatch_(services_.state, parts_.loop, wsTalker,
                 [this](int index) { return closeSaying(index, Status::RequestTimeout); }),
      turns_(services_.clock, parts_.loop, wsTalker, visitors_,
             {[this](int index) { dataArrival(index, {}); },
              [this](int index, Response response) { answer(index, std::move(response)); }}),
      wsLinker(parts_.loop, *this, status_),
      portRetries_(parts_.loop.makeTimer(kRetryInterval, [this] { retryPort(); })) {}

mainForm::~mainForm() = default;

/// Of several instances each has a channel of its own, on the ports behind the usual one.
void mainForm::load() {
  auto port = services_.state.ControlPort;
  const std::int32_t number = services_.state.Instance;
  if (number != 0) port = static_cast<std::uint16_t>(port.value_or(ControlChannel::kPort) + number);
  wsLinker.open(port);
  form_.changed();
}

void mainForm::StartServer(bool forceServerStart) {
  if (windowClosed_ || (serverRunning && !forceServerStart)) return;
  status_.LogLine(serverRunning ? "Server Start (forced)" : "Server Start");
  parts_.settings.LoadSettings();
  const std::int32_t language = wantedLanguage();
  makeObjects(language);
  loadLanguage(language);
  wsHost.close();
  wsTalker.reset();
  if (!wsHost.listen()) return portError();

  serverRunning = true;
  if (!wsHost.isWhole()) tellPortFaults("the others are served");
  status_.commitLog();
  housekeeping_.start();
  startTime = services_.clock.now();
  tellServing();
}

void mainForm::tellServing() {
  std::string sentence = "Serving on " + wsHost.served();
  for (const std::string& fault : wsHost.faults()) sentence += "; not on " + fault;
  tellState(sentence);
  const bool isTriedAgain = !wsHost.isWhole() && services_.state.RetryPort;
  isTriedAgain ? portRetries_->start() : portRetries_->stop();
}

std::int32_t mainForm::wantedLanguage() const {
  if (services_.state.DefaultLCID != 0) return services_.state.DefaultLCID;
  return numericLong(parts_.settings.userLanguage()).value_or(kEnglish);
}

void mainForm::loadLanguage(std::int32_t wanted) {
  const std::string folder = services_.state.MainPath + "Lang";
  const std::int32_t loaded = objects_->language().choose(folder, wanted, form_);
  status_.LogLine("LCID: " + std::to_string(loaded));
}

void mainForm::makeObjects(std::int32_t language) {
  if (!objects_) {
    objects_ = std::make_unique<RunningServer>(
        services_, RunningServer::Parts{*this, turns_, parts_.loop, parts_.userDefaultLCID});
  }
  objects_->renew(language);
}

void mainForm::portError() {
  const std::string outcome = tellPortFaults("nothing is served");
  StopServer();
  tellState(outcome);
  if (services_.state.RetryPort) portRetries_->start();
}

/// A line for each place that can't be had, and a complaint about them all, which it gives back.
std::string mainForm::tellPortFaults(std::string_view consequence) {
  std::string outcome;
  if (services_.state.Listen.empty()) {
    const std::string port = std::to_string(services_.state.ServerPort);
    status_.LogLine("******* PORT ERROR: Unable to bind to port " + port);
    outcome = "port " + port + " is taken or not for this user; ";
  } else {
    for (const std::string& fault : wsHost.faults()) {
      status_.LogLine("******* PORT ERROR: Unable to listen on " + fault);
      outcome += fault + "; ";
    }
  }
  outcome += consequence;
  if (services_.state.RetryPort) outcome += "; tried again every 30 s";
  status_.complain(outcome);
  return outcome;
}

/// Looks first, so that the log doesn't fill with starts that come to nothing.
void mainForm::retryPort() {
  if (!serverRunning) {
    if (wsHost.listen()) StartServer();
    return;
  }
  wsHost.retry([this](const std::string& place) { status_.LogLine("Listening on " + place); });
  tellServing();
}

void mainForm::StopServer() {
  housekeeping_.stop();
  portRetries_->stop();
  closeAll();
  serverRunning = false;
  status_.LogLine("Server Stop");
  status_.commitLog();
  objects_.reset();
  tellState("Stopped");
}

void mainForm::closeAll() {
  slotWatch_.stop();
  turns_.clear();
  wsTalker.closeAll();
  wsHost.close();
}

std::string mainForm::uptime() const {
  return uptimeText(services_.clock, startTime);
}

std::string mainForm::version() const {
  return VersionText(services_.state);
}

void mainForm::closeWindow() {
  if (windowClosed_) return;
  if (serverRunning || wsHost.state() == SocketState::Listening) StopServer();
  windowClosed_ = true;
  status_.LogLine("Server Closing");
  status_.releaseLog();
  wsLinker.close();
  parts_.loop.stop();
}

void mainForm::closeWhenDrained() {
  const std::chrono::seconds atMost{services_.state.DrainSeconds};
  if (!serverRunning || atMost.count() == 0 || draining_.active()) return closeWindow();
  housekeeping_.stop();  // it would open the listener again
  portRetries_->stop();  // and so would these
  draining_.start(atMost, [this] { closeWindow(); });
}

void mainForm::startNewLog() {
  if (services_.state.ServerLog) services_.state.ServerLog->Reset(true);
}

void mainForm::clickButton(int index) {
  if (index == FormModel::kStartStop) {
    serverRunning ? StopServer() : StartServer();
  } else if (index == FormModel::kClearLog) {
    form_.llist[FormModel::kStatus].clear();
    form_.dbgText.text = "";
  }
  form_.changed();
}

void mainForm::clickStatusLine(int line) {
  ListModel& list = form_.llist[FormModel::kStatus];
  list.select(line);
  if (list.selected() < 0) return;
  form_.dbgText.text =
      replaceAll(list.lines()[static_cast<std::size_t>(list.selected())], "||", "\r\n");
  form_.changed();
}

void mainForm::serviceStarted() {
  status_.LogLine("Starting service");
  StartServer();
}

void mainForm::serviceStopped() {
  status_.LogLine("Stopping service");
  closeWhenDrained();
}

void mainForm::connectionRequest(ConnectionRequest& request) {
  if (!visitors_.mayConnect(request.remoteHostIP())) return;
  status_.LogLine("Connection request from IP " + request.remoteHostIP());
  const auto slot = wsTalker.accept(request);
  if (!slot) return;
  visitors_.begin(*slot);
  slotWatch_.begin();
}

void mainForm::listenerError() {
  if (!serverRunning) return wsHost.close();
  wsHost.revive();
  if (!services_.state.Listen.empty() && !wsHost.isWhole()) {
    tellPortFaults("the others are served");
    tellServing();
  }
}

/// What fails within a page is caught where the page runs and becomes its error page. Whatever else
/// a request brings about, such as memory that runs out, stops here and costs this connection
/// only. No other event is guarded.
void mainForm::dataArrival(int index, std::string_view data) {
  if (visitors_.isUnnamed(index)) {
    const auto rest = visitors_.takePreface(index, data);
    if (!rest) wsTalker.close(index);
    if (!rest || rest->empty()) return;
    data = *rest;
  }
  do {
    handleRequest(index, std::exchange(data, {}));
  } while (wsTalker.hasNext(index) && canGoOn(index));
}

/// Whether the answers to the slot's requests so far are on their way.
bool mainForm::canGoOn(int index) const {
  const TcpSocket& socket = wsTalker.socket(index);
  return objects_ && socket.state() == SocketState::Connected && socket.pendingBytes() == 0 &&
         socket.tag != kCloseWhenSent && !wsTalker.isHeld(index);
}

void mainForm::handleRequest(int index, std::string_view data) {
  if (!objects_ || wsTalker.socket(index).tag == kCloseWhenSent) return;
  dispatched_ = false;
  try {
    auto response = objects_->handling().dataArrival(index, wsTalker.record(index), data,
                                                     visitors_.addressOf(index));
    if (response) {
      wsTalker.noteRequest(index);
      answer(index, std::move(*response));
    }
    if (const auto heaviest = wsTalker.noteHeld(index)) turnAway(*heaviest);
  } catch (const std::exception& error) {
    status_.LogLine(std::string("Request failed: ") + error.what());
    const bool hasPart = dispatched_;  // nothing can be said within an answer
    if (hasPart || !closeSaying(index, Status::InternalServerError)) wsTalker.close(index);
  }
  turns_.over();
}

/// Ends a connection with a word to its client. False, and nothing done, where the protocol has
/// none.
bool mainForm::closeSaying(int index, Status why) {
  auto response = objects_ ? objects_->handling().protocol().givenUp(why) : std::nullopt;
  if (!response) return false;
  answer(index, std::move(*response));
  wsTalker.close(index);
  return true;
}

void mainForm::turnAway(int index) {
  status_.LogLine(visitors_.addressOf(index) +
                  " > TURNED AWAY: too much waits of unfinished requests");
  if (!closeSaying(index, Status::ServiceUnavailable)) wsTalker.close(index);
}

void mainForm::answer(int index, Response response) {
  TcpSocket& socket = wsTalker.socket(index);
  socket.tag = response.keepAlive ? "" : kCloseWhenSent;
  if (socket.state() != SocketState::Connected) return;
  if (!response.empty()) {
    socket.send(std::move(response.head), std::move(response.body));
  } else if (!response.keepAlive) {
    wsTalker.close(index);
  }
}

void mainForm::sendComplete(int index) {
  if (wsTalker.socket(index).tag == kCloseWhenSent) wsTalker.close(index);
  wsTalker.socket(index).tag.clear();
  if (wsTalker.hasNext(index) && canGoOn(index)) dataArrival(index, {});
}

void mainForm::peerClosed(int index) {
  wsTalker.close(index);
}

void mainForm::socketError(int index) {
  wsTalker.close(index);
  wsTalker.tidyUp();
}

void mainForm::vbsParser_DebugOutput(const std::string& dbgData) {
  status_.LogLine("[SERVER.DEBUGOUT] " + dbgData);
}

bool mainForm::vbsParser_Dispatch(std::int32_t SocketIndex, std::string Data,
                                  bool CloseOpenSocket) {
  if (!wsTalker.exists(SocketIndex)) return true;
  dispatched_ = true;
  TcpSocket& socket = wsTalker.socket(SocketIndex);
  if (socket.state() != SocketState::Connected) return true;
  socket.tag = CloseOpenSocket ? kCloseWhenSent : "";
  socket.send(std::move(Data), {});
  return socket.drainTo(kMostFlushedAhead,
                        {kFlushStalled, kLongestFlush, kFlushStalledWhileOthersWait,
                         [this] { return othersWait(); }});
}

bool mainForm::isConnected(std::int32_t index) const {
  return wsTalker.exists(index) && turns_.isThere(turns_.inSlot(index));
}

std::string mainForm::localAddress(std::int32_t index) const {
  return wsTalker.exists(index) ? wsTalker.socket(index).localHostIP() : std::string();
}

/// Whether somebody has come who is not looked at while a page waits for its client.
bool mainForm::othersWait() const {
  if (!turns_.empty() || wsHost.hasWaiting()) return true;
  for (int index = 0; index <= wsTalker.highest(); ++index) {
    if (wsTalker.socket(index).isWaiting()) return true;
  }
  return false;
}

}  // namespace quorvane
