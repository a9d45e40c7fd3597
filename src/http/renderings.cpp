#include "http/renderings.h"

#include <exception>
#include <utility>

#include "platform/event_loop.h"

namespace quorvane {

void Renderings::add(const std::string& owner, Job job) {
  waiting_.add(owner, std::move(job));
  startNext();
}

void Renderings::startNext() {
  while (running_ < kAtOnce && !waiting_.empty()) start(waiting_.take());
}

void Renderings::start(Job job) {
  struct State {
    Job job;
    bool made = false;
  };
  const auto state = std::make_shared<State>(State{std::move(job)});
  if (!workers_) workers_ = loop_.makeWorkers(kAtOnce);
  ++running_;
  const bool needed = library_ && state->job.isNeeded();
  workers_->run(
      [library = library_, state, needed] {
        if (!needed) return;
        try {
          state->made = library->render(state->job.source, state->job.target, state->job.wanted);
        } catch (const std::exception&) {
          state->made = false;  // memory that runs out, say: a picture that can't be rendered
        }
      },
      [this, state] {
        --running_;
        startNext();
        state->job.done(state->made);
      });
}

}  // namespace quorvane
