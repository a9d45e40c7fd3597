#pragma once

#include "components/component.h"

namespace quorvane {

/// Requests to other servers, by their three families of names.
extern const Component kXmlHttp;
extern const Component kXmlHttp6;
extern const Component kServerXmlHttp;
extern const Component kServerXmlHttp6;
extern const Component kWinHttpRequest;

}  // namespace quorvane
