#include "components/mail/sender.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>
#include <memory>

#include "components/component_error.h"
#include "components/mail/address_list.h"
#include "components/mail/mime.h"
#include "platform/clock.h"
#include "platform/random.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/text.h"
#include "vbscript/values/time_check.h"

namespace quorvane::mail {

namespace {

struct EndEasy {
  void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
};
struct EndMulti {
  void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
};
struct EndList {
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using Easy = std::unique_ptr<CURL, EndEasy>;
using Multi = std::unique_ptr<CURLM, EndMulti>;
using List = std::unique_ptr<curl_slist, EndList>;

std::vector<std::string> recipientsOf(const Mail& mail) {
  std::vector<std::string> all;
  for (const auto* list : {&mail.to, &mail.cc, &mail.bcc}) {
    for (const Address& entry : *list) {
      std::string address = addressText(entry);
      if (!address.empty()) all.push_back(std::move(address));
    }
  }
  return all;
}

/// Of the sender if there is one, else of the first that it is from.
std::string returnAddress(const Mail& mail) {
  for (const auto* list : {&mail.sender, &mail.from}) {
    for (const Address& entry : *list) {
      std::string address = addressText(entry);
      if (!address.empty()) return address;
    }
  }
  return {};
}

/// One mail on its way.
class Transfer {
 public:
  Transfer(std::string text, const std::string& url) : text_(std::move(text)), left_(text_) {
    set(CURLOPT_URL, url.c_str());
    set(CURLOPT_PROTOCOLS_STR, "smtp,smtps");
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_UPLOAD, 1L);
    set(CURLOPT_READFUNCTION, &Transfer::give);
    set(CURLOPT_READDATA, this);
    set(CURLOPT_HEADERFUNCTION, &Transfer::hear);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_ERRORBUFFER, reason_.data());
  }
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;
  ~Transfer() { curl_multi_remove_handle(multi_.get(), easy_.get()); }

  template <class T>
  void set(CURLoption option, T value) {
    curl_easy_setopt(easy_.get(), option, value);
  }

  void address(const std::string& from, const std::vector<std::string>& to) {
    set(CURLOPT_MAIL_FROM, ('<' + from + '>').c_str());
    for (const std::string& recipient : to) {
      curl_slist* longer = curl_slist_append(recipients_.get(), ('<' + recipient + '>').c_str());
      if (!longer) throw std::bad_alloc();
      (void)recipients_.release();
      recipients_.reset(longer);
    }
    set(CURLOPT_MAIL_RCPT, recipients_.get());
  }

  std::optional<SendError> perform() {
    constexpr int kTurn = 50;  // milliseconds until the script's time is looked at
    curl_multi_add_handle(multi_.get(), easy_.get());
    for (int running = 1; running > 0;) {
      vbs::checkTime();
      curl_multi_perform(multi_.get(), &running);
      if (running > 0) curl_multi_poll(multi_.get(), nullptr, 0, kTurn, nullptr);
    }
    int left = 0;
    const CURLMsg* message = curl_multi_info_read(multi_.get(), &left);
    if (!message) return SendError{};
    if (message->data.result == CURLE_OK) return std::nullopt;
    return SendError{failureOf(message->data.result), response_};
  }

 private:
  static std::size_t give(char* out, std::size_t size, std::size_t count, void* self) {
    std::string_view& left = static_cast<Transfer*>(self)->left_;
    const std::size_t length = std::min(size * count, left.size());
    std::memcpy(out, left.data(), length);
    left.remove_prefix(length);
    return length;
  }

  /// Keeps the last refusal.
  static std::size_t hear(const char* bytes, std::size_t size, std::size_t count, void* self) {
    constexpr std::size_t kMost = 1000;
    if (size * count == 0 || (*bytes != '4' && *bytes != '5')) return size * count;
    std::string& response = static_cast<Transfer*>(self)->response_;
    response.assign(bytes, std::min(size * count, kMost));
    while (!response.empty() && (response.back() == '\r' || response.back() == '\n')) {
      response.pop_back();
    }
    return size * count;
  }

  Failure failureOf(CURLcode code) const {
    switch (code) {
      case CURLE_COULDNT_CONNECT:
      case CURLE_COULDNT_RESOLVE_HOST:
      case CURLE_OPERATION_TIMEDOUT:
      case CURLE_URL_MALFORMAT:
      case CURLE_SSL_CONNECT_ERROR:
      case CURLE_PEER_FAILED_VERIFICATION:
      case CURLE_USE_SSL_FAILED:
        return Failure::CantConnect;
      case CURLE_LOGIN_DENIED:
        return Failure::LogonFailed;
      default:
        break;
    }
    const std::string_view reason(reason_.data());
    if (reason.starts_with("MAIL failed")) return Failure::SenderRejected;
    if (reason.starts_with("RCPT failed")) return Failure::RecipientRejected;
    return Failure::NotSent;
  }

  std::string text_;
  std::string_view left_;
  std::string response_;
  std::array<char, CURL_ERROR_SIZE> reason_{};
  List recipients_;
  Easy easy_{curl_easy_init()};
  Multi multi_{curl_multi_init()};
};

/// A host as it may stand in an address; nothing else may.
bool isHost(std::string_view host) {
  return !host.empty() && std::all_of(host.begin(), host.end(), [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '.' || c == '-' || c == '_' ||
           c == ':' || c == '[' || c == ']';
  });
}

std::string urlOf(const Route& route, const std::string& host) {
  const bool whole = route.tls == Route::Tls::Whole;
  const bool hasPort = host.find(':', host.rfind(']') + 1) != host.npos;
  std::string url = (whole ? "smtps://" : "smtp://") + host;
  const int usual = whole ? 465 : 25;
  const bool isPort = route.port > 0 && route.port <= UINT16_MAX;
  if (!hasPort) url += ':' + std::to_string(isPort ? route.port : usual);
  return url;
}

std::optional<SendError> sendToServer(const Mail& mail, const Route& route, const std::string& host,
                                      const Services& services) {
  if (!isHost(host)) return SendError{Failure::CantConnect, {}};
  Transfer transfer(mimeText(mail, services), urlOf(route, host));
  transfer.address(returnAddress(mail), recipientsOf(mail));
  transfer.set(CURLOPT_CONNECTTIMEOUT, static_cast<long>(route.connectSeconds));
  if (route.tls == Route::Tls::Start) transfer.set(CURLOPT_USE_SSL, long{CURLUSESSL_ALL});
  if (!route.user.empty()) {
    transfer.set(CURLOPT_USERNAME, route.user.c_str());
    transfer.set(CURLOPT_PASSWORD, route.password.c_str());
  }
  return transfer.perform();
}

/// Lines in front tell whom it goes to, blind copies too.
std::optional<SendError> putInto(const std::string& folder, const Mail& mail,
                                 const Services& services) {
  std::string text = "X-Sender: " + returnAddress(mail) + "\r\n";
  for (const std::string& recipient : recipientsOf(mail)) {
    text += "X-Receiver: " + recipient + "\r\n";
  }
  text += mimeText(mail, services);
  const std::string name = hexDigits(services.random.guid()) + ".eml";
  if (!services.files.stat(folder)) services.files.makeFolder(folder);
  if (services.files.writeAll(paths::join(folder, name), text)) return std::nullopt;
  return SendError{Failure::NotSent, {}};
}

}  // namespace

std::string textOf(const SendError& error) {
  switch (error.failure) {
    case Failure::NoRecipient:
      return "At least one recipient is required, but none were found.";
    case Failure::NoSender:
      return "At least one of the From or Sender fields is required, and neither was found.";
    case Failure::SenderRejected:
      return "The server rejected the sender address. The server response was: " + error.response;
    case Failure::RecipientRejected:
      return "The server rejected one or more recipient addresses. The server response was: " +
             error.response;
    case Failure::NotSent:
      return "The message could not be sent to the SMTP server. The server response was: " +
             error.response;
    case Failure::CantConnect:
      return "The transport failed to connect to the server.";
    case Failure::LogonFailed:
      return "The transport was unable to log on to the server.";
    case Failure::NoServer:
      return "The \"SendUsing\" configuration value is invalid.";
  }
  return {};
}

void throwSendError(const SendError& error, std::string_view source) {
  throwComponentError(static_cast<std::int32_t>(error.failure), textOf(error), source);
}

std::optional<SendError> send(const Mail& mail, const Route& route, const Services& services) {
  if (returnAddress(mail).empty()) return SendError{Failure::NoSender, {}};
  if (recipientsOf(mail).empty()) return SendError{Failure::NoRecipient, {}};
  const ServerState& state = services.state;
  if (!state.MailFolder.empty()) {
    return putInto(paths::absolute(state.MailFolder, state.MainPath), mail, services);
  }
  if (!route.pickupFolder.empty()) return putInto(route.pickupFolder, mail, services);
  const std::string& host = route.host.empty() ? state.MailServer : route.host;
  if (host.empty()) return SendError{Failure::NoServer, {}};
  return sendToServer(mail, route, host, services);
}

}  // namespace quorvane::mail
