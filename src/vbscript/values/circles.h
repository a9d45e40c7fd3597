#pragma once

#include "vbscript/values/object.h"

/// Objects are counted, so those that hold one another in a circle never go on their own. An engine
/// looks for such circles when it ends.
namespace quorvane::vbs {

/// Ends the circles among the objects of this thread that were made after `since` (null: among
/// all). An object stays when anything but such objects and the arrays they hold refers to it, or
/// to one that leads to it. The others give up what they hold, the newest first.
void endCircles(const Object* since);

}  // namespace quorvane::vbs
