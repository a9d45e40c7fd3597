#pragma once

#include "components/component.h"

namespace quorvane {

/// XML documents. The names without a version and the older versions select nodes by the older
/// pattern language, the newer ones by XPath and without document type declarations.
extern const Component kXmlDocument;
extern const Component kXmlDocument4;
extern const Component kXmlDocument6;

/// Style sheets that are prepared once and used often.
extern const Component kXslTemplate;

}  // namespace quorvane
