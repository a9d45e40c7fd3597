#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "vbscript/values/convert.h"
#include "vbscript/values/operators.h"

namespace quorvane {

// What every operator gives for every pair of types. Each table has a row for the left operand and
// a column for the right one, in the order of kOperands; a cell names the type of the result:
//   E Empty  N Null  B Boolean  y Byte  i Integer  l Long  s Single  d Double  c Currency  t Date
//   S String  x error 13 (type mismatch)  0 error 11 (division by zero)  o error 6 (overflow)
//   ? any type: only the worth is checked
// The worth of a number is checked against plain arithmetic on the operands' worths.

namespace {

using vbs::Type;
using vbs::Value;

constexpr std::size_t kCount = 12;

struct Operand {
  char type;
  Value value;
  double worth;
};

std::array<Operand, kCount> operands() {
  return {{{'E', Value(), 0},
           {'N', Value::null(), 0},
           {'B', Value::boolean(true), -1},
           {'y', Value::byte(3), 3},
           {'i', Value::integer(4), 4},
           {'l', Value::longInt(5), 5},
           {'s', Value::single(2.5F), 2.5},
           {'d', Value::number(1.5), 1.5},
           {'c', Value::currency(22500), 2.25},
           {'t', Value::date(10), 10},
           {'S', Value("7"), 7},
           {'X', Value("abc"), 0}}};
}

using Table = std::array<std::string_view, kCount>;

char typeLetter(Type type) {
  switch (type) {
    case Type::Empty:
      return 'E';
    case Type::Null:
      return 'N';
    case Type::Boolean:
      return 'B';
    case Type::Byte:
      return 'y';
    case Type::Integer:
      return 'i';
    case Type::Long:
      return 'l';
    case Type::Single:
      return 's';
    case Type::Double:
      return 'd';
    case Type::Currency:
      return 'c';
    case Type::Date:
      return 't';
    case Type::String:
      return 'S';
    default:
      return '!';
  }
}

char errorLetter(std::int32_t number) {
  return number == 13 ? 'x' : number == 11 ? '0' : number == 6 ? 'o' : '!';
}

bool isNumber(char letter) {
  return std::string_view("Byilsdct").find(letter) != std::string::npos;
}

using Operator = Value (*)(const Value&, const Value&);
using Arithmetic = std::function<double(double, double)>;

void checkTable(const Table& table, Operator apply, const Arithmetic& arithmetic) {
  const auto all = operands();
  for (std::size_t row = 0; row < kCount; ++row) {
    ASSERT_EQ(table[row].size(), kCount) << "row " << row;
    for (std::size_t column = 0; column < kCount; ++column) {
      const Operand& left = all[row];
      const Operand& right = all[column];
      const std::string pair = std::string(1, left.type) + " and " + right.type;
      char letter = '?';
      Value result;
      try {
        result = apply(left.value, right.value);
        letter = typeLetter(result.type());
      } catch (const vbs::ScriptError& error) {
        letter = errorLetter(error.number);
      }
      const char expected = table[row][column];
      if (expected != '?') {
        EXPECT_EQ(letter, expected) << pair;
      }
      if (isNumber(letter)) {
        EXPECT_NEAR(vbs::toDouble(result), arithmetic(left.worth, right.worth), 1e-6) << pair;
      }
    }
  }
}

double toEven(double x) {
  return std::nearbyint(x);
}
std::int64_t bits(double x) {
  return static_cast<std::int64_t>(toEven(x));
}

constexpr Table kSum = {
    //   ENByilsdctSX
    "iN??ilsdctSS",  // Empty
    "NNNNNNNNNNNN",  // Null
    "?Niiilsdctdx",  // Boolean
    "?Niyilsdctdx",  // Byte
    "iNiiilsdctdx",  // Integer
    "lNllllddctdx",  // Long
    "sNsssdsdctdx",  // Single
    "dNddddddctdx",  // Double
    "cNccccccct?x",  // Currency
    "tNtttttttt?x",  // Date
    "SNdddddd??SS",  // text of a number
    "SNxxxxxxxxSS",  // other text
};

constexpr Table kDifference = {
    //   ENByilsdctSX
    "iN??ilsdct?x",  // Empty
    "NNNNNNNNNNNN",  // Null
    "?Niiilsdctdx",  // Boolean
    "?Niyilsdctdx",  // Byte
    "iNiiilsdctdx",  // Integer
    "lNllllddctdx",  // Long
    "sNsssdsdctdx",  // Single
    "dNddddddctdx",  // Double
    "cNccccccct?x",  // Currency
    "tNtttttttd?x",  // Date
    "dNdddddd??dx",  // text of a number
    "xNxxxxxxxxxx",  // other text
};

constexpr Table kProduct = {
    //   ENByilsdctSX
    "iN??ilsdcd?x",  // Empty
    "NNNNNNNNNNNN",  // Null
    "?Niiilsdcddx",  // Boolean
    "?Niyilsdcddx",  // Byte
    "iNiiilsdcddx",  // Integer
    "lNllllddcddx",  // Long
    "sNsssdsd?ddx",  // Single
    "dNdddddddddx",  // Double
    "cNcccc?dcd?x",  // Currency
    "dNdddddddddx",  // Date
    "?Ndddddd?ddx",  // text of a number
    "xNxxxxxxxxxx",  // other text
};

constexpr Table kQuotient = {
    //   ENByilsdctSX
    "oNdddd?ddddx",  // Empty
    "NNNNNNNNNNNN",  // Null
    "0Ndddd?ddddx",  // Boolean
    "0Nddddsddddx",  // Byte
    "0Nddddsddddx",  // Integer
    "0Ndddddddddx",  // Long
    "0N?ssdsddddx",  // Single
    "0Ndddddddddx",  // Double
    "0Ndddddddddx",  // Currency
    "0Ndddddddddx",  // Date
    "0Ndddddddddx",  // text of a number
    "xNxxxxxxxxxx",  // other text
};

constexpr Table kWholeQuotient = {
    //   ENByilsdctSX
    "0N???llllllx",  // Empty
    "NNNNNNNNNNNN",  // Null
    "0Niiillllllx",  // Boolean
    "0Niyillllllx",  // Byte
    "0Niiillllllx",  // Integer
    "0Nlllllllllx",  // Long
    "0Nlllllllllx",  // Single
    "0Nlllllllllx",  // Double
    "0Nlllllllllx",  // Currency
    "0Nlllllllllx",  // Date
    "0Nlllllllllx",  // text of a number
    "xNxxxxxxxxxx",  // other text
};

constexpr Table kBits = {
    //   ENByilsdctSX
    "??????lllllx",  // Empty
    "?N??????????",  // Null
    "??Biillllllx",  // Boolean
    "??iyillllllx",  // Byte
    "??iiillllllx",  // Integer
    "??lllllllllx",  // Long
    "l?lllllllllx",  // Single
    "l?lllllllllx",  // Double
    "l?lllllllllx",  // Currency
    "l?lllllllllx",  // Date
    "l?lllllllllx",  // text of a number
    "x?xxxxxxxxxx",  // other text
};

TEST(OperatorTable, Arithmetic) {
  checkTable(kSum, vbs::add, std::plus<>());
  checkTable(kDifference, vbs::subtract, std::minus<>());
  checkTable(kProduct, vbs::multiply, std::multiplies<>());
  checkTable(kQuotient, vbs::divide, std::divides<>());
}

TEST(OperatorTable, WholeDivision) {
  checkTable(kWholeQuotient, vbs::integerDivide,
             [](double a, double b) { return std::trunc(toEven(a) / toEven(b)); });
  checkTable(kWholeQuotient, vbs::modulo,
             [](double a, double b) { return std::fmod(toEven(a), toEven(b)); });
}

/// Null on one side is asked elsewhere: it depends on the other side's bits.
template <Operator kApply>
Value unlessOneIsNull(const Value& a, const Value& b) {
  return a.isNull() != b.isNull() ? Value() : kApply(a, b);
}

TEST(OperatorTable, Logic) {
  const auto check = [](Operator apply, std::int64_t (*arithmetic)(std::int64_t, std::int64_t)) {
    checkTable(kBits, apply, [arithmetic](double a, double b) {
      return static_cast<double>(arithmetic(bits(a), bits(b)));
    });
  };
  check(unlessOneIsNull<vbs::logicalAnd>, [](auto a, auto b) { return a & b; });
  check(unlessOneIsNull<vbs::logicalOr>, [](auto a, auto b) { return a | b; });
  check(unlessOneIsNull<vbs::logicalXor>, [](auto a, auto b) { return a ^ b; });
}

TEST(OperatorTable, Power) {
  for (const Operand& left : operands()) {
    for (const Operand& right : operands()) {
      if (left.type == 'X' || right.type == 'X' || left.type == 'N' || right.type == 'N') continue;
      const bool hasNoResult = (left.worth < 0 && right.worth != std::floor(right.worth)) ||
                               (left.worth == 0 && right.worth < 0);
      if (hasNoResult) continue;
      const Value result = vbs::power(left.value, right.value);
      EXPECT_EQ(typeLetter(result.type()), 'd') << left.type << right.type;
      const double expected = std::pow(left.worth, right.worth);
      EXPECT_NEAR(vbs::toDouble(result), expected, std::abs(expected) * 1e-12);
    }
  }
}

TEST(OperatorTable, Concatenate) {
  const auto text = [](const Operand& operand) {
    return operand.type == 'N' ? std::string() : vbs::toString(operand.value).narrow();
  };
  for (const Operand& left : operands()) {
    for (const Operand& right : operands()) {
      const Value result = vbs::concatenate(left.value, right.value);
      if (left.type == 'N' && right.type == 'N') {
        EXPECT_TRUE(result.isNull());
        continue;
      }
      ASSERT_TRUE(result.isString()) << left.type << right.type;
      EXPECT_EQ(result.asString().narrow(), text(left) + text(right));
    }
  }
}

/// How two variables compare: numbers by worth, texts by characters, a number below any text.
vbs::Ordering expectedOrdering(const Operand& left, const Operand& right) {
  const auto order = [](auto a, auto b) {
    return a < b ? vbs::Ordering::Less : a > b ? vbs::Ordering::Greater : vbs::Ordering::Equal;
  };
  const auto textOf = [](const Operand& operand) {
    return operand.type == 'E' ? std::string() : vbs::toString(operand.value).narrow();
  };
  const auto isAnyText = [](const Operand& operand) {
    return operand.type == 'S' || operand.type == 'X';
  };
  if (left.type == 'N' || right.type == 'N') return vbs::Ordering::Null;
  const bool leftIsText = isAnyText(left) || (left.type == 'E' && isAnyText(right));
  const bool rightIsText = isAnyText(right) || (right.type == 'E' && isAnyText(left));
  if (leftIsText && rightIsText) return order(textOf(left), textOf(right));
  if (leftIsText != rightIsText) {
    return leftIsText ? vbs::Ordering::Greater : vbs::Ordering::Less;
  }
  return order(left.worth, right.worth);
}

TEST(OperatorTable, Compare) {
  for (const Operand& left : operands()) {
    for (const Operand& right : operands()) {
      EXPECT_EQ(vbs::compare(left.value, right.value), expectedOrdering(left, right))
          << left.type << right.type;
    }
  }
}

TEST(OperatorTable, ArraysAreNoOperands) {
  const Value array = Value::array(vbs::ArrayRep::fromValues({Value::integer(1)}));
  for (const Operand& operand : operands()) {
    if (operand.type == 'N') continue;
    for (const Operator apply : {vbs::add, vbs::subtract, vbs::multiply, vbs::divide, vbs::power,
                                 vbs::concatenate, vbs::logicalAnd, vbs::logicalXor}) {
      EXPECT_THROW(apply(array, operand.value), vbs::ScriptError) << operand.type;
      EXPECT_THROW(apply(operand.value, array), vbs::ScriptError) << operand.type;
    }
    EXPECT_THROW(vbs::compare(array, operand.value), vbs::ScriptError) << operand.type;
  }
}

}  // namespace

}  // namespace quorvane
