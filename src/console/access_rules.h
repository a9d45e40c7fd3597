#pragma once

#include <string_view>

#include "support/server_state.h"

namespace quorvane {

/// Who may connect. Addresses are texts, and those of IPv4 are tested as texts, by their
/// beginnings. Clients that come by a file of this machine are on it.

/// The machine itself and the ranges set aside for private networks.
bool isPrivateAddress(std::string_view address);

/// The rules of the settings; the one for this machine only goes before the one for private
/// networks.
bool mayConnect(const ServerState& state, std::string_view address);

}  // namespace quorvane
