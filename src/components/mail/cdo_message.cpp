#include "components/mail/cdo_message.h"

#include <array>

#include "components/ado/stream.h"
#include "components/arguments.h"
#include "components/component_error.h"
#include "components/mail/address_list.h"
#include "components/mail/cdo_fields.h"
#include "components/mail/draft.h"
#include "components/mail/mime.h"
#include "platform/charset.h"
#include "platform/services.h"
#include "support/files.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/value_walk.h"

namespace quorvane {

using mail::CdoFields;
using mail::Mail;
using vbs::Args;
using vbs::CallKind;
using vbs::Member;
using vbs::String;
using vbs::Value;

namespace {

constexpr std::string_view kSource = "CDO.Message.1";

class CdoConfiguration final : public vbs::NativeObject<CdoConfiguration> {
 public:
  std::string_view typeName() const override { return "Configuration"; }

  static std::span<const Member<CdoConfiguration>> members() {
    static constexpr Member<CdoConfiguration> kMembers[] = {
        {"fields", 0, 0, &CdoConfiguration::fields, nullptr, true},
        {"load", 1, 2, &CdoConfiguration::load},
    };
    return kMembers;
  }

  mail::Route route(const ScriptFiles& files) const;

 private:
  Value fields(Args) { return Value::object(fields_.get()); }
  Value load(Args) { return {}; }  // defaults are what counts anyway

  vbs::Ref<CdoFields> fields_ = vbs::make<CdoFields>();
};

mail::Route CdoConfiguration::route(const ScriptFiles& files) const {
  enum SendUsing { kPickup = 1, kPort = 2 };
  constexpr int kImplicitTlsPort = 465;
  const auto name = [](std::string_view last) {
    return "http://schemas.microsoft.com/cdo/configuration/" + std::string(last);
  };
  const CdoFields& set = *fields_;
  mail::Route route;
  const int sendUsing = set.number(name("sendusing"), kPort);
  const std::string folder = set.text(name("smtpserverpickupdirectory"));
  if (sendUsing == kPickup && !folder.empty()) {
    route.pickupFolder = files.allowedPath(folder);
    return route;
  }
  route.host = set.text(name("smtpserver"));
  route.port = set.number(name("smtpserverport"), 0);
  route.connectSeconds = set.number(name("smtpconnectiontimeout"), 30);
  const Value tls = set.value(name("smtpusessl"));
  const Value startTls = set.value(name("sendtls"));
  if (!tls.isEmpty() && vbs::toBoolean(tls)) {
    route.tls = route.port == kImplicitTlsPort ? mail::Route::Tls::Whole : mail::Route::Tls::Start;
  }
  if (!startTls.isEmpty() && vbs::toBoolean(startTls)) route.tls = mail::Route::Tls::Start;
  if (set.number(name("smtpauthenticate"), 0) != 0) {
    route.user = set.text(name("sendusername"));
    route.password = set.text(name("sendpassword"));
  }
  return route;
}

/// The message's parts share one character set, which any of them may name.
class CdoBodyPart final : public vbs::NativeObject<CdoBodyPart> {
 public:
  struct Set {
    std::string name = "utf-8";
  };
  CdoBodyPart(std::shared_ptr<Set> set, std::string file, vbs::Ref<CdoFields> fields)
      : set_(std::move(set)), file_(std::move(file)), fields_(std::move(fields)) {}
  std::string_view typeName() const override { return "IBodyPart"; }

  static std::span<const Member<CdoBodyPart>> members() {
    using Self = CdoBodyPart;
    static constexpr Member<Self> kMembers[] = {
        {"charset", 0, 0, &Self::getCharset, &Self::putCharset},
        {"contenttransferencoding", 0, 0, &Self::getEncoding, &Self::ignore},
        {"filename", 0, 0, &Self::fileName},
        {"fields", 0, 0, &Self::fields},
    };
    return kMembers;
  }

 private:
  Value getCharset(Args) { return Value(std::string_view(set_->name)); }
  void putCharset(Args args, CallKind) {
    std::string name = arguments::text(args, 0);
    if (!charset::isKnown(name)) vbs::throwError(vbs::ErrorCode::InvalidCall);
    set_->name = std::move(name);
  }
  Value getEncoding(Args) { return Value(file_.empty() ? "quoted-printable" : "base64"); }
  void ignore(Args, CallKind) {}
  Value fileName(Args) { return Value(std::string_view(file_)); }
  Value fields(Args) { return Value::object(fields_.get()); }

  std::shared_ptr<Set> set_;
  std::string file_;
  vbs::Ref<CdoFields> fields_;
};

class CdoMessage final : public vbs::NativeObject<CdoMessage> {
 public:
  explicit CdoMessage(const Services& services) : services_(services), files_(services) {}
  std::string_view typeName() const override { return "Message"; }
  static std::span<const Member<CdoMessage>> members();

 private:
  template <String CdoMessage::*text>
  Value getText(Args) {
    return this->*text;
  }
  template <String CdoMessage::*text>
  void putText(Args args, CallKind) {
    this->*text = vbs::toString(args[0]);
  }

  Value getConfiguration(Args) { return Value::object(configuration_.get()); }
  void putConfiguration(Args args, CallKind);
  Value fields(Args) { return Value::object(fields_.get()); }
  Value bodyPart(Args) { return Value::adopt(new CdoBodyPart(set_, {}, fields_)); }
  Value addAttachment(Args args);
  Value addRelated(Args args);
  Value attachments(Args);
  Value createMhtmlBody(Args args);
  Value getFormatted(Args) { return Value::boolean(isFormatted_); }
  void putFormatted(Args args, CallKind) { isFormatted_ = vbs::toBoolean(args[0]); }
  void ignore(Args, CallKind) {}
  Value send(Args);
  Value getStream(Args);

  void complete();
  void takeHeaders();

  const Services& services_;
  ScriptFiles files_;
  Mail mail_;
  String from_;
  String sender_;
  String to_;
  String cc_;
  String bcc_;
  String replyTo_;
  String subject_;
  String text_;
  String html_;
  bool isFormatted_ = true;
  std::shared_ptr<CdoBodyPart::Set> set_ = std::make_shared<CdoBodyPart::Set>();
  vbs::Ref<CdoFields> fields_ = vbs::make<CdoFields>();
  vbs::Ref<CdoConfiguration> configuration_ = vbs::make<CdoConfiguration>();
};

std::span<const Member<CdoMessage>> CdoMessage::members() {
  using Self = CdoMessage;
  static constexpr Member<Self> kMembers[] = {
      {"from", 0, 0, &Self::getText<&Self::from_>, &Self::putText<&Self::from_>},
      {"sender", 0, 0, &Self::getText<&Self::sender_>, &Self::putText<&Self::sender_>},
      {"to", 0, 0, &Self::getText<&Self::to_>, &Self::putText<&Self::to_>},
      {"cc", 0, 0, &Self::getText<&Self::cc_>, &Self::putText<&Self::cc_>},
      {"bcc", 0, 0, &Self::getText<&Self::bcc_>, &Self::putText<&Self::bcc_>},
      {"replyto", 0, 0, &Self::getText<&Self::replyTo_>, &Self::putText<&Self::replyTo_>},
      {"subject", 0, 0, &Self::getText<&Self::subject_>, &Self::putText<&Self::subject_>},
      {"textbody", 0, 0, &Self::getText<&Self::text_>, &Self::putText<&Self::text_>},
      {"htmlbody", 0, 0, &Self::getText<&Self::html_>, &Self::putText<&Self::html_>},
      {"configuration", 0, 0, &Self::getConfiguration, &Self::putConfiguration},
      {"fields", 0, 0, &Self::fields},
      {"bodypart", 0, 0, &Self::bodyPart},
      {"textbodypart", 0, 0, &Self::bodyPart},
      {"htmlbodypart", 0, 0, &Self::bodyPart},
      {"addattachment", 1, 3, &Self::addAttachment},
      {"addrelatedbodypart", 3, 5, &Self::addRelated},
      {"attachments", 0, 0, &Self::attachments},
      {"createmhtmlbody", 1, 4, &Self::createMhtmlBody},
      {"mimeformatted", 0, 0, &Self::getFormatted, &Self::putFormatted},
      {"autogeneratetextbody", 0, 0, nullptr, &Self::ignore},
      {"dsnoptions", 0, 0, nullptr, &Self::ignore},
      {"mdnrequested", 0, 0, nullptr, &Self::ignore},
      {"send", 0, 0, &Self::send},
      {"getstream", 0, 0, &Self::getStream},
  };
  return kMembers;
}

void CdoMessage::putConfiguration(Args args, CallKind) {
  auto* given = dynamic_cast<CdoConfiguration*>(vbs::toObject(args[0]));
  if (!given) vbs::throwError(vbs::ErrorCode::TypeMismatch);
  configuration_ = vbs::Ref<CdoConfiguration>(given);
}

/// A file's path, or its address by the scheme of files.
std::string localPath(const Value& given) {
  std::string path = vbs::toString(given).narrow();
  if (startsWithNoCase(path, "file://")) path.erase(0, 7);
  if (path.find("://") == path.npos) return path;
  constexpr std::int32_t kNotSupported = -2146697203;
  throwComponentError(kNotSupported, "The specified protocol is unknown.", kSource);
}

Value CdoMessage::addAttachment(Args args) {
  const std::string path = localPath(args[0]);
  const mail::Attachment& added = attachFile(mail_, files_, Value(std::string_view(path)));
  return Value::adopt(new CdoBodyPart(set_, added.name, vbs::make<CdoFields>()));
}

/// Path, and the name that the HTML text has for it.
Value CdoMessage::addRelated(Args args) {
  const std::string path = localPath(args[0]);
  mail::Attachment& added = attachFile(mail_, files_, Value(std::string_view(path)));
  added.contentId = arguments::text(args, 1);
  return Value::adopt(new CdoBodyPart(set_, added.name, vbs::make<CdoFields>()));
}

class CdoParts final : public vbs::NativeObject<CdoParts> {
 public:
  explicit CdoParts(std::vector<Value> parts) : parts_(std::move(parts)) {}
  std::string_view typeName() const override { return "IBodyParts"; }

  static std::span<const Member<CdoParts>> members() {
    static constexpr Member<CdoParts> kMembers[] = {
        {"item", 1, 1, &CdoParts::item, nullptr, true},
        {"count", 0, 0, &CdoParts::count},
    };
    return kMembers;
  }
  std::unique_ptr<vbs::Enumerator> enumerate() override {
    return std::make_unique<vbs::ValueWalk>(parts_);
  }
  void visitReferences(vbs::ReferenceVisitor& visitor) override {
    for (Value& part : parts_) visitor.value(part);
  }
  void dropReferences() override { parts_.clear(); }

 private:
  Value item(Args args) {
    const std::int32_t at = vbs::toLong(args[0]);
    if (at < 1 || static_cast<std::size_t>(at) > parts_.size()) {
      vbs::throwError(vbs::ErrorCode::SubscriptOutOfRange);
    }
    return parts_[static_cast<std::size_t>(at) - 1];
  }
  Value count(Args) { return Value::longInt(static_cast<std::int32_t>(parts_.size())); }

  std::vector<Value> parts_;
};

Value CdoMessage::attachments(Args) {
  std::vector<Value> parts;
  for (const mail::Attachment& attachment : mail_.attachments) {
    parts.push_back(Value::adopt(new CdoBodyPart(set_, attachment.name, vbs::make<CdoFields>())));
  }
  return Value::adopt(new CdoParts(std::move(parts)));
}

Value CdoMessage::createMhtmlBody(Args args) {
  const std::string path = files_.allowedPath(localPath(args[0]));
  const auto text = files_.files().readAll(path);
  if (!text) vbs::throwError(vbs::ErrorCode::FileNotFound);
  html_ = String(*text);
  return {};
}

/// "urn:schemas:mailheader:name" is a header line; importance and priority have names of their own.
void CdoMessage::takeHeaders() {
  constexpr std::string_view kHeader = "urn:schemas:mailheader:";
  mail_.headers.clear();
  for (const CdoFields::Named& field : fields_->values()) {
    const std::string name = lowerCase(field.first);
    if (field.second.isEmpty() || field.second.isNull()) continue;
    if (name.starts_with(kHeader)) {
      setHeader(mail_, field.first.substr(kHeader.size()), vbs::toString(field.second));
    } else if (name == "urn:schemas:httpmail:importance") {
      setPriority(mail_, 3 - 2 * (vbs::toLong(field.second) - 1));
    } else if (name == "urn:schemas:httpmail:priority") {
      setPriority(mail_, 3 - 2 * vbs::toLong(field.second));
    }
  }
}

void CdoMessage::complete() {
  mail_.from = mail::addressesIn(from_);
  mail_.sender = mail::addressesIn(sender_);
  if (mail_.from.empty()) std::swap(mail_.from, mail_.sender);
  mail_.to = mail::addressesIn(to_);
  mail_.cc = mail::addressesIn(cc_);
  mail_.bcc = mail::addressesIn(bcc_);
  mail_.replyTo = mail::addressesIn(replyTo_);
  mail_.subject = subject_;
  mail_.text = text_;
  mail_.html = html_;
  mail_.charset = set_->name;
  takeHeaders();
}

Value CdoMessage::send(Args) {
  complete();
  const auto error = mail::send(mail_, configuration_->route(files_), services_);
  if (error) throwSendError(*error, kSource);
  return {};
}

Value CdoMessage::getStream(Args) {
  complete();
  return openStream(mimeText(mail_, services_), services_);
}

}  // namespace

const Component kCdoMessage{
    "cdo.message", [](const Services& services) { return Value::adopt(new CdoMessage(services)); }};
const Component kCdoConfiguration{
    "cdo.configuration", [](const Services&) { return Value::adopt(new CdoConfiguration()); }};

}  // namespace quorvane
