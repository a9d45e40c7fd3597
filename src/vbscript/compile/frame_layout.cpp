#include "vbscript/compile/frame_layout.h"

#include <algorithm>

#include "vbscript/compile/failure.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

void FrameLayout::begin(std::uint16_t firstHidden, std::uint16_t hiddenCount) {
  VBS_ASSERT(nextTemporary_ == 0 && firstHidden + hiddenCount < kNoRegister);
  firstHidden_ = firstHidden;
  routine_.firstTemporary = static_cast<std::uint16_t>(firstHidden + hiddenCount);
  nextTemporary_ = routine_.firstTemporary;
  routine_.registerCount = nextTemporary_;
}

Register FrameLayout::newTemporary() {
  if (nextTemporary_ + 1 >= kNoRegister) failCompile(CompileErrorCode::OutOfMemory, {1, 1});
  const Register r = nextTemporary();
  ++nextTemporary_;
  routine_.registerCount = std::max(routine_.registerCount, nextTemporary_);
  return r;
}

Register FrameLayout::newHidden() {
  const Register r = hiddenAt(hiddenInUse_++);
  VBS_ASSERT(r < routine_.firstTemporary);
  return r;
}

}  // namespace quorvane::vbs
