#include "components/mail/mime.h"

#include <gmime/gmime.h>

#include <algorithm>
#include <array>
#include <memory>

#include "platform/charset.h"
#include "platform/clock.h"
#include "platform/process.h"
#include "platform/random.h"
#include "support/paths.h"
#include "support/text.h"
#include "vbscript/values/time_check.h"

namespace quorvane::mail {

namespace {

struct Unref {
  void operator()(void* object) const { g_object_unref(object); }
};
template <class T>
using Owned = std::unique_ptr<T, Unref>;

void prepareLibrary() {
  static const bool prepared = [] {
    g_mime_init();
    return true;
  }();
  (void)prepared;
}

std::string utf8Of(std::u16string_view text) {
  return charset::encode("utf-8", text);
}

/// The text for a mail of that character set; see mimeText().
std::u16string characters(const vbs::String& text, const std::string& set) {
  std::u16string wide = text.wide();
  if (!text.isAnsi()) return wide;
  const std::string_view bytes = text.raw();
  const auto isHigh = [](char c) { return static_cast<unsigned char>(c) >= 0x80; };
  if (std::none_of(bytes.begin(), bytes.end(), isHigh)) return wide;
  vbs::countWork(bytes.size());
  std::u16string read = charset::decode(set, bytes, bytes.size()).text;
  if (read.empty() || read.find(u'\uFFFD') != read.npos) return wide;
  const std::string encoded = charset::encode(set, wide);
  const bool loses =
      std::count(encoded.begin(), encoded.end(), '?') > std::count(bytes.begin(), bytes.end(), '?');
  return loses || equalsNoCase(set, "utf-8") ? read : wide;
}

/// What is no text of one line becomes a blank.
std::string headerText(const vbs::String& text, const std::string& set) {
  std::string line = utf8Of(characters(text, set));
  std::replace_if(
      line.begin(), line.end(),
      [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
  return line;
}

bool isHeaderName(const std::string& name) {
  return !name.empty() && std::all_of(name.begin(), name.end(),
                                      [](char c) { return c > ' ' && c < 0x7F && c != ':'; });
}

Owned<GMimeDataWrapper> contentOf(std::string_view bytes) {
  const Owned<GMimeStream> stream(g_mime_stream_mem_new_with_buffer(bytes.data(), bytes.size()));
  return Owned<GMimeDataWrapper>(
      g_mime_data_wrapper_new_with_stream(stream.get(), GMIME_CONTENT_ENCODING_DEFAULT));
}

Owned<GMimeObject> textPart(const vbs::String& text, const char* subtype, const std::string& set) {
  vbs::countWork(text.byteLength());
  GMimePart* part = g_mime_part_new_with_type("text", subtype);
  g_mime_object_set_content_type_parameter(GMIME_OBJECT(part), "charset", set.c_str());
  g_mime_part_set_content_encoding(part, GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
  g_mime_part_set_content(part, contentOf(charset::encode(set, characters(text, set))).get());
  return Owned<GMimeObject>(GMIME_OBJECT(part));
}

/// The types of what is sent most; readers need them for pictures inside a text.
std::string_view typeOf(const std::string& name) {
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

Owned<GMimeObject> attachmentPart(const Attachment& attachment) {
  vbs::countWork(attachment.content.size());
  const std::string type(attachment.type.empty() ? typeOf(attachment.name) : attachment.type);
  const std::size_t slash = type.find('/');
  const bool isType = slash != type.npos && type.find_first_of(" \r\n;\"") == type.npos;
  GMimePart* part = isType ? g_mime_part_new_with_type(type.substr(0, slash).c_str(),
                                                       type.substr(slash + 1).c_str())
                           : g_mime_part_new_with_type("application", "octet-stream");
  const std::string name = headerText(vbs::String(attachment.name), "utf-8");
  g_mime_part_set_filename(part, name.c_str());
  g_mime_part_set_content_encoding(part, GMIME_CONTENT_ENCODING_BASE64);
  g_mime_part_set_content(part, contentOf(attachment.content).get());
  const bool isInline = !attachment.contentId.empty();
  g_mime_object_set_disposition(GMIME_OBJECT(part), isInline ? "inline" : "attachment");
  if (isInline) g_mime_part_set_content_id(part, attachment.contentId.c_str());
  return Owned<GMimeObject>(GMIME_OBJECT(part));
}

Owned<GMimeObject> multipart(const char* subtype, Owned<GMimeObject> first) {
  GMimeMultipart* whole = g_mime_multipart_new_with_subtype(subtype);
  g_mime_multipart_add(whole, first.get());
  return Owned<GMimeObject>(GMIME_OBJECT(whole));
}

/// `body` with those attachments around it that stand inside the HTML text, or the others.
Owned<GMimeObject> withAttachments(Owned<GMimeObject> body, const Mail& mail, bool inlined) {
  Owned<GMimeObject> whole = std::move(body);
  bool isWrapped = false;
  for (const Attachment& attachment : mail.attachments) {
    if (attachment.contentId.empty() == inlined) continue;
    if (!isWrapped) whole = multipart(inlined ? "related" : "mixed", std::move(whole));
    isWrapped = true;
    g_mime_multipart_add(GMIME_MULTIPART(whole.get()), attachmentPart(attachment).get());
  }
  return whole;
}

Owned<GMimeObject> bodyOf(const Mail& mail) {
  if (mail.html.empty()) {
    return withAttachments(textPart(mail.text, "plain", mail.charset), mail, true);
  }
  auto html = withAttachments(textPart(mail.html, "html", mail.charset), mail, true);
  if (mail.text.empty()) return html;
  auto both = multipart("alternative", textPart(mail.text, "plain", mail.charset));
  g_mime_multipart_add(GMIME_MULTIPART(both.get()), html.get());
  return both;
}

void addAddresses(GMimeMessage* message, GMimeAddressType type, const std::vector<Address>& list,
                  const std::string& set) {
  for (const Address& entry : list) {
    const std::string address = headerText(entry.address, "utf-8");
    if (!isPlainAddress(address)) continue;
    const std::string name = headerText(entry.name, set);
    g_mime_message_add_mailbox(message, type, name.empty() ? nullptr : name.c_str(),
                               address.c_str());
  }
}

std::string messageId(const Services& services) {
  std::string host = services.process.computerName();
  if (!isPlainAddress(host)) host = "localhost";
  return hexDigits(services.random.guid()) + '@' + host;
}

void addHead(GMimeMessage* message, const Mail& mail, const Services& services) {
  const auto since = services.clock.now().time_since_epoch();
  GDateTime* now = g_date_time_new_from_unix_utc(
      std::chrono::duration_cast<std::chrono::seconds>(since).count());
  g_mime_message_set_date(message, now);
  g_date_time_unref(now);
  g_mime_message_set_message_id(message, messageId(services).c_str());
  addAddresses(message, GMIME_ADDRESS_TYPE_FROM, mail.from, mail.charset);
  addAddresses(message, GMIME_ADDRESS_TYPE_SENDER, mail.sender, mail.charset);
  addAddresses(message, GMIME_ADDRESS_TYPE_REPLY_TO, mail.replyTo, mail.charset);
  addAddresses(message, GMIME_ADDRESS_TYPE_TO, mail.to, mail.charset);
  addAddresses(message, GMIME_ADDRESS_TYPE_CC, mail.cc, mail.charset);
  g_mime_message_set_subject(message, headerText(mail.subject, mail.charset).c_str(), nullptr);
  for (const auto& [name, value] : mail.headers) {
    if (!isHeaderName(name)) continue;
    g_mime_object_append_header(GMIME_OBJECT(message), name.c_str(),
                                headerText(value, mail.charset).c_str(), nullptr);
  }
}

}  // namespace

std::vector<Address> addressesIn(const vbs::String& text) {
  prepareLibrary();
  std::string list = headerText(text, "utf-8");
  vbs::countWork(list.size());
  bool quoted = false;
  for (char& c : list) {
    if (c == '"') quoted = !quoted;
    if (c == ';' && !quoted) c = ',';
  }
  std::vector<Address> addresses;
  InternetAddressList* parsed = internet_address_list_parse(nullptr, list.c_str());
  if (!parsed) return addresses;
  const Owned<InternetAddressList> owned(parsed);
  for (int i = 0; i < internet_address_list_length(parsed); ++i) {
    InternetAddress* entry = internet_address_list_get_address(parsed, i);
    if (!INTERNET_ADDRESS_IS_MAILBOX(entry)) continue;
    const char* name = internet_address_get_name(entry);
    const char* address = internet_address_mailbox_get_addr(INTERNET_ADDRESS_MAILBOX(entry));
    addresses.push_back(
        {vbs::String::fromUtf8(name ? name : ""), vbs::String::fromUtf8(address ? address : "")});
  }
  return addresses;
}

bool isPlainAddress(const std::string& address) {
  return !address.empty() && std::all_of(address.begin(), address.end(), [](char c) {
    return static_cast<unsigned char>(c) > ' ' && c != 0x7F && c != '<' && c != '>';
  });
}

std::string mimeText(const Mail& mail, const Services& services) {
  prepareLibrary();
  const Owned<GMimeMessage> message(g_mime_message_new(TRUE));
  addHead(message.get(), mail, services);
  g_mime_message_set_mime_part(message.get(), withAttachments(bodyOf(mail), mail, false).get());
  GMimeFormatOptions* format = g_mime_format_options_new();
  g_mime_format_options_set_newline_format(format, GMIME_NEWLINE_FORMAT_DOS);
  char* written = g_mime_object_to_string(GMIME_OBJECT(message.get()), format);
  g_mime_format_options_free(format);
  std::string text(written);
  g_free(written);
  return text;
}

}  // namespace quorvane::mail
