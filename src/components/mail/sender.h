#pragma once

#include <optional>
#include <string>

#include "components/mail/mail.h"
#include "platform/services.h"

namespace quorvane::mail {

/// The way that a mail takes.
struct Route {
  enum class Tls { None, Start, Whole };

  std::string host;  ///< may have a port behind a colon; empty: as the settings say
  int port = 0;      ///< 0: the usual one
  std::string user;
  std::string password;
  Tls tls = Tls::None;
  int connectSeconds = 30;
  std::string pickupFolder;  ///< takes the mail as a file instead; a full path
};

/// Why a mail was not sent. The numbers are those that scripts know.
enum class Failure : std::int32_t {
  NoRecipient = -2147220980,
  NoSender = -2147220979,
  SenderRejected = -2147220978,
  RecipientRejected = -2147220977,
  NotSent = -2147220975,
  CantConnect = -2147220973,
  LogonFailed = -2147220969,
  NoServer = -2147220960,
};

struct SendError {
  Failure failure = Failure::NotSent;
  std::string response;  ///< the server's last words
};

std::string textOf(const SendError& error);
[[noreturn]] void throwSendError(const SendError& error, std::string_view source);

/// Sends a mail, or puts it into a folder where the settings say so. Nothing: it is done. While the
/// server lets it wait the script's time goes on.
std::optional<SendError> send(const Mail& mail, const Route& route, const Services& services);

}  // namespace quorvane::mail
