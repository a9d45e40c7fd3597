#pragma once

#include <string>

#include "components/mail/mail.h"
#include "components/mail/sender.h"
#include "components/script_files.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"

namespace quorvane::mail {

/// The most of one kind that a mail may have; error 7 beyond.
inline constexpr std::size_t kMostRecipients = 10'000;
inline constexpr std::size_t kMostParts = 1'000;

void addAddress(std::vector<Address>& list, Address address);

/// Gives the header its value, in the place of one that it had.
void setHeader(Mail& mail, const std::string& name, const vbs::String& value);
void addHeader(Mail& mail, const std::string& name, const vbs::String& value);

/// 1 is the highest, 3 the usual and 5 the lowest.
void setPriority(Mail& mail, std::int32_t priority);

/// Adds a file below the folders that scripts may read. Error -2147024894 when it is not there.
Attachment& attachFile(Mail& mail, const ScriptFiles& files, const vbs::Value& path);

/// What mail objects of one text and one sender have in common: their members are rows of this
/// class's functions under the names that each has for them.
class Draft : public vbs::Object {
 public:
  explicit Draft(const Services& services) : services_(services), files_(services) {}

 protected:
  using Args = vbs::Args;
  using CallKind = vbs::CallKind;
  using Value = vbs::Value;
  using Text = vbs::String Draft::*;

  template <Text text>
  Value getText(Args) {
    return this->*text;
  }
  template <Text text>
  void putText(Args args, CallKind) {
    this->*text = vbs::toString(args[0]);
  }
  template <Text text>
  Value appendText(Args args) {
    (this->*text).append(vbs::toString(args[0]));
    return {};
  }

  /// Address, and the name where it is given.
  template <std::vector<Address> Mail::*list>
  Value add(Args args) {
    addAddress(mail_.*list, addressOf(args));
    return Value::boolean(true);
  }
  template <auto list>
  Value clear(Args) {
    (mail_.*list).clear();
    return {};
  }

  Value clearRecipients(Args);
  Value attach(Args args);          ///< path
  Value addHeaderLine(Args args);   ///< name, value
  Value addWholeHeader(Args args);  ///< "name: value"; False without a colon
  Value getCharset(Args) { return Value(std::string_view(mail_.charset)); }
  void putCharset(Args args, CallKind);
  Value getHtml(Args) { return Value::boolean(isHtml_); }
  void putHtml(Args args, CallKind) { isHtml_ = vbs::toBoolean(args[0]); }
  Value getContentType(Args) { return Value(isHtml_ ? "text/html" : "text/plain"); }
  void putContentType(Args args, CallKind);
  Value getPriority(Args) { return Value::longInt(priority_); }
  void putPriority(Args args, CallKind);

  /// For members that change nothing here.
  Value nothing(Args) { return {}; }
  void ignore(Args, CallKind) {}

  /// Sends what was put together.
  std::optional<SendError> send(const Route& route);

  const Services& services_;
  ScriptFiles files_;
  Mail mail_;  ///< its recipients, headers and attachments
  vbs::String from_;
  vbs::String fromName_;
  vbs::String subject_;
  vbs::String body_;
  vbs::String otherBody_;  ///< plain where the body is HTML, HTML where it is plain
  vbs::String replyTo_;
  bool isHtml_ = false;
  std::int32_t priority_ = 3;

 private:
  static Address addressOf(Args args);
};

/// "user:password@host:port", where all but the host may be missing.
Route routeOf(std::string_view text);

}  // namespace quorvane::mail
