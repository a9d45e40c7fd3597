#include "vbscript/values/locale_table.h"

namespace quorvane::vbs {

namespace {

constexpr std::string_view kEuro = "€";
constexpr std::string_view kPound = "£";
constexpr std::string_view kNoBreak = "\302\240";

constexpr LocaleNames kEnglish = {
    words<12>("January|February|March|April|May|June|July|August|September|October|November|"
              "December"),
    words<12>("Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec"),
    words<7>("Sunday|Monday|Tuesday|Wednesday|Thursday|Friday|Saturday"),
    words<7>("Sun|Mon|Tue|Wed|Thu|Fri|Sat"),
};
constexpr LocaleNames kGerman = {
    words<12>("Januar|Februar|März|April|Mai|Juni|Juli|August|September|Oktober|November|"
              "Dezember"),
    words<12>("Jan|Feb|Mrz|Apr|Mai|Jun|Jul|Aug|Sep|Okt|Nov|Dez"),
    words<7>("Sonntag|Montag|Dienstag|Mittwoch|Donnerstag|Freitag|Samstag"),
    words<7>("So|Mo|Di|Mi|Do|Fr|Sa"),
};
constexpr LocaleNames kAustrian = {
    words<12>("Jänner|Februar|März|April|Mai|Juni|Juli|August|September|Oktober|November|"
              "Dezember"),
    words<12>("Jän|Feb|Mär|Apr|Mai|Jun|Jul|Aug|Sep|Okt|Nov|Dez"),
    kGerman.weekdays,
    kGerman.shortWeekdays,
};
constexpr LocaleNames kFrench = {
    words<12>("janvier|février|mars|avril|mai|juin|juillet|août|septembre|octobre|novembre|"
              "décembre"),
    words<12>("janv.|févr.|mars|avr.|mai|juin|juil.|août|sept.|oct.|nov.|déc."),
    words<7>("dimanche|lundi|mardi|mercredi|jeudi|vendredi|samedi"),
    words<7>("dim.|lun.|mar.|mer.|jeu.|ven.|sam."),
};
constexpr LocaleNames kSpanish = {
    words<12>("enero|febrero|marzo|abril|mayo|junio|julio|agosto|septiembre|octubre|noviembre|"
              "diciembre"),
    words<12>("ene|feb|mar|abr|may|jun|jul|ago|sep|oct|nov|dic"),
    words<7>("domingo|lunes|martes|miércoles|jueves|viernes|sábado"),
    words<7>("dom|lun|mar|mié|jue|vie|sáb"),
};
constexpr LocaleNames kPortuguese = {
    words<12>("Janeiro|Fevereiro|Março|Abril|Maio|Junho|Julho|Agosto|Setembro|Outubro|Novembro|"
              "Dezembro"),
    words<12>("Jan|Fev|Mar|Abr|Mai|Jun|Jul|Ago|Set|Out|Nov|Dez"),
    words<7>("domingo|segunda-feira|terça-feira|quarta-feira|quinta-feira|sexta-feira|"
             "sábado"),
    words<7>("dom|seg|ter|qua|qui|sex|sáb"),
};
constexpr LocaleNames kBrazilian = {
    words<12>("janeiro|fevereiro|março|abril|maio|junho|julho|agosto|setembro|outubro|novembro|"
              "dezembro"),
    words<12>("jan|fev|mar|abr|mai|jun|jul|ago|set|out|nov|dez"),
    kPortuguese.weekdays,
    kPortuguese.shortWeekdays,
};
constexpr LocaleNames kItalian = {
    words<12>("gennaio|febbraio|marzo|aprile|maggio|giugno|luglio|agosto|settembre|ottobre|"
              "novembre|dicembre"),
    words<12>("gen|feb|mar|apr|mag|giu|lug|ago|set|ott|nov|dic"),
    words<7>("domenica|lunedì|martedì|mercoledì|giovedì|venerdì|sabato"),
    words<7>("dom|lun|mar|mer|gio|ven|sab"),
};
constexpr LocaleNames kDutch = {
    words<12>("januari|februari|maart|april|mei|juni|juli|augustus|september|oktober|november|"
              "december"),
    words<12>("jan|feb|mrt|apr|mei|jun|jul|aug|sep|okt|nov|dec"),
    words<7>("zondag|maandag|dinsdag|woensdag|donderdag|vrijdag|zaterdag"),
    words<7>("zo|ma|di|wo|do|vr|za"),
};
constexpr LocaleNames kSwedish = {
    words<12>("januari|februari|mars|april|maj|juni|juli|augusti|september|oktober|november|"
              "december"),
    words<12>("jan|feb|mar|apr|maj|jun|jul|aug|sep|okt|nov|dec"),
    words<7>("söndag|måndag|tisdag|onsdag|torsdag|fredag|lördag"),
    words<7>("sö|må|ti|on|to|fr|lö"),
};
constexpr LocaleNames kDanish = {
    words<12>("januar|februar|marts|april|maj|juni|juli|august|september|oktober|november|"
              "december"),
    words<12>("jan|feb|mar|apr|maj|jun|jul|aug|sep|okt|nov|dec"),
    words<7>("søndag|mandag|tirsdag|onsdag|torsdag|fredag|lørdag"),
    words<7>("sø|ma|ti|on|to|fr|lø"),
};
constexpr LocaleNames kNorwegian = {
    words<12>("januar|februar|mars|april|mai|juni|juli|august|september|oktober|november|"
              "desember"),
    words<12>("jan|feb|mar|apr|mai|jun|jul|aug|sep|okt|nov|des"),
    kDanish.weekdays,
    kDanish.shortWeekdays,
};
constexpr LocaleNames kFinnish = {
    words<12>("tammikuu|helmikuu|maaliskuu|huhtikuu|toukokuu|kesäkuu|heinäkuu|elokuu|"
              "syyskuu|lokakuu|marraskuu|joulukuu"),
    words<12>("tammi|helmi|maalis|huhti|touko|kesä|heinä|elo|syys|loka|marras|joulu"),
    words<7>("sunnuntai|maanantai|tiistai|keskiviikko|torstai|perjantai|lauantai"),
    words<7>("su|ma|ti|ke|to|pe|la"),
};

constexpr auto kMonthFirst = DateOrder::MonthDayYear;
constexpr auto kDayFirst = DateOrder::DayMonthYear;
constexpr auto kYearFirst = DateOrder::YearMonthDay;
constexpr std::string_view kIberianDate = "dddd, d' de 'MMMM' de 'yyyy";

using enum HourForm;

}  // namespace

constinit const Locale kLocales[kLocaleCount] = {
    // clang-format off
    {1033, "en-us", '.', ",", kMonthFirst, '/', "M/d/yyyy", "dddd, MMMM d, yyyy",
     Twelve, "$", "$n", "($n)", kEnglish, 1},
    {2057, "en-gb", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "dd MMMM yyyy",
     TwoDigits, kPound, "$n", "-$n", kEnglish, 2},
    {3081, "en-au", '.', ",", kDayFirst, '/', "d/MM/yyyy", "dddd, d MMMM yyyy",
     Twelve, "$", "$n", "-$n", kEnglish, 2},
    {4105, "en-ca", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "MMMM d, yyyy",
     Twelve, "$", "$n", "-$n", kEnglish, 1},
    {5129, "en-nz", '.', ",", kDayFirst, '/', "d/MM/yyyy", "dddd, d MMMM yyyy",
     Twelve, "$", "$n", "-$n", kEnglish, 2},
    {6153, "en-ie", '.', ",", kDayFirst, '/', "dd/MM/yyyy", "dd MMMM yyyy",
     TwoDigits, kEuro, "$n", "-$n", kEnglish, 2},
    {1031, "de-de", ',', ".", kDayFirst, '.', "dd.MM.yyyy", "dddd, d. MMMM yyyy",
     TwoDigits, kEuro, "n $", "-n $", kGerman, 2},
    {3079, "de-at", ',', ".", kDayFirst, '.', "dd.MM.yyyy", "dddd, dd. MMMM yyyy",
     TwoDigits, kEuro, "$ n", "-$ n", kAustrian, 2},
    {2055, "de-ch", '.', "'", kDayFirst, '.', "dd.MM.yyyy", "dddd, d. MMMM yyyy",
     TwoDigits, "SFr.", "$ n", "$-n", kGerman, 2},
    {1036, "fr-fr", ',', kNoBreak, kDayFirst, '/', "dd/MM/yyyy", "dddd d MMMM yyyy",
     TwoDigits, kEuro, "n $", "-n $", kFrench, 2},
    {3084, "fr-ca", ',', kNoBreak, kYearFirst, '-', "yyyy-MM-dd", "d MMMM yyyy",
     TwoDigits, "$", "n $", "(n $)", kFrench, 1},
    {3082, "es-es", ',', ".", kDayFirst, '/', "dd/MM/yyyy", kIberianDate,
     AsNeeded, kEuro, "n $", "-n $", kSpanish, 2},
    {1034, "es-es_tradnl", ',', ".", kDayFirst, '/', "dd/MM/yyyy", kIberianDate,
     AsNeeded, kEuro, "n $", "-n $", kSpanish, 2},
    {1046, "pt-br", ',', ".", kDayFirst, '/', "dd/MM/yyyy", kIberianDate,
     TwoDigits, "R$", "$ n", "-$ n", kBrazilian, 1},
    {2070, "pt-pt", ',', ".", kDayFirst, '-', "dd-MM-yyyy", kIberianDate,
     TwoDigits, kEuro, "n $", "-n $", kPortuguese, 2},
    {1040, "it-it", ',', ".", kDayFirst, '/', "dd/MM/yyyy", "dddd d MMMM yyyy",
     TwoDigits, kEuro, "$ n", "-$ n", kItalian, 2},
    {1043, "nl-nl", ',', ".", kDayFirst, '-', "d-M-yyyy", "dddd d MMMM yyyy",
     AsNeeded, kEuro, "$ n", "$ -n", kDutch, 2},
    {2067, "nl-be", ',', ".", kDayFirst, '/', "d/MM/yyyy", "dddd d MMMM yyyy",
     AsNeeded, kEuro, "$ n", "$ -n", kDutch, 2},
    {1053, "sv-se", ',', kNoBreak, kYearFirst, '-', "yyyy-MM-dd", "'den 'd MMMM yyyy",
     TwoDigits, "kr", "n $", "-n $", kSwedish, 2},
    {1030, "da-dk", ',', ".", kDayFirst, '-', "dd-MM-yyyy", "d. MMMM yyyy",
     TwoDigits, "kr", "$ n", "$ -n", kDanish, 2},
    {1044, "nb-no", ',', kNoBreak, kDayFirst, '.', "dd.MM.yyyy", "d. MMMM yyyy",
     TwoDigits, "kr", "$ n", "$ -n", kNorwegian, 2},
    {1035, "fi-fi", ',', kNoBreak, kDayFirst, '.', "d.M.yyyy", "d. MMMM'ta 'yyyy",
     AsNeeded, kEuro, "n $", "-n $", kFinnish, 2},
    // clang-format on
};

}  // namespace quorvane::vbs
