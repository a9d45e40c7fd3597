#include "http/side_work.h"

#include <exception>
#include <utility>

#include "platform/event_loop.h"

namespace quorvane {

void SideWork::add(const std::string& owner, Job job) {
  waiting_.add(owner, std::move(job));
  startNext();
}

void SideWork::startNext() {
  while (running_ < kAtOnce && !waiting_.empty()) start(waiting_.take());
}

void SideWork::start(Job job) {
  const auto shared = std::make_shared<Job>(std::move(job));
  if (!workers_) workers_ = loop_.makeWorkers(kAtOnce);
  ++running_;
  const bool needed = shared->isNeeded();
  workers_->run(
      [shared, needed] {
        if (!needed) return;
        try {
          shared->make();
        } catch (const std::exception&) {  // memory that runs out, say: nothing is made then
        }
      },
      [this, shared] {
        --running_;
        startNext();
        shared->done();
      });
}

}  // namespace quorvane
