#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane {

/// Texts of a name or an address with a port behind it, as they stand in heads: "example.org:8080",
/// "[::1]:7007".
namespace host_text {

/// What stands in front of the port; an address of IPv6 with its brackets.
std::string_view name(std::string_view host);

/// The number behind; 0 without one.
std::uint16_t port(std::string_view host);

/// Whether it is made of nothing but what names, addresses and ports are made of.
bool isPlain(std::string_view host);

}  // namespace host_text

}  // namespace quorvane
