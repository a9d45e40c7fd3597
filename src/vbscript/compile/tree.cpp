#include "vbscript/compile/tree.h"

#include <algorithm>

namespace quorvane::vbs {

const Expression& unwrapped(const Expression& expression) {
  const Expression* at = &expression;
  while (at->kind == ExpressionKind::Parenthesized) {
    at = static_cast<const ParenthesizedExpression*>(at)->inner.get();
  }
  return *at;
}

const Identifier* variableBelow(const Expression& expression) {
  const Expression* at = &expression;
  while (at->kind == ExpressionKind::Call) {
    at = static_cast<const CallExpression*>(at)->callee.get();
  }
  if (at->kind != ExpressionKind::Name) return nullptr;
  return &static_cast<const NameExpression*>(at)->name;
}

bool isSameName(const Expression& a, const Expression& b) {
  return a.kind == ExpressionKind::Name && b.kind == ExpressionKind::Name &&
         static_cast<const NameExpression&>(a).name.id ==
             static_cast<const NameExpression&>(b).name.id;
}

bool hasOmitted(const std::vector<ExpressionPtr>& arguments) {
  return std::any_of(arguments.begin(), arguments.end(),
                     [](const ExpressionPtr& argument) { return !argument; });
}

}  // namespace quorvane::vbs
