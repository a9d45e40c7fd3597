#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quorvane {

struct Services;

namespace http_client {

/// One request to another server.
struct Call {
  std::string method = "GET";
  std::string url;
  std::vector<std::pair<std::string, std::string>> headers;
  std::optional<std::string> body;
  std::string userAgent;
  std::string user;
  std::string password;
  std::string proxy;  ///< empty: none
  std::string proxyBypass;
  std::string proxyUser;
  std::string proxyPassword;
  bool followsRedirects = true;
  bool checksCertificate = true;
  bool checksHostName = true;
  /// Zero: for ever.
  std::chrono::milliseconds connectTimeout{60'000};  ///< with finding the server's address
  std::chrono::milliseconds idleTimeout{30'000};     ///< while nothing goes or comes
  /// Where this very server listens: it can't answer meanwhile.
  std::vector<std::uint16_t> ownPorts;
};

struct Answer {
  long status = 0;
  std::string statusText;
  std::string headers;  ///< the lines, each with its CR LF
  std::string body;
  std::string url;  ///< where the answer came from, after all redirections

  /// The values of a header of that name, in any letter case, one behind the other.
  std::optional<std::string> header(std::string_view name) const;
};

enum class Fault {
  BadUrl,
  BadProtocol,
  NameNotResolved,
  CannotConnect,
  TimedOut,
  Aborted,
  BadAnswer,
  TooManyRedirects,
  BadCertificate,
  OwnServer,
  NoMemory,
};

/// How far a request is.
enum class Stage { Sent, HeadArrived, BodyArriving, Done };

/// A request on its way. All work is done within step(): there are no threads.
class Transfer {
 public:
  explicit Transfer(Call call);
  ~Transfer();
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  /// Goes on with what has come, waiting for something up to `patience`. Throws when the script's
  /// time is over.
  void step(std::chrono::milliseconds patience);
  /// Steps until the end.
  void finish();

  Stage stage() const;
  /// Of a request that is done: why there is no answer.
  std::optional<Fault> fault() const;
  const Answer& answer() const;

 private:
  class Work;
  std::unique_ptr<Work> work_;
};

/// What a request by a script of these services starts from.
Call callFrom(const Services& services);

}  // namespace http_client

}  // namespace quorvane
