#include "vbscript/values/text_locale.h"

#include <algorithm>

#include "vbscript/values/locale_table.h"
#include "vbscript/values/run_context.h"
#include "vbscript/values/serial_date.h"

namespace quorvane::vbs {

namespace {

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
  return runContext.text.locale ? *runContext.text.locale : kLocales[0];
}

void setActiveLocale(const Locale& locale) {
  runContext.text.locale = &locale;
}

std::int32_t currentYear() {
  return dateParts(runContext.text.host ? runContext.text.host->now() : 0).year;
}

TextScope::TextScope(Host& host) : before_(runContext.text) {
  runContext.text = {findLocale(host.locale()), &host};
}

TextScope::~TextScope() {
  runContext.text = before_;
}

}  // namespace quorvane::vbs
