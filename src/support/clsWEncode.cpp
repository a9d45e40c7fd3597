#include "support/clsWEncode.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "support/text.h"

namespace quorvane {

namespace {

struct Entity {
  int code;
  std::string_view name;
};

/// In the order in which decoding replaces them: the blank stands before character 160, so "&nbsp;"
/// decodes to a blank. The missing semicolon of 237 is in the texts that pages have stored.
constexpr Entity kEntities[] = {
    {32, "&nbsp;"},    {34, "&quot;"},    {38, "&amp;"},     {60, "&lt;"},      {62, "&gt;"},
    {160, "&nbsp;"},   {161, "&iexcl;"},  {162, "&cent;"},   {163, "&pound;"},  {164, "&curren;"},
    {165, "&yen;"},    {166, "&brvbar;"}, {167, "&sect;"},   {168, "&uml;"},    {169, "&copy;"},
    {170, "&ordf;"},   {171, "&laquo;"},  {172, "&not;"},    {173, "&shy;"},    {174, "&reg;"},
    {175, "&macr;"},   {176, "&deg;"},    {177, "&plusmn;"}, {178, "&sup2;"},   {179, "&sup3;"},
    {180, "&acute;"},  {181, "&micro;"},  {182, "&para;"},   {183, "&middot;"}, {184, "&cedil;"},
    {185, "&sup1;"},   {186, "&ordm;"},   {187, "&raquo;"},  {188, "&frac14;"}, {189, "&frac12;"},
    {190, "&frac34;"}, {191, "&iquest;"}, {192, "&Agrave;"}, {193, "&Aacute;"}, {194, "&Acirc;"},
    {195, "&Atilde;"}, {196, "&Auml;"},   {197, "&Aring;"},  {198, "&AElig;"},  {199, "&Ccedil;"},
    {200, "&Egrave;"}, {201, "&Eacute;"}, {202, "&Ecirc;"},  {203, "&Euml;"},   {204, "&Igrave;"},
    {205, "&Iacute;"}, {206, "&Icirc;"},  {207, "&Iuml;"},   {208, "&ETH;"},    {209, "&Ntilde;"},
    {210, "&Ograve;"}, {211, "&Oacute;"}, {212, "&Ocirc;"},  {213, "&Otilde;"}, {214, "&Ouml;"},
    {215, "&times;"},  {216, "&Oslash;"}, {217, "&Ugrave;"}, {218, "&Uacute;"}, {219, "&Ucirc;"},
    {220, "&Uuml;"},   {221, "&Yacute;"}, {222, "&THORN;"},  {223, "&szlig;"},  {224, "&agrave;"},
    {225, "&aacute;"}, {226, "&acirc;"},  {227, "&atilde;"}, {228, "&auml;"},   {229, "&aring;"},
    {230, "&aelig;"},  {231, "&ccedil;"}, {232, "&egrave;"}, {233, "&eacute;"}, {234, "&ecirc;"},
    {235, "&euml;"},   {236, "&igrave;"}, {237, "&iacute"},  {238, "&icirc;"},  {239, "&iuml;"},
    {240, "&eth;"},    {241, "&ntilde;"}, {242, "&ograve;"}, {243, "&oacute;"}, {244, "&ocirc;"},
    {245, "&otilde;"}, {246, "&ouml;"},   {247, "&divide;"}, {248, "&oslash;"}, {249, "&ugrave;"},
    {250, "&uacute;"}, {251, "&ucirc;"},  {252, "&uuml;"},   {253, "&yacute;"}, {254, "&thorn;"},
    {255, "&yuml;"},
};
static_assert(std::size(kEntities) == 101);

constexpr std::size_t kAmpersand = 2;
static_assert(kEntities[kAmpersand].code == '&');

/// The places of the entities by name; of those with one name, in their order.
constexpr auto kByName = [] {
  std::array<std::uint8_t, std::size(kEntities)> places{};
  for (std::size_t i = 0; i < places.size(); ++i) places[i] = static_cast<std::uint8_t>(i);
  std::sort(places.begin(), places.end(), [](std::uint8_t a, std::uint8_t b) {
    return kEntities[a].name == kEntities[b].name ? a < b : kEntities[a].name < kEntities[b].name;
  });
  return places;
}();

/// Where a text may name an entity, what it names: `length` is 0 when it is nothing.
struct Found {
  std::size_t place = 0;
  std::size_t length = 0;  ///< without the "&"
};

/// The first entity from `first` on in the list whose name, but for its "&", `text` begins with.
/// No name is the beginning of another, so none but the last that does not follow `text` can be it.
Found entityAt(std::string_view text, std::size_t first) {
  const auto behind = std::upper_bound(kByName.begin(), kByName.end(), text,
                                       [](std::string_view wanted, std::uint8_t place) {
                                         return wanted < kEntities[place].name.substr(1);
                                       });
  Found found;
  for (auto at = behind; at != kByName.begin();) {
    const std::string_view name = kEntities[*--at].name.substr(1);
    if (!text.starts_with(name)) break;
    if (*at >= first) found = {*at, name.size()};
  }
  return found;
}

bool isLetterOrDigit(int code) {
  return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') ||
         (code >= 'a' && code <= 'z');
}

std::string percentForm(int code) {
  const std::uint8_t byte[] = {static_cast<std::uint8_t>(code)};
  return '%' + upperCase(hexDigits(byte));
}

std::size_t lengthOf(std::string_view text, const std::array<std::string, 256>& table) {
  std::size_t length = 0;
  for (const char c : text) length += table[static_cast<unsigned char>(c)].size();
  return length;
}

std::string encode(std::string_view text, const std::array<std::string, 256>& table) {
  std::string result;
  result.reserve(lengthOf(text, table));
  for (const char c : text) result += table[static_cast<unsigned char>(c)];
  return result;
}

}  // namespace

clsWEncode::clsWEncode() {
  for (int code = 0; code < 256; ++code) {
    const auto index = static_cast<std::size_t>(code);
    const std::string itself(1, static_cast<char>(code));
    url_[index] = isLetterOrDigit(code) ? itself : percentForm(code);
    html_[index] = itself;
  }
  for (const Entity& entity : kEntities) html_[static_cast<std::size_t>(entity.code)] = entity.name;
}

std::size_t clsWEncode::lengthAsHTML(std::string_view strData) const {
  return lengthOf(strData, html_);
}

std::size_t clsWEncode::lengthAsURL(std::string_view strData) const {
  return lengthOf(strData, url_);
}

std::string clsWEncode::afText2HTML(std::string_view strData) const {
  return encode(strData, html_);
}

/// One pass does what replacing one entity after another does. A name has one "&", in front, so no
/// two overlap; and of what is put in, only the "&" of "&amp;" can begin a name, which is then
/// replaced if it stands behind "&amp;" in the list.
std::string clsWEncode::afHTML2Text(std::string_view htmlData) const {
  std::string text;
  text.reserve(htmlData.size());
  for (std::size_t at = 0; at < htmlData.size();) {
    const std::string_view plain = htmlData.substr(at, htmlData.find('&', at) - at);
    text.append(plain);
    at += plain.size();
    if (at == htmlData.size()) break;
    Found found = entityAt(htmlData.substr(at + 1), 0);
    at += 1 + found.length;
    if (found.length > 0 && found.place == kAmpersand) {
      found = entityAt(htmlData.substr(at), kAmpersand + 1);
      at += found.length;
    }
    text += found.length > 0 ? static_cast<char>(kEntities[found.place].code) : '&';
  }
  return text;
}

std::string clsWEncode::afEncodeURL(std::string_view strData) const {
  return encode(strData, url_);
}

std::optional<std::string> clsWEncode::afDecodeURL(std::string_view strData) const {
  std::string result;
  result.reserve(strData.size());
  for (std::size_t i = 0; i < strData.size(); ++i) {
    const char c = strData[i];
    if (c == '+') {
      result += ' ';
    } else if (c != '%') {
      result += c;
    } else if (const auto next = strData.find('%', i + 1);
               std::min(next, strData.size()) - (i + 1) >= 2) {
      const auto character = hexByte(strData.substr(i + 1));
      if (!character) return std::nullopt;
      result += *character;
      i += 2;
    }
  }
  return result;
}

}  // namespace quorvane
