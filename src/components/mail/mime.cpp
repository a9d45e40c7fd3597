#include "components/mail/mime.h"

#include <algorithm>
#include <array>

#include "components/mail/address_list.h"
#include "components/mail/header_line.h"
#include "components/mail/header_text.h"
#include "components/mail/quoted_printable.h"
#include "platform/charset.h"
#include "platform/clock.h"
#include "platform/process.h"
#include "platform/random.h"
#include "support/base64.h"
#include "support/calendar_time.h"
#include "support/paths.h"
#include "support/text.h"
#include "vbscript/values/text_locale.h"
#include "vbscript/values/time_check.h"

namespace quorvane::mail {

namespace {

/// A part of a mail is text: its header lines, an empty line, and what it holds.

void addLine(std::string& out, std::string_view name, std::string_view word) {
  HeaderLine(out, name).word(word);
}

void addBase64(std::string& out, std::string_view bytes) {
  constexpr std::size_t kBytesOfLine = 57;
  for (std::size_t at = 0; at < bytes.size(); at += kBytesOfLine) {
    out += encodeBase64(bytes.substr(at, kBytesOfLine));
    out += "\r\n";
  }
}

std::string textPart(const vbs::String& text, std::string_view type, const std::string& set) {
  vbs::countWork(text.byteLength());
  const std::string bytes = charset::encode(set, readAs(text, set));
  const bool isBinary = bytes.find('\0') != bytes.npos;  // sets of two bytes each: no lines to see
  std::string part;
  {
    HeaderLine line(part, "Content-Type");
    line.word(std::string(type) + ';');
    line.parameter("charset", set);
  }
  addLine(part, "Content-Transfer-Encoding", isBinary ? "base64" : "quoted-printable");
  part += "\r\n";
  if (isBinary) {
    addBase64(part, bytes);
    return part;
  }
  return part + quotedPrintable(bytes);
}

/// The types of what is sent most; readers need them for pictures inside a text.
std::string_view typeOfName(const std::string& name) {
  struct Row {
    std::string_view extension;
    std::string_view type;
  };
  constexpr std::array kTypes{
      Row{".jpg", "image/jpeg"},         Row{".jpeg", "image/jpeg"},
      Row{".png", "image/png"},          Row{".gif", "image/gif"},
      Row{".bmp", "image/bmp"},          Row{".svg", "image/svg+xml"},
      Row{".pdf", "application/pdf"},    Row{".zip", "application/zip"},
      Row{".txt", "text/plain"},         Row{".csv", "text/csv"},
      Row{".htm", "text/html"},          Row{".html", "text/html"},
      Row{".doc", "application/msword"}, Row{".xls", "application/vnd.ms-excel"},
  };
  for (const Row& row : kTypes) {
    if (equalsNoCase(row.extension, paths::extensionOf(name))) return row.type;
  }
  return "application/octet-stream";
}

/// "type/subtype" of characters that can stand there.
bool isType(std::string_view type) {
  const std::size_t slash = type.find('/');
  return slash != type.npos && slash > 0 && slash + 1 < type.size() && type.size() < 200 &&
         std::all_of(type.begin(), type.end(), [](char c) {
           return c > ' ' && c < 0x7F &&
                  std::string_view("()<>@,;:\\\"[]?=").find(c) == std::string_view::npos;
         });
}

std::string_view typeOf(const Attachment& attachment) {
  if (attachment.type.empty()) return typeOfName(attachment.name);
  if (isType(attachment.type)) return attachment.type;
  return "application/octet-stream";
}

void addNamed(std::string& part, std::string_view header, std::string_view value,
              std::string_view parameter, std::string_view name) {
  HeaderLine line(part, header);
  line.word(std::string(value) + ';');
  line.parameter(parameter, name);
}

std::string contentId(const Attachment& attachment) {
  return std::string(trimmed(headerText(vbs::String(attachment.contentId), "utf-8"), " <>"));
}

std::string attachmentPart(const Attachment& attachment) {
  vbs::countWork(attachment.content.size());
  const std::string name = headerText(vbs::String(attachment.name), "utf-8");
  const bool isInline = !attachment.contentId.empty();
  std::string part;
  addNamed(part, "Content-Type", typeOf(attachment), "name", name);
  addNamed(part, "Content-Disposition", isInline ? "inline" : "attachment", "filename", name);
  addLine(part, "Content-Transfer-Encoding", "base64");
  if (isInline) addLine(part, "Content-Id", '<' + contentId(attachment) + '>');
  part += "\r\n";
  addBase64(part, attachment.content);
  return part;
}

/// Several parts as one.
class Multipart {
 public:
  Multipart(std::string_view subtype, Random& random)
      // No encoding of a part has "=-" in it.
      : boundary_("=-" + hexDigits(random.guid())) {
    HeaderLine line(text_, "Content-Type");
    line.word("multipart/" + std::string(subtype) + ';');
    line.parameter("boundary", boundary_);
  }

  void add(std::string_view part) {
    text_ += "\r\n--" + boundary_ + "\r\n";
    text_ += part;
  }

  std::string finish() && { return std::move(text_) + "\r\n--" + boundary_ + "--\r\n"; }

 private:
  std::string boundary_;
  std::string text_;
};

class MimeWriter {
 public:
  MimeWriter(const Mail& mail, const Services& services) : mail_(mail), services_(services) {}

  std::string text() const {
    std::string text;
    addHead(text);
    text += withAttachments(body(), false);
    if (!text.ends_with("\r\n")) text += "\r\n";
    return text;
  }

 private:
  std::string body() const {
    if (mail_.html.empty()) {
      return withAttachments(textPart(mail_.text, "text/plain", mail_.charset), true);
    }
    std::string html = withAttachments(textPart(mail_.html, "text/html", mail_.charset), true);
    if (mail_.text.empty()) return html;
    Multipart both("alternative", services_.random);
    both.add(textPart(mail_.text, "text/plain", mail_.charset));
    both.add(html);
    return std::move(both).finish();
  }

  /// `body` with those attachments around it that stand inside the HTML text, or the others.
  std::string withAttachments(std::string body, bool inlined) const {
    const auto belongs = [&](const Attachment& one) { return one.contentId.empty() != inlined; };
    if (std::none_of(mail_.attachments.begin(), mail_.attachments.end(), belongs)) return body;
    Multipart whole(inlined ? "related" : "mixed", services_.random);
    whole.add(body);
    for (const Attachment& attachment : mail_.attachments) {
      if (belongs(attachment)) whole.add(attachmentPart(attachment));
    }
    return std::move(whole).finish();
  }

  void addHead(std::string& out) const {
    if (isOurs("Date")) addLine(out, "Date", date());
    addAddresses(out, "From", mail_.from);
    addAddresses(out, "Sender", mail_.sender);
    addAddresses(out, "Reply-To", mail_.replyTo);
    addAddresses(out, "To", mail_.to);
    addAddresses(out, "Cc", mail_.cc);
    if (isOurs("Subject")) addText(out, "Subject", mail_.subject);
    if (isOurs("Message-Id")) addLine(out, "Message-Id", messageId());
    for (const auto& [name, value] : mail_.headers) addGiven(out, name, value);
    addLine(out, "MIME-Version", "1.0");
  }

  /// Scripts may have put another in its place.
  bool isOurs(std::string_view name) const {
    return std::none_of(mail_.headers.begin(), mail_.headers.end(), [&](const auto& header) {
      return !header.second.empty() && equalsNoCase(header.first, name);
    });
  }

  void addText(std::string& out, std::string_view name, const vbs::String& text) const {
    HeaderLine(out, name).text(headerText(text, mail_.charset));
  }

  void addAddresses(std::string& out, std::string_view name,
                    const std::vector<Address>& list) const {
    if (isOurs(name)) writeAddresses(out, name, list);
  }

  void writeAddresses(std::string& out, std::string_view name,
                      const std::vector<Address>& list) const {
    std::vector<std::pair<std::string, std::string>> written;
    for (const Address& entry : list) {
      std::string address = addressText(entry);
      if (address.empty()) continue;
      written.emplace_back(headerText(entry.name, mail_.charset), std::move(address));
    }
    if (written.empty()) return;
    HeaderLine line(out, name);
    for (std::size_t i = 0; i < written.size(); ++i) {
      const auto& [person, address] = written[i];
      line.phrase(person);
      const bool isNamed = !trimBlanks(person).empty();
      line.word((isNamed ? '<' + address + '>' : address) + (i + 1 < written.size() ? "," : ""));
    }
  }

  void addGiven(std::string& out, const std::string& name, const vbs::String& value) const {
    const auto isOneOf = [&](std::initializer_list<std::string_view> names) {
      return std::any_of(names.begin(), names.end(),
                         [&](std::string_view one) { return equalsNoCase(one, name); });
    };
    // How the mail is built is told by what builds it, and blind copies are not told.
    const bool isNone =
        isOneOf({"Content-Type", "Content-Transfer-Encoding", "MIME-Version", "Bcc"});
    if (!isHeaderName(name) || isNone || value.empty()) return;
    const bool hasAddresses =
        isOneOf({"From", "Sender", "Reply-To", "To", "Cc", "Disposition-Notification-To",
                 "Return-Receipt-To", "Errors-To"});
    const auto list = hasAddresses ? addressesIn(value) : std::vector<Address>();
    if (list.empty()) return addText(out, name, value);
    writeAddresses(out, name, list);
  }

  static bool isHeaderName(const std::string& name) {
    constexpr std::size_t kLongest = 70;
    return !name.empty() && name.size() <= kLongest &&
           std::all_of(name.begin(), name.end(),
                       [](char c) { return c > ' ' && c < 0x7F && c != ':'; });
  }

  /// "Sun, 22 Nov 2026 09:00:00 +0000".
  std::string date() const {
    const CalendarTime now = utcFields(services_.clock.now());
    const vbs::LocaleNames& names = vbs::findLocale(vbs::kDefaultLocale)->names;
    const std::string digits = dateTimeText(now);  // "yyyy-MM-dd HH:mm:ss"
    return std::string(names.shortWeekdays[static_cast<std::size_t>(now.weekday)]) + ", " +
           digits.substr(8, 2) + ' ' +
           std::string(names.shortMonths[static_cast<std::size_t>(now.month - 1)]) + ' ' +
           digits.substr(0, 4) + digits.substr(10) + " +0000";
  }

  std::string messageId() const {
    std::string host = services_.process.computerName();
    if (!isPlainAddress(host)) host = "localhost";
    return '<' + hexDigits(services_.random.guid()) + '@' + host + '>';
  }

  const Mail& mail_;
  const Services& services_;
};

}  // namespace

std::string mimeText(const Mail& mail, const Services& services) {
  return MimeWriter(mail, services).text();
}

}  // namespace quorvane::mail
