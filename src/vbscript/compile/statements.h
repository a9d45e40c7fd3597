#pragma once

#include "vbscript/compile/lowering_part.h"

namespace quorvane::vbs {

/// Lowers blocks and statements, each of which leaves all temporaries free.
class StatementLowering : LoweringPart {
 public:
  explicit StatementLowering(Lowering& parts) : LoweringPart(parts) {}

  void compileBlock(const Block& block);

 private:
  void compileStatement(const Statement& statement);
  void compileIf(const IfStatement& statement);
  void compileSelect(const SelectStatement& statement);
  void compileReDim(const ReDimStatement& statement);
  void compileErase(const EraseStatement& statement);
};

}  // namespace quorvane::vbs
