#include "vbscript/compile/bytecode.h"

#include <algorithm>

namespace quorvane::vbs {

const StatementEntry* Routine::statementAt(std::uint32_t offset) const {
  const auto after = std::upper_bound(
      statements.begin(), statements.end(), offset,
      [](std::uint32_t at, const StatementEntry& entry) { return at < entry.start; });
  return after == statements.begin() ? nullptr : &*(after - 1);
}

OperandName Routine::operandNameAt(std::uint32_t offset) const {
  const auto found =
      std::lower_bound(operandNames.begin(), operandNames.end(), offset,
                       [](const OperandName& entry, std::uint32_t at) { return entry.start < at; });
  const bool isKnown = found != operandNames.end() && found->start == offset;
  return isKnown ? *found : OperandName{offset};
}

}  // namespace quorvane::vbs
