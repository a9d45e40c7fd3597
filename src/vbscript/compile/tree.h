#pragma once

#include "vbscript/syntax/ast.h"

/// What the compiler asks of the tree's forms alone, whatever its names stand for.
namespace quorvane::vbs {

/// An expression without the parentheses around it.
const Expression& unwrapped(const Expression& expression);

/// The name at the bottom of `a`, `a(1)`, `a(1)(2)`, or null.
const Identifier* variableBelow(const Expression& expression);

/// Both are a name alone, and the same one.
bool isSameName(const Expression& a, const Expression& b);

bool hasOmitted(const std::vector<ExpressionPtr>& arguments);

}  // namespace quorvane::vbs
