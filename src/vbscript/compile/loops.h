#pragma once

#include "vbscript/compile/lowering_part.h"

namespace quorvane::vbs {

/// Lowers loops and what leaves them: owns which loops the code stands in, and what each must give
/// up when it is left.
class LoopLowering : LoweringPart {
 public:
  explicit LoopLowering(Lowering& parts) : LoweringPart(parts) {}

  void compileFor(const ForStatement& statement);
  void compileForEach(const ForEachStatement& statement);
  void compileDo(const DoStatement& statement);
  void compileExit(const ExitStatement& statement);

 private:
  struct Loop {
    ExitKind kind;
    Label* exit;
    std::uint16_t hiddenOutside;  ///< in use when its body begins
  };

  Register loopVariable(const Identifier& name);
  void compileBody(const Block& body, ExitKind kind, Label& exit);
  void pushBounds(const ForStatement& statement, Register from, Register limit, Register step);

  std::vector<Loop> loops_;  ///< the innermost last
};

}  // namespace quorvane::vbs
