#include <algorithm>
#include <optional>
#include <string_view>

#include "vbscript/library/arguments.h"

namespace quorvane::vbs::intrinsic {

namespace {

Value changedText(Args args, String (*change)(const String&)) {
  const Operand text(args[0]);
  if (text->isNull()) return Value::null();
  return change(toString(*text));
}

/// The character that Mid(text, at, 1) takes of such a text.
std::optional<char> oneByte(Args args) {
  const Value& start = args[1].deref();
  const Value& count = args[2].deref();
  if (!isOneOf(start, kWholeTypes) || !count.is(Type::Integer) || count.asInt() != 1) return {};
  const std::string_view bytes = bytesOf(args[0]).value_or("");
  const auto at = static_cast<std::size_t>(start.asInt()) - 1;
  if (at >= bytes.size()) return {};
  return bytes[at];
}

/// The first character of a text; error 5 when it has none.
char16_t firstUnit(const Value& value) {
  const String text = toString(value);
  if (text.length() == 0) throwError(ErrorCode::InvalidCall);
  return text.at(0);
}

String fromUnit(char16_t unit) {
  const int byte = unitToAnsi(unit);
  return byte >= 0 ? String::ofByte(static_cast<char>(byte)) : String::fromWide({&unit, 1});
}

/// `count` times the same character.
String repeated(std::size_t count, char16_t unit) {
  if (count == 0) return String();
  const int byte = unitToAnsi(unit);
  if (byte < 0) {
    String result = String::withCapacity(Encoding::Wide, count * 2);
    char* out = result.extend(count * 2);
    for (std::size_t i = 0; i < count; ++i) std::memcpy(out + i * 2, &unit, 2);
    return result;
  }
  String result = String::withCapacity(Encoding::Ansi, count);
  std::memset(result.extend(count), byte, count);
  return result;
}

}  // namespace

Value asc(Runtime&, Args args) {
  const std::string_view bytes = bytesOf(args[0]).value_or("");
  if (!bytes.empty()) return Value::integer(static_cast<unsigned char>(bytes[0]));
  const int byte = unitToAnsi(firstUnit(args[0]));
  return Value::integer(static_cast<std::int16_t>(byte >= 0 ? byte : '?'));
}

Value ascW(Runtime&, Args args) {
  return Value::integer(static_cast<std::int16_t>(firstUnit(args[0])));
}

Value chr(Runtime&, Args args) {
  const std::int32_t code = toLong(args[0]);
  if (code < 0 || code > 255) throwError(ErrorCode::InvalidCall);
  return String::ofByte(static_cast<char>(code));
}

Value chrW(Runtime&, Args args) {
  const std::int32_t code = toLong(args[0]);
  if (code < INT16_MIN || code > UINT16_MAX) throwError(ErrorCode::InvalidCall);
  return fromUnit(static_cast<char16_t>(code));
}

Value lCase(Runtime&, Args args) {
  return changedText(args, [](const String& text) { return text.lower(); });
}

Value uCase(Runtime&, Args args) {
  return changedText(args, [](const String& text) { return text.upper(); });
}

Value trim(Runtime&, Args args) {
  return changedText(args, [](const String& text) { return text.trimmed(true, true); });
}

Value lTrim(Runtime&, Args args) {
  return changedText(args, [](const String& text) { return text.trimmed(true, false); });
}

Value rTrim(Runtime&, Args args) {
  return changedText(args, [](const String& text) { return text.trimmed(false, true); });
}

Value len(Runtime&, Args args) {
  const Operand text(args[0]);
  if (text->isNull()) return Value::null();
  if (text->isString()) {
    const StringRep* rep = text->stringRep();
    if (!rep) return Value::longInt(0);
    return lengthValue(rep->encoding == Encoding::Ansi ? rep->bytes : rep->bytes / 2);
  }
  return lengthValue(toString(*text).length());
}

Value left(Runtime&, Args args) {
  const Operand text(args[0]);
  const std::size_t count = countAt(args, 1);
  if (text->isNull()) return Value::null();
  return toString(*text).substr(0, count);
}

Value right(Runtime&, Args args) {
  const Operand source(args[0]);
  const std::size_t count = countAt(args, 1);
  if (source->isNull()) return Value::null();
  const String text = toString(*source);
  return text.substr(text.length() - std::min(count, text.length()), count);
}

Value mid(Runtime&, Args args) {
  if (args.size() == 3) {
    if (const auto byte = oneByte(args)) return String::ofByte(*byte);
  }
  const Operand text(args[0]);
  const std::int32_t start = toLong(args[1]);
  const std::size_t count = given(args, 2) ? countAt(args, 2) : SIZE_MAX;
  if (start < 1) throwError(ErrorCode::InvalidCall);
  if (text->isNull()) return Value::null();
  return toString(*text).substr(static_cast<std::size_t>(start) - 1, count);
}

Value space(Runtime&, Args args) {
  return repeated(countAt(args, 0), u' ');
}

Value string(Runtime&, Args args) {
  const Operand count(args[0]);
  const Operand character(args[1]);
  if (count->isNull() || character->isNull()) return Value::null();
  const std::size_t times = countAt(args, 0);
  if (character->isString()) return repeated(times, firstUnit(*character));
  return repeated(times, ansiToUnit(static_cast<unsigned char>(toLong(*character) & 0xFF)));
}

Value strReverse(Runtime&, Args args) {
  const String text = toString(args[0]);
  if (text.isAnsi()) {
    String result = String::withCapacity(Encoding::Ansi, text.length());
    std::reverse_copy(text.raw().begin(), text.raw().end(), result.extend(text.length()));
    return result;
  }
  String result = String::withCapacity(Encoding::Wide, text.length() * 2);
  for (std::size_t i = text.length(); i > 0; --i) result.appendUnit(text.at(i - 1));
  return result;
}

}  // namespace quorvane::vbs::intrinsic
