#include "vbscript/values/number_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "vbscript/values/convert.h"
#include "vbscript/values/digits.h"
#include "vbscript/values/error.h"
#include "vbscript/values/text_locale.h"

namespace quorvane::vbs {

namespace {

constexpr std::size_t kMaxNumberText = 1000;  ///< longer texts spell no number

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool isBlank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view trimmedBlanks(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// "&HFF", "&O17" and "&17", and each with the mark of a Long behind: "&HFF&".
std::optional<double> parsePrefixed(std::string_view text, unsigned bits) {
  text.remove_prefix(1);
  int base = 8;
  if (!text.empty() && (text[0] | 0x20) == 'h') base = 16;
  if (!text.empty() && (base == 16 || (text[0] | 0x20) == 'o')) text.remove_prefix(1);
  if (text.ends_with('&')) text.remove_suffix(1);
  if (text.empty() || text.size() > 22) return std::nullopt;
  std::uint64_t value = 0;
  for (const char c : text) {
    const int digit = digitValue(c);
    if (digit >= base || value >> 60 != 0) return std::nullopt;
    value = value * static_cast<unsigned>(base) + static_cast<unsigned>(digit);
  }
  const bool wraps = bits > 0 && value >> (bits - 1) == 1;
  const double number = static_cast<double>(value);
  return wraps ? number - std::ldexp(1.0, static_cast<int>(bits)) : number;
}

/// Reads a decimal number, in UTF-8, into the plain spelling "-123.45e6" that from_chars takes.
class DecimalReader {
 public:
  explicit DecimalReader(std::string_view text) : rest_(trimmedBlanks(text)) {}

  std::optional<std::string> read() {
    readPrefix();
    const bool digits = readDigits();
    if (!digits || !readExponent() || !readSuffix()) return std::nullopt;
    return negative_ ? "-" + plain_ : plain_;
  }

 private:
  char peek() const { return rest_.empty() ? '\0' : rest_.front(); }
  bool accept(char c) {
    if (peek() != c || rest_.empty()) return false;
    rest_.remove_prefix(1);
    return true;
  }
  void skipBlanks() {
    while (isBlank(peek())) rest_.remove_prefix(1);
  }
  bool acceptSign() {
    if (signed_ || (peek() != '-' && peek() != '+')) return false;
    signed_ = true;
    negative_ = rest_.front() == '-';
    rest_.remove_prefix(1);
    return true;
  }
  bool acceptSymbol() {
    const auto symbol = activeLocale().currencySymbol;
    if (hasSymbol_ || !rest_.starts_with(symbol)) return false;
    hasSymbol_ = true;
    rest_.remove_prefix(symbol.size());
    return true;
  }

  void readPrefix() {
    for (bool more = true; more;) {
      skipBlanks();
      more = acceptSign() || acceptSymbol();
      if (!more && !signed_ && accept('(')) {
        signed_ = parenthesis_ = negative_ = true;
        more = true;
      }
    }
  }

  bool readDigits() {
    const Locale& locale = activeLocale();
    bool any = false;
    bool point = false;
    for (; !rest_.empty(); rest_.remove_prefix(1)) {
      const char c = rest_.front();
      if (isDigit(c)) {
        plain_.push_back(c);
        any = true;
      } else if (c == locale.decimalPoint && !point) {
        if (plain_.empty()) plain_.push_back('0');
        plain_.push_back('.');
        point = true;
      } else if (rest_.starts_with(locale.thousandsSeparator) && !point && any) {
        rest_.remove_prefix(locale.thousandsSeparator.size() - 1);
      } else {
        break;
      }
    }
    return any;
  }

  bool readExponent() {
    const char c = static_cast<char>(peek() | 0x20);
    if (c != 'e' && c != 'd') return true;
    rest_.remove_prefix(1);
    plain_.push_back('e');
    if (peek() == '+' || peek() == '-') {
      if (peek() == '-') plain_.push_back('-');
      rest_.remove_prefix(1);
    }
    if (!isDigit(peek())) return false;
    for (; isDigit(peek()); rest_.remove_prefix(1)) plain_.push_back(peek());
    return true;
  }

  bool readSuffix() {
    for (bool more = true; more;) {
      skipBlanks();
      more = acceptSign() || acceptSymbol();
      if (parenthesis_ && accept(')')) {
        parenthesis_ = false;
        more = true;
      }
    }
    return rest_.empty() && !parenthesis_;
  }

  std::string_view rest_;
  std::string plain_;
  bool signed_ = false;
  bool negative_ = false;
  bool parenthesis_ = false;
  bool hasSymbol_ = false;
};

double fromPlain(std::string_view plain) {
  double number = 0;
  const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), number);
  if (error != std::errc::result_out_of_range) return number;
  const auto exponent = plain.find('e');
  const bool tiny = exponent != std::string_view::npos
                        ? plain[exponent + 1] == '-'
                        : plain.starts_with("0.") || plain.starts_with("-0.");
  return tiny ? 0 : std::numeric_limits<double>::infinity();
}

/// The everyday spellings: digits with an optional minus, at most one point, nothing else.
std::optional<double> parseSimple(std::string_view text) {
  if (text.empty() || activeLocale().decimalPoint != '.') return std::nullopt;
  if (!isDigit(text.back()) || !isDigit(text[text.front() == '-' ? 1 : 0])) return std::nullopt;
  double number = 0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// ---- Numbers to text ----

struct Digits {
  std::array<char, 24> text;  ///< significant digits without trailing zeros
  int count = 0;
  int exponent = 0;  ///< of the first digit
};

/// Takes "d.ddde+xx" apart.
Digits splitScientific(const char* first, const char* last) {
  Digits digits;
  const char* p = first;
  for (; p < last && *p != 'e'; ++p) {
    if (*p != '.') digits.text[static_cast<std::size_t>(digits.count++)] = *p;
  }
  ++p;
  if (*p == '+') ++p;
  std::from_chars(p, last, digits.exponent);
  while (digits.count > 1 && digits.text[static_cast<std::size_t>(digits.count - 1)] == '0') {
    --digits.count;
  }
  return digits;
}

Digits significantDigits(double number, int places) {
  std::array<char, 40> buffer;
  char* const first = buffer.data();
  char* const last = first + buffer.size();
  // The shortest spelling is much cheaper to find and mostly short enough.
  auto shortest = std::to_chars(first, last, number, std::chars_format::scientific);
  Digits digits = splitScientific(first, shortest.ptr);
  if (digits.count <= places) return digits;
  const auto rounded =
      std::to_chars(first, last, number, std::chars_format::scientific, places - 1);
  return splitScientific(first, rounded.ptr);
}

/// Decimal notation as long as it needs at most `places` digits, else scientific.
String layOut(const Digits& digits, bool negative, int places) {
  std::array<char, 48> buffer;
  char* out = buffer.data();
  const char point = activeLocale().decimalPoint;
  const auto put = [&](int from, int to) {
    for (int i = from; i < to; ++i) {
      *out++ = i < digits.count ? digits.text[static_cast<std::size_t>(i)] : '0';
    }
  };
  if (negative) *out++ = '-';
  const int decimals = digits.count - 1 - digits.exponent;
  if (digits.exponent >= places || (digits.exponent < 0 && decimals > places)) {
    put(0, 1);
    if (digits.count > 1) *out++ = point;
    put(1, digits.count);
    *out++ = 'E';
    *out++ = digits.exponent < 0 ? '-' : '+';
    const int size = std::abs(digits.exponent);
    if (size < 10) *out++ = '0';
    out = std::to_chars(out, buffer.data() + buffer.size(), size).ptr;
  } else if (digits.exponent < 0) {
    *out++ = '0';
    *out++ = point;
    for (int i = digits.exponent + 1; i < 0; ++i) *out++ = '0';
    put(0, digits.count);
  } else {
    put(0, digits.exponent + 1);
    if (decimals > 0) *out++ = point;
    put(digits.exponent + 1, digits.count);
  }
  return String(std::string_view(buffer.data(), static_cast<std::size_t>(out - buffer.data())));
}

String formatSpecial(double number) {
  if (std::isnan(number)) return String("-1.#IND");
  return String(number < 0 ? "-1.#INF" : "1.#INF");
}

}  // namespace

std::optional<double> parseNumber(const String& text, unsigned bits) {
  if (text.length() > kMaxNumberText) return std::nullopt;
  if (text.isAnsi()) {
    if (const auto simple = parseSimple(text.ansi())) return simple;
  }
  const std::string spelling = text.utf8();
  const std::string_view trimmed = trimmedBlanks(spelling);
  if (trimmed.starts_with('&')) return parsePrefixed(trimmed, bits);
  const auto plain = DecimalReader(trimmed).read();
  if (!plain) return std::nullopt;
  return fromPlain(*plain);
}

std::optional<double> parseNumber(const String& text) {
  return parseNumber(text, 0);
}

std::int64_t currencyFrom(double number) {
  const double scaled = std::nearbyint(number * 10000.0);
  if (!(scaled >= -9223372036854775808.0 && scaled < 9223372036854775808.0)) {
    throwError(ErrorCode::Overflow);
  }
  return static_cast<std::int64_t>(scaled);
}

std::optional<std::int64_t> parseCurrency(const String& text) {
  if (text.length() > kMaxNumberText) return std::nullopt;
  const std::string spelling = text.utf8();
  const auto plain = DecimalReader(spelling).read();
  if (!plain || plain->find('e') != std::string::npos) {
    const auto number = parseNumber(text, 0);
    return number ? std::optional(currencyFrom(*number)) : std::nullopt;
  }
  const std::string_view digits = std::string_view(*plain).substr(plain->front() == '-' ? 1 : 0);
  const auto point = std::min(digits.find('.'), digits.size());
  std::string scaled(digits.substr(0, point));
  std::string_view fraction = digits.substr(std::min(point + 1, digits.size()));
  scaled.append(fraction.substr(0, 4));
  scaled.append(4 - std::min<std::size_t>(fraction.size(), 4), '0');
  fraction.remove_prefix(std::min<std::size_t>(fraction.size(), 4));
  std::uint64_t amount = 0;
  const auto result = std::from_chars(scaled.data(), scaled.data() + scaled.size(), amount);
  if (result.ec != std::errc() || amount > std::uint64_t{1} << 63) throwError(ErrorCode::Overflow);
  const bool half = !fraction.empty() && fraction[0] == '5' &&
                    fraction.find_first_not_of('0', 1) == std::string_view::npos;
  if (!fraction.empty() && (half ? amount % 2 == 1 : fraction[0] >= '5')) ++amount;
  const bool negative = plain->front() == '-';
  if (amount > (std::uint64_t{1} << 63) - (negative ? 0 : 1)) throwError(ErrorCode::Overflow);
  return static_cast<std::int64_t>(negative ? 0 - amount : amount);
}

String formatDouble(double number) {
  constexpr double kWholeLimit = 1e15;
  if (std::fabs(number) < kWholeLimit && number == std::trunc(number)) {
    std::array<char, 24> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                   static_cast<std::int64_t>(number));
    return String(
        std::string_view(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data())));
  }
  if (!std::isfinite(number)) return formatSpecial(number);
  return layOut(significantDigits(std::fabs(number), 15), number < 0, 15);
}

String formatSingle(float number) {
  if (number == 0) return String("0");
  if (!std::isfinite(number)) return formatSpecial(number);
  // Held exactly in a double, so the seven digits come out of the true value.
  std::array<char, 40> buffer;
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                    std::fabs(static_cast<double>(number)), std::chars_format::scientific, 6);
  return layOut(splitScientific(buffer.data(), end.ptr), number < 0, 7);
}

String formatCurrency(std::int64_t tenThousandths) {
  const bool negative = tenThousandths < 0;
  const auto size = negative ? 0 - static_cast<std::uint64_t>(tenThousandths)
                             : static_cast<std::uint64_t>(tenThousandths);
  std::string text = negative ? "-" : "";
  text += std::to_string(size / 10000);
  std::string fraction = std::to_string(10000 + size % 10000).substr(1);
  fraction.erase(fraction.find_last_not_of('0') + 1);
  if (!fraction.empty()) (text += activeLocale().decimalPoint) += fraction;
  return String(text);
}

std::string fixedText(double number, int places) {
  // Rounds the fifteen digits that scripts see, not the binary fraction behind them: 1.005 shows
  // as 1.01 although it is held as slightly less.
  const Digits digits = significantDigits(std::fabs(number), 15);
  const auto size = static_cast<std::size_t>(digits.count);
  std::string whole;
  if (digits.exponent < 0) {
    whole.assign(static_cast<std::size_t>(-digits.exponent), '0');
    whole.append(digits.text.data(), size);
  } else {
    whole.assign(digits.text.data(), size);
  }
  const std::size_t integers =
      digits.exponent < 0 ? 1 : static_cast<std::size_t>(digits.exponent) + 1;
  const std::size_t wanted = integers + static_cast<std::size_t>(places);
  const bool up = whole.size() > wanted && whole[wanted] >= '5';
  whole.resize(wanted, '0');
  std::size_t i = wanted;
  bool carry = up;
  while (carry && i > 0) {
    --i;
    carry = whole[i] == '9';
    whole[i] = carry ? '0' : static_cast<char>(whole[i] + 1);
  }
  if (carry) whole.insert(0, 1, '1');
  if (places > 0) whole.insert(whole.size() - static_cast<std::size_t>(places), 1, '.');
  const bool zero = whole.find_first_not_of("0.") == std::string::npos;
  return number < 0 && !zero ? "-" + whole : whole;
}

}  // namespace quorvane::vbs
