#include "platform/host_lookup.h"

#include <algorithm>
#include <asio/io_context.hpp>
#include <asio/ip/tcp.hpp>
#include <system_error>
#include <thread>
#include <utility>

namespace quorvane {

HostLookup::HostLookup(std::string host, Find find) {
  std::packaged_task<Found()> task(
      [host = std::move(host), find = std::move(find)] { return find(host); });
  found_ = task.get_future().share();
  try {
    std::thread(std::move(task)).detach();
  } catch (const std::system_error& error) {
    std::promise<Found> failed;
    failed.set_value({{}, error.what()});
    found_ = failed.get_future().share();
  }
}

std::optional<HostLookup::Found> HostLookup::wait(std::chrono::milliseconds atMost) const {
  if (found_.wait_for(atMost) != std::future_status::ready) return std::nullopt;
  return found_.get();
}

HostLookup::Found HostLookup::bySystem(const std::string& host) {
  Found found;
  asio::io_context io;
  asio::error_code error;
  for (const auto& entry : asio::ip::tcp::resolver(io).resolve(host, "", error)) {
    found.addresses.push_back(entry.endpoint().address().to_string());
  }
  if (error) found.fault = error.message();
  std::stable_partition(found.addresses.begin(), found.addresses.end(),
                        [](const std::string& text) { return text.find(':') == text.npos; });
  return found;
}

}  // namespace quorvane
