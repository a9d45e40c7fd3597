#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane {

/// Windows-style locale identifiers: languages and their regional kinds by number.

inline constexpr std::int32_t kEnglishLCID = 1033;     ///< United States
inline constexpr std::int32_t kPortugueseLCID = 2070;  ///< Portugal
inline constexpr std::int32_t kBrazilianPortugueseLCID = 1046;

/// The identifier for a locale in the form "language_TERRITORY.charset@modifier", of which all but
/// the language may be missing; "-" does for "_", and letter case doesn't matter. A territory that
/// has no number of its own takes the language's most common one. English for "C", "POSIX", an
/// empty name and languages not in the table.
std::int32_t localeIdOf(std::string_view localeName);

}  // namespace quorvane
