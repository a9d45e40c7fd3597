#pragma once

#include "vbscript/compile/lowering_part.h"

namespace quorvane::vbs {

/// `first & rest & ...`
struct Concatenation {
  const Expression* first;
  std::vector<const Expression*> rest;
};
Concatenation concatenationOf(const Expression& expression);

/// Lowers concatenations: the parts of `a & b & c` become one text at once, and neighbours that are
/// constant texts one constant.
class ConcatenationLowering : LoweringPart {
 public:
  explicit ConcatenationLowering(Lowering& parts) : LoweringPart(parts) {}

  void compileConcatenation(const BinaryExpression& binary, Register target);
  void concatenateParts(std::vector<const Expression*> parts, Register target);

  /// Evaluates the parts of `a & b & c` into consecutive temporaries, in the order of the
  /// operators: a, b, the plain values of a and of b, c, its plain value. So an object's default
  /// property runs before the parts behind it are read, where that can make a difference; else it
  /// runs when the pieces are joined. `isAppend`: the others are joined first, and then added to
  /// the first.
  Register pushPieces(const std::vector<const Expression*>& parts, bool isAppend);
  void joinPieces(Register target, Register first, std::size_t count);

  /// Makes neighbours that are constant texts one literal, which `made` owns.
  void joinTexts(std::vector<const Expression*>& parts, std::vector<ExpressionPtr>& made) const;

  /// Compiles the statements of a block from `first` on that write constant texts as one: what a
  /// page has between its statements is many lines. Returns the statement behind them, or `first`
  /// where there are none to join.
  std::size_t compileConstantWrites(const Block& block, std::size_t first);

 private:
  bool isQuiet(const Expression& part);
  Register pushPiece(const Expression& part, const ExpressionFacts& later, Register piece,
                     bool isRead);
  std::optional<String> joinedText(const Expression& expression) const;
  std::optional<String> constantText(const Expression& expression) const;
  struct ConstantWrite;
  std::optional<ConstantWrite> constantWrite(const Statement& statement) const;
};

}  // namespace quorvane::vbs
