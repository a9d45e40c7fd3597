#pragma once

#include <string>

#include "platform/services.h"

namespace quorvane::qvscript {

/// What a site's pages would meet in each dialect.
struct SiteReport {
  std::string text;         ///< a line a page, causes with counts, what to do
  bool hasFailures = true;  ///< pages that run in no dialect, or components that are not there
};

/// Looks at every page below `folder`, the document root of the site, with the files that it
/// includes. Nothing runs. `services` are for reading; their state is not looked at.
SiteReport checkSite(const std::string& folder, const Services& services);

}  // namespace quorvane::qvscript
