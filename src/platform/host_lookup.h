#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// Finds a host's addresses by its name, on a thread of its own: the system may take any time to
/// find them, and whoever wants them waits as long as they like. Nobody waits for the thread.
class HostLookup {
 public:
  struct Found {
    std::vector<std::string> addresses;  ///< those of IPv4 first; none where `fault` says why
    std::string fault;
  };
  /// Called on that thread; throws nothing.
  using Find = std::function<Found(const std::string& host)>;

  /// Begins at once.
  explicit HostLookup(std::string host, Find find = &HostLookup::bySystem);

  /// Nothing when it is not known after that time.
  std::optional<Found> wait(std::chrono::milliseconds atMost) const;

 private:
  static Found bySystem(const std::string& host);

  std::shared_future<Found> found_;
};

}  // namespace quorvane
