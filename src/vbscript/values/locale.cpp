#include "vbscript/values/locale.h"

#include <algorithm>

#include "vbscript/values/calendar.h"
#include "vbscript/values/locale_table.h"

namespace quorvane::vbs {

namespace {

struct TextContext {
  const Locale* locale = &kLocales[0];
  Host* host = nullptr;
};
constinit thread_local TextContext context;

template <class Test>
const Locale* find(Test test) {
  for (const std::span<const Locale> table : {std::span<const Locale>(kLocales), otherLocales()}) {
    const auto found = std::find_if(table.begin(), table.end(), test);
    if (found != table.end()) return &*found;
  }
  return nullptr;
}

}  // namespace

const Locale* findLocale(std::int32_t id) {
  return find([id](const Locale& locale) { return locale.id == id; });
}

const Locale* findLocale(std::string_view lowerTag) {
  return find([lowerTag](const Locale& locale) { return locale.tag == lowerTag; });
}

const Locale& activeLocale() {
  return *context.locale;
}

void setActiveLocale(const Locale& locale) {
  context.locale = &locale;
}

std::int32_t currentYear() {
  return dateParts(context.host ? context.host->now() : 0).year;
}

TextScope::TextScope(Host& host) : locale_(context.locale), host_(context.host) {
  const Locale* locale = findLocale(host.locale());
  context.locale = locale ? locale : &kLocales[0];
  context.host = &host;
}

TextScope::~TextScope() {
  context.locale = locale_;
  context.host = host_;
}

}  // namespace quorvane::vbs
