#include "vbscript/syntax/parser_impl.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/text_locale.h"

namespace quorvane::vbs {

namespace {

// How tightly operators bind.
enum Binding : int {
  kNoOperator = 0,
  kImp,
  kEqv,
  kXor,
  kOr,
  kAnd,
  kNot,
  kComparison,
  kConcatenation,
  kSum,
  kModulo,
  kIntegerDivision,
  kProduct,
  kPower,
  kSign,
};

struct BinaryRow {
  int binding;
  BinaryOperator operation;
};

/// Puts the default locale in force while it lives.
class LocaleGuard {
 public:
  LocaleGuard() : before_(activeLocale()) { setActiveLocale(*findLocale(kDefaultLocale)); }
  ~LocaleGuard() { setActiveLocale(before_); }
  LocaleGuard(const LocaleGuard&) = delete;
  LocaleGuard& operator=(const LocaleGuard&) = delete;

 private:
  const Locale& before_;
};

constexpr BinaryRow kNone{kNoOperator, BinaryOperator::Add};

BinaryRow wordOperator(Keyword keyword) {
  switch (keyword) {
    case Keyword::And:
      return {kAnd, BinaryOperator::And};
    case Keyword::Or:
      return {kOr, BinaryOperator::Or};
    case Keyword::Xor:
      return {kXor, BinaryOperator::Xor};
    case Keyword::Eqv:
      return {kEqv, BinaryOperator::Eqv};
    case Keyword::Imp:
      return {kImp, BinaryOperator::Imp};
    case Keyword::Is:
      return {kComparison, BinaryOperator::Is};
    case Keyword::Mod:
      return {kModulo, BinaryOperator::Modulo};
    default:
      return kNone;
  }
}

BinaryRow binaryOperator(const Token& token) {
  switch (token.kind) {
    case TokenKind::Word:
      return wordOperator(token.keyword);
    case TokenKind::Plus:
      return {kSum, BinaryOperator::Add};
    case TokenKind::Minus:
      return {kSum, BinaryOperator::Subtract};
    case TokenKind::Star:
      return {kProduct, BinaryOperator::Multiply};
    case TokenKind::Slash:
      return {kProduct, BinaryOperator::Divide};
    case TokenKind::Backslash:
      return {kIntegerDivision, BinaryOperator::IntegerDivide};
    case TokenKind::Caret:
      return {kPower, BinaryOperator::Power};
    case TokenKind::Ampersand:
      return {kConcatenation, BinaryOperator::Concatenate};
    case TokenKind::Equal:
      return {kComparison, BinaryOperator::Equal};
    case TokenKind::NotEqual:
      return {kComparison, BinaryOperator::NotEqual};
    case TokenKind::Less:
      return {kComparison, BinaryOperator::Less};
    case TokenKind::LessOrEqual:
      return {kComparison, BinaryOperator::LessOrEqual};
    case TokenKind::Greater:
      return {kComparison, BinaryOperator::Greater};
    case TokenKind::GreaterOrEqual:
      return {kComparison, BinaryOperator::GreaterOrEqual};
    default:
      return kNone;
  }
}

}  // namespace

ExpressionPtr Parser::parseExpression() {
  const Nesting nesting(*this);
  return parseBinary(kImp);
}

ExpressionPtr Parser::parseBinary(int minimum) {
  return parseBinaryTail(parseUnary(), minimum);
}

ExpressionPtr Parser::parseBinaryTail(ExpressionPtr left, int minimum) {
  for (;;) {
    const BinaryRow row = binaryOperator(token_);
    if (row.binding == kNoOperator || row.binding < minimum) return left;
    const SourcePosition position = token_.position;
    advance();
    ExpressionPtr right = parseBinary(row.binding + 1);
    left = make<BinaryExpression>(position, row.operation, std::move(left), std::move(right));
  }
}

ExpressionPtr Parser::parseUnary() {
  if (at(TokenKind::Minus)) return parseUnaryOperation(UnaryOperator::Negate, kSign);
  if (at(TokenKind::Plus)) return parseUnaryOperation(UnaryOperator::Plus, kSign);
  if (at(Keyword::Not)) return parseUnaryOperation(UnaryOperator::Not, kNot);
  return parseOperand();
}

ExpressionPtr Parser::parseUnaryOperation(UnaryOperator operation, int minimum) {
  const Nesting nesting(*this);
  const SourcePosition position = token_.position;
  advance();
  return make<UnaryExpression>(position, operation, parseBinary(minimum));
}

ExpressionPtr Parser::parseOperand() {
  switch (token_.kind) {
    case TokenKind::Number:
    case TokenKind::String:
    case TokenKind::Date:
      return parseLiteral();
    case TokenKind::LeftParen:
    case TokenKind::Dot:
      return parseChain(Chain::Operand);
    case TokenKind::Word:
      break;
    case TokenKind::End:
      fail(script_ ? CompileErrorCode::ExpectedExpression : CompileErrorCode::SyntaxError);
    default:
      fail(atStatementEnd() || at(TokenKind::RightParen) || at(TokenKind::Comma)
               ? CompileErrorCode::ExpectedExpression
               : CompileErrorCode::SyntaxError);
  }
  const bool beginsChain =
      atName() || token_.keyword == Keyword::Me || token_.keyword == Keyword::New;
  if (beginsChain) return parseChain(Chain::Operand);
  if (literalKeyword()) return parseLiteral();
  fail(atBlockEnd() ? CompileErrorCode::ExpectedExpression : CompileErrorCode::SyntaxError);
}

/// What a chain goes on from: parentheses round a name, or round what ends in a call, change
/// nothing there.
ExpressionPtr Parser::withoutParentheses(ExpressionPtr chain, bool isCallee) {
  while (chain && chain->kind == ExpressionKind::Parenthesized) {
    ExpressionPtr& inner = static_cast<ParenthesizedExpression&>(*chain).inner;
    switch (inner->kind) {
      case ExpressionKind::Member:
        if (isCallee) return chain;
        break;
      case ExpressionKind::Name:
      case ExpressionKind::Call:
      case ExpressionKind::New:
      case ExpressionKind::Me:
      case ExpressionKind::Parenthesized:
        break;
      default:
        return chain;
    }
    ExpressionPtr outer = std::exchange(chain, std::move(inner));
  }
  return chain;
}

/// A name, `Me`, `New name`, `.name` or something in parentheses, and what is called or looked up
/// on it.
ExpressionPtr Parser::parseChain(Chain mode) {
  const SourcePosition position = token_.position;
  ExpressionPtr chain;
  if (accept(Keyword::Me)) {
    chain = make<MeExpression>(position);
  } else if (at(Keyword::New)) {
    chain = parseNew();
    if (!at(TokenKind::Dot)) return chain;
  } else if (accept(TokenKind::LeftParen)) {
    ExpressionPtr inner = parseExpression();
    expect(TokenKind::RightParen, CompileErrorCode::ExpectedRightParen);
    chain = make<ParenthesizedExpression>(position, std::move(inner));
  } else if (!at(TokenKind::Dot)) {
    chain = make<NameExpression>(position, takeName());
  }
  bool isFirst = !chain;  // the dot of `.name` has nothing before it
  for (;; isFirst = false) {
    const SourcePosition here = token_.position;
    if (at(TokenKind::LeftParen)) {
      const bool beginsArgument = token_.blankBefore && isAhead(Keyword::New);
      if (mode == Chain::Statement && beginsArgument) return chain;
      chain = withoutParentheses(std::move(chain), true);
      chain = make<CallExpression>(here, std::move(chain), parseParenthesizedArguments());
    } else if (at(TokenKind::Dot)) {
      const bool beginsArgument = token_.blankBefore && !ahead_.blankBefore && around_.withs > 0;
      if (mode == Chain::Statement && beginsArgument && !isFirst) return chain;
      advance();
      chain = withoutParentheses(std::move(chain), false);
      chain = make<MemberExpression>(here, std::move(chain), takeName());
    } else {
      return chain;
    }
  }
}

/// The arguments of a call in parentheses; null for each omitted one.
std::vector<ExpressionPtr> Parser::parseParenthesizedArguments() {
  const Nesting nesting(*this);
  std::vector<ExpressionPtr> arguments;
  advance();
  if (accept(TokenKind::RightParen)) return arguments;
  for (;;) {
    const bool isOmitted = at(TokenKind::Comma) || at(TokenKind::RightParen);
    arguments.push_back(isOmitted ? nullptr : parseExpression());
    if (accept(TokenKind::RightParen)) return arguments;
    expect(TokenKind::Comma, CompileErrorCode::ExpectedRightParen);
  }
}

ExpressionPtr Parser::parseNew() {
  const SourcePosition position = token_.position;
  advance();
  return make<NewExpression>(position, takeName());
}

ExpressionPtr Parser::parseLiteral() {
  ExpressionPtr literal = make<LiteralExpression>(token_.position, literalValue());
  advance();
  return literal;
}

std::optional<Value> Parser::literalKeyword() const {
  switch (token_.keyword) {
    case Keyword::True:
      return Value::boolean(true);
    case Keyword::False:
      return Value::boolean(false);
    case Keyword::Empty:
      return Value();
    case Keyword::Null:
      return Value::null();
    case Keyword::Nothing:
      return Value::nothing();
    default:
      return std::nullopt;
  }
}

/// The value of the literal in hand.
Value Parser::literalValue() const {
  switch (token_.kind) {
    case TokenKind::Number:
      if (token_.numberType == Type::Double) return Value::number(token_.number);
      return token_.numberType == Type::Integer
                 ? Value::integer(static_cast<std::int16_t>(token_.number))
                 : Value::longInt(static_cast<std::int32_t>(token_.number));
    case TokenKind::String:
      return stringValue();
    case TokenKind::Date:
      return dateValue();
    default:
      return *literalKeyword();
  }
}

Value Parser::stringValue() const {
  const auto valueOf = [&](std::string_view bytes) {
    return isUtf8_ ? Value(String::fromUtf8(bytes)) : Value(bytes);
  };
  if (!token_.doubledQuotes) return valueOf(token_.text);
  std::string text;
  text.reserve(token_.text.size());
  for (std::size_t i = 0; i < token_.text.size(); ++i) {
    text += token_.text[i];
    if (token_.text[i] == '"') ++i;
  }
  return valueOf(text);
}

/// Date literals are written the American way whatever locale is active.
Value Parser::dateValue() const {
  const LocaleGuard guard;
  const auto days = parseDate(String(token_.text));
  if (!days) fail(CompileErrorCode::SyntaxError);
  return Value::date(*days);
}

}  // namespace quorvane::vbs
