#pragma once

#include <cstdio>
#include <cstdlib>

/// `VBS_ASSERT(condition);` states what must hold where it stands, whatever a script does: a
/// mistake of the engine's own ends the process there, and not where its harm shows. Only builds
/// for tests look (those without NDEBUG, as the sanitized one); in a release the condition is
/// compiled and never evaluated. What scripts and hosts may get wrong is an error, not an
/// assertion.
#ifdef NDEBUG
#define VBS_ASSERT(...) static_cast<void>(sizeof((__VA_ARGS__) ? 1 : 0))
#else
#define VBS_ASSERT(...) \
  static_cast<void>(    \
      (__VA_ARGS__) ? 0 : (::quorvane::vbs::assertionFailed(#__VA_ARGS__, __FILE__, __LINE__), 0))
#endif

namespace quorvane::vbs {

[[noreturn]] inline void assertionFailed(const char* condition, const char* file, int line) {
  std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, condition);
  std::abort();
}

}  // namespace quorvane::vbs
