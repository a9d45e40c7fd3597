#pragma once

#include <string>

namespace quorvane {

/// The user's choice of language for messages as the system names it, in the form
/// "language_TERRITORY.charset@modifier" or parts of it; empty when nothing is chosen.
std::string userLanguageName();

}  // namespace quorvane
