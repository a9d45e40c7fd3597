#include "platform/service_host.h"

#include <utility>

#include "platform/event_loop.h"

namespace quorvane {

void runAsService(ServiceHost& host, EventLoop& loop, std::function<void()> started,
                  std::function<void()> stopped) {
  loop.onTerminationRequest([&host, stopped = std::move(stopped)] {
    host.reportEnding();
    stopped();
  });
  loop.post([&host, started = std::move(started)] {
    started();
    host.reportReady();
  });
}

}  // namespace quorvane
