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
  while (running_.size() < kAtOnce && !waiting_.empty()) start(waiting_.take());
}

void SideWork::start(Job job) {
  const std::string target = job.isNeeded() ? std::move(job.making.target) : std::string();
  const auto [entry, isFirst] = running_.try_emplace(target);
  entry->second.push_back(std::move(job.done));
  if (!isFirst) return;
  if (!workers_) workers_ = loop_.makeWorkers(kAtOnce);
  workers_->run(
      [make = std::move(job.making.make), isNeeded = !target.empty()] {
        if (!isNeeded) return;
        try {
          make();
        } catch (const std::exception&) {  // memory that runs out, say: nothing is made then
        }
      },
      [this, target] { finish(target); });
}

void SideWork::finish(const std::string& target) {
  const Awaited awaited = std::move(running_.extract(target).mapped());
  startNext();
  for (const auto& done : awaited) done();
}

}  // namespace quorvane
