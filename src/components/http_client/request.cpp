#include "components/http_client/request.h"

#include <algorithm>
#include <array>

#include "components/components.h"
#include "components/http_client/charset.h"
#include "components/member_tables.h"
#include "components/xml/document.h"
#include "components/xml/writing.h"
#include "support/text.h"
#include "vbscript/values/convert.h"

namespace quorvane::http_client {

using std::chrono::milliseconds;
using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

constexpr std::int32_t of(std::uint32_t bits) {
  return static_cast<std::int32_t>(bits);
}

constexpr std::int32_t kFailed = of(0x80004005);
constexpr std::int32_t kBadArgument = of(0x80070057);
constexpr std::int32_t kNotAvailable = of(0x8000000A);
constexpr std::int32_t kHeaderNotFound = of(0x80072F76);

/// A page that asks again and again how far it is waits for a moment each time.
constexpr milliseconds kAsked{10};

struct FaultText {
  Fault fault;
  std::int32_t number;
  std::string_view text;
};

constexpr std::array kFaults = {
    FaultText{Fault::BadUrl, of(0x80072EE5), "The URL is invalid"},
    FaultText{Fault::BadProtocol, of(0x80072EE6), "The URL does not use a recognized protocol"},
    FaultText{Fault::NameNotResolved, of(0x80072EE7),
              "The server name or address could not be resolved"},
    FaultText{Fault::CannotConnect, of(0x80072EFD),
              "A connection with the server could not be established"},
    FaultText{Fault::TimedOut, of(0x80072EE2), "The operation timed out"},
    FaultText{Fault::Aborted, of(0x80072EFE),
              "The connection with the server was terminated abnormally"},
    FaultText{Fault::BadAnswer, of(0x80072F78),
              "The server returned an invalid or unrecognized response"},
    FaultText{Fault::TooManyRedirects, of(0x80072F7C), "The HTTP redirect request failed"},
    FaultText{Fault::BadCertificate, of(0x80072F0D),
              "The certificate authority is invalid or incorrect"},
    FaultText{Fault::OwnServer, kFailed,
              "A page can't request its own server, which runs one page at a time"},
};

const FaultText* find(Fault fault) {
  for (const FaultText& row : kFaults) {
    if (row.fault == fault) return &row;
  }
  return nullptr;
}

std::string utf8(const Value& value) {
  return vbs::toString(value).utf8();
}

bool isGiven(Args args, std::size_t index) {
  return index < args.size() && !args[index].deref().isMissing();
}

/// What an address may not have in it is written with its number.
std::string escaped(const std::string& url) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const char c : url) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > 0x20 && byte < 0x7F) {
      text += c;
    } else {
      text.append("%").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 15]);
    }
  }
  return text;
}

bool isToken(std::string_view name) {
  constexpr std::string_view kOthers = "!#$%&'*+-.^_`|~";
  const auto may = [&](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x80 && (std::isalnum(byte) || kOthers.find(c) != kOthers.npos);
  };
  return !name.empty() && std::all_of(name.begin(), name.end(), may);
}

milliseconds timeout(const Value& value) {
  return milliseconds(std::max(vbs::toLong(value), 0));
}

/// The certificate faults that scripts may let pass.
enum CertificateFault : std::int32_t {
  UnknownAuthority = 0x0100,
  WrongUsage = 0x0200,
  WrongName = 0x1000,
  WrongDate = 0x2000,
};

void passOver(Call& call, std::int32_t faults) {
  call.checksCertificate = (faults & (UnknownAuthority | WrongUsage | WrongDate)) == 0;
  call.checksHostName = (faults & WrongName) == 0;
}

}  // namespace

Request::Request(const Services& services) : services_(services), call_(callFrom(services)) {}

Request::~Request() = default;

void Request::visitReferences(vbs::ReferenceVisitor&) {}

void Request::fail(std::int32_t number, std::string_view text) const {
  throw vbs::ScriptError{number, std::string(text), std::string(source()), {}};
}

std::int32_t Request::numberOf(Fault fault) const {
  const FaultText* row = find(fault);
  return row ? row->number : kFailed;
}

void Request::failIfFaulty() const {
  if (!transfer_ || !transfer_->fault()) return;
  const Fault fault = *transfer_->fault();
  if (fault == Fault::NoMemory) vbs::throwError(vbs::ErrorCode::OutOfMemory);
  const std::int32_t number = numberOf(fault);
  fail(number, number == of(0x800C0005) ? "The system cannot locate the resource specified."
                                        : find(fault)->text);
}

Value Request::open(Args args) {
  const std::string method = vbs::toString(args[0]).upper().narrow();
  if (!isToken(method)) fail(kBadArgument, "The parameter is incorrect.");
  const std::string url = utf8(args[1]);
  const std::size_t colon = url.find("://");
  const std::string_view scheme = std::string_view(url).substr(0, colon);
  if (colon == url.npos || (!equalsNoCase(scheme, "http") && !equalsNoCase(scheme, "https"))) {
    fail(numberOf(Fault::BadProtocol), find(Fault::BadProtocol)->text);
  }
  transfer_.reset();
  call_.method = method;
  call_.url = escaped(url.substr(0, url.find('#')));
  call_.headers.clear();
  call_.body.reset();
  call_.user = isGiven(args, 3) && !vbs::plainValue(args[3]).isNull() ? utf8(args[3]) : "";
  call_.password = isGiven(args, 4) && !vbs::plainValue(args[4]).isNull() ? utf8(args[4]) : "";
  isAsync_ = isGiven(args, 2) ? vbs::toBoolean(args[2]) : isAsyncByDefault();
  isOpen_ = true;
  wasAborted_ = false;
  begins();
  moved();
  return Value();
}

Value Request::setRequestHeader(Args args) {
  if (!isOpen_ || transfer_) fail(kFailed, "Unspecified error");
  const std::string name = utf8(args[0]);
  std::string value = utf8(args[1]);
  if (!isToken(name)) fail(kBadArgument, "The parameter is incorrect.");
  // A value that has line ends in it would go on with headers of its own.
  while (!value.empty() && (value.back() == '\r' || value.back() == '\n')) value.pop_back();
  if (value.find_first_of(std::string_view("\r\n\0", 3)) != value.npos) {
    fail(kBadArgument, "The parameter is incorrect.");
  }
  // What the body and its way are is known better here.
  if (equalsNoCase(name, "Content-Length") || equalsNoCase(name, "Transfer-Encoding")) return {};
  for (auto& [known, held] : call_.headers) {
    if (!equalsNoCase(known, name)) continue;
    held = std::move(value);
    return {};
  }
  call_.headers.emplace_back(name, std::move(value));
  return {};
}

void Request::takeBody(const Value& given) {
  const Value& body = given.deref();
  if (body.isMissing() || body.isEmpty() || body.isNull()) return;
  if (body.isArray()) {
    call_.body = vbs::toBytes(*body.asArray());
  } else if (body.isObject()) {
    if (!body.asObject()) return;
    vbs::Object& object = *body.asObject();
    if (const auto* document = dynamic_cast<const xml::Document*>(&object)) {
      call_.body = xml::documentBytes(document->tree().document());
      const bool hasType = std::any_of(
          call_.headers.begin(), call_.headers.end(),
          [](const auto& header) { return equalsNoCase(header.first, "Content-Type"); });
      if (!hasType) call_.headers.emplace_back("Content-Type", "text/xml");
      return;
    }
    const vbs::MemberId read = object.findMember("read");
    takeBody(read == vbs::kNoMember ? vbs::plainValue(body)
                                    : object.invoke(read, CallKind::Get, {}));
  } else {
    call_.body = utf8(body);
  }
}

Value Request::send(Args args) {
  if (!isOpen_ || (transfer_ && transfer_->stage() != Stage::Done)) {
    fail(kFailed, "Unspecified error");
  }
  begins();
  if (!args.empty()) takeBody(args[0]);
  transfer_ = std::make_unique<Transfer>(call_);
  if (!isAsync_) {
    try {
      transfer_->finish();
    } catch (...) {
      transfer_.reset();
      throw;
    }
    moved();
    return failIfFaulty(), Value();
  }
  advance(milliseconds(0));
  return Value();
}

void Request::advance(milliseconds patience) {
  if (!transfer_ || transfer_->stage() == Stage::Done) return;
  transfer_->step(patience);
  moved();
}

const Answer& Request::answer() {
  advance(kAsked);
  if (!transfer_ || transfer_->stage() != Stage::Done) {
    fail(kNotAvailable, "The data necessary to complete this operation is not yet available.");
  }
  failIfFaulty();
  return transfer_->answer();
}

std::int32_t Request::readyState() const {
  if (wasAborted_ || !isOpen_) return 0;
  if (!transfer_) return 1;
  switch (transfer_->stage()) {
    case Stage::Sent:
      return 1;
    case Stage::HeadArrived:
      return 2;
    case Stage::BodyArriving:
      return 3;
    case Stage::Done:
      break;
  }
  return 4;
}

Value Request::abort(Args) {
  transfer_.reset();
  wasAborted_ = true;
  return Value();
}

Value Request::getResponseHeader(Args args) {
  const auto value = answer().header(vbs::toString(args[0]).narrow());
  return value ? Value(std::string_view(*value)) : missingHeader();
}

Value Request::getAllResponseHeaders(Args) {
  return Value(std::string_view(answer().headers + "\r\n"));
}

Value Request::getStatus(Args) {
  return Value::longInt(static_cast<std::int32_t>(answer().status));
}

Value Request::getStatusText(Args) {
  return Value(std::string_view(answer().statusText));
}

Value Request::getResponseText(Args) {
  const Answer& received = answer();
  const std::string type = received.header("Content-Type").value_or("");
  return decoded(received.body, charsetOf(type));
}

Value Request::getResponseBody(Args) {
  return Value::array(vbs::ArrayRep::fromBytes(answer().body));
}

/// A stream of the components' own, at its beginning.
Value Request::getResponseStream(Args) {
  const Value body = getResponseBody({});
  Value made = createOwnComponent("ADODB.Stream", services_);
  vbs::Object& stream = *vbs::toObject(made);
  const auto use = [&stream](std::string_view member, CallKind kind, Args args) {
    stream.invoke(stream.findMember(member), kind, args);
  };
  Value binary[] = {Value::longInt(1)};
  Value start[] = {Value::longInt(0)};
  Value content[] = {body};
  use("type", CallKind::Let, binary);
  use("open", CallKind::Call, {});
  use("write", CallKind::Call, content);
  use("position", CallKind::Let, start);
  return made;
}

/// Seconds; without a number, or with one below zero, until the end.
Value Request::waitForResponse(Args args) {
  if (!transfer_) fail(kFailed, "Unspecified error");
  const double seconds = isGiven(args, 0) ? vbs::toDouble(args[0]) : -1;
  const auto start = std::chrono::steady_clock::now();
  while (transfer_->stage() != Stage::Done) {
    const std::chrono::duration<double> waited = std::chrono::steady_clock::now() - start;
    if (seconds >= 0 && waited.count() >= seconds) return Value::boolean(false);
    const double left = seconds < 0 ? 1 : std::min(seconds - waited.count(), 1.0);
    advance(milliseconds(static_cast<int>(left * 1000) + 1));
  }
  failIfFaulty();
  return Value::boolean(true);
}

/// Finding the name, connecting, sending, receiving; zero is for ever.
Value Request::setTimeouts(Args args) {
  const milliseconds connect = timeout(args[1]);
  call_.connectTimeout =
      connect.count() == 0 ? connect : connect + std::min(timeout(args[0]), connect);
  const milliseconds send = timeout(args[2]);
  const milliseconds receive = timeout(args[3]);
  const bool forEver = send.count() == 0 || receive.count() == 0;
  call_.idleTimeout = forEver ? milliseconds(0) : std::max(send, receive);
  return Value();
}

void Request::setProxy(Args args) {
  constexpr std::int32_t kNamedProxy = 2;
  const bool named = vbs::toLong(args[0]) == kNamedProxy && isGiven(args, 1);
  call_.proxy = named ? utf8(args[1]) : "";
  call_.proxyBypass = named && isGiven(args, 2) ? utf8(args[2]) : "";
  std::replace(call_.proxyBypass.begin(), call_.proxyBypass.end(), ';', ',');
}

void Request::setProxyLogin(const Value& user, const Value& password) {
  call_.proxyUser = utf8(user);
  call_.proxyPassword = utf8(password);
}

XmlHttp::XmlHttp(const Services& services, XmlHttpForm form) : NativeObject(services), form_(form) {
  if (form_.isServer) return;
  call_.connectTimeout = call_.idleTimeout = milliseconds(0);
}

namespace {

/// What the requests of all names have.
template <class Self>
constexpr auto requestMembers() {
  using Row = vbs::Member<Self>;
  return std::array{
      Row{"setrequestheader", 2, 2, &Request::setRequestHeader},
      Row{"send", 0, 1, &Request::send},
      Row{"abort", 0, 0, &Request::abort},
      Row{"getresponseheader", 1, 1, &Request::getResponseHeader},
      Row{"getallresponseheaders", 0, 0, &Request::getAllResponseHeaders},
      Row{"status", 0, 0, &Request::getStatus},
      Row{"statustext", 0, 0, &Request::getStatusText},
      Row{"responsetext", 0, 0, &Request::getResponseText},
      Row{"responsebody", 0, 0, &Request::getResponseBody},
      Row{"responsestream", 0, 0, &Request::getResponseStream},
  };
}

/// The members that only the object for servers has stand behind the others.
constexpr std::size_t kServerMembers = 6;

}  // namespace

std::span<const vbs::Member<XmlHttp>> XmlHttp::members() {
  using Row = vbs::Member<XmlHttp>;
  using Self = XmlHttp;
  constexpr Row kOwn[] = {
      Row{"open", 2, 5, &Request::open},
      Row{"responsexml", 0, 0, &Self::getResponseXml},
      Row{"readystate", 0, 0, &Self::getReadyState},
      Row{"onreadystatechange", 0, 0, nullptr, &Self::putHandler},
      Row{"waitforresponse", 0, 1, &Request::waitForResponse},
      Row{"settimeouts", 4, 4, &Request::setTimeouts},
      Row{"setoption", 2, 2, &Self::setOption},
      Row{"getoption", 1, 1, &Self::getOption},
      Row{"setproxy", 1, 3, &Self::callSetProxy},
      Row{"setproxycredentials", 2, 2, &Self::setProxyCredentials},
  };
  static constexpr auto kMembers = joinedMembers(requestMembers<Self>(), kOwn);
  return kMembers;
}

std::string_view XmlHttp::typeName() const {
  return form_.isServer ? "IServerXMLHTTPRequest2" : "IXMLHTTPRequest";
}

vbs::MemberId XmlHttp::findMember(std::string_view lowerName) {
  const vbs::MemberId found = NativeObject::findMember(lowerName);
  const auto first = static_cast<vbs::MemberId>(members().size() - kServerMembers);
  return found > first && !form_.isServer ? vbs::kNoMember : found;
}

const void* XmlHttp::shape() const {
  return form_.isServer ? members().data() : members().data() + 1;
}

std::vector<vbs::MemberUse> XmlHttp::listMembers() const {
  std::vector<vbs::MemberUse> list = NativeObject::listMembers();
  if (!form_.isServer) list.resize(list.size() - kServerMembers);
  return list;
}

void XmlHttp::visitReferences(vbs::ReferenceVisitor& visitor) {
  visitor.value(handler_);
  visitor.value(document_);
}

std::int32_t XmlHttp::numberOf(Fault fault) const {
  if (!form_.isServer && (fault == Fault::NameNotResolved || fault == Fault::CannotConnect)) {
    return of(0x800C0005);
  }
  return Request::numberOf(fault);
}

void XmlHttp::moved() {
  if (readyState() == shownState_) return;
  shownState_ = readyState();
  if (!handler_.isObject() || !handler_.asObject()) return;
  const Value held = handler_;  // it may put another in its place
  held.asObject()->invoke(vbs::kDefaultMember, CallKind::Call, {});
}

Value XmlHttp::getReadyState(Args) {
  advance(kAsked);
  return Value::longInt(readyState());
}

Value XmlHttp::getResponseXml(Args) {
  if (document_.isObject()) return document_;
  const Answer& received = answer();
  xml::DocumentSettings settings;
  settings.form = {form_.selectsByXPath, !form_.selectsByXPath};
  settings.isAsync = false;
  const auto document = vbs::make<xml::Document>(services_, settings);
  const std::string type = received.header("Content-Type").value_or("");
  const std::string charset(charsetOf(type));
  document->loadBytes(received.body, received.url, charset.empty() ? nullptr : charset.c_str());
  return document_ = Value::object(document.get());
}

void XmlHttp::putHandler(Args args, CallKind) {
  handler_ = args.back().deref();
}

Value XmlHttp::setOption(Args args) {
  constexpr std::int32_t kIgnoredCertificateFaults = 2;
  if (vbs::toLong(args[0]) != kIgnoredCertificateFaults) return Value();
  ignoredCertificateFaults_ = vbs::toLong(args[1]);
  passOver(call_, ignoredCertificateFaults_);
  return Value();
}

Value XmlHttp::getOption(Args args) {
  constexpr std::int32_t kUtf8 = 65001;
  switch (vbs::toLong(args[0])) {
    case -1:
      return Value(std::string_view(answer().url));
    case 0:
      return Value::longInt(kUtf8);
    case 1:
      return Value::boolean(false);
    case 2:
      return Value::longInt(ignoredCertificateFaults_);
    case 3:
      return Value("");
    default:
      fail(kBadArgument, "The parameter is incorrect.");
  }
}

Value XmlHttp::callSetProxy(Args args) {
  setProxy(args);
  return Value();
}

Value XmlHttp::setProxyCredentials(Args args) {
  setProxyLogin(args[0], args[1]);
  return Value();
}

std::span<const vbs::Member<WinHttp>> WinHttp::members() {
  using Row = vbs::Member<WinHttp>;
  using Self = WinHttp;
  constexpr Row kOwn[] = {
      Row{"open", 2, 3, &Request::open},
      Row{"waitforresponse", 0, 1, &Request::waitForResponse},
      Row{"settimeouts", 4, 4, &Request::setTimeouts},
      Row{"option", 1, 1, &Self::getOption, &Self::putOption},
      Row{"setcredentials", 3, 3, &Self::setCredentials},
      Row{"setproxy", 1, 3, &Self::callSetProxy},
      Row{"setautologonpolicy", 1, 1, &Self::setAutoLogonPolicy},
  };
  static constexpr auto kMembers = joinedMembers(requestMembers<Self>(), kOwn);
  return kMembers;
}

Value WinHttp::missingHeader() const {
  fail(kHeaderNotFound, "The requested header was not found");
}

namespace {

enum WinHttpOption : std::int32_t {
  UserAgent = 0,
  Url = 1,
  IgnoredCertificateFaults = 4,
  Redirects = 6,
  LastOption = 18,
};

}  // namespace

Value WinHttp::getOption(Args args) {
  switch (vbs::toLong(args[0])) {
    case UserAgent:
      return vbs::String::fromUtf8(call_.userAgent);
    case Url:
      return Value(std::string_view(answer().url));
    case IgnoredCertificateFaults:
      return Value::longInt(ignoredCertificateFaults_);
    case Redirects:
      return Value::boolean(call_.followsRedirects);
    default:
      fail(kBadArgument, "The parameter is incorrect.");
  }
}

void WinHttp::putOption(Args args, CallKind) {
  const std::int32_t option = vbs::toLong(args[0]);
  switch (option) {
    case UserAgent:
      call_.userAgent = utf8(args[1]);
      return;
    case IgnoredCertificateFaults:
      ignoredCertificateFaults_ = vbs::toLong(args[1]);
      return passOver(call_, ignoredCertificateFaults_);
    case Redirects:
      call_.followsRedirects = vbs::toBoolean(args[1]);
      return;
    default:
      break;
  }
  if (option < 0 || option > LastOption || option == Url) {
    fail(kBadArgument, "The parameter is incorrect.");
  }
}

/// For the server, or for the proxy with 1.
Value WinHttp::setCredentials(Args args) {
  if (vbs::toLong(args[2]) == 1) {
    setProxyLogin(args[0], args[1]);
  } else {
    call_.user = utf8(args[0]);
    call_.password = utf8(args[1]);
  }
  return Value();
}

Value WinHttp::callSetProxy(Args args) {
  setProxy(args);
  return Value();
}

/// There is nobody logged on whose name could be sent.
Value WinHttp::setAutoLogonPolicy(Args) {
  return Value();
}

}  // namespace quorvane::http_client
