#include "components/http_client/transfer.h"

#include <curl/curl.h>

#include <algorithm>
#include <mutex>
#include <new>

#include "platform/services.h"
#include "support/server_state.h"
#include "support/text.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/time_check.h"

namespace quorvane::http_client {

namespace {

using std::chrono::milliseconds;
using SteadyTime = std::chrono::steady_clock::time_point;

constexpr long kMostRedirects = 10;
/// So often the script's time is looked at while nothing happens.
constexpr milliseconds kBetweenLooks{50};

struct EasyEnd {
  void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
};
struct MultiEnd {
  void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
};
struct ListEnd {
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

void prepareLibrary() {
  static std::once_flag once;
  std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

Fault faultOf(CURLcode code) {
  switch (code) {
    case CURLE_URL_MALFORMAT:
      return Fault::BadUrl;
    case CURLE_UNSUPPORTED_PROTOCOL:
      return Fault::BadProtocol;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
      return Fault::NameNotResolved;
    case CURLE_COULDNT_CONNECT:
      return Fault::CannotConnect;
    case CURLE_OPERATION_TIMEDOUT:
      return Fault::TimedOut;
    case CURLE_TOO_MANY_REDIRECTS:
      return Fault::TooManyRedirects;
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_ISSUER_ERROR:
    case CURLE_SSL_CONNECT_ERROR:
      return Fault::BadCertificate;
    case CURLE_WEIRD_SERVER_REPLY:
    case CURLE_BAD_CONTENT_ENCODING:
      return Fault::BadAnswer;
    case CURLE_OUT_OF_MEMORY:
      return Fault::NoMemory;
    default:
      return Fault::Aborted;
  }
}

bool isLoopback(std::string_view address) {
  return address.starts_with("127.") || address == "::1" || address.starts_with("::ffff:127.");
}

std::string_view withoutEnd(std::string_view line) {
  while (line.ends_with('\n') || line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace

std::optional<std::string> Answer::header(std::string_view name) const {
  std::optional<std::string> values;
  for (std::string_view line : split(headers, '\n')) {
    line = withoutEnd(line);
    const std::size_t colon = line.find(':');
    if (colon == line.npos || !equalsNoCase(line.substr(0, colon), name)) continue;
    const std::string_view value = trimBlanks(line.substr(colon + 1));
    if (values) {
      values->append(", ").append(value);
    } else {
      values = std::string(value);
    }
  }
  return values;
}

class Transfer::Work {
 public:
  explicit Work(Call call) : call_(std::move(call)) {
    prepareLibrary();
    multi_.reset(curl_multi_init());
    easy_.reset(curl_easy_init());
    if (!multi_ || !easy_) throw std::bad_alloc();
    setAddress();
    setRequest();
    setCallbacks();
    progress_ = std::chrono::steady_clock::now();
    curl_multi_add_handle(multi_.get(), easy_.get());
  }

  ~Work() {
    curl_multi_remove_handle(multi_.get(), easy_.get());
    vbs::runContext.memory.release(answer_.body.size() + answer_.headers.size());
  }
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;

  void step(milliseconds patience) {
    vbs::checkTime();
    if (stage_ == Stage::Done) return;
    int running = 0;
    curl_multi_perform(multi_.get(), &running);
    if (running > 0 && patience.count() > 0) {
      const milliseconds wait = std::min(patience, kBetweenLooks);
      curl_multi_poll(multi_.get(), nullptr, 0, static_cast<int>(wait.count()), nullptr);
      curl_multi_perform(multi_.get(), &running);
      vbs::checkTime();
    }
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(multi_.get(), &left)) {
      if (message->msg == CURLMSG_DONE) end(message->data.result);
    }
    if (stage_ != Stage::Done && isIdle()) end(CURLE_OPERATION_TIMEDOUT);
  }

  Stage stage_ = Stage::Sent;
  std::optional<Fault> fault_;
  Answer answer_;

 private:
  template <class Setting>
  void set(CURLoption option, Setting value) {
    if (curl_easy_setopt(easy_.get(), option, value) == CURLE_OUT_OF_MEMORY) throw std::bad_alloc();
  }
  void setText(CURLoption option, const std::string& text) {
    if (!text.empty()) set(option, text.c_str());
  }

  void setAddress() {
    set(CURLOPT_URL, call_.url.c_str());
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    set(CURLOPT_FOLLOWLOCATION, call_.followsRedirects ? 1L : 0L);
    set(CURLOPT_MAXREDIRS, kMostRedirects);
    // An empty text: none, whatever stands in the environment.
    set(CURLOPT_PROXY, call_.proxy.c_str());
    setText(CURLOPT_NOPROXY, call_.proxyBypass);
    setText(CURLOPT_PROXYUSERNAME, call_.proxyUser);
    setText(CURLOPT_PROXYPASSWORD, call_.proxyPassword);
    setText(CURLOPT_USERNAME, call_.user);
    setText(CURLOPT_PASSWORD, call_.password);
    constexpr unsigned long kLogins = CURLAUTH_BASIC | CURLAUTH_DIGEST | CURLAUTH_NTLM;
    set(CURLOPT_HTTPAUTH, kLogins);
    set(CURLOPT_PROXYAUTH, kLogins);
    set(CURLOPT_SSL_VERIFYPEER, call_.checksCertificate ? 1L : 0L);
    set(CURLOPT_SSL_VERIFYHOST, call_.checksHostName ? 2L : 0L);
    if (call_.connectTimeout.count() > 0) {
      set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(call_.connectTimeout.count()));
    }
    set(CURLOPT_NOSIGNAL, 1L);
    // The end of a script does not wait for a name server.
    set(CURLOPT_QUICK_EXIT, 1L);
  }

  void setRequest() {
    setText(CURLOPT_USERAGENT, call_.userAgent);
    if (call_.method == "HEAD") {
      set(CURLOPT_NOBODY, 1L);
    } else if (call_.method != "GET") {
      if (call_.body || call_.method == "POST") {
        const std::string& body = call_.body ? *call_.body : call_.body.emplace();
        set(CURLOPT_POST, 1L);
        set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
        set(CURLOPT_POSTFIELDS, body.data());
      }
      if (call_.method != "POST") set(CURLOPT_CUSTOMREQUEST, call_.method.c_str());
    }
    addHeader("Expect:");
    bool hasType = false;
    for (const auto& [name, value] : call_.headers) {
      hasType = hasType || equalsNoCase(name, "Content-Type");
      // An empty value would take the header away.
      addHeader(value.empty() ? name + ";" : std::string(name).append(": ").append(value));
    }
    if (!hasType) addHeader("Content-Type:");
    set(CURLOPT_HTTPHEADER, headers_.get());
  }

  void addHeader(const std::string& line) {
    curl_slist* longer = curl_slist_append(headers_.get(), line.c_str());
    if (!longer) throw std::bad_alloc();
    static_cast<void>(headers_.release());
    headers_.reset(longer);
  }

  void setCallbacks() {
    set(CURLOPT_WRITEDATA, this);
    set(CURLOPT_WRITEFUNCTION, &Work::bodyArrives);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_HEADERFUNCTION, &Work::headArrives);
    set(CURLOPT_PREREQDATA, this);
    set(CURLOPT_PREREQFUNCTION, &Work::connected);
    set(CURLOPT_XFERINFODATA, this);
    set(CURLOPT_XFERINFOFUNCTION, &Work::moved);
    set(CURLOPT_NOPROGRESS, 0L);
  }

  /// False when the run has no memory left for so much.
  static bool counted(std::size_t bytes) {
    vbs::MemoryMeter& memory = vbs::runContext.memory;
    if (memory.used + static_cast<std::int64_t>(bytes) > memory.limit) return false;
    memory.used += static_cast<std::int64_t>(bytes);
    return true;
  }

  static std::size_t bodyArrives(char* bytes, std::size_t, std::size_t count, void* data) {
    auto& work = *static_cast<Work*>(data);
    if (!counted(count)) {
      work.fault_ = Fault::NoMemory;
      return CURL_WRITEFUNC_ERROR;
    }
    work.stage_ = Stage::BodyArriving;
    work.answer_.body.append(bytes, count);
    return count;
  }

  static std::size_t headArrives(char* bytes, std::size_t, std::size_t count, void* data) {
    auto& work = *static_cast<Work*>(data);
    const std::string_view line(bytes, count);
    if (!counted(count)) return CURL_WRITEFUNC_ERROR;
    if (line.starts_with("HTTP/")) {  // a new head, of the answer behind a redirection or a login
      vbs::runContext.memory.release(count + work.answer_.headers.size() +
                                     work.answer_.body.size());
      work.answer_.headers.clear();
      work.answer_.body.clear();
      work.answer_.statusText = statusText(withoutEnd(line));
      return count;
    }
    if (withoutEnd(line).empty()) {
      vbs::runContext.memory.release(count);
      work.stage_ = Stage::HeadArrived;
    } else {
      work.answer_.headers += line;
    }
    return count;
  }

  /// "HTTP/1.1 404 Not Found"
  static std::string statusText(std::string_view line) {
    const std::size_t status = line.find(' ');
    const std::size_t text = status == line.npos ? status : line.find(' ', status + 1);
    return text == line.npos ? std::string() : std::string(line.substr(text + 1));
  }

  /// Is asked when the connection stands and nothing was sent.
  static int connected(void* data, char* peer, char* own, int port, int) {
    auto& work = *static_cast<Work*>(data);
    const std::string_view address(peer ? peer : "");
    const bool here = isLoopback(address) || (own && address == own);
    const auto& ports = work.call_.ownPorts;
    if (!here || std::find(ports.begin(), ports.end(), port) == ports.end()) {
      return CURL_PREREQFUNC_OK;
    }
    work.fault_ = Fault::OwnServer;
    return CURL_PREREQFUNC_ABORT;
  }

  static int moved(void* data, curl_off_t, curl_off_t down, curl_off_t, curl_off_t up) {
    auto& work = *static_cast<Work*>(data);
    if (down + up == work.moved_) return 0;
    work.moved_ = down + up;
    work.progress_ = std::chrono::steady_clock::now();
    return 0;
  }

  /// Whether nothing has gone or come for too long. Connecting has a limit of its own.
  bool isIdle() {
    if (call_.idleTimeout.count() == 0) return false;
    curl_off_t connectedAfter = 0;
    curl_easy_getinfo(easy_.get(), CURLINFO_PRETRANSFER_TIME_T, &connectedAfter);
    const auto now = std::chrono::steady_clock::now();
    if (connectedAfter == 0) progress_ = now;
    return now - progress_ > call_.idleTimeout;
  }

  void end(CURLcode result) {
    stage_ = Stage::Done;
    curl_easy_getinfo(easy_.get(), CURLINFO_RESPONSE_CODE, &answer_.status);
    const char* url = nullptr;
    curl_easy_getinfo(easy_.get(), CURLINFO_EFFECTIVE_URL, &url);
    if (url) answer_.url = url;
    if (result != CURLE_OK && !fault_) fault_ = faultOf(result);
    curl_multi_remove_handle(multi_.get(), easy_.get());
  }

  Call call_;
  std::unique_ptr<curl_slist, ListEnd> headers_;
  std::unique_ptr<CURLM, MultiEnd> multi_;
  std::unique_ptr<CURL, EasyEnd> easy_;
  SteadyTime progress_;
  curl_off_t moved_ = 0;
};

Transfer::Transfer(Call call) : work_(std::make_unique<Work>(std::move(call))) {}
Transfer::~Transfer() = default;

void Transfer::step(milliseconds patience) {
  work_->step(patience);
}

void Transfer::finish() {
  while (work_->stage_ != Stage::Done) work_->step(kBetweenLooks);
}

Stage Transfer::stage() const {
  return work_->stage_;
}

std::optional<Fault> Transfer::fault() const {
  return work_->fault_;
}

const Answer& Transfer::answer() const {
  return work_->answer_;
}

Call callFrom(const Services& services) {
  Call call;
  const std::string& version = services.state.AppVersion;
  call.userAgent = version.empty() ? "Quorvane" : "Quorvane/" + version;
  for (const ListenAddress& where : services.state.Listen) call.ownPorts.push_back(where.port);
  if (call.ownPorts.empty()) call.ownPorts.push_back(services.state.ServerPort);
  return call;
}

}  // namespace quorvane::http_client
