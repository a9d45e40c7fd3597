#include "components/mail/jmail.h"

#include "components/arguments.h"
#include "components/mail/draft.h"
#include "platform/random.h"
#include "platform/services.h"
#include "support/text.h"
#include "vbscript/values/convert.h"

namespace quorvane {

using mail::Mail;
using vbs::Args;
using vbs::Member;
using vbs::Value;

namespace {

/// What both have. They tell of a failure by their result when `Silent` is set.
class JMailDraft : public mail::Draft {
 protected:
  using Draft::Draft;

  Value getSilent(Args) { return Value::boolean(silent_); }
  void putSilent(Args args, CallKind) { silent_ = vbs::toBoolean(args[0]); }
  Value errorMessage(Args) { return Value(std::string_view(error_)); }
  Value errorCode(Args) { return Value::longInt(errorNumber_); }

  /// Address, name where it is given: a file inside the text, whose name there is given back.
  Value attachInside(Args args) {
    mail::Attachment& attachment = attachFile(mail_, files_, args[0]);
    if (arguments::isGiven(args, 2)) attachment.type = arguments::text(args, 2);
    if (!arguments::flag(args, 1, false)) return Value("");
    attachment.contentId = hexDigits(services_.random.guid()) + "@inline";
    return Value(std::string_view(attachment.contentId));
  }

  Value sent(const mail::Route& route, std::string_view source) {
    const auto error = send(route);
    error_ = error ? textOf(*error) : std::string();
    errorNumber_ = error ? static_cast<std::int32_t>(error->failure) : 0;
    if (error && !silent_) throwSendError(*error, source);
    return Value::boolean(!error);
  }

 private:
  bool silent_ = false;
  std::string error_;
  std::int32_t errorNumber_ = 0;
};

class JMailMessage final : public vbs::NativeObject<JMailMessage, JMailDraft> {
 public:
  using NativeObject::NativeObject;
  std::string_view typeName() const override { return "IMessage"; }

  static std::span<const Member<JMailMessage>> members() {
    using Self = JMailMessage;
    static constexpr Member<Self> kMembers[] = {
        {"from", 0, 0, &Self::getText<&Self::from_>, &Self::putText<&Self::from_>},
        {"fromname", 0, 0, &Self::getText<&Self::fromName_>, &Self::putText<&Self::fromName_>},
        {"replyto", 0, 0, &Self::getText<&Self::replyTo_>, &Self::putText<&Self::replyTo_>},
        {"subject", 0, 0, &Self::getText<&Self::subject_>, &Self::putText<&Self::subject_>},
        {"body", 0, 0, &Self::getText<&Self::body_>, &Self::putText<&Self::body_>},
        {"htmlbody", 0, 0, &Self::getText<&Self::otherBody_>, &Self::putText<&Self::otherBody_>},
        {"appendtext", 1, 1, &Self::appendText<&Self::body_>},
        {"appendhtml", 1, 1, &Self::appendText<&Self::otherBody_>},
        {"addrecipient", 1, 3, &Self::add<&Mail::to>},
        {"addrecipientcc", 1, 3, &Self::add<&Mail::cc>},
        {"addrecipientbcc", 1, 2, &Self::add<&Mail::bcc>},
        {"clearrecipients", 0, 0, &Self::clearRecipients},
        {"addattachment", 1, 3, &Self::attachInside},
        {"clearattachments", 0, 0, &Self::clear<&Mail::attachments>},
        {"addheader", 2, 2, &Self::addHeaderLine},
        {"charset", 0, 0, &Self::getCharset, &Self::putCharset},
        {"contenttype", 0, 0, &Self::getContentType, &Self::putContentType},
        {"priority", 0, 0, &Self::getPriority, &Self::putPriority},
        {"mailserverusername", 0, 0, &Self::getUser, &Self::putUser},
        {"mailserverpassword", 0, 0, nullptr, &Self::putPassword},
        {"silent", 0, 0, &Self::getSilent, &Self::putSilent},
        {"errormessage", 0, 0, &Self::errorMessage},
        {"errorcode", 0, 0, &Self::errorCode},
        {"logging", 0, 0, nullptr, &Self::ignore},
        {"encoding", 0, 0, nullptr, &Self::ignore},
        {"isoencodeheaders", 0, 0, nullptr, &Self::ignore},
        {"contenttransferencoding", 0, 0, nullptr, &Self::ignore},
        {"send", 0, 2, &Self::sendBy},
        {"close", 0, 0, &Self::nothing},
    };
    return kMembers;
  }

 private:
  Value getUser(Args) { return Value(std::string_view(user_)); }
  void putUser(Args args, CallKind) { user_ = vbs::toString(args[0]).utf8(); }
  void putPassword(Args args, CallKind) { password_ = vbs::toString(args[0]).utf8(); }

  Value sendBy(Args args) {
    mail::Route route = mail::routeOf(arguments::text(args, 0));
    if (route.user.empty()) {
      route.user = user_;
      route.password = password_;
    }
    return sent(route, "JMail.Message");
  }

  std::string user_;
  std::string password_;
};

class JMailSmtp final : public vbs::NativeObject<JMailSmtp, JMailDraft> {
 public:
  using NativeObject::NativeObject;
  std::string_view typeName() const override { return "ISMTPMail"; }

  static std::span<const Member<JMailSmtp>> members() {
    using Self = JMailSmtp;
    static constexpr Member<Self> kMembers[] = {
        {"serveraddress", 0, 0, &Self::getServer, &Self::putServer},
        {"sender", 0, 0, &Self::getText<&Self::from_>, &Self::putText<&Self::from_>},
        {"sendername", 0, 0, &Self::getText<&Self::fromName_>, &Self::putText<&Self::fromName_>},
        {"replyto", 0, 0, &Self::getText<&Self::replyTo_>, &Self::putText<&Self::replyTo_>},
        {"subject", 0, 0, &Self::getText<&Self::subject_>, &Self::putText<&Self::subject_>},
        {"body", 0, 0, &Self::getText<&Self::body_>, &Self::putText<&Self::body_>},
        {"htmlbody", 0, 0, &Self::getText<&Self::otherBody_>, &Self::putText<&Self::otherBody_>},
        {"appendtext", 1, 1, &Self::appendText<&Self::body_>},
        {"addrecipient", 1, 1, &Self::add<&Mail::to>},
        {"addrecipientex", 2, 2, &Self::add<&Mail::to>},
        {"addrecipientcc", 1, 1, &Self::add<&Mail::cc>},
        {"addrecipientbcc", 1, 1, &Self::add<&Mail::bcc>},
        {"clearrecipients", 0, 0, &Self::clearRecipients},
        {"addattachment", 1, 2, &Self::attach},
        {"clearattachments", 0, 0, &Self::clear<&Mail::attachments>},
        {"addheader", 2, 2, &Self::addHeaderLine},
        {"addnativeheader", 2, 2, &Self::addHeaderLine},
        {"charset", 0, 0, &Self::getCharset, &Self::putCharset},
        {"contenttype", 0, 0, &Self::getContentType, &Self::putContentType},
        {"priority", 0, 0, &Self::getPriority, &Self::putPriority},
        {"silent", 0, 0, &Self::getSilent, &Self::putSilent},
        {"errormessage", 0, 0, &Self::errorMessage},
        {"errorcode", 0, 0, &Self::errorCode},
        {"logging", 0, 0, nullptr, &Self::ignore},
        {"isoencodeheaders", 0, 0, nullptr, &Self::ignore},
        {"contenttransferencoding", 0, 0, nullptr, &Self::ignore},
        {"execute", 0, 0, &Self::execute},
        {"close", 0, 0, &Self::nothing},
    };
    return kMembers;
  }

 private:
  Value getServer(Args) { return Value(std::string_view(server_)); }
  void putServer(Args args, CallKind) { server_ = arguments::text(args, 0); }
  Value execute(Args) { return sent(mail::routeOf(server_), "JMail.SMTPMail"); }

  std::string server_;
};

}  // namespace

const Component kJMailMessage{"jmail.message", [](const Services& services) {
                                return Value::adopt(new JMailMessage(services));
                              }};
const Component kJMailSmtp{"jmail.smtpmail", [](const Services& services) {
                             return Value::adopt(new JMailSmtp(services));
                           }};

}  // namespace quorvane
