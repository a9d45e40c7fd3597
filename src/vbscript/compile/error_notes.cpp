#include "vbscript/compile/error_notes.h"

#include "vbscript/compile/script_compiler.h"
#include "vbscript/values/assert.h"

namespace quorvane::vbs {

namespace {

/// How error texts show an expression: `a.b(...).c`; nothing when it does not begin with a name.
std::string shownText(const Expression& expression) {
  switch (expression.kind) {
    case ExpressionKind::Name:
      return std::string(static_cast<const NameExpression&>(expression).name.text);
    case ExpressionKind::Me:
      return "Me";
    case ExpressionKind::Member: {
      const auto& member = static_cast<const MemberExpression&>(expression);
      std::string text = member.object ? shownText(*member.object) : std::string();
      if (!text.empty()) text += '.';
      return text.append(member.name.text);
    }
    case ExpressionKind::Call: {
      std::string text = shownText(*static_cast<const CallExpression&>(expression).callee);
      return text.empty() ? text : text + "(...)";
    }
    default:
      return {};
  }
}

}  // namespace

// ---- Statements ----

void ErrorNotes::beginStatement(SourcePosition position) {
  auto& statements = routine_.statements;
  const std::uint32_t at = this->position();
  VBS_ASSERT(statements.empty() || statements.back().start <= at);
  if (!statements.empty() && statements.back().start == at && statements.back().resume == 0) {
    statements.back().position = position;
    return;
  }
  statements.push_back({at, 0, position});
}

void ErrorNotes::resumeAt(std::size_t statement, std::uint32_t position) {
  VBS_ASSERT(statement < routine_.statements.size());
  StatementEntry& entry = routine_.statements[statement];
  entry.resume = position == entry.start ? 0 : position;
}

void ErrorNotes::finish() {
  auto& statements = routine_.statements;
  for (std::size_t i = 0; i < statements.size(); ++i) {
    StatementEntry& entry = statements[i];
    if (entry.resume == 0) {
      entry.resume = i + 1 < statements.size() ? statements[i + 1].start : position() - 1;
    }
    VBS_ASSERT(entry.start < position() && entry.resume < position());
  }
}

// ---- Names ----

void ErrorNotes::noteOperand(const Expression& expression) {
  VBS_ASSERT(routine_.operandNames.empty() || routine_.operandNames.back().start <= position());
  if (expression.kind == ExpressionKind::Name) {
    const Identifier& name = static_cast<const NameExpression&>(expression).name;
    routine_.operandNames.push_back({position(), script_.nameIndex(name)});
    return;
  }
  constexpr std::size_t kLongestShown = 255;
  std::string text = shownText(expression);
  if (text.empty() || text.size() > kLongestShown) return;
  routine_.operandNames.push_back({position(), script_.nameIndex(std::move(text))});
}

void ErrorNotes::noteElement(const Expression& array, const std::vector<ExpressionPtr>& indexes) {
  noteOperand(array);
  const Binding* index = indexes.size() == 1 && indexes[0] ? scope_.bindName(*indexes[0]) : nullptr;
  if (!index || !index->isVariable()) return;
  auto& names = routine_.operandNames;
  if (names.empty() || names.back().start != position()) names.push_back({position()});
  names.back().index = script_.nameIndex(static_cast<const NameExpression&>(*indexes[0]).name);
}

}  // namespace quorvane::vbs
