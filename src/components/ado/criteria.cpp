#include "components/ado/criteria.h"

#include "components/ado/arguments.h"
#include "components/ado/failure.h"
#include "components/ado/sql/stored_date.h"
#include "components/ado/sql/tokens.h"
#include "components/ado/sqlite/like.h"
#include "support/text.h"

namespace quorvane::ado {

using vbs::Type;
using vbs::Value;

namespace {

using Test = std::function<bool(const StoredRow&)>;

enum class Comparison { Equal, Unequal, Less, LessOrEqual, More, MoreOrEqual, Like };

constexpr std::pair<std::string_view, Comparison> kOperators[] = {
    {"=", Comparison::Equal},        {"<>", Comparison::Unequal}, {"!=", Comparison::Unequal},
    {"<", Comparison::Less},         {">", Comparison::More},     {"<=", Comparison::LessOrEqual},
    {">=", Comparison::MoreOrEqual},
};

/// As Filter has it: "*" and "%" are any characters.
vbs::String likePattern(const Value& value) {
  return vbs::String::fromUtf8(replaceAll(utf8Of(value), "*", "%"));
}

bool compare(const Value& held, Comparison comparison, const Value& wanted) {
  if (held.isNull() || wanted.isNull()) {
    const bool same = held.isNull() && wanted.isNull();
    return comparison == Comparison::Unequal ? !same : comparison == Comparison::Equal && same;
  }
  if (comparison == Comparison::Like) return isLike(vbs::toString(held), likePattern(wanted));
  const int order = compareValues(held, wanted);
  switch (comparison) {
    case Comparison::Equal:
      return order == 0;
    case Comparison::Unequal:
      return order != 0;
    case Comparison::Less:
      return order < 0;
    case Comparison::LessOrEqual:
      return order <= 0;
    case Comparison::More:
      return order > 0;
    default:
      return order >= 0;
  }
}

class CriteriaReader {
 public:
  CriteriaReader(std::string_view text, const RowStore& store)
      : tokens_(sqlTokens(text)), store_(store) {}

  Test all() {
    Test test = any();
    if (peek().kind != TokenKind::End) refuse();
    return test;
  }

 private:
  const Token& peek() const { return tokens_[at_]; }
  const Token& take() {
    const Token& token = tokens_[at_];
    if (at_ + 1 < tokens_.size()) ++at_;
    return token;
  }
  bool accept(std::string_view word) {
    if (!peek().isWord(word)) return false;
    take();
    return true;
  }
  [[noreturn]] static void refuse() { fail(AdoError::InvalidArgument, "Recordset"); }

  Test any() {
    constexpr int kDeepest = 50;
    if (++depth_ > kDeepest) refuse();
    std::vector<Test> tests{every()};
    while (accept("OR")) tests.push_back(every());
    --depth_;
    if (tests.size() == 1) return tests[0];
    return [tests](const StoredRow& row) {
      for (const Test& test : tests) {
        if (test(row)) return true;
      }
      return false;
    };
  }

  Test every() {
    std::vector<Test> tests{one()};
    while (accept("AND")) tests.push_back(one());
    if (tests.size() == 1) return tests[0];
    return [tests](const StoredRow& row) {
      for (const Test& test : tests) {
        if (!test(row)) return false;
      }
      return true;
    };
  }

  Test one() {
    if (peek().isSymbol("(")) {
      take();
      Test inner = any();
      if (!take().isSymbol(")")) refuse();
      return inner;
    }
    const Token& name = take();
    if (name.kind != TokenKind::Word && name.kind != TokenKind::Name &&
        name.kind != TokenKind::Quoted) {
      refuse();
    }
    const std::size_t column = store_.columnOf(name.text);
    if (column == store_.columns.size()) fail(AdoError::ItemNotFound, "Recordset");
    const Comparison comparison = comparisonHere();
    const Value wanted = constant();
    return [column, comparison, wanted](const StoredRow& row) {
      return compare(row.values[column], comparison, wanted);
    };
  }

  Comparison comparisonHere() {
    const Token& token = take();
    if (token.isWord("LIKE")) return Comparison::Like;
    if (token.isWord("IS")) return accept("NOT") ? Comparison::Unequal : Comparison::Equal;
    for (const auto& [text, comparison] : kOperators) {
      if (token.isSymbol(text)) return comparison;
    }
    refuse();
  }

  Value constant() {
    const bool negative = peek().isSymbol("-");
    if (negative) take();
    const Token& token = take();
    switch (token.kind) {
      case TokenKind::Number: {
        const double number = numericValue(token.text).value_or(0);
        return Value::number(negative ? -number : number);
      }
      case TokenKind::Text:
      case TokenKind::Quoted:
        return textValue(token.text);
      case TokenKind::Date:
        return Value::date(dateOfStored(token.text).value_or(0));
      case TokenKind::Word:
        if (token.isWord("NULL")) return Value::null();
        if (token.isWord("TRUE")) return Value::boolean(true);
        if (token.isWord("FALSE")) return Value::boolean(false);
        return textValue(token.text);
      default:
        refuse();
    }
  }

  std::vector<Token> tokens_;
  const RowStore& store_;
  std::size_t at_ = 0;
  int depth_ = 0;
};

/// The number that a value is, or spells.
std::optional<double> numberOf(const Value& value, bool dates) {
  if (!value.isString()) return vbs::toDouble(value);
  if (dates) return dateOfText(utf8Of(value));
  return vbs::parseNumber(value.asString());
}

}  // namespace

int compareValues(const Value& a, const Value& b) {
  if (a.isNull() || b.isNull()) return (a.isNull() ? 0 : 1) - (b.isNull() ? 0 : 1);
  if (a.isString() && b.isString()) return vbs::String::compareText(a.asString(), b.asString());
  if (a.isArray() || b.isArray()) return 0;
  const bool dates = a.is(Type::Date) || b.is(Type::Date);
  const auto x = numberOf(a, dates);
  const auto y = numberOf(b, dates);
  if (!x || !y) return vbs::String::compareText(vbs::toString(a), vbs::toString(b));
  return *x < *y ? -1 : *x > *y ? 1 : 0;
}

Criteria::Criteria(std::string_view text, const RowStore& store)
    : test_(CriteriaReader(text, store).all()) {}

std::vector<SortKey> sortKeys(std::string_view text, const RowStore& store) {
  std::vector<SortKey> keys;
  const std::vector<Token> tokens = sqlTokens(text);
  for (std::size_t at = 0; tokens[at].kind != TokenKind::End; ++at) {
    SortKey key;
    key.column = store.columnOf(tokens[at].text);
    if (key.column == store.columns.size()) fail(AdoError::ItemNotFound, "Recordset");
    if (tokens[at + 1].isWord("DESC")) key.descending = true;
    if (tokens[at + 1].isWord("DESC") || tokens[at + 1].isWord("ASC")) ++at;
    keys.push_back(key);
    if (tokens[at + 1].kind == TokenKind::End) break;
    if (!tokens[++at].isSymbol(",")) fail(AdoError::InvalidArgument, "Recordset");
  }
  return keys;
}

}  // namespace quorvane::ado
