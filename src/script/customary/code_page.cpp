#include "script/customary/code_page.h"

#include <algorithm>
#include <array>

#include "platform/charset.h"

namespace quorvane::customary {

namespace {

struct Set {
  std::int32_t codePage;
  std::string_view name;
};

/// The sets that have names of their own; those of Windows are called by their numbers.
constexpr Set kSets[] = {
    {437, "IBM437"},        {850, "IBM850"},        {852, "IBM852"},        {866, "IBM866"},
    {874, "CP874"},         {932, "CP932"},         {936, "CP936"},         {949, "CP949"},
    {950, "CP950"},         {20127, "US-ASCII"},    {20866, "KOI8-R"},      {20932, "EUC-JP"},
    {21866, "KOI8-U"},      {28591, "ISO-8859-1"},  {28592, "ISO-8859-2"},  {28593, "ISO-8859-3"},
    {28594, "ISO-8859-4"},  {28595, "ISO-8859-5"},  {28596, "ISO-8859-6"},  {28597, "ISO-8859-7"},
    {28598, "ISO-8859-8"},  {28599, "ISO-8859-9"},  {28603, "ISO-8859-13"}, {28605, "ISO-8859-15"},
    {50220, "ISO-2022-JP"}, {50221, "ISO-2022-JP"}, {51932, "EUC-JP"},      {51936, "GB2312"},
    {51949, "EUC-KR"},      {54936, "GB18030"},
};

std::string nameOf(std::int32_t codePage) {
  const auto* set = std::find_if(std::begin(kSets), std::end(kSets),
                                 [&](const Set& row) { return row.codePage == codePage; });
  if (set != std::end(kSets)) return std::string(set->name);
  if (codePage >= 1250 && codePage <= 1258) return "WINDOWS-" + std::to_string(codePage);
  return {};
}

bool isAscii(std::string_view bytes) {
  return std::none_of(bytes.begin(), bytes.end(), [](char c) { return c < 0; });
}

}  // namespace

bool isCodePage(std::int32_t codePage) {
  return codePage == kUtf8 || charset::isKnown(nameOf(codePage));
}

bool isStateful(std::int32_t codePage) {
  return codePage == 50220 || codePage == 50221;
}

vbs::String decode(std::int32_t codePage, std::string_view bytes) {
  if (codePage == kAnsi || (isAscii(bytes) && !isStateful(codePage))) return vbs::String(bytes);
  if (codePage == kUtf8) return vbs::String::fromUtf8(bytes);
  return vbs::String::fromWide(charset::decode(nameOf(codePage), bytes, bytes.size()).text);
}

std::string encode(std::int32_t codePage, const vbs::String& text) {
  std::string bytes;
  append(bytes, codePage, text);
  return bytes;
}

void append(std::string& out, std::int32_t codePage, const vbs::String& text) {
  if (text.isAnsi() && (codePage == kAnsi || isAscii(text.ansi()))) {
    out += text.ansi();
  } else if (codePage == kAnsi) {
    out += text.narrow();
  } else if (codePage == kUtf8) {
    out += text.utf8();
  } else {
    out += charset::encode(nameOf(codePage), text.wide());
  }
}

}  // namespace quorvane::customary
