#include "jscript/script_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>

namespace quorvane::jscript {

namespace {

enum class Kind { Word, Value, Sign, End };

struct Token {
  Kind kind = Kind::End;
  std::string_view text;
  std::size_t at = 0;
  std::size_t match = 0;  ///< of a closing bracket: the token that opened it
  bool lineBefore = false;
};

template <std::size_t N>
using Words = std::array<std::string_view, N>;

constexpr Words<33> kKeywords{
    "break", "case",   "catch",   "const", "continue",  "debugger", "default", "delete",     "do",
    "else",  "false",  "finally", "for",   "function",  "if",       "in",      "instanceof", "new",
    "null",  "return", "switch",  "this",  "throw",     "true",     "try",     "typeof",     "var",
    "void",  "while",  "with",    "let",   "undefined", "arguments"};

/// Behind these a value begins, not an operator.
constexpr Words<11> kBeforeValue{"return", "typeof", "case", "in", "delete",    "void",
                                 "throw",  "new",    "else", "do", "instanceof"};

/// Members of the language's own values alone, which need no help.
constexpr Words<14> kOwnMembers{"charAt",    "charCodeAt",    "indexOf",      "lastIndexOf",
                                "substring", "substr",        "toLowerCase",  "toUpperCase",
                                "push",      "getTime",       "fromCharCode", "floor",
                                "toString",  "hasOwnProperty"};

constexpr Words<12> kAssignments{
    "=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>=", ">>>="};

constexpr Words<25> kLongSigns{
    ">>>=", "===", "!==", ">>>", "<<=", ">>=", "==", "!=", "<=", ">=", "&&", "||", "++",
    "--",   "+=",  "-=",  "*=",  "/=",  "%=",  "&=", "|=", "^=", "<<", ">>", "=>"};

template <class List>
bool isOneOf(std::string_view text, const List& list) {
  return std::find(list.begin(), list.end(), text) != list.end();
}

bool isWordCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         c == '$' || c < 0;
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  std::vector<Token> all() {
    std::vector<std::size_t> open;
    do {
      Token token = next();
      if (token.kind == Kind::Sign) {
        if (isOneOf(token.text, Words<3>{"(", "[", "{"})) open.push_back(tokens_.size());
        if (isOneOf(token.text, Words<3>{")", "]", "}"}) && !open.empty()) {
          token.match = open.back();
          open.pop_back();
        }
      }
      tokens_.push_back(token);
    } while (tokens_.back().kind != Kind::End);
    return std::move(tokens_);
  }

 private:
  std::string_view rest() const { return text_.substr(at_); }

  /// Past what stands in front of `end`, and that.
  void skipPast(std::string_view end) {
    const std::size_t found = text_.find(end, at_);
    const std::size_t to = found == text_.npos ? text_.size() : found + end.size();
    line_ = line_ || text_.substr(at_, to - at_).find_first_of("\r\n") != text_.npos;
    at_ = to;
  }
  void skipLine() { at_ = std::min(text_.find_first_of("\r\n", at_), text_.size()); }

  void skipBlanks() {
    line_ = false;
    while (at_ < text_.size()) {
      const char c = text_[at_];
      if (rest().starts_with("/*")) {
        at_ += 2;
        skipPast("*/");
      } else if (rest().starts_with("//") || rest().starts_with("<!--")) {
        skipLine();
      } else if (c == ' ' || (c >= '\t' && c <= '\r')) {
        line_ = line_ || c == '\n' || c == '\r';
        ++at_;
      } else {
        return;
      }
    }
  }

  /// A text or a regular expression, to its end or the line's.
  void skipQuoted(char quote) {
    bool inClass = false;
    for (++at_; at_ < text_.size(); ++at_) {
      const char c = text_[at_];
      if (c == '\\') {
        ++at_;
        continue;
      }
      if (c == '\n' || c == '\r') return;
      if (quote == '/' && c == '[') inClass = true;
      if (quote == '/' && c == ']') inClass = false;
      if (c != quote || inClass) continue;
      ++at_;
      return;
    }
    at_ = std::min(at_, text_.size());
  }

  bool beginsValue() const {
    if (tokens_.empty()) return true;
    const Token& last = tokens_.back();
    if (last.kind == Kind::Word) return isOneOf(last.text, kBeforeValue);
    return last.kind == Kind::Sign && !isOneOf(last.text, Words<5>{")", "]", "}", "++", "--"});
  }

  Token next() {
    skipBlanks();
    Token token;
    token.at = at_;
    token.lineBefore = line_;
    if (at_ >= text_.size()) return token;
    const char c = text_[at_];
    token.kind = Kind::Value;
    if (c == '"' || c == '\'') {
      skipQuoted(c);
    } else if (isDigit(c) || (c == '.' && at_ + 1 < text_.size() && isDigit(text_[at_ + 1]))) {
      while (at_ < text_.size() && (isWordCharacter(text_[at_]) || text_[at_] == '.')) ++at_;
    } else if (isWordCharacter(c)) {
      token.kind = Kind::Word;
      while (at_ < text_.size() && isWordCharacter(text_[at_])) ++at_;
    } else if (c == '/' && beginsValue()) {
      skipQuoted('/');
      while (at_ < text_.size() && isWordCharacter(text_[at_])) ++at_;
    } else {
      token.kind = Kind::Sign;
      const auto sign = std::find_if(kLongSigns.begin(), kLongSigns.end(),
                                     [&](std::string_view s) { return rest().starts_with(s); });
      at_ += sign == kLongSigns.end() ? 1 : sign->size();
    }
    token.text = text_.substr(token.at, at_ - token.at);
    return token;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  bool line_ = false;
  std::vector<Token> tokens_;
};

class Maker {
 public:
  explicit Maker(std::string_view source) : source_(source), tokens_(Scanner(source).all()) {}

  ScriptText make() {
    ScriptText text;
    findNames(text);
    findKeys();
    findWiths();
    text.code = rewritten();
    return text;
  }

 private:
  bool is(std::size_t i, std::string_view sign) const {
    return i < tokens_.size() && tokens_[i].kind == Kind::Sign && tokens_[i].text == sign;
  }
  bool isMember(std::size_t i) const { return i > 0 && is(i - 1, "."); }
  bool isName(std::size_t i) const {
    return i < tokens_.size() && tokens_[i].kind == Kind::Word && !isMember(i) &&
           !isOneOf(tokens_[i].text, kKeywords);
  }
  bool isKeyword(std::size_t i, std::string_view word) const {
    return i < tokens_.size() && tokens_[i].kind == Kind::Word && !isMember(i) &&
           tokens_[i].text == word;
  }

  /// Declares the name, at script level when no function is open around it.
  void declare(ScriptText& text, std::size_t i, bool atScriptLevel) {
    if (!isName(i)) return;
    std::string name(tokens_[i].text);
    if (atScriptLevel && !isOneOf(name, text.declared)) text.declared.push_back(name);
    declared_.insert(std::move(name));
  }

  /// The names of `var a = f(1, 2), b`, which begin at token `i`.
  void declareList(ScriptText& text, std::size_t i, bool atScriptLevel) {
    declare(text, i, atScriptLevel);
    std::size_t depth = 0;
    for (++i; tokens_[i].kind != Kind::End; ++i) {
      const Token& token = tokens_[i];
      if (token.kind == Kind::Word && isOneOf(token.text, Words<2>{"var", "in"})) return;
      if (token.kind != Kind::Sign) continue;
      if (isOneOf(token.text, Words<3>{"(", "[", "{"})) ++depth;
      if (isOneOf(token.text, Words<3>{")", "]", "}"}) && depth-- == 0) return;
      if (depth == 0 && token.text == ";") return;
      if (depth == 0 && token.text == ",") declare(text, i + 1, atScriptLevel);
    }
  }

  void declareParameters(ScriptText& text, std::size_t i) {
    for (; tokens_[i].kind != Kind::End && !is(i, ")"); ++i) declare(text, i, false);
  }

  void findNames(ScriptText& text) {
    std::vector<bool> functions;  ///< of the open braces: whether each is a function's
    bool functionNext = false;
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      const bool inFunction =
          std::find(functions.begin(), functions.end(), true) != functions.end();
      if (isKeyword(i, "function")) {
        const bool isStatement = i == 0 || is(i - 1, ";") || is(i - 1, "}") || is(i - 1, "{") ||
                                 (tokens_[i].lineBefore && !is(i - 1, "=") && !is(i - 1, ",") &&
                                  !is(i - 1, "(") && !is(i - 1, ":"));
        declare(text, i + 1, isStatement && !inFunction);
        declareParameters(text, i + 1);
        functionNext = true;
      } else if (isKeyword(i, "var")) {
        declareList(text, i + 1, !inFunction);
      } else if (isKeyword(i, "catch")) {
        declareParameters(text, i + 1);
      } else if (is(i, "{")) {
        functions.push_back(functionNext);
        functionNext = false;
      } else if (is(i, "}") && !functions.empty()) {
        functions.pop_back();
      }
    }
    std::set<std::string> seen;
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      std::string name(tokens_[i].text);
      if (isName(i) && !declared_.contains(name) && seen.insert(name).second) {
        text.free.push_back(std::move(name));
      }
    }
  }

  /// Marks the brackets of calls that something is assigned to.
  void findKeys() {
    isKey_.resize(tokens_.size() + 1);
    for (std::size_t i = 1; i < tokens_.size(); ++i) {
      if (tokens_[i].kind != Kind::Sign || !is(i - 1, ")")) continue;
      const bool steps = (is(i, "++") || is(i, "--")) && !tokens_[i].lineBefore;
      if (!steps && !isOneOf(tokens_[i].text, kAssignments)) continue;
      const std::size_t open = tokens_[i - 1].match;
      if (open == 0) continue;
      const std::size_t callee = open - 1;
      const bool calls = isName(callee) || isMember(callee) || is(callee, ")") || is(callee, "]");
      if (calls) isKey_[open] = isKey_[i - 1] = true;
    }
  }

  /// Marks the names that are called in the bodies of `with`, and the ends of those calls.
  void findWiths() {
    closing_.resize(tokens_.size());
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      if (is(i, ")") || is(i, "}")) closing_[tokens_[i].match] = i;
    }
    isWithCall_.resize(tokens_.size());
    std::size_t end = 0;  // of the outermost body
    for (std::size_t i = 0; i + 1 < tokens_.size(); ++i) {
      if (i >= end && isKeyword(i, "with") && is(i + 1, "(") && closing_[i + 1] > 0) {
        end = statementEnd(closing_[i + 1] + 1);
      }
      const std::size_t close = i < end && isName(i) && is(i + 1, "(") ? closing_[i + 1] : 0;
      const bool isMade = i > 0 && (isKeyword(i - 1, "new") || isKeyword(i - 1, "function"));
      if (close > 0 && !isMade && !isKey_[i + 1]) isWithCall_[i] = isWithCall_[close] = true;
    }
  }

  std::size_t statementEnd(std::size_t i) const {
    for (; tokens_[i].kind != Kind::End && !is(i, ";") && !is(i, "}"); ++i) {
      if (is(i, "{") && closing_[i] > i) return closing_[i];
      if (is(i, "(") && closing_[i] > i) i = closing_[i];
    }
    return i;
  }

  /// What begins the key that stands for the call with the bracket `open`.
  std::string keyHead(std::size_t open) const {
    const std::string name(isMember(open - 1) ? tokens_[open - 1].text : std::string_view());
    return "[qv$key(\"" + name + (is(open + 1, ")") ? "\"" : "\", ");
  }

  bool isMemberCall(std::size_t i) const {
    return tokens_[i].kind == Kind::Word && isMember(i) && is(i + 1, "(") && !isKey_[i + 1] &&
           !isOneOf(tokens_[i].text, kOwnMembers);
  }

  static std::string withCall(std::string_view name) {
    std::string call = "(qv$call(\"";
    return call.append(name).append("\")&&").append(name);
  }

  std::string rewritten() const {
    std::string code;
    std::size_t done = 0;
    const auto replace = [&](const Token& token, std::string_view with) {
      code.append(source_.substr(done, token.at - done)).append(with);
      done = token.at + token.text.size();
    };
    for (std::size_t i = 0; i + 1 < tokens_.size(); ++i) {
      if (is(i, ".") && isMemberCall(i + 1)) {
        replace(tokens_[i], "[qv$call(\"");
        replace(tokens_[i + 1], std::string(tokens_[i + 1].text) + "\")]");
      } else if (is(i, ".") && tokens_[i + 1].kind == Kind::Word && isKey_[i + 2]) {
        replace(tokens_[i], "");
        replace(tokens_[i + 1], "");
      } else if (isWithCall_[i]) {
        replace(tokens_[i], is(i, ")") ? "))" : withCall(tokens_[i].text));
      } else if (isKey_[i]) {
        replace(tokens_[i], is(i, "(") ? keyHead(i) : ")]");
      }
    }
    return code.append(source_.substr(done));
  }

  std::string_view source_;
  std::vector<Token> tokens_;
  std::vector<bool> isKey_;
  std::vector<std::size_t> closing_;  ///< of an opening bracket: the token that closes it
  std::vector<bool> isWithCall_;
  std::set<std::string> declared_;
};

}  // namespace

ScriptText madeReady(std::string_view source) {
  return Maker(source).make();
}

std::vector<std::string> createdComponents(std::string_view code) {
  const std::vector<Token> tokens = Scanner(code).all();
  std::vector<std::string> names;
  const auto texts = [&](std::size_t i, const auto&... expected) {
    return i + sizeof...(expected) < tokens.size() && ((tokens[i++].text == expected) && ...);
  };
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const bool isNew = texts(i, "ActiveXObject", "(");
    if (!isNew && !texts(i, "\"CreateObject\"", ")", "]", "(")) continue;
    const Token& name = tokens[i + (isNew ? 2 : 4)];
    const bool isText = name.text.size() > 2 && (name.text[0] == '"' || name.text[0] == '\'');
    if (isText) names.emplace_back(name.text.substr(1, name.text.size() - 2));
  }
  return names;
}

}  // namespace quorvane::jscript
