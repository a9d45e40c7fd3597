#pragma once

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include "components/ado/odbc/session.h"

namespace quorvane::ado {

/// A connection at a driver, with the thread that calls it. Drivers wait for their servers however
/// long it takes, and few can be asked to work beside; so a script waits for the thread, and for no
/// longer than its time. What the thread then still does is asked to be given up. When that does
/// not help, the connection is lost: the thread ends with whatever it waits for, and takes all that
/// it works with along.
class OdbcWorker {
 public:
  /// Throws OdbcFailure while too many lost threads are still waiting.
  explicit OdbcWorker(std::shared_ptr<OdbcSession> session);
  /// Waits for the end of the connection, but not for long.
  ~OdbcWorker();
  OdbcWorker(const OdbcWorker&) = delete;
  OdbcWorker& operator=(const OdbcWorker&) = delete;

  bool lost() const { return lost_; }

  /// What `work` gives or throws, done on the thread that has the connection. It must own all
  /// that it uses, but no value of a script. Throws what the script's time limit throws, and the
  /// failure HYT00 after `limit`, if that is not zero.
  template <class Work>
  auto call(Work work, std::chrono::milliseconds limit) {
    using Result = std::invoke_result_t<Work, OdbcSession&>;
    struct Outcome {
      std::optional<Result> value;
      std::exception_ptr failure;
    };
    const auto outcome = std::make_shared<Outcome>();
    perform(
        [outcome, work = std::move(work)](OdbcSession& session) mutable {
          try {
            outcome->value.emplace(work(session));
          } catch (...) {
            outcome->failure = std::current_exception();
          }
        },
        limit);
    if (outcome->failure) std::rethrow_exception(outcome->failure);
    return std::move(*outcome->value);
  }

  /// Has something done that nobody waits for.
  void post(std::function<void(OdbcSession&)> work);

 private:
  struct Shared;

  void perform(std::function<void(OdbcSession&)> work, std::chrono::milliseconds limit);
  void giveUp();
  static void serve(const std::shared_ptr<Shared>& shared);

  std::shared_ptr<Shared> shared_;
  bool lost_ = false;
};

}  // namespace quorvane::ado
