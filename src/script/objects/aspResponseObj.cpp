#include "script/objects/aspResponseObj.h"

#include <array>
#include <chrono>
#include <utility>

#include "http/header_lines.h"
#include "http/http_date.h"
#include "platform/clock.h"
#include "script/objects/clsWCookie.h"
#include "script/objects/redirect_marks.h"
#include "script/script_values.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/host.h"
#include "vbscript/values/text_locale.h"

namespace quorvane {

namespace {

constexpr const char* kDefaultType = "text/html";

/// Header texts count for more than their bytes, because the head of the answer is made of copies
/// of copies of them.
constexpr std::size_t kHeaderCopies = 4;
constexpr std::size_t kLineMarks = 4;  ///< the colon, the blank behind it and the line break

}  // namespace

aspResponseObj::aspResponseObj(const clsWEncode& encoder, CookieJar& cookies, const Clock& clock,
                               FlushBuffer flushBuffer)
    : encoder_(encoder), cookies_(cookies), clock_(clock), flushBuffer_(std::move(flushBuffer)) {}

aspResponseObj::~aspResponseObj() {
  releaseCharge();
}

void aspResponseObj::releaseCharge() {
  vbs::runContext.memory.release(charged_);
  charged_ = 0;
}

void aspResponseObj::append(std::string_view bytes) {
  vbs::runContext.memory.charge(bytes.size());
  charged_ += bytes.size();
  buffer_.append(bytes);
}

/// Puts a text of the head in place and counts it.
void aspResponseObj::keep(std::string& place, std::string text) {
  headerCharge_.change(headerCharge_.bytes() + kHeaderCopies * text.size() -
                       kHeaderCopies * place.size());
  place.swap(text);  // an assignment may keep the old text's memory
}

void aspResponseObj::setContentType(std::string type) {
  if (acceptsHeaders()) keep(contentType_, std::move(type));
}

std::string aspResponseObj::Header() const {
  std::string header = headerLines_;
  if (!expires_.empty()) header_lines::add(header, "Expires", expires_);
  if (!cacheControl_.empty()) header_lines::add(header, "Cache-Control", cacheControl_);
  if (contentType_.empty() && charset_.empty()) return header;
  std::string type = contentType_.empty() ? kDefaultType : contentType_;
  if (!charset_.empty()) type.append("; charset=").append(charset_);
  header_lines::add(header, "Content-Type", type);
  return header;
}

void aspResponseObj::XWrite(const vbs::Value& data) {
  if (ended_) return;
  const vbs::Value& plain = data.deref();
  if (plain.isString()) {
    const vbs::StringRep* rep = plain.stringRep();
    if (!rep) return;
    if (rep->encoding == vbs::Encoding::Ansi) return append({rep->data(), rep->bytes});
  }
  std::string text;
  script_values::appendText(text, plain);
  append(text);
}

void aspResponseObj::Flush() {
  if (ended_) return;
  std::string header = Header();
  const bool first = !std::exchange(flushed_, true);
  if (flushBuffer_) flushBuffer_(takeBuffer(), std::move(header), first);
  Clear();
}

void aspResponseObj::Clear() {
  if (ended_) return;
  takeBuffer();
  keep(headerLines_, {});
  keep(contentType_, {});
  keep(charset_, {});
  keep(cacheControl_, {});
  expires_.clear();
}

void aspResponseObj::AddHeader(std::string hVar, std::string_view hValue) {
  if (!acceptsHeaders()) return;
  const std::string_view value = trimBlanks(hValue);
  std::erase(hVar, ':');
  const std::string_view name = trimBlanks(hVar);
  if (equalsNoCase(name, "content-type")) {
    setContentType(std::string(value));
  } else if (!value.empty()) {
    const std::size_t before = headerLines_.size();
    vbs::runContext.memory.require(kHeaderCopies * (name.size() + value.size() + kLineMarks));
    header_lines::add(headerLines_, name, value);
    headerCharge_.change(headerCharge_.bytes() + kHeaderCopies * (headerLines_.size() - before));
  }
}

void aspResponseObj::redirect(RedirectedPage::Kind kind, std::string_view trg) {
  if (flushed_) return;
  vbs::runContext.memory.require(kHeaderCopies *
                                 trg.size());  // on its way to the file it is copied
  takeBuffer();
  append(redirect_marks::markOf(kind));
  append(trg);
  redirectedTo_ = kind == RedirectedPage::Kind::LocalFile;
  ended_ = true;
}

void aspResponseObj::Redirect(std::string_view trg) {
  redirect(RedirectedPage::Kind::Url, trg);
}
void aspResponseObj::RedirectTo(std::string_view trg) {
  redirect(RedirectedPage::Kind::LocalFile, trg);
}

std::string aspResponseObj::takeBuffer() {
  releaseCharge();
  return std::exchange(buffer_, {});
}

void aspResponseObj::detach() {
  flushBuffer_ = nullptr;
  ended_ = true;
}

std::span<const vbs::Member<aspResponseObj>> aspResponseObj::members() {
  using Self = aspResponseObj;
  static constexpr std::array<vbs::Member<Self>, 22> kMembers{{
      {"contenttype", 0, 0, &Self::getContentType, &Self::putContentType},
      {"header", 0, 0, &Self::getHeader},
      {"cookies", 1, 1, &Self::getCookies, &Self::putCookies},
      {"xwrite", 1, 1, &Self::callXWrite, nullptr, false, true},
      {"flush", 0, 0, &Self::callFlush},
      {"clear", 0, 0, &Self::callClear},
      {"addheader", 2, 2, &Self::callAddHeader},
      {"redirect", 1, 1, &Self::callRedirect},
      {"redirectto", 1, 1, &Self::callRedirectTo},
      // What follows is for pages written for other servers. Names as general as these must not
      // take the place of a page's own undeclared variables, so they need the object's name.
      {"write", 1, 1, &Self::callXWrite},
      {"end", 0, 0, &Self::callEnd},
      {"binarywrite", 1, 1, &Self::callBinaryWrite},
      {"status", 0, 0, &Self::getStatus, &Self::putStatus},
      {"charset", 0, 0, &Self::getCharset, &Self::putCharset},
      {"buffer", 0, 0, &Self::getBuffer, &Self::putBuffer},
      {"isclientconnected", 0, 0, &Self::getIsClientConnected},
      {"expires", 0, 0, nullptr, &Self::putExpires},
      {"expiresabsolute", 0, 0, nullptr, &Self::putExpiresAbsolute},
      {"cachecontrol", 0, 0, nullptr, &Self::putCacheControl},
      {"pics", 1, 1, &Self::callPics},
      {"codepage", 0, 0, &Self::getCodePage, &Self::putCodePage},
      {"lcid", 0, 0, &Self::getLcid, &Self::putLcid},
  }};
  return kMembers;
}

vbs::Value aspResponseObj::getContentType(vbs::Args) {
  return vbs::Value(std::string_view(contentType_));
}

void aspResponseObj::putContentType(vbs::Args args, vbs::CallKind) {
  setContentType(script_values::text(args.back()));
}

vbs::Value aspResponseObj::getHeader(vbs::Args) {
  return vbs::Value(std::string_view(Header()));
}

vbs::Value aspResponseObj::getCookies(vbs::Args args) {
  return script_values::objectValue(
      vbs::make<clsWCookie>(encoder_, cookies_, script_values::text(args[0])));
}

void aspResponseObj::putCookies(vbs::Args args, vbs::CallKind) {
  const auto handle = vbs::make<clsWCookie>(encoder_, cookies_, script_values::text(args[0]));
  handle->setValue(script_values::text(args[1]));
}

vbs::Value aspResponseObj::callXWrite(vbs::Args args) {
  XWrite(args[0]);
  return {};
}

vbs::Value aspResponseObj::callFlush(vbs::Args) {
  Flush();
  return {};
}

vbs::Value aspResponseObj::callClear(vbs::Args) {
  Clear();
  return {};
}

vbs::Value aspResponseObj::callAddHeader(vbs::Args args) {
  AddHeader(script_values::text(args[0]), script_values::text(args[1]));
  return {};
}

vbs::Value aspResponseObj::callRedirect(vbs::Args args) {
  Redirect(script_values::text(args[0]));
  return {};
}

vbs::Value aspResponseObj::callRedirectTo(vbs::Args args) {
  RedirectTo(script_values::text(args[0]));
  return {};
}

vbs::Value aspResponseObj::callEnd(vbs::Args) {
  finish();
  throw vbs::EndOfRun{};
}

vbs::Value aspResponseObj::callBinaryWrite(vbs::Args args) {
  if (!ended_) {
    script_values::eachBinaryPiece(args[0], [this](std::string_view bytes) { append(bytes); });
  }
  return {};
}

vbs::Value aspResponseObj::getStatus(vbs::Args) {
  return vbs::Value(std::string_view(status_));
}

void aspResponseObj::putStatus(vbs::Args args, vbs::CallKind) {
  keep(status_, script_values::text(args.back()));
}

vbs::Value aspResponseObj::getCharset(vbs::Args) {
  return vbs::Value(std::string_view(charset_));
}

void aspResponseObj::putCharset(vbs::Args args, vbs::CallKind) {
  if (acceptsHeaders()) keep(charset_, script_values::text(args.back()));
}

vbs::Value aspResponseObj::getBuffer(vbs::Args) {
  return vbs::Value::boolean(bufferWanted_);
}

void aspResponseObj::putBuffer(vbs::Args args, vbs::CallKind) {
  bufferWanted_ = vbs::toBoolean(args.back());
}

vbs::Value aspResponseObj::getIsClientConnected(vbs::Args) {
  return vbs::Value::boolean(true);
}

void aspResponseObj::setExpires(const CalendarTime& when) {
  if (acceptsHeaders()) expires_ = HttpDates(clock_).of(when);
}

void aspResponseObj::putExpires(vbs::Args args, vbs::CallKind) {
  setExpires(clock_.utc(clock_.now() + std::chrono::minutes{vbs::toInteger(args.back())}));
}

void aspResponseObj::putExpiresAbsolute(vbs::Args args, vbs::CallKind) {
  setExpires(script_values::calendarTime(vbs::toDate(args.back())));
}

void aspResponseObj::putCacheControl(vbs::Args args, vbs::CallKind) {
  if (acceptsHeaders()) keep(cacheControl_, script_values::text(args.back()));
}

vbs::Value aspResponseObj::callPics(vbs::Args args) {
  AddHeader("PICS-Label", script_values::text(args[0]));
  return {};
}

vbs::Value aspResponseObj::getCodePage(vbs::Args) {
  return vbs::Value::longInt(codePage_);
}

void aspResponseObj::putCodePage(vbs::Args args, vbs::CallKind) {
  codePage_ = vbs::toLong(args.back());
}

vbs::Value aspResponseObj::getLcid(vbs::Args) {
  return vbs::Value::longInt(vbs::activeLocale().id);
}

void aspResponseObj::putLcid(vbs::Args args, vbs::CallKind) {
  script_values::useLocale(vbs::toLong(args.back()));
}

}  // namespace quorvane
