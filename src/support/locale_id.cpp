#include "support/locale_id.h"

#include <array>
#include <string>

#include "support/text.h"

namespace quorvane {

namespace {

struct Locale {
  std::string_view name;
  std::int32_t id;
};

/// A language's most common territory comes first, so that it stands for the language alone.
constexpr std::array kLocales{
    Locale{"af_za", 1078}, Locale{"ar_sa", 1025}, Locale{"ar_eg", 3073},  Locale{"ar_ae", 14337},
    Locale{"ar_ma", 6145}, Locale{"be_by", 1059}, Locale{"bg_bg", 1026},  Locale{"ca_es", 1027},
    Locale{"cs_cz", 1029}, Locale{"cy_gb", 1106}, Locale{"da_dk", 1030},  Locale{"de_de", 1031},
    Locale{"de_at", 3079}, Locale{"de_ch", 2055}, Locale{"de_li", 5127},  Locale{"de_lu", 4103},
    Locale{"el_gr", 1032}, Locale{"en_us", 1033}, Locale{"en_gb", 2057},  Locale{"en_au", 3081},
    Locale{"en_ca", 4105}, Locale{"en_ie", 6153}, Locale{"en_in", 16393}, Locale{"en_nz", 5129},
    Locale{"en_za", 7177}, Locale{"es_es", 3082}, Locale{"es_ar", 11274}, Locale{"es_cl", 13322},
    Locale{"es_co", 9226}, Locale{"es_mx", 2058}, Locale{"es_pe", 10250}, Locale{"es_ve", 8202},
    Locale{"et_ee", 1061}, Locale{"eu_es", 1069}, Locale{"fa_ir", 1065},  Locale{"fi_fi", 1035},
    Locale{"fr_fr", 1036}, Locale{"fr_be", 2060}, Locale{"fr_ca", 3084},  Locale{"fr_ch", 4108},
    Locale{"fr_lu", 5132}, Locale{"ga_ie", 2108}, Locale{"gl_es", 1110},  Locale{"he_il", 1037},
    Locale{"hi_in", 1081}, Locale{"hr_hr", 1050}, Locale{"hu_hu", 1038},  Locale{"id_id", 1057},
    Locale{"is_is", 1039}, Locale{"it_it", 1040}, Locale{"it_ch", 2064},  Locale{"ja_jp", 1041},
    Locale{"ko_kr", 1042}, Locale{"lt_lt", 1063}, Locale{"lv_lv", 1062},  Locale{"mk_mk", 1071},
    Locale{"ms_my", 1086}, Locale{"mt_mt", 1082}, Locale{"nb_no", 1044},  Locale{"nl_nl", 1043},
    Locale{"nl_be", 2067}, Locale{"nn_no", 2068}, Locale{"no_no", 1044},  Locale{"pl_pl", 1045},
    Locale{"pt_pt", 2070}, Locale{"pt_br", 1046}, Locale{"ro_ro", 1048},  Locale{"ru_ru", 1049},
    Locale{"sk_sk", 1051}, Locale{"sl_si", 1060}, Locale{"sq_al", 1052},  Locale{"sr_rs", 10266},
    Locale{"sv_se", 1053}, Locale{"sv_fi", 2077}, Locale{"sw_ke", 1089},  Locale{"th_th", 1054},
    Locale{"tr_tr", 1055}, Locale{"uk_ua", 1058}, Locale{"ur_pk", 1056},  Locale{"vi_vn", 1066},
    Locale{"zh_cn", 2052}, Locale{"zh_hk", 3076}, Locale{"zh_sg", 4100},  Locale{"zh_tw", 1028},
};

std::string_view languageOf(std::string_view name) {
  return name.substr(0, name.find('_'));
}

}  // namespace

std::int32_t localeIdOf(std::string_view localeName) {
  const std::string name =
      replaceAll(lowerCase(localeName.substr(0, localeName.find_first_of(".@"))), "-", "_");
  const Locale* sameLanguage = nullptr;
  for (const Locale& locale : kLocales) {
    if (locale.name == name) return locale.id;
    const bool matches = languageOf(locale.name) == languageOf(name);
    if (matches && sameLanguage == nullptr) sameLanguage = &locale;
  }
  return sameLanguage != nullptr ? sameLanguage->id : kEnglishLCID;
}

}  // namespace quorvane
