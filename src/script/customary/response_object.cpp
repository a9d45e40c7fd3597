#include "script/customary/response_object.h"

#include <algorithm>
#include <array>
#include <utility>

#include "components/arguments.h"
#include "http/header_lines.h"
#include "platform/clock.h"
#include "script/customary/code_page.h"
#include "script/customary/failure.h"
#include "script/customary/http_text.h"
#include "script/customary/server_texts.h"
#include "script/script_values.h"
#include "support/status_lines.h"
#include "support/text.h"
#include "support/visible_text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/host.h"
#include "vbscript/values/text_locale.h"

namespace quorvane::customary {

namespace {

/// Header texts count for more than their bytes, because the head of the answer is made of copies
/// of copies of them.
constexpr std::size_t kHeaderCopies = 4;

/// Of a text that a page wants in the log.
constexpr std::size_t kMostLogged = 2048;

/// Three digits, of no answer that another follows, and a reason.
bool isStatus(std::string_view text) {
  return text.size() >= 3 && text[0] > '1' &&
         text.substr(0, 3).find_first_not_of("0123456789") == text.npos &&
         (text.size() == 3 || text[3] == ' ');
}

std::string linkTo(const std::string& location) {
  const std::string shown = htmlEncoded(vbs::String(location), kAnsi).narrow();
  return "<html><head><title>Object moved</title></head><body>This page is at <a href=\"" + shown +
         "\">" + shown + "</a>.</body></html>";
}

}  // namespace

ResponseObject::ResponseObject(Page& page, Client& client, const Clock& clock, StatusLines& log)
    : page_(&page), client_(&client), clock_(clock), log_(log) {}

void ResponseObject::detach() {
  page_ = nullptr;
  ended_ = true;
  *cookiesOwner_ = nullptr;
  cookies_.clear();
}

Page& ResponseObject::page() const {
  if (!page_) vbs::throwError(vbs::ErrorCode::ObjectNotSet);
  return *page_;
}

std::string ResponseObject::headerLines() const {
  std::string charset = charset_;
  if (charset.empty() && page().codePage() == kUtf8 && startsWithNoCase(contentType_, "text/")) {
    charset = "utf-8";
  }
  const bool joins = !charset.empty() && findNoCase(contentType_, "charset=") == std::string::npos;
  std::string lines;
  header_lines::add(lines, "Content-Type",
                    joins ? contentType_ + "; charset=" + charset : contentType_);
  if (!cacheControl_.empty()) header_lines::add(lines, "Cache-Control", cacheControl_);
  if (expires_) {
    const TimePoint when = clock_.now() + std::chrono::minutes{*expires_};
    header_lines::add(lines, "Expires", httpDate(clock_.utc(when)));
  } else if (expiresAbsolute_) {
    header_lines::add(lines, "Expires",
                      httpDate(utcOfLocal(script_values::calendarTime(*expiresAbsolute_))));
  }
  const auto addWhole = [&](const std::string& more) {
    if (!more.empty()) lines.append("\r\n").append(more);
  };
  addWhole(addedLines_);
  for (const auto& cookie : cookies_.all()) addWhole(cookie->headerLine());
  return lines;
}

std::string ResponseObject::takeBody() {
  bodyCharge_.change(0);
  return std::exchange(body_, {});
}

void ResponseObject::writeBytes(std::string_view bytes) {
  if (ended_) return;
  bodyCharge_.change(bodyCharge_.bytes() + bytes.size());
  body_ += bytes;
  if (!buffers_ && !bytes.empty()) flush();
}

void ResponseObject::write(const PageProgram::Text& text) {
  if (page().codePage() == text.codePage) return writeBytes(text.bytes);
  writeBytes(encode(page().codePage(), decode(text.codePage, text.bytes)));
}

void ResponseObject::write(const vbs::Value& value) {
  const vbs::Value& plain = value.deref();
  if (plain.isNull() || ended_) return;
  const vbs::String text = vbs::toString(plain);
  vbs::runContext.memory.require(text.length());
  if (text.isAnsi() && page().codePage() == kAnsi) return writeBytes(text.ansi());
  writeBytes(encode(page().codePage(), text));
}

void ResponseObject::flush() {
  if (!client_->wantsBody()) return;
  const bool first = !std::exchange(sent_, true);
  client_->send(takeBody(), first);
}

/// Whoever wants to change the head comes too late once it is on its way.
void ResponseObject::changeHead() {
  page();
  if (sent_) fail("The head of the answer has been sent: it can't be changed any more");
}

void ResponseObject::keep(std::string& place, std::string text) {
  changeHead();
  headCharge_.change(headCharge_.bytes() + kHeaderCopies * text.size() -
                     kHeaderCopies * place.size());
  place = std::move(text);
}

void ResponseObject::putText(std::string& place, vbs::Args args) {
  keep(place, encode(page().codePage(), vbs::toString(args.back())));
}

std::span<const vbs::Member<ResponseObject>> ResponseObject::members() {
  using Self = ResponseObject;
  static constexpr std::array<vbs::Member<Self>, 20> kMembers{{
      {"write", 1, 1, &Self::callWrite, nullptr, true, true},
      {"binarywrite", 1, 1, &Self::callBinaryWrite},
      {"addheader", 2, 2, &Self::callAddHeader},
      {"appendtolog", 1, 1, &Self::callAppendToLog},
      {"clear", 0, 0, &Self::callClear},
      {"end", 0, 0, &Self::callEnd},
      {"flush", 0, 0, &Self::callFlush},
      {"redirect", 1, 1, &Self::callRedirect},
      {"pics", 1, 1, &Self::callPics},
      {"buffer", 0, 0, &Self::getBuffer, &Self::putBuffer},
      {"cachecontrol", 0, 0, &Self::getCacheControl, &Self::putCacheControl},
      {"charset", 0, 0, &Self::getCharset, &Self::putCharset},
      {"codepage", 0, 0, &Self::getCodePage, &Self::putCodePage},
      {"contenttype", 0, 0, &Self::getContentType, &Self::putContentType},
      {"cookies", 0, 1, &Self::getCookies, &Self::putCookies},
      {"expires", 0, 0, &Self::getExpires, &Self::putExpires},
      {"expiresabsolute", 0, 0, &Self::getExpiresAbsolute, &Self::putExpiresAbsolute},
      {"isclientconnected", 0, 0, &Self::getIsClientConnected},
      {"lcid", 0, 0, &Self::getLcid, &Self::putLcid},
      {"status", 0, 0, &Self::getStatus, &Self::putStatus},
  }};
  return kMembers;
}

vbs::Value ResponseObject::callWrite(vbs::Args args) {
  write(args[0]);
  return {};
}

vbs::Value ResponseObject::callBinaryWrite(vbs::Args args) {
  script_values::eachBinaryPiece(args[0], [this](std::string_view bytes) { writeBytes(bytes); });
  return {};
}

vbs::Value ResponseObject::callAddHeader(vbs::Args args) {
  changeHead();
  const std::string name = vbs::toString(args[0]).narrow();
  std::string value = encode(page().codePage(), vbs::toString(args[1]));
  if (trimBlanks(name).empty() || name.find_first_of(":\r\n") != name.npos) {
    vbs::throwError(vbs::ErrorCode::InvalidCall);
  }
  if (equalsNoCase(name, "content-type")) {
    keep(contentType_, std::move(value));
  } else {
    std::string lines = addedLines_;
    header_lines::add(lines, name, value);
    keep(addedLines_, std::move(lines));
  }
  return {};
}

vbs::Value ResponseObject::callAppendToLog(vbs::Args args) {
  log_.LogLine("Page: " + visible(vbs::toString(args[0]).narrow(), kMostLogged));
  return {};
}

vbs::Value ResponseObject::callClear(vbs::Args) {
  page();
  clear();
  return {};
}

vbs::Value ResponseObject::callEnd(vbs::Args) {
  end();
  throw vbs::EndOfRun{};
}

vbs::Value ResponseObject::callFlush(vbs::Args) {
  page();
  if (!ended_) flush();
  return {};
}

vbs::Value ResponseObject::callRedirect(vbs::Args args) {
  changeHead();
  const std::string location = encodeLocation(encode(page().codePage(), vbs::toString(args[0])));
  vbs::runContext.memory.require(kHeaderCopies * location.size());
  std::string lines = addedLines_;
  header_lines::add(lines, "Location", location);
  keep(addedLines_, std::move(lines));
  keep(status_, "302 Object moved");
  clear();
  buffers_ = true;
  writeBytes(linkTo(location));
  end();
  throw vbs::EndOfRun{};
}

vbs::Value ResponseObject::callPics(vbs::Args args) {
  std::array<vbs::Value, 2> line{vbs::Value("PICS-Label"), args[0]};
  return callAddHeader(line);
}

vbs::Value ResponseObject::getBuffer(vbs::Args) {
  return vbs::Value::boolean(buffers_);
}

void ResponseObject::putBuffer(vbs::Args args, vbs::CallKind) {
  page();
  buffers_ = vbs::toBoolean(args.back());
  if (!buffers_ && !body_.empty()) flush();
}

vbs::Value ResponseObject::getCacheControl(vbs::Args) {
  return vbs::Value(std::string_view(cacheControl_));
}

void ResponseObject::putCacheControl(vbs::Args args, vbs::CallKind) {
  putText(cacheControl_, args);
}

vbs::Value ResponseObject::getCharset(vbs::Args) {
  return vbs::Value(std::string_view(charset_));
}

void ResponseObject::putCharset(vbs::Args args, vbs::CallKind) {
  putText(charset_, args);
}

vbs::Value ResponseObject::getCodePage(vbs::Args) {
  return vbs::Value::longInt(page().codePage());
}

void ResponseObject::putCodePage(vbs::Args args, vbs::CallKind) {
  const std::int32_t codePage = vbs::toLong(args.back());
  if (!isCodePage(codePage)) vbs::throwError(vbs::ErrorCode::InvalidCall);
  page().setCodePage(codePage);
}

vbs::Value ResponseObject::getContentType(vbs::Args) {
  return vbs::Value(std::string_view(contentType_));
}

void ResponseObject::putContentType(vbs::Args args, vbs::CallKind) {
  putText(contentType_, args);
}

vbs::Value ResponseObject::getCookies(vbs::Args args) {
  page();
  if (!arguments::isGiven(args, 0)) {
    return script_values::objectValue(vbs::make<ResponseCookies>(cookiesOwner_, page().codePage()));
  }
  return script_values::objectValue(vbs::make<ResponseCookie>(
      cookiesOwner_, encode(page().codePage(), vbs::toString(args[0])), page().codePage()));
}

void ResponseObject::putCookies(vbs::Args args, vbs::CallKind) {
  changeHead();
  if (args.size() < 2) vbs::throwError(vbs::ErrorCode::WrongArgumentCount);
  const auto cookie = vbs::make<ResponseCookie>(
      cookiesOwner_, encode(page().codePage(), vbs::toString(args[0])), page().codePage());
  cookie->set(args.subspan(1));
}

vbs::Value ResponseObject::getExpires(vbs::Args) {
  return expires_ ? vbs::Value::longInt(*expires_) : vbs::Value::null();
}

void ResponseObject::putExpires(vbs::Args args, vbs::CallKind) {
  changeHead();
  constexpr std::int32_t kMostMinutes = 100 * 366 * 24 * 60;
  const std::int32_t minutes = vbs::toLong(args.back());
  expires_ = std::clamp(minutes, -kMostMinutes, kMostMinutes);
}

vbs::Value ResponseObject::getExpiresAbsolute(vbs::Args) {
  return expiresAbsolute_ ? vbs::Value::date(*expiresAbsolute_) : vbs::Value::null();
}

void ResponseObject::putExpiresAbsolute(vbs::Args args, vbs::CallKind) {
  changeHead();
  expiresAbsolute_ = vbs::toDate(args.back());
}

vbs::Value ResponseObject::getIsClientConnected(vbs::Args) {
  return vbs::Value::boolean(page_ && page_->isConnected());
}

vbs::Value ResponseObject::getLcid(vbs::Args) {
  return vbs::Value::longInt(vbs::activeLocale().id);
}

void ResponseObject::putLcid(vbs::Args args, vbs::CallKind) {
  script_values::useLocale(vbs::toLong(args.back()));
}

vbs::Value ResponseObject::getStatus(vbs::Args) {
  return vbs::Value(std::string_view(status_));
}

void ResponseObject::putStatus(vbs::Args args, vbs::CallKind) {
  std::string status = encode(page().codePage(), vbs::toString(args.back()));
  for (char& c : status) {
    if (c >= 0 && c < ' ') c = ' ';
  }
  if (!isStatus(status)) vbs::throwError(vbs::ErrorCode::InvalidCall);
  keep(status_, std::move(status));
}

std::span<const vbs::Member<OutputNames>> OutputNames::members() {
  using Self = OutputNames;
  static constexpr std::array<vbs::Member<Self>, 2> kMembers{{
      {"%text", 1, 1, &Self::callText},
      {"%out", 1, 1, &Self::callOut, nullptr, false, true},
  }};
  return kMembers;
}

vbs::Value OutputNames::callText(vbs::Args args) {
  const auto number = static_cast<std::size_t>(vbs::toLong(args[0]));
  if (number >= texts_.size()) vbs::throwError(vbs::ErrorCode::SubscriptOutOfRange);
  response_.write(texts_[number]);
  return {};
}

vbs::Value OutputNames::callOut(vbs::Args args) {
  response_.write(args[0]);
  return {};
}

}  // namespace quorvane::customary
