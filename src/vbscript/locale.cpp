#include "vbscript/locale.h"

#include "vbscript/calendar.h"

namespace vbs {

namespace {

constexpr std::array<std::string_view, 12> kEnglishMonths = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};
constexpr std::array<std::string_view, 12> kEnglishShortMonths = {
    "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<std::string_view, 7> kEnglishDays = {
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 7> kEnglishShortDays = {"Sun", "Mon", "Tue", "Wed",
                                                               "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 12> kGermanMonths = {
    "Januar", "Februar", "M\xE4rz",   "April",   "Mai",      "Juni",
    "Juli",   "August",  "September", "Oktober", "November", "Dezember"};
constexpr std::array<std::string_view, 12> kGermanShortMonths = {
    "Jan", "Feb", "Mrz", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};
constexpr std::array<std::string_view, 7> kGermanDays = {
    "Sonntag", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag"};
constexpr std::array<std::string_view, 7> kGermanShortDays = {"So", "Mo", "Di", "Mi",
                                                              "Do", "Fr", "Sa"};
constexpr std::array<std::string_view, 12> kFrenchMonths = {"janvier",
                                                            "f\xE9vrier",
                                                            "mars",
                                                            "avril",
                                                            "mai",
                                                            "juin",
                                                            "juillet",
                                                            "ao\xFBt",
                                                            "septembre",
                                                            "octobre",
                                                            "novembre",
                                                            "d\xE9"
                                                            "cembre"};
constexpr std::array<std::string_view, 12> kFrenchShortMonths = {"janv.",
                                                                 "f\xE9vr.",
                                                                 "mars",
                                                                 "avr.",
                                                                 "mai",
                                                                 "juin",
                                                                 "juil.",
                                                                 "ao\xFBt",
                                                                 "sept.",
                                                                 "oct.",
                                                                 "nov.",
                                                                 "d\xE9"
                                                                 "c."};
constexpr std::array<std::string_view, 7> kFrenchDays = {
    "dimanche", "lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi"};
constexpr std::array<std::string_view, 7> kFrenchShortDays = {"dim.", "lun.", "mar.", "mer.",
                                                              "jeu.", "ven.", "sam."};
constexpr std::array<std::string_view, 12> kSpanishMonths = {
    "enero", "febrero", "marzo",      "abril",   "mayo",      "junio",
    "julio", "agosto",  "septiembre", "octubre", "noviembre", "diciembre"};
constexpr std::array<std::string_view, 12> kSpanishShortMonths = {
    "ene", "feb", "mar", "abr", "may", "jun", "jul", "ago", "sep", "oct", "nov", "dic"};
constexpr std::array<std::string_view, 7> kSpanishDays = {"domingo",
                                                          "lunes",
                                                          "martes",
                                                          "mi\xE9rcoles",
                                                          "jueves",
                                                          "viernes",
                                                          "s\xE1"
                                                          "bado"};
constexpr std::array<std::string_view, 7> kSpanishShortDays = {"dom",
                                                               "lun",
                                                               "mar",
                                                               "mi\xE9",
                                                               "jue",
                                                               "vie",
                                                               "s\xE1"
                                                               "b"};

constexpr Locale kLocales[] = {
    {1033, "en-us", '.', ',', DateOrder::MonthDayYear, '/', "M/d/yyyy", "dddd, MMMM d, yyyy", true,
     false, "$", "$n", "($n)", kEnglishMonths, kEnglishShortMonths, kEnglishDays, kEnglishShortDays,
     1},
    {2057, "en-gb", '.', ',', DateOrder::DayMonthYear, '/', "dd/MM/yyyy", "dd MMMM yyyy", false,
     true, "\xA3", "$n", "-$n", kEnglishMonths, kEnglishShortMonths, kEnglishDays,
     kEnglishShortDays, 2},
    {1031, "de-de", ',', '.', DateOrder::DayMonthYear, '.', "dd.MM.yyyy", "dddd, d. MMMM yyyy",
     false, true, "\x80", "n $", "-n $", kGermanMonths, kGermanShortMonths, kGermanDays,
     kGermanShortDays, 2},
    {1036, "fr-fr", ',', '\xA0', DateOrder::DayMonthYear, '/', "dd/MM/yyyy", "dddd d MMMM yyyy",
     false, true, "\x80", "n $", "-n $", kFrenchMonths, kFrenchShortMonths, kFrenchDays,
     kFrenchShortDays, 2},
    {3082, "es-es", ',', '.', DateOrder::DayMonthYear, '/', "dd/MM/yyyy",
     "dddd, d' de 'MMMM' de 'yyyy", false, false, "\x80", "n $", "-n $", kSpanishMonths,
     kSpanishShortMonths, kSpanishDays, kSpanishShortDays, 2},
};

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
  context.locale = &kLocales[0];
  context.host = &host;
}

TextScope::~TextScope() {
  context.locale = locale_;
  context.host = host_;
}

}  // namespace vbs
