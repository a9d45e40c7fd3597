#pragma once

#include "vbscript/compile/binding.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

/// Lays out the registers of one routine behind its variables: owns which hidden variables of
/// blocks and which temporaries are in use, and how many registers the routine needs. Both kinds
/// are taken and given back like a stack.
class FrameLayout {
 public:
  explicit FrameLayout(Routine& routine) : routine_(routine) {}

  /// Once the variables are known: hidden variables lie from `firstHidden` on, `hiddenCount` at
  /// most at a time, and temporaries behind them.
  void begin(std::uint16_t firstHidden, std::uint16_t hiddenCount);

  /// Fails to compile when there are no more.
  Register newTemporary();
  /// What newTemporary() gives next.
  Register nextTemporary() const { return static_cast<Register>(nextTemporary_); }
  bool isClear() const { return nextTemporary_ == routine_.firstTemporary; }

  Register newHidden();
  std::uint16_t hiddenInUse() const { return hiddenInUse_; }
  Register hiddenAt(std::uint16_t index) const {
    return static_cast<Register>(firstHidden_ + index);
  }

  /// Gives the temporaries taken meanwhile back when it ends.
  class Temporaries {
   public:
    explicit Temporaries(FrameLayout& frame) : frame_(frame), mark_(frame.nextTemporary_) {}
    ~Temporaries() {
      VBS_ASSERT(frame_.nextTemporary_ >= mark_);
      frame_.nextTemporary_ = mark_;
    }
    Temporaries(const Temporaries&) = delete;
    Temporaries& operator=(const Temporaries&) = delete;

   private:
    FrameLayout& frame_;
    const std::uint32_t mark_;
  };

  /// The same for the hidden variables of a block.
  class HiddenVariables {
   public:
    explicit HiddenVariables(FrameLayout& frame) : frame_(frame), outside_(frame.hiddenInUse_) {}
    ~HiddenVariables() {
      VBS_ASSERT(frame_.hiddenInUse_ >= outside_);
      frame_.hiddenInUse_ = outside_;
    }
    HiddenVariables(const HiddenVariables&) = delete;
    HiddenVariables& operator=(const HiddenVariables&) = delete;
    /// How many are in use outside the block.
    std::uint16_t outside() const { return outside_; }

   private:
    FrameLayout& frame_;
    const std::uint16_t outside_;
  };

 private:
  Routine& routine_;
  std::uint16_t firstHidden_ = 0;
  std::uint16_t hiddenInUse_ = 0;
  std::uint32_t nextTemporary_ = 0;
};

}  // namespace quorvane::vbs
