#pragma once

namespace quorvane {

/// "major.minor.revision", from the build.
inline constexpr const char* kAppVersion = QUORVANE_VERSION;

}  // namespace quorvane
