#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "script/customary/page.h"
#include "script/customary/page_program.h"
#include "script/customary/response_cookies.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"

namespace quorvane {
class Clock;
class StatusLines;
}  // namespace quorvane

namespace quorvane::customary {

/// What pages know as "Response". Made for one run; a page may keep it longer than that, so
/// detach() cuts it off.
class ResponseObject final : public vbs::NativeObject<ResponseObject> {
 public:
  /// Takes what is sent before the page ends. `first` comes with the head's lines.
  class Client {
   public:
    virtual void send(std::string data, bool first) = 0;
    /// Whether the client wants a body at all; who does not gets the head at the end.
    virtual bool wantsBody() const = 0;

   protected:
    ~Client() = default;
  };

  /// All live until detach().
  ResponseObject(Page& page, Client& client, const Clock& clock, StatusLines& log);

  void detach();

  /// For the page's runner.
  const std::string& status() const { return status_; }
  void setStatus(std::string status) { status_ = std::move(status); }
  std::string headerLines() const;  ///< separated by CR LF
  std::string takeBody();
  bool isSent() const { return sent_; }    ///< the head, with the first part
  bool isEnded() const { return ended_; }  ///< nothing is written any more
  void end() { ended_ = true; }
  void clear() { takeBody(); }

  void writeBytes(std::string_view bytes);

  /// A text of the page, or any value.
  void write(const PageProgram::Text& text);
  void write(const vbs::Value& value);

  std::string_view typeName() const override { return "Response"; }
  static std::span<const vbs::Member<ResponseObject>> members();

 private:
  Page& page() const;
  void flush();
  void changeHead();
  void keep(std::string& place, std::string text);
  void putText(std::string& place, vbs::Args args);

  vbs::Value callWrite(vbs::Args args);
  vbs::Value callBinaryWrite(vbs::Args args);
  vbs::Value callAddHeader(vbs::Args args);
  vbs::Value callAppendToLog(vbs::Args args);
  vbs::Value callClear(vbs::Args);
  vbs::Value callEnd(vbs::Args);
  vbs::Value callFlush(vbs::Args);
  vbs::Value callRedirect(vbs::Args args);
  vbs::Value callPics(vbs::Args args);
  vbs::Value getBuffer(vbs::Args);
  void putBuffer(vbs::Args args, vbs::CallKind);
  vbs::Value getCacheControl(vbs::Args);
  void putCacheControl(vbs::Args args, vbs::CallKind);
  vbs::Value getCharset(vbs::Args);
  void putCharset(vbs::Args args, vbs::CallKind);
  vbs::Value getCodePage(vbs::Args);
  void putCodePage(vbs::Args args, vbs::CallKind);
  vbs::Value getContentType(vbs::Args);
  void putContentType(vbs::Args args, vbs::CallKind);
  vbs::Value getCookies(vbs::Args args);
  void putCookies(vbs::Args args, vbs::CallKind);
  vbs::Value getExpires(vbs::Args);
  void putExpires(vbs::Args args, vbs::CallKind);
  vbs::Value getExpiresAbsolute(vbs::Args);
  void putExpiresAbsolute(vbs::Args args, vbs::CallKind);
  vbs::Value getIsClientConnected(vbs::Args);
  vbs::Value getLcid(vbs::Args);
  void putLcid(vbs::Args args, vbs::CallKind);
  vbs::Value getStatus(vbs::Args);
  void putStatus(vbs::Args args, vbs::CallKind);

  Page* page_;
  Client* client_;
  const Clock& clock_;
  StatusLines& log_;

  std::string body_;
  vbs::MemoryCharge bodyCharge_{0};
  std::string status_ = "200 OK";
  std::string contentType_ = "text/html";
  std::string charset_;
  std::string cacheControl_ = "private";
  std::string addedLines_;
  vbs::MemoryCharge headCharge_{0};  ///< of the page's texts in the head
  SetCookies cookies_;
  ResponseCookie::Owner cookiesOwner_ = std::make_shared<SetCookies*>(&cookies_);
  std::optional<std::int32_t> expires_;  ///< minutes from now on
  std::optional<double> expiresAbsolute_;
  bool buffers_ = true;
  bool sent_ = false;
  bool ended_ = false;
};

/// The names that a page's program writes by, which no script can spell by accident: `[%text] n`
/// and
/// `[%out] value`.
class OutputNames final : public vbs::NativeObject<OutputNames> {
 public:
  /// Both live as long as the run.
  OutputNames(ResponseObject& response, const std::vector<PageProgram::Text>& texts)
      : response_(response), texts_(texts) {}

  std::string_view typeName() const override { return "Output"; }
  static std::span<const vbs::Member<OutputNames>> members();

 private:
  vbs::Value callText(vbs::Args args);
  vbs::Value callOut(vbs::Args args);

  ResponseObject& response_;
  const std::vector<PageProgram::Text>& texts_;
};

}  // namespace quorvane::customary
