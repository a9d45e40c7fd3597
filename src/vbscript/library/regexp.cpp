#include "vbscript/library/regexp.h"

#include <array>
#include <memory>
#include <vector>

#include "vbscript/library/regexp_code.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/operand.h"

namespace quorvane::vbs {

namespace {

/// What one Execute found. Match objects are made of it when a script asks for them.
struct MatchSet {
  String text;
  std::size_t groups = 0;
  std::vector<std::uint32_t> offsets;  ///< of all matches, one behind the other
  std::size_t charged = 0;

  MatchSet() = default;
  MatchSet(const MatchSet&) = delete;
  MatchSet& operator=(const MatchSet&) = delete;
  ~MatchSet() { runContext.memory.release(charged); }

  std::size_t stride() const { return (groups + 1) * 2; }
  std::size_t count() const { return offsets.size() / stride(); }
  std::uint32_t start(std::size_t match, std::size_t group) const {
    return offsets[match * stride() + group * 2];
  }
  std::uint32_t end(std::size_t match, std::size_t group) const {
    return offsets[match * stride() + group * 2 + 1];
  }
  bool isSet(std::size_t match, std::size_t group) const {
    return start(match, group) != kUnsetOffset;
  }
  String textOf(std::size_t match, std::size_t group) const {
    if (!isSet(match, group)) return String();
    return text.substr(start(match, group), end(match, group) - start(match, group));
  }

  void add(const MatchOffsets& found) {
    const std::size_t size = found.size() * sizeof(std::uint32_t);
    runContext.memory.charge(size);
    charged += size;
    offsets.insert(offsets.end(), found.begin(), found.end());
  }
};
using SharedMatches = std::shared_ptr<const MatchSet>;

std::size_t indexAt(Args args, std::size_t count) {
  const std::int32_t index = toLong(args[0]);
  if (index < 0 || static_cast<std::size_t>(index) >= count) throwError(ErrorCode::InvalidCall);
  return static_cast<std::size_t>(index);
}

Value lengthValue(std::size_t length) {
  return Value::longInt(static_cast<std::int32_t>(length));
}

/// Walks a collection by index.
template <class Collection>
class IndexEnumerator : public Enumerator {
 public:
  explicit IndexEnumerator(Collection& collection) : collection_(&collection) {}
  bool next(Value& item) override {
    if (index_ == collection_->size()) return false;
    item = collection_->at(index_++);
    return true;
  }

 private:
  Ref<Collection> collection_;
  std::size_t index_ = 0;
};

class SubMatches : public NativeObject<SubMatches> {
 public:
  SubMatches(SharedMatches matches, std::size_t match)
      : matches_(std::move(matches)), match_(match) {}
  static std::span<const Member<SubMatches>> members();
  std::string_view typeName() const override { return "ISubMatches"; }
  std::unique_ptr<Enumerator> enumerate() override {
    return std::make_unique<IndexEnumerator<SubMatches>>(*this);
  }

  std::size_t size() const { return matches_->groups; }
  Value at(std::size_t index) const {
    if (!matches_->isSet(match_, index + 1)) return Value();
    return matches_->textOf(match_, index + 1);
  }

 private:
  Value item(Args args) { return at(indexAt(args, size())); }
  Value count(Args) { return lengthValue(size()); }

  SharedMatches matches_;
  std::size_t match_;
};

std::span<const Member<SubMatches>> SubMatches::members() {
  static constexpr std::array kMembers = {
      Member<SubMatches>{"item", 1, 1, &SubMatches::item, nullptr, true},
      Member<SubMatches>{"count", 0, 0, &SubMatches::count},
  };
  return kMembers;
}

class Match : public NativeObject<Match> {
 public:
  Match(SharedMatches matches, std::size_t match) : matches_(std::move(matches)), match_(match) {}
  static std::span<const Member<Match>> members();
  std::string_view typeName() const override { return "IMatch2"; }

 private:
  Value value(Args) { return matches_->textOf(match_, 0); }
  Value firstIndex(Args) { return lengthValue(matches_->start(match_, 0)); }
  Value length(Args) { return lengthValue(matches_->textOf(match_, 0).length()); }
  Value subMatches(Args) { return Value::adopt(new SubMatches(matches_, match_)); }

  SharedMatches matches_;
  std::size_t match_;
};

std::span<const Member<Match>> Match::members() {
  static constexpr std::array kMembers = {
      Member<Match>{"value", 0, 0, &Match::value, nullptr, true},
      Member<Match>{"firstindex", 0, 0, &Match::firstIndex},
      Member<Match>{"length", 0, 0, &Match::length},
      Member<Match>{"submatches", 0, 0, &Match::subMatches},
  };
  return kMembers;
}

class Matches : public NativeObject<Matches> {
 public:
  explicit Matches(SharedMatches matches) : matches_(std::move(matches)) {}
  static std::span<const Member<Matches>> members();
  std::string_view typeName() const override { return "IMatchCollection2"; }
  std::unique_ptr<Enumerator> enumerate() override {
    return std::make_unique<IndexEnumerator<Matches>>(*this);
  }

  std::size_t size() const { return matches_->count(); }
  Value at(std::size_t index) const { return Value::adopt(new Match(matches_, index)); }

 private:
  Value item(Args args) { return at(indexAt(args, size())); }
  Value count(Args) { return lengthValue(size()); }

  SharedMatches matches_;
};

std::span<const Member<Matches>> Matches::members() {
  static constexpr std::array kMembers = {
      Member<Matches>{"item", 1, 1, &Matches::item, nullptr, true},
      Member<Matches>{"count", 0, 0, &Matches::count},
  };
  return kMembers;
}

bool isDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}

/// The text that a replacement gives for one match: $$ $& $` $' $1 to $99; any other dollar stands
/// for itself.
class Replacement {
 public:
  Replacement(const String& pattern, const MatchSet& matches)
      : pattern_(pattern), matches_(matches), plain_(findDollar(0) == pattern.length()) {}

  void appendTo(String& out, std::size_t match) const {
    if (plain_) return out.append(pattern_);
    std::size_t at = 0;
    while (at < pattern_.length()) {
      const std::size_t dollar = findDollar(at);
      out.append(pattern_.substr(at, dollar - at));
      if (dollar == pattern_.length()) return;
      at = appendReference(out, match, dollar);
    }
  }

 private:
  std::size_t findDollar(std::size_t from) const {
    while (from < pattern_.length() && pattern_.at(from) != u'$') ++from;
    return from;
  }

  /// Returns the place behind the reference that starts at `dollar`.
  std::size_t appendReference(String& out, std::size_t match, std::size_t dollar) const {
    const char16_t next = dollar + 1 < pattern_.length() ? pattern_.at(dollar + 1) : u'\0';
    const String& text = matches_.text;
    switch (next) {
      case u'$':
        out.appendAnsi("$");
        return dollar + 2;
      case u'&':
        out.append(matches_.textOf(match, 0));
        return dollar + 2;
      case u'`':
        out.append(text.substr(0, matches_.start(match, 0)));
        return dollar + 2;
      case u'\'':
        out.append(text.substr(matches_.end(match, 0), SIZE_MAX));
        return dollar + 2;
      default:
        return appendGroup(out, match, dollar);
    }
  }

  std::size_t appendGroup(String& out, std::size_t match, std::size_t dollar) const {
    std::size_t group = 0;
    std::size_t length = 0;
    while (length < 2 && dollar + 1 + length < pattern_.length()) {
      const char16_t unit = pattern_.at(dollar + 1 + length);
      if (!isDigit(unit) || group * 10 + (unit - u'0') > matches_.groups) break;
      group = group * 10 + (unit - u'0');
      ++length;
    }
    if (group == 0) {
      out.appendAnsi("$");
      return dollar + 1;
    }
    out.append(matches_.textOf(match, group));
    return dollar + 1 + length;
  }

  const String& pattern_;
  const MatchSet& matches_;
  bool plain_;
};

/// The text that a plain value is as a replacement: a Boolean goes in as its number.
String replacementText(const Value& value) {
  const Operand plain(value);
  return plain->is(Type::Boolean) ? String(plain->asBoolean() ? "-1" : "0") : toString(*plain);
}

/// What a script's own function makes of one match: it gets the match, its groups, where it
/// stands, and the whole text.
String replacedByProcedure(Object& procedure, const MatchSet& matches, std::size_t match) {
  std::vector<Value> arguments;
  for (std::size_t group = 0; group <= matches.groups; ++group) {
    arguments.emplace_back(matches.textOf(match, group));
  }
  arguments.push_back(lengthValue(matches.start(match, 0)));
  arguments.emplace_back(matches.text);
  return toString(procedure.invoke(kDefaultMember, CallKind::Get, arguments));
}

class RegExp : public NativeObject<RegExp> {
 public:
  static std::span<const Member<RegExp>> members();
  std::string_view typeName() const override { return "IRegExp2"; }

 private:
  Value getPattern(Args) { return pattern_; }
  Value getGlobal(Args) { return Value::boolean(global_); }
  Value getIgnoreCase(Args) { return Value::boolean(flags_.ignoreCase); }
  Value getMultiline(Args) { return Value::boolean(flags_.multiline); }

  void putPattern(Args args, CallKind) {
    pattern_ = toString(args.back());
    code_.reset();
  }
  void putGlobal(Args args, CallKind) { global_ = toBoolean(args.back()); }
  void putIgnoreCase(Args args, CallKind) {
    flags_.ignoreCase = toBoolean(args.back());
    code_.reset();
  }
  void putMultiline(Args args, CallKind) {
    flags_.multiline = toBoolean(args.back());
    code_.reset();
  }

  Value execute(Args args) { return Value::adopt(new Matches(find(toString(args[0]), global_))); }
  Value test(Args args) {
    const String text = toString(args[0]);
    MatchOffsets found;
    return Value::boolean(code().match(RegExpSubject(text), 0, found));
  }
  Value replace(Args args);

  const RegExpCode& code() {
    if (!code_) code_ = RegExpCode::get(pattern_, flags_);
    return *code_;
  }
  SharedMatches find(const String& text, bool all);

  String pattern_;
  bool global_ = false;
  RegExpFlags flags_;
  std::shared_ptr<const RegExpCode> code_;  ///< of pattern_ and flags_; null until it is needed
};

std::span<const Member<RegExp>> RegExp::members() {
  static constexpr std::array kMembers = {
      Member<RegExp>{"pattern", 0, 0, &RegExp::getPattern, &RegExp::putPattern},
      Member<RegExp>{"global", 0, 0, &RegExp::getGlobal, &RegExp::putGlobal},
      Member<RegExp>{"ignorecase", 0, 0, &RegExp::getIgnoreCase, &RegExp::putIgnoreCase},
      Member<RegExp>{"multiline", 0, 0, &RegExp::getMultiline, &RegExp::putMultiline},
      Member<RegExp>{"execute", 1, 1, &RegExp::execute},
      Member<RegExp>{"test", 1, 1, &RegExp::test},
      Member<RegExp>{"replace", 2, 2, &RegExp::replace},
  };
  return kMembers;
}

SharedMatches RegExp::find(const String& text, bool all) {
  auto matches = std::make_shared<MatchSet>();
  matches->text = text;
  matches->groups = code().groups();
  const RegExpSubject subject(text);
  MatchOffsets found;
  std::size_t from = 0;
  while (from <= text.length() && code().match(subject, from, found)) {
    matches->add(found);
    if (!all) break;
    from = found[1] == found[0] ? subject.behind(found[1]) : found[1];
  }
  return matches;
}

Value RegExp::replace(Args args) {
  const String text = toString(args[0]);
  const Value with = args[1].deref();
  Object* procedure = with.isObject() && with.asObject() && with.asObject()->isProcedure()
                          ? with.asObject()
                          : nullptr;
  const String pattern = procedure ? String() : replacementText(with);
  const SharedMatches matches = find(text, global_);
  if (matches->count() == 0) return text;
  const Replacement replacement(pattern, *matches);
  String result;
  std::size_t from = 0;
  for (std::size_t i = 0; i < matches->count(); ++i) {
    result.append(text.substr(from, matches->start(i, 0) - from));
    if (procedure) {
      result.append(replacedByProcedure(*procedure, *matches, i));
    } else {
      replacement.appendTo(result, i);
    }
    from = matches->end(i, 0);
  }
  result.append(text.substr(from, SIZE_MAX));
  return result;
}

}  // namespace

Value createRegExp() {
  return Value::adopt(new RegExp());
}

}  // namespace quorvane::vbs
