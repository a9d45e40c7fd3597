#include "components/mail/mail_senders.h"

#include "components/arguments.h"
#include "components/mail/draft.h"
#include "platform/services.h"
#include "support/files.h"
#include "support/text.h"
#include "vbscript/values/convert.h"

namespace quorvane {

using mail::Mail;
using vbs::Args;
using vbs::Member;
using vbs::Value;

namespace {

class MailSender final : public vbs::NativeObject<MailSender, mail::Draft> {
 public:
  using NativeObject::NativeObject;
  std::string_view typeName() const override { return "IMailSender"; }

  static std::span<const Member<MailSender>> members() {
    using Self = MailSender;
    static constexpr Member<Self> kMembers[] = {
        {"host", 0, 0, &Self::getHost, &Self::putHost},
        {"port", 0, 0, &Self::getPort, &Self::putPort},
        {"username", 0, 0, &Self::getUser, &Self::putUser},
        {"password", 0, 0, nullptr, &Self::putPassword},
        {"ssl", 0, 0, nullptr, &Self::putTls<mail::Route::Tls::Whole>},
        {"tls", 0, 0, nullptr, &Self::putTls<mail::Route::Tls::Start>},
        {"timeout", 0, 0, nullptr, &Self::putTimeout},
        {"from", 0, 0, &Self::getText<&Self::from_>, &Self::putText<&Self::from_>},
        {"fromname", 0, 0, &Self::getText<&Self::fromName_>, &Self::putText<&Self::fromName_>},
        {"subject", 0, 0, &Self::getText<&Self::subject_>, &Self::putText<&Self::subject_>},
        {"body", 0, 0, &Self::getText<&Self::body_>, &Self::putText<&Self::body_>},
        {"altbody", 0, 0, &Self::getText<&Self::otherBody_>, &Self::putText<&Self::otherBody_>},
        {"ishtml", 0, 0, &Self::getHtml, &Self::putHtml},
        {"appendbodyfromfile", 1, 1, &Self::appendFile},
        {"addaddress", 1, 2, &Self::add<&Mail::to>},
        {"addcc", 1, 2, &Self::add<&Mail::cc>},
        {"addbcc", 1, 2, &Self::add<&Mail::bcc>},
        {"addreplyto", 1, 2, &Self::add<&Mail::replyTo>},
        {"addattachment", 1, 1, &Self::attach},
        {"addembeddedimage", 2, 2, &Self::attachInside},
        {"addcustomheader", 1, 1, &Self::addWholeHeader},
        {"charset", 0, 0, &Self::getCharset, &Self::putCharset},
        {"contenttransferencoding", 0, 0, nullptr, &Self::ignore},
        {"queue", 0, 0, nullptr, &Self::ignore},
        {"priority", 0, 0, &Self::getPriority, &Self::putPriority},
        {"encodeheader", 1, 2, &Self::encodeHeader},
        {"reset", 0, 0, &Self::reset},
        {"resetall", 0, 0, &Self::reset},
        {"send", 0, 1, &Self::sendNow},
    };
    return kMembers;
  }

 private:
  Value getHost(Args) { return Value(std::string_view(route_.host)); }
  void putHost(Args args, CallKind) { route_.host = arguments::text(args, 0); }
  Value getPort(Args) { return Value::longInt(route_.port > 0 ? route_.port : 25); }
  void putPort(Args args, CallKind) { route_.port = vbs::toLong(args[0]); }
  Value getUser(Args) { return Value(std::string_view(route_.user)); }
  void putUser(Args args, CallKind) { route_.user = vbs::toString(args[0]).utf8(); }
  void putPassword(Args args, CallKind) { route_.password = vbs::toString(args[0]).utf8(); }
  void putTimeout(Args args, CallKind) { route_.connectSeconds = vbs::toInteger(args[0]); }
  template <mail::Route::Tls tls>
  void putTls(Args args, CallKind) {
    route_.tls = vbs::toBoolean(args[0]) ? tls : mail::Route::Tls::None;
  }

  Value appendFile(Args args) {
    const std::string path = files_.allowedPath(args[0]);
    const auto text = files_.files().readAll(path);
    if (!text) vbs::throwError(vbs::ErrorCode::FileNotFound);
    body_.append(vbs::String(*text));
    return {};
  }
  Value attachInside(Args args) {
    attachFile(mail_, files_, args[0]).contentId = arguments::text(args, 1);
    return {};
  }
  /// Headers are encoded where they need it.
  Value encodeHeader(Args args) { return vbs::toString(args[0]); }
  Value reset(Args) {
    mail_.to.clear();
    mail_.cc.clear();
    mail_.bcc.clear();
    mail_.replyTo.clear();
    mail_.attachments.clear();
    mail_.headers.clear();
    return {};
  }
  Value sendNow(Args) {
    if (const auto error = send(route_)) throwSendError(*error, "Persits.MailSender");
    return Value::boolean(true);
  }

  mail::Route route_;
};

/// Tells of failures by the result of SendMail and by Response.
class Mailer final : public vbs::NativeObject<Mailer, mail::Draft> {
 public:
  using NativeObject::NativeObject;
  std::string_view typeName() const override { return "IMailer"; }

  static std::span<const Member<Mailer>> members() {
    using Self = Mailer;
    static constexpr Member<Self> kMembers[] = {
        {"remotehost", 0, 0, &Self::getHosts, &Self::putHosts},
        {"fromaddress", 0, 0, &Self::getText<&Self::from_>, &Self::putText<&Self::from_>},
        {"fromname", 0, 0, &Self::getText<&Self::fromName_>, &Self::putText<&Self::fromName_>},
        {"replyto", 0, 0, &Self::getText<&Self::replyTo_>, &Self::putText<&Self::replyTo_>},
        {"subject", 0, 0, &Self::getText<&Self::subject_>, &Self::putText<&Self::subject_>},
        {"bodytext", 0, 0, &Self::getText<&Self::body_>, &Self::appendBody},
        {"clearbodytext", 0, 0, &Self::clearBody},
        {"addrecipient", 2, 2, &Self::addNamed<&Mail::to>},
        {"addcc", 2, 2, &Self::addNamed<&Mail::cc>},
        {"addbcc", 2, 2, &Self::addNamed<&Mail::bcc>},
        {"clearrecipients", 0, 0, &Self::clear<&Mail::to>},
        {"clearccs", 0, 0, &Self::clear<&Mail::cc>},
        {"clearbccs", 0, 0, &Self::clear<&Mail::bcc>},
        {"clearallrecipients", 0, 0, &Self::clearRecipients},
        {"addattachment", 1, 1, &Self::attach},
        {"clearattachments", 0, 0, &Self::clear<&Mail::attachments>},
        {"addextraheader", 1, 1, &Self::addWholeHeader},
        {"clearextraheaders", 0, 0, &Self::clear<&Mail::headers>},
        {"contenttype", 0, 0, &Self::getContentType, &Self::putContentType},
        {"charset", 0, 0, nullptr, &Self::putCharsetNumber},
        {"customcharset", 0, 0, &Self::getCharset, &Self::putCharset},
        {"priority", 0, 0, &Self::getPriority, &Self::putPriority},
        {"timeout", 0, 0, nullptr, &Self::putTimeout},
        {"encoding", 0, 0, nullptr, &Self::ignore},
        {"wordwrap", 0, 0, nullptr, &Self::ignore},
        {"wordwraplen", 0, 0, nullptr, &Self::ignore},
        {"qmessage", 0, 0, nullptr, &Self::ignore},
        {"smtplog", 0, 0, nullptr, &Self::ignore},
        {"sendmail", 0, 0, &Self::sendNow},
        {"response", 0, 0, &Self::response},
    };
    return kMembers;
  }

 private:
  Value getHosts(Args) { return Value(std::string_view(hosts_)); }
  void putHosts(Args args, CallKind) { hosts_ = arguments::text(args, 0); }
  void putTimeout(Args args, CallKind) { seconds_ = vbs::toInteger(args[0]); }
  void appendBody(Args args, CallKind) { body_.append(vbs::toString(args[0])); }
  Value clearBody(Args) {
    body_ = vbs::String();
    return {};
  }
  /// Name first, then address.
  template <std::vector<mail::Address> Mail::*list>
  Value addNamed(Args args) {
    addAddress(mail_.*list, {vbs::toString(args[0]), vbs::toString(args[1])});
    return Value::boolean(true);
  }
  void putCharsetNumber(Args args, CallKind) {
    constexpr std::int32_t kLatin = 2;
    mail_.charset = vbs::toLong(args[0]) == kLatin ? "iso-8859-1" : "us-ascii";
  }

  /// One of several hosts that can be reached.
  Value sendNow(Args) {
    std::optional<mail::SendError> error;
    for (const std::string_view host : split(hosts_, ';')) {
      mail::Route route = mail::routeOf(host);
      route.connectSeconds = seconds_;
      error = send(route);
      if (!error || error->failure != mail::Failure::CantConnect) break;
    }
    response_ = error ? textOf(*error) : std::string();
    return Value::boolean(!error);
  }
  Value response(Args) { return Value(std::string_view(response_)); }

  std::string hosts_;
  std::string response_;
  int seconds_ = 30;
};

}  // namespace

const Component kMailSender{"persits.mailsender", [](const Services& services) {
                              return Value::adopt(new MailSender(services));
                            }};
const Component kMailer{
    "smtpsvg.mailer", [](const Services& services) { return Value::adopt(new Mailer(services)); }};

}  // namespace quorvane
