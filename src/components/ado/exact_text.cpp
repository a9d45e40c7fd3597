#include "components/ado/exact_text.h"

#include <array>
#include <charconv>

namespace quorvane::ado {

namespace {

constexpr std::size_t kPlaces = 4;

}  // namespace

std::string currencyText(std::int64_t tenThousandths) {
  std::string digits = std::to_string(tenThousandths);
  const std::size_t sign = tenThousandths < 0 ? 1 : 0;
  const std::size_t count = digits.size() - sign;
  if (count <= kPlaces) digits.insert(sign, kPlaces + 1 - count, '0');
  digits.insert(digits.size() - kPlaces, 1, '.');
  return digits;
}

std::int64_t currencyOfText(std::string_view text) {
  const std::size_t point = text.find('.');
  std::string places(point == text.npos ? "" : text.substr(point + 1));
  places.resize(kPlaces, '0');
  const std::string whole = std::string(text.substr(0, point)) + places;
  std::int64_t tenThousandths = 0;
  std::from_chars(whole.data(), whole.data() + whole.size(), tenThousandths);
  return tenThousandths;
}

std::string numberText(double number) {
  std::array<char, 32> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  return {text.data(), end};
}

double numberOfText(std::string_view text) {
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace quorvane::ado
