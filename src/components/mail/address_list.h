#pragma once

#include <string>
#include <vector>

#include "components/mail/mail.h"

namespace quorvane::mail {

/// "Name <address>, address; ...", as people write it: commas or semicolons between two, names in
/// quotes, as encoded words ("=?utf-8?Q?...?=") or behind the address in parentheses, groups
/// ("Name: address, address;"). A comma in a name that has no quotes ("Doe, John <address>")
/// belongs to it. What is no address is left out.
std::vector<Address> addressesIn(const vbs::String& text);

/// Whether an address can stand in a dialogue with a server: it has no blanks, control characters
/// or angle brackets, and is not too long for a line.
bool isPlainAddress(const std::string& address);

/// The address as mail has it, its domain in ASCII; empty when it can't stand there.
std::string addressText(const Address& entry);

}  // namespace quorvane::mail
