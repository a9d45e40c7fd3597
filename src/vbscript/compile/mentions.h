#pragma once

#include <cstdint>
#include <vector>

#include "vbscript/syntax/ast.h"

namespace quorvane::vbs {

/// How a stretch of code uses names, found before any of it is compiled: decides which undeclared
/// names are variables and which parameters are only read.
class Mentions {
 public:
  enum Flag : std::uint8_t {
    kDeclared = 1,  ///< by Dim
    kConstant = 2,  ///< by Const
    kAssigned = 4,  ///< written to as a whole
    kReDimmed = 8,  ///< ReDim declares what nobody else does
    kPassed = 16,   ///< given to a call, which may write to it
    kRead = 32,
    kCalled = 64,  ///< with arguments, or as a statement
    kElementAssigned = 128,
  };
  static constexpr unsigned kWritten = kAssigned | kElementAssigned | kReDimmed;

  /// `names`: how many there are.
  explicit Mentions(std::size_t names) : flags_(names), indexedInLoop_(names) {}

  void scan(const Block& block);
  void scan(const Expression& expression);

  std::uint8_t flags(std::uint32_t name) const { return flags_[name]; }
  /// Whether a loop uses elements of the name, or calls it with arguments, which look the same.
  bool isIndexedInLoop(std::uint32_t name) const { return indexedInLoop_[name]; }
  /// Every name mentioned, once, in order of appearance.
  const std::vector<const Identifier*>& names() const { return names_; }

  /// A variable, or an element of one, given to a call.
  struct Passing {
    const Identifier* variable;
    const Identifier* callee;  ///< null: a member or value is called
    std::uint16_t position;
  };
  const std::vector<Passing>& passings() const { return passings_; }

  const std::vector<const Declarator*>& declarations() const { return declarations_; }
  const std::vector<const ConstStatement::Item*>& constants() const { return constants_; }

  /// Hidden variables that nested blocks need at most at the same time.
  std::uint16_t hiddenVariables() const { return mostHidden_; }

 private:
  static constexpr std::uint16_t kHiddenPerBlock = 3;

  void statement(const Statement& statement);
  void ifStatement(const IfStatement& statement);
  void selectStatement(const SelectStatement& statement);
  void forStatement(const ForStatement& statement);
  void reDimStatement(const ReDimStatement& statement);
  void hiddenBlock(const Block& block);
  void doStatement(const DoStatement& statement);
  void target(const Expression& expression, Flag flag);
  void call(const Expression& callee, const std::vector<ExpressionPtr>& arguments);
  void argument(const Expression& expression, const Identifier* callee, std::size_t position);
  void optional(const ExpressionPtr& expression) {
    if (expression) scan(*expression);
  }
  void mention(const Identifier& name, Flag flag);
  void index(const Identifier& name) {
    if (loops_ > 0) indexedInLoop_[name.id] = true;
  }

  std::vector<std::uint8_t> flags_;
  std::vector<bool> indexedInLoop_;  ///< by name, as the flags
  unsigned loops_ = 0;               ///< around what is looked at
  std::vector<const Identifier*> names_;
  std::vector<Passing> passings_;
  std::vector<const Declarator*> declarations_;
  std::vector<const ConstStatement::Item*> constants_;
  std::uint16_t hidden_ = 0;
  std::uint16_t mostHidden_ = 0;
};

}  // namespace quorvane::vbs
