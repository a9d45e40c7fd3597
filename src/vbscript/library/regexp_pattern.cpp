#include "vbscript/library/regexp_pattern.h"

#include <algorithm>

#include "vbscript/values/digits.h"
#include "vbscript/values/error.h"

namespace quorvane::vbs {

namespace {

bool isDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}
bool isOctal(char16_t c) {
  return c >= u'0' && c <= u'7';
}
bool isLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// Capturing groups in the whole pattern; decides between `\3` as reference and as octal number.
std::size_t countGroups(std::u16string_view pattern) {
  std::size_t groups = 0;
  bool inClass = false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char16_t c = pattern[i];
    if (c == u'\\') {
      ++i;
    } else if (inClass) {
      inClass = c != u']';
    } else if (c == u'[') {
      inClass = true;
    } else if (c == u'(' && (i + 1 == pattern.size() || pattern[i + 1] != u'?')) {
      ++groups;
    }
  }
  return groups;
}

class Translator {
 public:
  Translator(std::u16string_view pattern, bool multiline)
      : pattern_(pattern), multiline_(multiline), groups_(countGroups(pattern)) {}

  std::u16string translate() {
    while (at_ < pattern_.size()) translateOne();
    if (depth_ > 0) throwError(ErrorCode::RegExpParen);
    return std::move(out_);
  }

 private:
  char16_t peek(std::size_t ahead = 0) const {
    return at_ + ahead < pattern_.size() ? pattern_[at_ + ahead] : u'\0';
  }
  char16_t take() { return pattern_[at_++]; }

  void translateOne() {
    const char16_t c = take();
    switch (c) {
      case u'\\':
        return translateEscape();
      case u'[':
        return translateClass();
      case u'(':
        return openGroup();
      case u')':
        if (depth_-- == 0) throwError(ErrorCode::RegExpSyntax);
        return put(c, true);
      case u'|':
        return put(c, false);
      case u'*':
      case u'+':
      case u'?':
        return quantify(std::u16string(1, c));
      case u'{':
        return openBrace();
      case u'^':
        return put(multiline_ ? u"(?<![^\\r\\n])" : u"^", true);
      case u'$':
        return put(multiline_ ? u"(?![^\\r\\n])" : u"$", true);
      default:
        return put(c, true);
    }
  }

  void put(char16_t c, bool quantifiable) {
    out_.push_back(c);
    quantifiable_ = quantifiable;
  }
  void put(std::u16string_view text, bool quantifiable) {
    out_.append(text);
    quantifiable_ = quantifiable;
  }

  void openGroup() {
    ++depth_;
    if (peek() == u'*') throwError(ErrorCode::RegExpQuantifier);
    if (peek() != u'?') return put(u'(', false);
    const char16_t kind = peek(1);
    if (kind != u':' && kind != u'=' && kind != u'!') throwError(ErrorCode::RegExpQuantifier);
    at_ += 2;
    put(u"(?", false);
    put(kind, false);
  }

  void quantify(const std::u16string& quantifier) {
    if (!quantifiable_) throwError(ErrorCode::RegExpQuantifier);
    put(quantifier, false);
    if (peek() == u'?') put(take(), false);
  }

  /// "{2}", "{2,}" and "{2,5}" repeat; any other brace stands for itself.
  void openBrace() {
    std::size_t end = at_;
    const auto skipDigits = [&] {
      const std::size_t start = end;
      while (end < pattern_.size() && isDigit(pattern_[end])) ++end;
      return end > start;
    };
    bool repeats = skipDigits();
    if (repeats && end < pattern_.size() && pattern_[end] == u',') {
      ++end;
      skipDigits();
    }
    repeats = repeats && end < pattern_.size() && pattern_[end] == u'}';
    if (!repeats) return put(u"\\{", true);
    const std::u16string quantifier(pattern_.substr(at_ - 1, end + 2 - at_));
    at_ = end + 1;
    quantify(quantifier);
  }

  void translateEscape() {
    if (at_ == pattern_.size()) throwError(ErrorCode::RegExpSyntax);
    if (peek() >= u'1' && peek() <= u'9') return translateNumber();
    if (peek() == u'B' || peek() == u'b') {
      out_.push_back(u'\\');
      return put(take(), true);
    }
    putEscape();
    quantifiable_ = true;
  }

  /// `\12` is a reference when there are that many groups, else `\1` followed by a 2 when there is
  /// one, else an octal number.
  void translateNumber() {
    std::size_t number = 0;
    std::size_t length = 0;
    while (length < 2 && isDigit(peek(length))) {
      const std::size_t longer = number * 10 + (peek(length) - u'0');
      if (longer > groups_) break;
      number = longer;
      ++length;
    }
    if (length > 0) {
      at_ += length;
      out_ += u"\\g{";
      for (const char digit : std::to_string(number)) out_.push_back(static_cast<char16_t>(digit));
      return put(u'}', true);
    }
    if (isOctal(peek())) {
      putOctal();
    } else {
      out_.push_back(take());
    }
    quantifiable_ = true;
  }

  void putOctal() {
    unsigned code = 0;
    for (int i = 0; i < 3 && isOctal(peek()) && code * 8 + (peek() - u'0') <= 0xFF; ++i) {
      code = code * 8 + static_cast<unsigned>(take() - u'0');
    }
    putCode(code);
  }

  void putCode(unsigned code) {
    out_ += u"\\x";
    out_.push_back(static_cast<char16_t>(kHexDigits[code >> 4 & 15]));
    out_.push_back(static_cast<char16_t>(kHexDigits[code & 15]));
  }

  /// An escape that means the same inside and outside of a class. `at_` stands behind the
  /// backslash.
  void putEscape() {
    constexpr std::u16string_view kShared = u"dDwWsSfnrtxu";
    const char16_t c = peek();
    if (isOctal(c)) return putOctal();
    ++at_;
    if (c == u'v') return putCode(0x0B);
    if (c == u'c' && isLetter(peek())) return putCode(take() & 0x1F);
    if (isLetter(c) && kShared.find(c) == std::u16string_view::npos) {
      out_.push_back(c);
      return;
    }
    if (c < 0x80 && c != u'\0') out_.push_back(u'\\');
    out_.push_back(c);
  }

  void translateClass() {
    put(u'[', false);
    if (peek() == u'^') out_.push_back(take());
    for (;;) {
      if (at_ == pattern_.size()) throwError(ErrorCode::RegExpBracket);
      const char16_t c = take();
      if (c == u']') break;
      if (c != u'\\') {
        if (c == u'[') out_.push_back(u'\\');
        out_.push_back(c);
      } else if (at_ == pattern_.size()) {
        throwError(ErrorCode::RegExpBracket);
      } else if (peek() == u'b') {
        ++at_;
        putCode(0x08);
      } else {
        putEscape();
      }
    }
    put(u']', true);
  }

  std::u16string_view pattern_;
  bool multiline_;
  std::size_t groups_;
  std::size_t at_ = 0;
  std::size_t depth_ = 0;
  bool quantifiable_ = false;
  std::u16string out_;
};

}  // namespace

std::u16string translatePattern(std::u16string_view pattern, bool multiline) {
  return Translator(pattern, multiline).translate();
}

}  // namespace quorvane::vbs
