#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/image_library.h"
#include "platform/workers.h"
#include "support/turns.h"

namespace quorvane {

class EventLoop;

/// Has pictures rendered beside the loop, a few at a time. Those that wait take turns by whom they
/// are for, so that one client's many hold nobody else up. With this object they are all dropped.
class Renderings {
 public:
  static constexpr int kAtOnce = 2;

  struct Job {
    std::string source;
    std::string target;
    ImageRendering wanted;
    std::function<bool()> isNeeded;       ///< asked when its turn has come
    std::function<void(bool made)> done;  ///< called in every case, on the loop's thread
  };

  /// Both outlive this object. Without a library nothing is made.
  Renderings(EventLoop& loop, ImageLibrary* library) : loop_(loop), library_(library) {}

  /// Its `done` is never called from within.
  void add(const std::string& owner, Job job);

 private:
  void startNext();
  void start(Job job);

  EventLoop& loop_;
  ImageLibrary* library_;
  Turns<Job> waiting_;
  int running_ = 0;
  std::unique_ptr<Workers> workers_;  ///< made when first needed, destroyed first
};

}  // namespace quorvane
