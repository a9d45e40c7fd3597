#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "vbscript/engine.h"

namespace quorvane {

/// The programs of one page, each inside the one before, under limits that hold for all of them
/// together.
class PageRun {
 public:
  /// Makes the page's objects known to an engine.
  using Publish = std::function<void(vbs::Engine&)>;

  /// `host` and `programs` outlive the object.
  PageRun(vbs::Host& host, vbs::ProgramCache& programs, vbs::Limits limits)
      : host_(host), programs_(programs), limits_(limits) {}

  /// The time begins.
  void start();

  /// Runs a program whose file lies in `folder`. What it stopped with; nothing when it came to its
  /// end or ended itself.
  std::optional<vbs::ErrorReport> run(const std::string& program, const std::string& folder,
                                      const Publish& publish);

  /// Pages run inside each other by Server.Execute.
  static constexpr std::size_t kMostNested = 8;
  std::size_t depth() const { return running_.size(); }
  /// Of the program that runs; empty when none does.
  const std::string& folder() const;

  std::chrono::seconds timeLimit() const {
    return std::chrono::duration_cast<std::chrono::seconds>(time_);
  }
  void setTimeLimit(std::chrono::seconds limit);

 private:
  struct Running {
    vbs::Engine& engine;
    const std::string& folder;
  };
  class Mark;

  vbs::Limits limitsFromNow() const;

  vbs::Host& host_;
  vbs::ProgramCache& programs_;
  vbs::Limits limits_;
  std::chrono::milliseconds time_{};
  std::chrono::steady_clock::time_point started_;
  std::vector<Running> running_;  ///< each inside the one before
};

}  // namespace quorvane
