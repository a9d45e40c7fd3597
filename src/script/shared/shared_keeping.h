#pragma once

#include <memory>

#include "platform/redis.h"
#include "platform/services.h"
#include "script/run/keeping.h"

namespace quorvane {

/// What outlasts pages stands in a Redis server, for all instances that use the same one. The
/// services outlive it.
std::unique_ptr<Keeping> makeSharedKeeping(const Services& services, std::unique_ptr<Redis> redis);

}  // namespace quorvane
