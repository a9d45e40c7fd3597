#include "platform/user_language.h"

#include <windows.h>

#include <array>

#include "platform/windows/wide_text.h"

namespace quorvane {

/// As the system names it but for the sign between its parts: "de-AT" is "de_AT".
std::string userLanguageName() {
  std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> name{};
  const LCID locale = MAKELCID(::GetUserDefaultLangID(), SORT_DEFAULT);
  const int length = ::LCIDToLocaleName(locale, name.data(), static_cast<int>(name.size()), 0);
  if (length <= 1) return {};
  std::string text = utf8Of({name.data(), static_cast<std::size_t>(length - 1)});
  for (char& c : text) {
    if (c == '-') c = '_';
  }
  return text;
}

}  // namespace quorvane
