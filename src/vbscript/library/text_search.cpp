#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <vector>

#include "vbscript/library/arguments.h"
#include "vbscript/library/find_text.h"
#include "vbscript/library/wide_copy.h"

namespace quorvane::vbs::intrinsic {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// Places in a text; those that need memory of their own are charged to the script like a value.
class Places {
 public:
  Places() = default;
  ~Places() { runContext.memory.release(many_.size() * sizeof(std::uint32_t)); }
  Places(const Places&) = delete;
  Places& operator=(const Places&) = delete;

  void add(std::size_t place) {
    if (fewCount_ < few_.size()) {
      few_[fewCount_++] = static_cast<std::uint32_t>(place);
    } else {
      addToMany(static_cast<std::uint32_t>(place));
    }
  }
  std::span<const std::uint32_t> list() const {
    return many_.empty() ? std::span(few_.data(), fewCount_) : std::span(many_);
  }

 private:
  void addToMany(std::uint32_t place) {
    const std::size_t more = many_.empty() ? few_.size() + 1 : 1;
    runContext.memory.charge(more * sizeof(std::uint32_t));
    if (many_.empty()) many_.assign(few_.begin(), few_.end());
    many_.push_back(place);
  }

  std::array<std::uint32_t, 16> few_;
  std::size_t fewCount_ = 0;
  std::vector<std::uint32_t> many_;  ///< all of them, when they are more than few
};

/// Finds one text in another, both as bytes when both are held so.
class Searcher {
 public:
  Searcher(const String& text, const String& part, bool ignoreCase)
      : text_(ignoreCase ? text.lower() : text), part_(ignoreCase ? part.lower() : part) {
    if (text.isAnsi() && part.isAnsi()) [[likely]]
      return;
    wideText_.emplace(text_);
    widePart_.emplace(part_);
  }

  /// The first place at or behind `from`.
  std::size_t find(std::size_t from) const {
    return wideText_ ? findText(wideText_->units(), widePart_->units(), from)
                     : findText(text_.ansi(), part_.ansi(), from);
  }
  /// The last place at or before `from`.
  std::size_t findLast(std::size_t from) const {
    return wideText_ ? findLastText(wideText_->units(), widePart_->units(), from)
                     : findLastText(text_.ansi(), part_.ansi(), from);
  }
  /// Up to `most` places that do not overlap. The part is not empty.
  void findAll(std::size_t most, Places& places) const {
    const std::size_t step = part_.length();
    for (std::size_t from = 0; places.list().size() < most;) {
      const std::size_t place = find(from);
      if (place == kNone) return;
      places.add(place);
      from = place + step;
    }
  }

 private:
  String text_;
  String part_;
  std::optional<WideCopy> wideText_;  ///< of both, or of none
  std::optional<WideCopy> widePart_;
};

/// A count argument where -1 means all; error 5 below.
std::size_t mostAt(Args args, std::size_t index) {
  const std::int32_t most = longOr(args, index, -1);
  if (most < -1) throwError(ErrorCode::InvalidCall);
  return most == -1 ? SIZE_MAX : static_cast<std::size_t>(most);
}

/// The text with `with` in place of `skip` bytes at each of the places.
String splicedBytes(std::string_view text, std::span<const std::uint32_t> places, std::size_t skip,
                    std::string_view with) {
  const std::size_t size = text.size() + places.size() * with.size() - places.size() * skip;
  if (size == 0) return String();
  String result = String::withCapacity(Encoding::Ansi, size);
  char* out = result.extend(size);
  const auto copy = [&out](std::string_view bytes) { out = std::ranges::copy(bytes, out).out; };
  std::size_t from = 0;
  for (const std::size_t place : places) {
    copy(text.substr(from, place - from));
    copy(with);
    from = place + skip;
  }
  copy(text.substr(from));
  return result;
}

/// Replace as most calls are: of texts of bytes, and everywhere.
Value replacedBytes(const Value& whole, std::string_view text, std::string_view part,
                    std::string_view with) {
  if (part.empty()) return whole;
  Places places;
  for (std::size_t from = 0;;) {
    const std::size_t place = findText(text, part, from);
    if (place == kNone) break;
    places.add(place);
    from = place + part.size();
  }
  if (places.list().empty()) return whole;
  return splicedBytes(text, places.list(), part.size(), with);
}

/// The same with characters.
String spliced(const String& text, std::span<const std::uint32_t> places, std::size_t skip,
               const String& with) {
  if (text.isAnsi() && with.isAnsi()) {
    return splicedBytes(text.ansi(), places, skip, with.ansi());
  }
  String result;
  std::size_t from = 0;
  for (const std::size_t place : places) {
    result.append(text.substr(from, place - from));
    result.append(with);
    from = place + skip;
  }
  result.append(text.substr(from, SIZE_MAX));
  return result;
}

/// The array is held, because the code of a default value may end the variable's.
Value vectorAt(Args args, std::size_t index) {
  Value array = plainValue(args[index]);
  if (array.isNull()) throwError(ErrorCode::InvalidNull);
  if (!array.isArray()) throwError(ErrorCode::TypeMismatch);
  const ArrayRep& rep = *array.asArray();
  if (rep.rank > 1 || rep.elementType == Type::Byte) throwError(ErrorCode::TypeMismatch);
  return array;
}

Value textArray(std::vector<Value> texts) {
  return Value::array(ArrayRep::fromValues(std::move(texts)));
}

}  // namespace

Value inStr(Runtime&, Args args) {
  const bool hasStart = args.size() > 2;
  const std::size_t at = hasStart ? 1 : 0;
  const Operand source(args[at]);
  const Operand wanted(args[at + 1]);
  const bool ignoreCase = ignoresCase(args, at + 2);
  const std::int32_t start = hasStart ? longOr(args, 0, 1) : 1;
  if (source->isNull() || wanted->isNull()) return Value::null();
  if (start < 1) throwError(ErrorCode::InvalidCall);
  const String text = toString(*source);
  const String part = toString(*wanted);
  const auto first = static_cast<std::size_t>(start) - 1;
  if (first >= text.length()) return Value::longInt(0);
  const std::size_t found = text.isAnsi() && part.isAnsi() && !ignoreCase
                                ? findText(text.ansi(), part.ansi(), first)
                                : Searcher(text, part, ignoreCase).find(first);
  return lengthValue(found == kNone ? 0 : found + 1);
}

Value inStrRev(Runtime&, Args args) {
  const Operand source(args[0]);
  const Operand wanted(args[1]);
  const std::int32_t start = longOr(args, 2, -1);
  const bool ignoreCase = ignoresCase(args, 3);
  if (source->isNull() || wanted->isNull()) return Value::null();
  if (start == 0 || start < -1) throwError(ErrorCode::InvalidCall);
  const String text = toString(*source);
  const String part = toString(*wanted);
  const std::size_t end = start == -1 ? text.length() : static_cast<std::size_t>(start);
  if (text.empty() || end > text.length()) return Value::longInt(0);
  if (part.empty()) return lengthValue(end);
  if (part.length() > end) return Value::longInt(0);
  const std::size_t found = Searcher(text, part, ignoreCase).findLast(end - part.length());
  return lengthValue(found == kNone ? 0 : found + 1);
}

Value replace(Runtime&, Args args) {
  if (args.size() == 3) {
    const auto text = bytesOf(args[0]);
    const auto part = bytesOf(args[1]);
    const auto with = bytesOf(args[2]);
    if (text && part && with) return replacedBytes(args[0].deref(), *text, *part, *with);
  }
  const String whole = toString(args[0]);
  const String part = toString(args[1]);
  const String with = toString(args[2]);
  const std::int32_t start = longOr(args, 3, 1);
  const std::size_t most = mostAt(args, 4);
  const bool ignoreCase = ignoresCase(args, 5);
  if (start < 1) throwError(ErrorCode::InvalidCall);
  const String text = whole.substr(static_cast<std::size_t>(start) - 1, SIZE_MAX);
  if (part.empty()) return text;
  Places places;
  Searcher(text, part, ignoreCase).findAll(most, places);
  return places.list().empty() ? text : spliced(text, places.list(), part.length(), with);
}

Value split(Runtime&, Args args) {
  const String text = toString(args[0]);
  const String mark = given(args, 1) ? toString(args[1]) : String::ofByte(' ');
  const std::size_t most = mostAt(args, 2);
  const bool ignoreCase = ignoresCase(args, 3);
  if (text.empty() || most == 0) return textArray({});
  if (mark.empty()) return textArray({text});
  Places places;
  Searcher(text, mark, ignoreCase).findAll(most - 1, places);
  const auto extent = static_cast<std::int32_t>(places.list().size()) + 1;
  Value parts = Value::array(ArrayRep::create({&extent, 1}));
  Value* part = parts.asArray()->elements;
  std::size_t from = 0;
  for (const std::size_t place : places.list()) {
    *part++ = text.substr(from, place - from);
    from = place + mark.length();
  }
  *part = text.substr(from, SIZE_MAX);
  return parts;
}

Value join(Runtime&, Args args) {
  const Value array = vectorAt(args, 0);
  const ArrayRep& rep = *array.asArray();
  const String mark = given(args, 1) ? toString(args[1]) : String::ofByte(' ');
  std::size_t size = 0;
  for (std::size_t i = 0; i < rep.count; ++i) {
    const Value& item = rep.elements[i];
    size += mark.raw().size() + (item.isString() ? item.asString().raw().size() : 8);
  }
  String result = String::withCapacity(Encoding::Ansi, size);
  for (std::size_t i = 0; i < rep.count; ++i) {
    if (i > 0) result.append(mark);
    const Operand item(rep.elements[i]);
    if (item->isNull()) throwError(ErrorCode::TypeMismatch);
    result.append(toString(*item));
  }
  return result;
}

Value filter(Runtime&, Args args) {
  const Value array = vectorAt(args, 0);
  const ArrayRep& rep = *array.asArray();
  if (rep.rank == 0) throwError(ErrorCode::TypeMismatch);
  const String part = toString(args[1]);
  const bool include = booleanOr(args, 2, true);
  const bool ignoreCase = ignoresCase(args, 3);
  std::vector<Value> kept;
  for (std::size_t i = 0; i < rep.count; ++i) {
    const String item = toString(rep.elements[i]);
    const bool has = Searcher(item, part, ignoreCase).find(0) != kNone;
    if (has == include) kept.emplace_back(item);
  }
  return textArray(std::move(kept));
}

Value strComp(Runtime&, Args args) {
  const Operands both(args[0], args[1]);
  const auto& [a, b] = both;
  const bool ignoreCase = ignoresCase(args, 2);
  if (a->isNull() || b->isNull()) return Value::null();
  const String first = toString(*a);
  const String second = toString(*b);
  const int order =
      ignoreCase ? String::compareText(first, second) : String::compareBinary(first, second);
  return Value::integer(static_cast<std::int16_t>(order));
}

}  // namespace quorvane::vbs::intrinsic
