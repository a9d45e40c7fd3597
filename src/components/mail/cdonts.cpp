#include "components/mail/cdonts.h"

#include "components/arguments.h"
#include "components/mail/address_list.h"
#include "components/mail/draft.h"
#include "platform/services.h"
#include "support/text.h"
#include "vbscript/values/convert.h"

namespace quorvane {

using vbs::Args;
using vbs::Value;

namespace {

class NewMail final : public vbs::NativeObject<NewMail, mail::Draft> {
 public:
  using NativeObject::NativeObject;
  std::string_view typeName() const override { return "INewMail"; }

  static std::span<const vbs::Member<NewMail>> members() {
    using Self = NewMail;
    static constexpr vbs::Member<Self> kMembers[] = {
        {"from", 0, 0, &Self::getText<&Self::from_>, &Self::putText<&Self::from_>},
        {"to", 0, 0, &Self::getAddresses<&Self::to_>, &Self::putAddresses<&Self::to_>},
        {"cc", 0, 0, &Self::getAddresses<&Self::cc_>, &Self::putAddresses<&Self::cc_>},
        {"bcc", 0, 0, &Self::getAddresses<&Self::bcc_>, &Self::putAddresses<&Self::bcc_>},
        {"subject", 0, 0, &Self::getText<&Self::subject_>, &Self::putText<&Self::subject_>},
        {"body", 0, 0, &Self::getText<&Self::body_>, &Self::putText<&Self::body_>},
        {"bodyformat", 0, 0, &Self::getFormat, &Self::putFormat},
        {"mailformat", 0, 0, nullptr, &Self::ignore},
        {"contentbase", 0, 0, nullptr, &Self::ignore},
        {"contentlocation", 0, 0, nullptr, &Self::ignore},
        {"importance", 0, 0, &Self::getImportance, &Self::putImportance},
        {"value", 1, 1, nullptr, &Self::putValue, true},
        {"attachfile", 1, 3, &Self::attachNamed},
        {"setlocaleids", 1, 1, &Self::nothing},
        {"version", 0, 0, &Self::version},
        {"send", 0, 5, &Self::sendNow},
    };
    return kMembers;
  }

 private:
  template <vbs::String NewMail::*text>
  Value getAddresses(Args) {
    return this->*text;
  }
  template <vbs::String NewMail::*text>
  void putAddresses(Args args, CallKind) {
    this->*text = vbs::toString(args[0]);
  }
  /// 0 is HTML, 1 is plain text.
  Value getFormat(Args) { return Value::longInt(isHtml_ ? 0 : 1); }
  void putFormat(Args args, CallKind) { isHtml_ = vbs::toLong(args[0]) == 0; }
  Value getImportance(Args) { return Value::longInt(importance_); }
  void putImportance(Args args, CallKind) { setImportance(vbs::toLong(args[0])); }
  /// 0 is low, 1 usual, 2 high.
  void setImportance(std::int32_t importance) {
    if (importance < 0 || importance > 2) vbs::throwError(vbs::ErrorCode::InvalidCall);
    importance_ = importance;
    setPriority(mail_, 5 - 2 * importance);
  }
  void putValue(Args args, CallKind) {
    const std::string name = arguments::text(args, 0);
    if (equalsNoCase(name, "Reply-To")) {
      replyTo_ = vbs::toString(args[1]);
    } else {
      setHeader(mail_, name, vbs::toString(args[1]));
    }
  }
  Value attachNamed(Args args) {
    mail::Attachment& added = attachFile(mail_, files_, args[0]);
    if (arguments::isGiven(args, 1)) added.name = arguments::text(args, 1);
    return {};
  }
  Value version(Args) { return Value("1.2"); }

  Value sendNow(Args args) {
    if (arguments::isGiven(args, 0)) from_ = vbs::toString(args[0]);
    if (arguments::isGiven(args, 1)) to_ = vbs::toString(args[1]);
    if (arguments::isGiven(args, 2)) subject_ = vbs::toString(args[2]);
    if (arguments::isGiven(args, 3)) body_ = vbs::toString(args[3]);
    if (arguments::isGiven(args, 4)) setImportance(vbs::toLong(args[4]));
    mail_.to = mail::addressesIn(to_);
    mail_.cc = mail::addressesIn(cc_);
    mail_.bcc = mail::addressesIn(bcc_);
    if (const auto error = send({})) throwSendError(*error, "CDONTS.NewMail.1");
    return {};
  }

  vbs::String to_;
  vbs::String cc_;
  vbs::String bcc_;
  std::int32_t importance_ = 1;
};

}  // namespace

const Component kNewMail{
    "cdonts.newmail", [](const Services& services) { return Value::adopt(new NewMail(services)); }};

}  // namespace quorvane
