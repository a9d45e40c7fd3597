#pragma once

#include <cstdint>

/// The error number with which a page ends itself early; the runner takes it for a normal end.
inline constexpr std::int32_t kEndOfPage = 6006;

[[noreturn]] void endPage();
