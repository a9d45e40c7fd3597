#include "components/http_client/charset.h"

#include <libxml/xmlstring.h>

#include <initializer_list>
#include <string>

#include "components/xml/library.h"
#include "platform/charset.h"
#include "support/text.h"

namespace quorvane::http_client {

namespace {

bool isUtf8(std::string_view bytes) {
  const auto* text = reinterpret_cast<const unsigned char*>(bytes.data());
  // The library's test ends at a NUL, which no text has.
  const std::string copy(bytes);
  return copy.find('\0') == copy.npos && text && xmlCheckUTF8(xml::libraryText(copy.c_str()));
}

vbs::String ofWide(std::string_view bytes, bool bigEndian) {
  std::u16string units;
  units.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    units += static_cast<char16_t>(bigEndian ? first << 8 | second : second << 8 | first);
  }
  return vbs::String::fromWide(units);
}

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> known) {
  for (const std::string_view candidate : known) {
    if (equalsNoCase(name, candidate)) return true;
  }
  return false;
}

}  // namespace

vbs::String decoded(std::string_view bytes, std::string_view name) {
  vbs::countWork(bytes.size());
  if (bytes.starts_with("\xEF\xBB\xBF")) return vbs::String::fromUtf8(bytes.substr(3));
  if (bytes.starts_with("\xFF\xFE")) return ofWide(bytes.substr(2), false);
  if (bytes.starts_with("\xFE\xFF")) return ofWide(bytes.substr(2), true);
  if (isOneOf(name, {"utf-8", "utf8"})) return vbs::String::fromUtf8(bytes);
  if (isOneOf(name, {"utf-16", "utf-16le", "unicode"})) return ofWide(bytes, false);
  // Servers that say one mean the other.
  if (isOneOf(name, {"windows-1252", "iso-8859-1", "latin1", "us-ascii", "ascii"})) {
    return vbs::String(bytes);
  }
  if (charset::isKnown(name)) {
    return vbs::String::fromWide(charset::decode(name, bytes, bytes.size()).text);
  }
  return isUtf8(bytes) ? vbs::String::fromUtf8(bytes) : vbs::String(bytes);
}

std::string_view charsetOf(std::string_view contentType) {
  constexpr std::string_view kName = "charset=";
  const std::size_t found = findNoCase(contentType, kName);
  if (found == contentType.npos) return {};
  std::string_view value = contentType.substr(found + kName.size());
  value = value.substr(0, value.find(';'));
  value = trimBlanks(value);
  while (value.starts_with('"') || value.starts_with('\'')) value.remove_prefix(1);
  while (value.ends_with('"') || value.ends_with('\'')) value.remove_suffix(1);
  return value;
}

}  // namespace quorvane::http_client
