#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "support/server_state.h"
#include "vbscript/values/value.h"

namespace quorvane {

struct Services;

/// The object that CreateObject makes for a program identifier, in any letter case: the system's or
/// one of this program, as ServerState::Components says. A version at its end
/// ("ADODB.Connection.2.8") is passed over unless it has an object of its own. Error 429 for one
/// that is not known. `services` outlive what is made.
vbs::Value createComponent(std::string_view progId, const Services& services);

/// The one of this program, whatever the system has by that name and the settings say.
vbs::Value createOwnComponent(std::string_view progId, const Services& services);

/// GetObject: what the system has by these names, where the settings let scripts have that. Throws
/// ScriptError.
vbs::Value getSystemObject(std::string_view pathName, std::string_view progId,
                           const Services& services);

/// Whether there is such an object, of this program or of the system.
bool isComponent(std::string_view progId);

/// This program's, in lower case.
std::vector<std::string_view> componentNames();

/// What the setting's text says; nothing for one that it can't have.
std::optional<ComponentSource> componentSourceOf(std::string_view text);

}  // namespace quorvane
