#include "script/customary/name_values.h"

#include <utility>

#include "script/customary/code_page.h"
#include "support/text.h"
#include "vbscript/values/time_check.h"

namespace quorvane::customary {

namespace {

/// The number that exactly `digits` hexadecimal digits from `at` on make.
std::optional<unsigned> hexadecimal(std::string_view text, std::size_t at, std::size_t digits) {
  if (at + digits > text.size()) return std::nullopt;
  return wholeNumber<unsigned>(text.substr(at, digits), 16);
}

}  // namespace

vbs::String decodeUrl(std::string_view text, std::int32_t codePage) {
  if (text.find_first_of("%+") == text.npos) return decode(codePage, text);
  vbs::String result;
  std::string bytes;
  const auto endBytes = [&] {
    if (!bytes.empty()) result.append(decode(codePage, bytes));
    bytes.clear();
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '+') {
      bytes += ' ';
    } else if (text[i] != '%') {
      bytes += text[i];
    } else if (const auto byte = hexadecimal(text, i + 1, 2)) {
      bytes += static_cast<char>(*byte);
      i += 2;
    } else if (const auto unit = hexadecimal(text, i + 2, 4);
               unit && (text[i + 1] == 'u' || text[i + 1] == 'U')) {
      endBytes();
      result.appendUnit(static_cast<char16_t>(*unit));
      i += 5;
    } else {
      bytes += '%';
    }
  }
  endBytes();
  return result;
}

NameValues NameValues::decoded(std::string_view text, char separator, std::int32_t codePage) {
  vbs::countWork(text.size());
  NameValues all;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view pair = trimBlanks(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    const std::size_t equals = std::min(pair.find('='), pair.size());
    if (pair.empty() || equals == 0) continue;
    const std::string_view value = pair.substr(std::min(equals + 1, pair.size()));
    all.add(decodeUrl(pair.substr(0, equals), codePage).narrow(), decodeUrl(value, codePage));
  }
  return all;
}

void NameValues::add(std::string name, vbs::String value) {
  charge_.change(charge_.bytes() + sizeof(vbs::String) +
                 2 * KeyedCollection<Values>::bytesFor(name));
  if (Values* known = names_.find(name)) return known->push_back(std::move(value));
  order_.push_back(name);
  Values values;
  values.push_back(std::move(value));
  names_.add(std::move(name), std::move(values));
}

}  // namespace quorvane::customary
