#pragma once

/// "major.minor.revision", from the build.
inline constexpr const char* kAppVersion = QUORVANE_VERSION;
