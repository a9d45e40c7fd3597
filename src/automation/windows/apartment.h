#pragma once

namespace quorvane::automation {

/// Makes the calling thread one that may have objects of the system's, as a single-threaded
/// apartment: objects are called on the thread that made them, and what others call of ours comes
/// on it too, as messages. Once made it stays one: objects of sessions may be the last to go.
void enterApartment();

}  // namespace quorvane::automation
