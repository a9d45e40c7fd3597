#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "http/script_pages.h"
#include "support/calendar_time.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"

namespace quorvane {

class Clock;
class CookieJar;
class clsWEncode;

/// What pages know as "Response": collects a page's output, its header lines and its content type.
/// Made for one run. A page may keep it longer than that, so detach() cuts it off from the run.
class aspResponseObj final : public vbs::NativeObject<aspResponseObj> {
 public:
  /// Told of each flush: the output so far, the header text and whether it is the first.
  using FlushBuffer =
      std::function<void(std::string rspData, std::string rspHeaderData, bool rspFirstFlush)>;

  /// `encoder` and `cookies` are used by the cookie handles; they live as long as the server, as
  /// does `clock`.
  aspResponseObj(const clsWEncode& encoder, CookieJar& cookies, const Clock& clock,
                 FlushBuffer flushBuffer);
  ~aspResponseObj() override;

  const std::string& ContentType() const { return contentType_; }
  void setContentType(std::string type);

  /// The header lines and the content type, separated by CR LF.
  std::string Header() const;

  void XWrite(const vbs::Value& data);
  void Flush();
  void Clear();
  void AddHeader(std::string hVar, std::string_view hValue);
  void Redirect(std::string_view trg);
  void RedirectTo(std::string_view trg);

  /// Nothing more is taken; what is held stays.
  void finish() { ended_ = true; }

  /// For the page's runner.
  std::string takeBuffer();
  bool flushed() const { return flushed_; }
  bool redirectedTo() const { return redirectedTo_; }  ///< the mark in the buffer is RedirectTo's
  void detach();                                       ///< no flush is told of any more

  std::string_view typeName() const override { return "Response"; }
  static std::span<const vbs::Member<aspResponseObj>> members();
  static constexpr std::size_t kGlobalMembers = 9;  ///< the first rows of members()

 private:
  bool acceptsHeaders() const { return !ended_ && !flushed_; }
  void append(std::string_view bytes);
  void redirect(RedirectedPage::Kind kind, std::string_view trg);
  void releaseCharge();
  void setExpires(const CalendarTime& when);
  void keep(std::string& place, std::string text);

  vbs::Value getContentType(vbs::Args);
  void putContentType(vbs::Args args, vbs::CallKind);
  vbs::Value getHeader(vbs::Args);
  vbs::Value getCookies(vbs::Args args);
  void putCookies(vbs::Args args, vbs::CallKind);
  vbs::Value callXWrite(vbs::Args args);
  vbs::Value callFlush(vbs::Args);
  vbs::Value callClear(vbs::Args);
  vbs::Value callAddHeader(vbs::Args args);
  vbs::Value callRedirect(vbs::Args args);
  vbs::Value callRedirectTo(vbs::Args args);
  vbs::Value callEnd(vbs::Args);
  vbs::Value callBinaryWrite(vbs::Args args);
  vbs::Value getStatus(vbs::Args);
  void putStatus(vbs::Args args, vbs::CallKind);
  vbs::Value getCharset(vbs::Args);
  void putCharset(vbs::Args args, vbs::CallKind);
  vbs::Value getBuffer(vbs::Args);
  void putBuffer(vbs::Args args, vbs::CallKind);
  vbs::Value getIsClientConnected(vbs::Args);
  void putExpires(vbs::Args args, vbs::CallKind);
  void putExpiresAbsolute(vbs::Args args, vbs::CallKind);
  void putCacheControl(vbs::Args args, vbs::CallKind);
  vbs::Value callPics(vbs::Args args);
  vbs::Value getCodePage(vbs::Args);
  void putCodePage(vbs::Args args, vbs::CallKind);
  vbs::Value getLcid(vbs::Args);
  void putLcid(vbs::Args args, vbs::CallKind);

  const clsWEncode& encoder_;
  CookieJar& cookies_;
  const Clock& clock_;
  FlushBuffer flushBuffer_;
  std::string buffer_;
  std::size_t charged_ = 0;  ///< bytes of buffer_ that count against the script's memory
  std::string headerLines_;
  vbs::MemoryCharge headerCharge_;  ///< of headerLines_ and the texts below
  std::string contentType_;
  std::string charset_;
  std::string expires_;  ///< as the header line has it
  std::string cacheControl_;
  std::int32_t codePage_ = 1252;  ///< as the page set it, without effect
  std::string status_ = "200 OK";
  bool bufferWanted_ = true;
  bool ended_ = false;
  bool flushed_ = false;
  bool redirectedTo_ = false;
};

}  // namespace quorvane
