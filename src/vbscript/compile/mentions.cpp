#include "vbscript/compile/mentions.h"

#include <algorithm>

#include "vbscript/compile/tree.h"

namespace quorvane::vbs {

void Mentions::mention(const Identifier& name, Flag flag) {
  std::uint8_t& flags = flags_[name.id];
  if (flags == 0) names_.push_back(&name);
  flags |= flag;
}

void Mentions::scan(const Block& block) {
  for (const auto& item : block) statement(*item);
}

void Mentions::hiddenBlock(const Block& block) {
  hidden_ = static_cast<std::uint16_t>(hidden_ + kHiddenPerBlock);
  mostHidden_ = std::max(mostHidden_, hidden_);
  scan(block);
  hidden_ = static_cast<std::uint16_t>(hidden_ - kHiddenPerBlock);
}

void Mentions::statement(const Statement& item) {
  switch (item.kind) {
    case StatementKind::Dim:
      for (const auto& name : static_cast<const DimStatement&>(item).names) {
        mention(name.name, kDeclared);
        declarations_.push_back(&name);
      }
      return;
    case StatementKind::Const:
      for (const auto& constant : static_cast<const ConstStatement&>(item).items) {
        mention(constant.name, kConstant);
        constants_.push_back(&constant);
      }
      return;
    case StatementKind::ReDim:
      return reDimStatement(static_cast<const ReDimStatement&>(item));
    case StatementKind::Erase:
      for (const auto& erased : static_cast<const EraseStatement&>(item).targets) {
        target(*erased, kAssigned);
      }
      return;
    case StatementKind::Assign: {
      const auto& assign = static_cast<const AssignStatement&>(item);
      target(*assign.target, kAssigned);
      return scan(*assign.value);
    }
    case StatementKind::Call: {
      const auto& calling = static_cast<const CallStatement&>(item);
      return call(*calling.callee, calling.arguments);
    }
    case StatementKind::If:
      return ifStatement(static_cast<const IfStatement&>(item));
    case StatementKind::Select:
      return selectStatement(static_cast<const SelectStatement&>(item));
    case StatementKind::For:
      return forStatement(static_cast<const ForStatement&>(item));
    case StatementKind::ForEach: {
      const auto& loop = static_cast<const ForEachStatement&>(item);
      mention(loop.variable, kAssigned);
      scan(*loop.collection);
      ++loops_;
      hiddenBlock(loop.body);
      --loops_;
      return;
    }
    case StatementKind::Do:
      return doStatement(static_cast<const DoStatement&>(item));
    case StatementKind::With: {
      const auto& with = static_cast<const WithStatement&>(item);
      scan(*with.object);
      return hiddenBlock(with.body);
    }
    case StatementKind::Exit:
    case StatementKind::OnError:
    case StatementKind::Stop:
      return;
  }
}

void Mentions::ifStatement(const IfStatement& item) {
  for (const auto& branch : item.branches) {
    scan(*branch.condition);
    scan(branch.body);
  }
  scan(item.otherwise);
}

void Mentions::selectStatement(const SelectStatement& item) {
  scan(*item.subject);
  for (const auto& choice : item.cases) {
    for (const auto& value : choice.values) scan(*value);
    hiddenBlock(choice.body);
  }
  hiddenBlock(item.otherwise);
}

void Mentions::forStatement(const ForStatement& item) {
  mention(item.variable, kAssigned);
  scan(*item.from);
  scan(*item.to);
  optional(item.step);
  ++loops_;
  hiddenBlock(item.body);
  --loops_;
}

void Mentions::doStatement(const DoStatement& item) {
  ++loops_;
  optional(item.condition);
  scan(item.body);
  --loops_;
}

void Mentions::reDimStatement(const ReDimStatement& item) {
  for (const auto& resized : item.targets) {
    const bool plain = resized.variable->kind == ExpressionKind::Name;
    target(*resized.variable, plain ? kReDimmed : kAssigned);
    for (const auto& bound : resized.bounds) scan(*bound);
  }
}

void Mentions::target(const Expression& expression, Flag flag) {
  if (expression.kind == ExpressionKind::Name) {
    return mention(static_cast<const NameExpression&>(expression).name, flag);
  }
  if (expression.kind != ExpressionKind::Call) return scan(expression);
  const auto& element = static_cast<const CallExpression&>(expression);
  if (element.callee->kind == ExpressionKind::Name) {
    index(static_cast<const NameExpression&>(*element.callee).name);
  }
  target(*element.callee, flag == kAssigned ? kElementAssigned : flag);
  for (const auto& index : element.arguments) optional(index);
}

void Mentions::call(const Expression& callee, const std::vector<ExpressionPtr>& arguments) {
  const Identifier* name = nullptr;
  if (callee.kind == ExpressionKind::Name) {
    name = &static_cast<const NameExpression&>(callee).name;
    mention(*name, kCalled);
    if (!arguments.empty()) index(*name);
  } else {
    scan(callee);
  }
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i]) argument(*arguments[i], name, i);
  }
}

void Mentions::argument(const Expression& expression, const Identifier* callee,
                        std::size_t position) {
  if (const Identifier* variable = variableBelow(expression)) {
    passings_.push_back({variable, callee, static_cast<std::uint16_t>(position)});
    if (expression.kind == ExpressionKind::Name) return mention(*variable, kPassed);
  }
  scan(expression);
}

void Mentions::scan(const Expression& expression) {
  switch (expression.kind) {
    case ExpressionKind::Literal:
    case ExpressionKind::New:
    case ExpressionKind::Me:
      return;
    case ExpressionKind::Name:
      return mention(static_cast<const NameExpression&>(expression).name, kRead);
    case ExpressionKind::Member:
      return optional(static_cast<const MemberExpression&>(expression).object);
    case ExpressionKind::Call: {
      const auto& calling = static_cast<const CallExpression&>(expression);
      return call(*calling.callee, calling.arguments);
    }
    case ExpressionKind::Unary:
      return scan(*static_cast<const UnaryExpression&>(expression).operand);
    case ExpressionKind::Binary: {
      const auto& binary = static_cast<const BinaryExpression&>(expression);
      scan(*binary.left);
      return scan(*binary.right);
    }
    case ExpressionKind::Parenthesized:
      return scan(*static_cast<const ParenthesizedExpression&>(expression).inner);
  }
}

}  // namespace quorvane::vbs
