#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "components/http_client/transfer.h"
#include "vbscript/values/object.h"

namespace quorvane::http_client {

/// A request as a script makes and follows it: what the objects of all names have in common.
class Request : public vbs::Object {
 public:
  explicit Request(const Services& services);

  void visitReferences(vbs::ReferenceVisitor& visitor) override;

  vbs::Value open(vbs::Args args);
  vbs::Value setRequestHeader(vbs::Args args);
  vbs::Value send(vbs::Args args);
  vbs::Value abort(vbs::Args);
  vbs::Value getResponseHeader(vbs::Args args);
  vbs::Value getAllResponseHeaders(vbs::Args);
  vbs::Value getStatus(vbs::Args);
  vbs::Value getStatusText(vbs::Args);
  vbs::Value getResponseText(vbs::Args);
  vbs::Value getResponseBody(vbs::Args);
  vbs::Value getResponseStream(vbs::Args);
  vbs::Value waitForResponse(vbs::Args args);
  vbs::Value setTimeouts(vbs::Args args);

 protected:
  ~Request() override;

  /// Where errors come from, by their name.
  virtual std::string_view source() const = 0;
  virtual bool isAsyncByDefault() const { return true; }
  virtual std::int32_t numberOf(Fault fault) const;
  /// A header that the answer does not have.
  virtual vbs::Value missingHeader() const { return vbs::Value(""); }
  /// Called before a request begins: what was known of the last one is gone.
  virtual void begins() {}
  /// Called after each step, when the request may have come further.
  virtual void moved() {}

  [[noreturn]] void fail(std::int32_t number, std::string_view text) const;
  /// Goes on with a request that is on its way.
  void advance(std::chrono::milliseconds patience);
  /// The answer, error while it is not all there or when there is none.
  const Answer& answer();
  /// 0 before open(), 1 before the answer, 2 with its head, 3 with some of it, 4 at the end.
  std::int32_t readyState() const;
  void setProxy(vbs::Args args);
  void setProxyLogin(const vbs::Value& user, const vbs::Value& password);

  const Services& services_;
  Call call_;

 private:
  void takeBody(const vbs::Value& body);
  void failIfFaulty() const;

  bool isOpen_ = false;
  bool isAsync_ = false;
  bool wasAborted_ = false;
  std::unique_ptr<Transfer> transfer_;
};

/// What differs between the names: see XmlHttp below.
struct XmlHttpForm {
  bool isServer = false;        ///< the object for servers, with timeouts and options
  bool selectsByXPath = false;  ///< in documents that it reads
};

class XmlHttp : public vbs::NativeObject<XmlHttp, Request> {
 public:
  XmlHttp(const Services& services, XmlHttpForm form);
  static std::span<const vbs::Member<XmlHttp>> members();
  std::string_view typeName() const override;
  vbs::MemberId findMember(std::string_view lowerName) override;
  const void* shape() const override;
  std::vector<vbs::MemberUse> listMembers() const override;
  void visitReferences(vbs::ReferenceVisitor& visitor) override;

 protected:
  std::string_view source() const override { return "msxml3.dll"; }
  std::int32_t numberOf(Fault fault) const override;
  void begins() override { document_ = vbs::Value(); }
  void moved() override;

 private:
  vbs::Value getReadyState(vbs::Args);
  vbs::Value getResponseXml(vbs::Args);
  void putHandler(vbs::Args args, vbs::CallKind);
  vbs::Value setOption(vbs::Args args);
  vbs::Value getOption(vbs::Args args);
  vbs::Value callSetProxy(vbs::Args args);
  vbs::Value setProxyCredentials(vbs::Args args);

  XmlHttpForm form_;
  vbs::Value handler_;   ///< is called as the request comes further
  vbs::Value document_;  ///< made of the answer when it was asked for
  std::int32_t shownState_ = 0;
  std::int32_t ignoredCertificateFaults_ = 0;
};

class WinHttp : public vbs::NativeObject<WinHttp, Request> {
 public:
  using NativeObject::NativeObject;
  static std::span<const vbs::Member<WinHttp>> members();
  std::string_view typeName() const override { return "IWinHttpRequest"; }

 protected:
  std::string_view source() const override { return "WinHttp.WinHttpRequest"; }
  bool isAsyncByDefault() const override { return false; }
  vbs::Value missingHeader() const override;

 private:
  vbs::Value getOption(vbs::Args args);
  void putOption(vbs::Args args, vbs::CallKind);
  vbs::Value setCredentials(vbs::Args args);
  vbs::Value callSetProxy(vbs::Args args);
  vbs::Value setAutoLogonPolicy(vbs::Args args);

  std::int32_t ignoredCertificateFaults_ = 0;
};

}  // namespace quorvane::http_client
