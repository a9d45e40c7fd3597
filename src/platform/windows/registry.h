#pragma once

#include <memory>

#include "platform/settings_storage.h"

namespace quorvane {

/// The system's own registry. Texts are those of the system's code page.
std::unique_ptr<SettingsStorage> makeRegistry();

}  // namespace quorvane
