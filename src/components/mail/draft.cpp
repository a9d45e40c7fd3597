#include "components/mail/draft.h"

#include "components/arguments.h"
#include "components/component_error.h"
#include "components/mail/address_list.h"
#include "platform/charset.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/text.h"
#include "vbscript/values/convert.h"

namespace quorvane::mail {

using vbs::ErrorCode;
using vbs::Value;

void addAddress(std::vector<Address>& list, Address address) {
  if (list.size() == kMostRecipients) vbs::throwError(ErrorCode::OutOfMemory);
  list.push_back(std::move(address));
}

void addHeader(Mail& mail, const std::string& name, const vbs::String& value) {
  if (mail.headers.size() == kMostParts) vbs::throwError(ErrorCode::OutOfMemory);
  mail.headers.emplace_back(name, value);
}

void setHeader(Mail& mail, const std::string& name, const vbs::String& value) {
  for (auto& header : mail.headers) {
    if (!equalsNoCase(header.first, name)) continue;
    header.second = value;
    return;
  }
  addHeader(mail, name, value);
}

void setPriority(Mail& mail, std::int32_t priority) {
  if (priority < 1 || priority > 5) vbs::throwError(ErrorCode::InvalidCall);
  setHeader(mail, "X-Priority", vbs::String(std::to_string(priority)));
  setHeader(mail, "Importance",
            vbs::String(priority < 3   ? "high"
                        : priority > 3 ? "low"
                                       : "normal"));
}

Attachment& attachFile(Mail& mail, const ScriptFiles& files, const Value& path) {
  if (mail.attachments.size() == kMostParts) vbs::throwError(ErrorCode::OutOfMemory);
  const std::string file = files.allowedPath(path);
  const auto info = files.files().stat(file);
  Attachment attachment;
  if (info && !info->isFolder) attachment.charge.change(info->size);
  auto content = info && !info->isFolder ? files.files().readAll(file) : std::nullopt;
  if (!content) {
    constexpr std::int32_t kNoSuchFile = -2147024894;
    throwComponentError(kNoSuchFile, "The system cannot find the file specified.", "Mail");
  }
  attachment.charge.change(content->size());
  attachment.content = std::move(*content);
  attachment.name = paths::fileNameOf(file);
  return mail.attachments.emplace_back(std::move(attachment));
}

/// An address may come with its name: "Name <address>".
Address Draft::addressOf(Args args) {
  const vbs::String text = vbs::toString(args[0]);
  auto read = addressesIn(text);
  Address address = read.size() == 1 ? std::move(read.front()) : Address{{}, text};
  if (arguments::isGiven(args, 1)) address.name = vbs::toString(args[1]);
  return address;
}

Value Draft::clearRecipients(Args) {
  mail_.to.clear();
  mail_.cc.clear();
  mail_.bcc.clear();
  return {};
}

Value Draft::attach(Args args) {
  attachFile(mail_, files_, args[0]);
  return Value::boolean(true);
}

Value Draft::addHeaderLine(Args args) {
  addHeader(mail_, arguments::text(args, 0), vbs::toString(args[1]));
  return Value::boolean(true);
}

Value Draft::addWholeHeader(Args args) {
  const std::string line = arguments::text(args, 0);
  const std::size_t colon = line.find(':');
  if (colon == line.npos) return Value::boolean(false);
  addHeader(mail_, line.substr(0, colon),
            vbs::String(trimBlanks(std::string_view(line).substr(colon + 1))));
  return Value::boolean(true);
}

void Draft::putCharset(Args args, CallKind) {
  std::string name = arguments::text(args, 0);
  if (!charset::isKnown(name)) vbs::throwError(ErrorCode::InvalidCall);
  mail_.charset = std::move(name);
}

void Draft::putContentType(Args args, CallKind) {
  isHtml_ = startsWithNoCase(trimBlanks(arguments::text(args, 0)), "text/html");
}

void Draft::putPriority(Args args, CallKind) {
  priority_ = vbs::toLong(args[0]);
  setPriority(mail_, priority_);
}

std::optional<SendError> Draft::send(const Route& route) {
  auto from = addressesIn(from_);
  if (from.size() == 1 && !fromName_.empty()) from.front().name = fromName_;
  mail_.from = std::move(from);
  if (!replyTo_.empty()) mail_.replyTo = addressesIn(replyTo_);
  mail_.subject = subject_;
  mail_.text = isHtml_ ? otherBody_ : body_;
  mail_.html = isHtml_ ? body_ : otherBody_;
  return mail::send(mail_, route, services_);
}

Route routeOf(std::string_view text) {
  Route route;
  const std::size_t at = text.rfind('@');
  if (at != text.npos) {
    const std::string_view login = text.substr(0, at);
    const std::size_t colon = login.find(':');
    route.user = login.substr(0, colon);
    if (colon != login.npos) route.password = login.substr(colon + 1);
    text.remove_prefix(at + 1);
  }
  route.host = trimBlanks(text);
  return route;
}

}  // namespace quorvane::mail
