#pragma once

#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_process.h"
#include "platform/fake/fake_random.h"
#include "platform/fake/memory_files.h"
#include "platform/services.h"
#include "support/server_state.h"
#include "testing/recorded_lines.h"

namespace quorvane {

/// A server's services that a test holds in its hands. Scripts that run on them get nothing of the
/// system's own.
template <class AnyRandom = CountingRandom>
struct FakeServices {
  FakeServices() { state.Components = ComponentSource::Own; }

  ServerState state;
  RecordedLines log;
  FakeClock clock;
  MemoryFiles files;
  AnyRandom random;
  FakeProcess process;
  Services services{state, log, clock, files, random, process};
};

}  // namespace quorvane
