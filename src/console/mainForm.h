#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "console/answer_turns.h"
#include "console/control_channel.h"
#include "console/draining.h"
#include "console/form_model.h"
#include "console/housekeeping.h"
#include "console/listeners.h"
#include "console/running_server.h"
#include "console/server_settings.h"
#include "console/slot_watch.h"
#include "console/slots.h"
#include "console/status_lists.h"
#include "console/visitors.h"
#include "http/status.h"
#include "platform/event_loop.h"
#include "support/server_state.h"

namespace quorvane {

/// What the window works with. Everything outlives it.
struct mainFormParts {
  const Services& services;
  EventLoop& loop;
  FormModel& form;
  StatusLists& status;  ///< the log of the services
  ServerSettings& settings;
  std::int32_t userDefaultLCID = 1033;  ///< the user's own language
};

/// The server's window and hub: it owns the listeners, the slots, the control channel, the timers
/// and, while the server runs, the objects of the running server, and brings the events of one to
/// the others. Its events come from the event loop and never overlap within a request.
class mainForm final : public ServerControl,
                       public PageEvents,
                       private TcpListenerEvents,
                       private TcpSocketEvents {
 public:
  explicit mainForm(mainFormParts parts);
  ~mainForm() override;
  mainForm(const mainForm&) = delete;
  mainForm& operator=(const mainForm&) = delete;

  /// Loads the window without showing it: the control channel opens.
  void load();

  /// While running it does nothing unless forced; a forced start keeps the sessions.
  void StartServer(bool forceServerStart = false) override;
  void StopServer() override;
  bool running() const override { return serverRunning; }
  std::string uptime() const override;
  std::string version() const override;
  bool answersAnyAddress() const override { return services_.state.ControlAnyAddress; }

  /// Query-unload: stops the server, closes the log and the channel and ends the event loop.
  /// The window is not used again afterwards.
  void closeWindow() override;

  /// Closes the window as the system asks for it: what is under way may come to its end first, for
  /// as long as the setting DrainSeconds says. Asked again it closes at once.
  void closeWhenDrained();

  /// What the log holds is written; the lines from now on go to a new file.
  void startNewLog();

  // What the user does.
  void clickButton(int index);
  void clickStatusLine(int line);

  // What running pages tell.
  void vbsParser_DebugOutput(const std::string& dbgData) override;
  bool vbsParser_Dispatch(std::int32_t SocketIndex, std::string Data,
                          bool CloseOpenSocket) override;
  bool isConnected(std::int32_t index) const override;
  std::string localAddress(std::int32_t index) const override;

  // What the service manager asks for.
  void serviceStarted();
  void serviceStopped();  ///< the window closes, as by closeWhenDrained()

  /// Told in a sentence what the server does now, whenever that has changed. May be empty.
  std::function<void(const std::string& sentence)> onState;

  FormModel& form() { return form_; }
  StatusLists& status() { return status_; }
  std::uint16_t port() const { return wsHost.localPort(); }

 private:
  void connectionRequest(ConnectionRequest& request) override;
  void descriptorsShort() override { slotWatch_.makeRoom(); }
  void listenerError() override;

  void dataArrival(int index, std::string_view data) override;
  void sendComplete(int index) override;
  void peerClosed(int index) override;
  void socketError(int index) override;
  void handleRequest(int index, std::string_view data);
  bool canGoOn(int index) const;
  void answer(int index, Response response);
  bool closeSaying(int index, Status why);
  void turnAway(int index);
  bool othersWait() const;

  std::int32_t wantedLanguage() const;
  void makeObjects(std::int32_t language);
  void loadLanguage(std::int32_t wanted);
  void portError();
  std::string tellPortFaults(std::string_view consequence);
  void tellServing();
  void retryPort();
  void tellState(const std::string& sentence) const {
    if (onState) onState(sentence);
  }
  void closeAll();

  mainFormParts parts_;
  const Services& services_;
  FormModel& form_;
  StatusLists& status_;
  Slots wsTalker;
  Visitors visitors_;
  Listeners wsHost;
  std::unique_ptr<RunningServer> objects_;
  Housekeeping housekeeping_;
  Draining draining_;
  SlotWatch slotWatch_;
  AnswerTurns turns_;
  ControlChannel wsLinker;
  std::unique_ptr<Timer> portRetries_;  ///< runs while a place to listen at can't be had
  TimePoint startTime{};
  bool dispatched_ = false;  ///< a part of the answer to the request in hand
  bool serverRunning = false;
  bool windowClosed_ = false;
};

}  // namespace quorvane
