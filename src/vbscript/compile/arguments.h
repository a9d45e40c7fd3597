#pragma once

#include "vbscript/compile/lowering_part.h"

namespace quorvane::vbs {

/// How arguments go to a callee.
enum class Passing : std::uint8_t {
  Unknown,  ///< variables and elements by reference
  Host,     ///< variables by reference, elements by value
  Library,  ///< by reference, because it saves counting; nothing is written
  Value,
};

/// Lowers the arguments of calls: evaluates them from left to right into consecutive temporaries,
/// where the callee finds them, and decides which go by reference.
class ArgumentLowering : LoweringPart {
 public:
  explicit ArgumentLowering(Lowering& parts) : LoweringPart(parts) {}

  /// All of these return the first of the temporaries. `locks` has as many registers as there may
  /// be elements passed by reference.
  Register pushArguments(const Arguments& arguments, Passing passing,
                         const std::vector<Register>& locks = {});
  Register pushRoutineArguments(const Arguments& arguments, const Routine& callee,
                                const std::vector<Register>& locks);
  /// A function of the library gets values: a variable goes by reference where nothing changes it
  /// before it is read. LBound and UBound look at the array where it is.
  Register pushLibraryArguments(const Intrinsic& function, const Arguments& arguments);

  std::vector<Register> newLocks(const Arguments& arguments);

 private:
  void pushArgument(const ExpressionPtr& argument, Register target, Passing passing,
                    const std::vector<Register>& locks, std::size_t& nextLock);
};

}  // namespace quorvane::vbs
