#include "vbscript/values/locale.h"

#include "vbscript/values/calendar.h"
#include "vbscript/values/locale_table.h"

namespace quorvane::vbs {

namespace {

struct TextContext {
  const Locale* locale = &kLocales[0];
  Host* host = nullptr;
};
constinit thread_local TextContext context;

}  // namespace

const Locale* findLocale(std::int32_t id) {
  for (const Locale& locale : kLocales) {
    if (locale.id == id) return &locale;
  }
  return nullptr;
}

const Locale* findLocale(std::string_view lowerTag) {
  for (const Locale& locale : kLocales) {
    if (locale.tag == lowerTag) return &locale;
  }
  return nullptr;
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
