#include "components/xml/pattern.h"

#include <array>
#include <cctype>
#include <vector>

namespace quorvane::xml {

namespace {

enum class Kind { Name, Number, Literal, Sign, Word, End };

struct Token {
  Kind kind = Kind::End;
  std::string_view text;  ///< of a Word ("$eq$") what stands between the signs
  std::size_t position = 0;
};

bool startsName(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return std::isalpha(byte) || c == '_' || byte >= 0x80;
}

bool inName(char c) {
  return startsName(c) || std::isdigit(static_cast<unsigned char>(c)) || c == '-' || c == '.';
}

bool isDigit(char c) {
  return std::isdigit(static_cast<unsigned char>(c));
}

class Lexer {
 public:
  explicit Lexer(std::string_view text) : text_(text) {}

  std::vector<Token> all() {
    std::vector<Token> tokens;
    do tokens.push_back(next());
    while (tokens.back().kind != Kind::End);
    return tokens;
  }

 private:
  Token next() {
    while (at_ < text_.size() && std::isspace(static_cast<unsigned char>(text_[at_]))) ++at_;
    start_ = at_;
    if (at_ == text_.size()) return {Kind::End, {}, at_};
    const char c = text_[at_];
    if (startsName(c)) return name();
    if (isDigit(c)) return number();
    if (c == '"' || c == '\'') return quoted(c, Kind::Literal, 0);
    if (c == '$') return quoted(c, Kind::Word, 1);
    return sign();
  }

  Token taken(Kind kind) const { return {kind, text_.substr(start_, at_ - start_), start_}; }

  void skipName() {
    while (at_ < text_.size() && inName(text_[at_])) ++at_;
  }
  Token name() {
    skipName();
    // A prefix; "::" ends an axis.
    if (at_ + 1 < text_.size() && text_[at_] == ':' &&
        (startsName(text_[at_ + 1]) || text_[at_ + 1] == '*')) {
      ++at_;
      text_[at_] == '*' ? void(++at_) : skipName();
    }
    return taken(Kind::Name);
  }
  Token number() {
    while (at_ < text_.size() && (isDigit(text_[at_]) || text_[at_] == '.')) ++at_;
    return taken(Kind::Number);
  }
  Token quoted(char quote, Kind kind, std::size_t cut) {
    const std::size_t end = text_.find(quote, at_ + 1);
    if (end == text_.npos) throw PatternError{start_, std::string(text_.substr(start_))};
    at_ = end + 1;
    return {kind, text_.substr(start_ + cut, at_ - start_ - 2 * cut), start_};
  }
  Token sign() {
    constexpr std::array<std::string_view, 9> kLong = {
        "//", "..", "::", "!=", "<=", ">=", "&&", "||", "^^"};
    for (const std::string_view sign : kLong) {
      if (text_.substr(at_).starts_with(sign)) {
        at_ += sign.size();
        return taken(Kind::Sign);
      }
    }
    ++at_;
    return taken(Kind::Sign);
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t start_ = 0;
};

/// A comparison's sign, the opposite one, and whether letter case counts.
struct Comparison {
  std::string_view word;
  std::string_view sign;
  std::string_view opposite;
  bool ignoresCase;
};

constexpr std::array kComparisons = {
    Comparison{"eq", "=", "!=", false}, Comparison{"ieq", "=", "!=", true},
    Comparison{"ne", "!=", "=", false}, Comparison{"ine", "!=", "=", true},
    Comparison{"lt", "<", ">=", false}, Comparison{"ilt", "<", ">=", true},
    Comparison{"le", "<=", ">", false}, Comparison{"ile", "<=", ">", true},
    Comparison{"gt", ">", "<=", false}, Comparison{"igt", ">", "<=", true},
    Comparison{"ge", ">=", "<", false}, Comparison{"ige", ">=", "<", true},
};

class Translator {
 public:
  Translator(std::string_view pattern, bool byName)
      : tokens_(Lexer(pattern).all()), byName_(byName) {}

  std::string translate() {
    std::string path = either();
    if (token().kind != Kind::End) failHere();
    return path;
  }

 private:
  const Token& token() const { return tokens_[at_]; }
  const Token& ahead() const { return tokens_[std::min(at_ + 1, tokens_.size() - 1)]; }
  bool isSign(std::string_view sign) const { return isSign(token(), sign); }
  static bool isSign(const Token& token, std::string_view sign) {
    return token.kind == Kind::Sign && token.text == sign;
  }
  bool isWord(std::string_view word) const {
    return token().kind == Kind::Word && token().text == word;
  }
  bool isName(std::string_view name) const {
    return token().kind == Kind::Name && token().text == name;
  }
  bool takeSign(std::string_view sign) {
    if (!isSign(sign)) return false;
    ++at_;
    return true;
  }
  void expect(std::string_view sign) {
    if (!takeSign(sign)) failHere();
  }
  [[noreturn]] void failHere() const { throw PatternError{token().position, shown(token())}; }
  static std::string shown(const Token& token) {
    const std::string text(token.text);
    return token.kind == Kind::Word ? "$" + text + "$" : text;
  }

  /// Bounds how deep the translator calls itself.
  class Level {
   public:
    explicit Level(Translator& translator) : translator_(translator) {
      if (++translator_.depth_ > kMostLevels) translator_.failHere();
    }
    ~Level() { --translator_.depth_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

   private:
    static constexpr int kMostLevels = 64;
    Translator& translator_;
  };

  std::string condition() {
    const Level level(*this);
    std::string text = conjunction();
    while (isWord("or") || isName("or") || isSign("||")) {
      ++at_;
      text += " or " + conjunction();
    }
    return text;
  }

  std::string conjunction() {
    std::string text = negation();
    while (isWord("and") || isName("and") || isSign("&&")) {
      ++at_;
      text += " and " + negation();
    }
    return text;
  }

  std::string negation() {
    if (!isWord("not")) return comparison();
    const Level level(*this);
    ++at_;
    return "not(" + negation() + ")";
  }

  const Comparison* takeComparison() {
    for (const Comparison& row : kComparisons) {
      if (isWord(row.word) || (!row.ignoresCase && isSign(row.sign))) {
        ++at_;
        return &row;
      }
    }
    return nullptr;
  }

  std::string comparison() {
    const bool all = isWord("all");
    if (all || isWord("any")) ++at_;
    std::string left = either();
    const Comparison* row = takeComparison();
    if (!row) return left;
    std::string right = either();
    if (row->ignoresCase) {
      left = lowered(left);
      right = lowered(right);
    }
    // Of several nodes one is enough, unless it says $all$.
    if (all) return "not(" + left + " " + std::string(row->opposite) + " " + right + ")";
    return left + " " + std::string(row->sign) + " " + right;
  }

  static std::string lowered(const std::string& text) { return function("lower", text); }
  static std::string function(std::string_view name, const std::string& argument) {
    return std::string(kPatternPrefix).append(":").append(name) + "(" + argument + ")";
  }

  std::string either() {
    std::string text = path();
    while (isSign("|") || isWord("union")) {
      ++at_;
      text += " | " + path();
    }
    return text;
  }

  std::string path() {
    const Level level(*this);
    if (token().kind == Kind::Literal) return std::string(tokens_[at_++].text);
    if (token().kind == Kind::Number || isSign("-")) return number();
    std::string text;
    if (isSign("/") || isSign("//")) {
      text = tokens_[at_++].text;
      if (!startsStep() && text == "/") return text;
    }
    return steps(std::move(text));
  }

  std::string number() {
    std::string text = takeSign("-") ? "-" : "";
    if (token().kind != Kind::Number) failHere();
    return text.append(tokens_[at_++].text);
  }

  bool startsStep() const {
    return token().kind == Kind::Name || isSign("@") || isSign("*") || isSign(".") ||
           isSign("..") || isSign("(");
  }

  std::string steps(std::string text) {
    for (;;) {
      if (!startsStep()) failHere();
      text = step(text);
      if (isSign("/") || isSign("//") || isSign("!")) {
        const std::string_view sign = tokens_[at_++].text;
        text += sign == "!" ? "/" : sign;
      } else {
        return text;
      }
    }
  }

  /// Adds a step to the path before it, which is empty or ends in "/".
  std::string step(const std::string& before) {
    if (takeSign("(")) {
      std::string inner = condition();
      expect(")");
      // Only the first step of a path may be a group.
      if (!before.empty()) failHere();
      return filtered("(" + inner + ")");
    }
    if (takeSign("..")) return filtered(before + "..");
    if (takeSign(".")) return filtered(before + ".");
    if (takeSign("@")) return filtered(before + "@" + nameTest(true));
    if (isSign(ahead(), "::")) {
      const std::string axis = before + std::string(token().text) + "::";
      const bool attribute = isName("attribute");
      at_ += 2;
      if (isSign(ahead(), "(")) return method(axis);
      return filtered(axis + nameTest(attribute));
    }
    if (token().kind == Kind::Name && isSign(ahead(), "(")) return method(before);
    return filtered(before + nameTest(false));
  }

  std::string nameTest(bool attribute) {
    if (takeSign("*")) return "*";
    if (token().kind != Kind::Name) failHere();
    std::string name(tokens_[at_++].text);
    const std::size_t colon = name.find(':');
    if (colon == name.npos && (attribute || !byName_)) return name;
    if (name.ends_with('*')) {
      return "*[starts-with(name(), '" + name.substr(0, name.size() - 1) + "')]";
    }
    return "*[name() = '" + name + "']";
  }

  std::string filtered(std::string text) {
    while (takeSign("[")) {
      text += "[" + filter() + "]";
      expect("]");
    }
    return text;
  }

  /// What a filter says; a number is a place counted from 0, or from the end with -1.
  std::string filter() {
    const bool fromEnd = isSign("-");
    const Token& digits = fromEnd ? ahead() : token();
    const Token& end = tokens_[std::min(at_ + (fromEnd ? 2 : 1), tokens_.size() - 1)];
    if (digits.kind != Kind::Number || !isSign(end, "]")) return condition();
    const std::string number(digits.text);
    if (number.size() > 9 || number.find('.') != number.npos) failHere();
    at_ += fromEnd ? 2 : 1;
    const int place = std::stoi(number);
    if (!fromEnd) return std::to_string(place + 1);
    return "position() = last() - " + std::to_string(place - 1);
  }

  std::vector<std::string> arguments() {
    std::vector<std::string> list;
    expect("(");
    if (takeSign(")")) return list;
    do list.push_back(condition());
    while (takeSign(","));
    expect(")");
    return list;
  }

  static std::string unquoted(const std::string& literal) {
    return literal.size() < 2 ? literal : literal.substr(1, literal.size() - 2);
  }

  /// The path so far as an argument: the node itself where there is none.
  static std::string nodes(std::string before) {
    while (before.ends_with('/') && before.size() > 1) before.pop_back();
    return before.empty() ? "." : before;
  }

  std::string method(const std::string& before) {
    const std::string name(tokens_[at_++].text);
    const std::vector<std::string> list = arguments();
    std::string first = list.empty() ? "" : list[0];
    // Nodes of a kind.
    if (name == "text" || name == "textNode" || name == "textnode" || name == "cdata") {
      return filtered(before + "text()");
    }
    if (name == "comment" || name == "node") return filtered(before + name + "()");
    if (name == "pi" || name == "processing-instruction") {
      return filtered(before + "processing-instruction(" + first + ")");
    }
    if (name == "element") return filtered(before + (first.empty() ? "*" : named(first)));
    if (name == "attribute") {
      return filtered(before + "@" + (first.empty() ? "*" : unquoted(first)));
    }
    if (name == "ancestor" && !first.empty())
      return filtered(before + "ancestor::" + first + "[1]");
    if (name == "context") return filtered(before + ".");
    // What is known of a node.
    if (name == "value") return filtered(before + ".");
    if (name == "nodeName") return "name(" + nodes(before) + ")";
    if (name == "nodeType") return function("node-type", nodes(before));
    if (name == "date" && !first.empty()) return first;
    if (!before.empty()) failHere();
    if (name == "index") return "(position() - 1)";
    if (name == "end") return "(position() = last())";
    return filtered(passed(name, list));
  }

  std::string named(const std::string& literal) const {
    const std::string name = unquoted(literal);
    return byName_ ? "*[name() = '" + name + "']" : name;
  }

  static std::string passed(const std::string& name, const std::vector<std::string>& list) {
    std::string text = name + "(";
    for (std::size_t i = 0; i < list.size(); ++i) text.append(i > 0 ? ", " : "").append(list[i]);
    return text + ")";
  }

  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  int depth_ = 0;
  bool byName_;
};

}  // namespace

std::string xpathOf(std::string_view pattern, bool byName) {
  return Translator(pattern, byName).translate();
}

}  // namespace quorvane::xml
