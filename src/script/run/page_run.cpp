#include "script/run/page_run.h"

namespace quorvane {

/// Marks a program as running.
class PageRun::Mark {
 public:
  Mark(PageRun& run, const Running& running) : run_(run) { run_.running_.push_back(running); }
  Mark(const Mark&) = delete;
  Mark& operator=(const Mark&) = delete;
  ~Mark() { run_.running_.pop_back(); }

 private:
  PageRun& run_;
};

void PageRun::start() {
  time_ = limits_.time;
  started_ = host_.steadyNow();
}

/// The limits of a program that starts now, within the time of the whole page.
vbs::Limits PageRun::limitsFromNow() const {
  vbs::Limits limits = limits_;
  const auto left = started_ + time_ - host_.steadyNow();
  limits.time = std::chrono::duration_cast<std::chrono::milliseconds>(left);
  return limits;
}

std::optional<vbs::ErrorReport> PageRun::run(const std::string& program, const std::string& folder,
                                             const Publish& publish) {
  try {
    vbs::Engine engine(host_, programs_, limitsFromNow());
    const Mark mark(*this, {engine, folder});
    publish(engine);
    return engine.run(program);
  } catch (const std::exception&) {
    vbs::ErrorReport error;
    error.number = static_cast<std::int32_t>(vbs::ErrorCode::InternalError);
    error.description = vbs::errorText(error.number);
    return error;
  }
}

const std::string& PageRun::folder() const {
  static const std::string kNone;
  return running_.empty() ? kNone : running_.back().folder;
}

void PageRun::setTimeLimit(std::chrono::seconds limit) {
  time_ = limit;
  for (const Running& running : running_) running.engine.setDeadline(started_ + limit);
}

}  // namespace quorvane
