#pragma once

#include <string>
#include <vector>

#include "platform/settings_storage.h"

namespace quorvane {

/// The lines of the server's settings that don't count as they stand, a status line with the reason
/// for each: what is no setting, what stands there twice, texts that something else counts for.
std::vector<std::string> untakenSettings(const SettingsStorage& storage);

}  // namespace quorvane
