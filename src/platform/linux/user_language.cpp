#include "platform/user_language.h"

#include <cstdlib>

namespace quorvane {

std::string userLanguageName() {
  // In this order the first that is not empty decides, even where it names no known language.
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

}  // namespace quorvane
