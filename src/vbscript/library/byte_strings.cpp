#include <algorithm>

#include "vbscript/library/arguments.h"
#include "vbscript/library/find_text.h"

/// The functions whose names end in B see a text as bytes: two for each character, low byte first.
namespace quorvane::vbs::intrinsic {

namespace {

/// A text's bytes, which live as long as this.
class ByteView {
 public:
  explicit ByteView(const Value& value) : text_(toString(value).toWide()) {}
  std::string_view operator*() const { return text_.raw(); }

 private:
  String text_;
};

Value bytes(std::string_view part) {
  return String::fromWideBytes(part);
}

/// Bytes of a whole text, or `count` from `start` on.
Value slice(std::string_view all, std::size_t start, std::size_t count) {
  return start >= all.size() ? Value(String()) : bytes(all.substr(start, count));
}

}  // namespace

Value ascB(Runtime&, Args args) {
  const String text = toString(args[0]);
  if (text.byteLength() == 0) throwError(ErrorCode::InvalidCall);
  const auto first = text.isAnsi() ? static_cast<std::uint8_t>(text.at(0) & 0xFF)
                                   : static_cast<std::uint8_t>(text.raw().front());
  return Value::byte(first);
}

Value chrB(Runtime&, Args args) {
  const auto byte = static_cast<char>(toByte(args[0]));
  return bytes({&byte, 1});
}

Value lenB(Runtime&, Args args) {
  const Operand text(args[0]);
  if (text->isNull()) return Value::null();
  if (text->isArray() && text->asArray()->elementType == Type::Byte) {
    return lengthValue(text->asArray()->count);
  }
  return lengthValue(toString(*text).byteLength());
}

Value leftB(Runtime&, Args args) {
  const Operand text(args[0]);
  const std::size_t count = countAt(args, 1);
  if (text->isNull()) return Value::null();
  return slice(*ByteView(*text), 0, count);
}

Value rightB(Runtime&, Args args) {
  const Operand text(args[0]);
  const std::size_t count = countAt(args, 1);
  if (text->isNull()) return Value::null();
  const ByteView view(*text);
  return slice(*view, (*view).size() - std::min(count, (*view).size()), count);
}

Value midB(Runtime&, Args args) {
  const Operand text(args[0]);
  const std::int32_t start = toLong(args[1]);
  const std::size_t count = given(args, 2) ? countAt(args, 2) : SIZE_MAX;
  if (start < 1) throwError(ErrorCode::InvalidCall);
  if (text->isNull()) return Value::null();
  const auto first = static_cast<std::size_t>(start) - 1;
  if (text->isArray() && text->asArray()->elementType == Type::Byte) {
    return slice(text->asArray()->bytes.raw(), first, count);
  }
  return slice(*ByteView(*text), first, count);
}

Value inStrB(Runtime&, Args args) {
  const bool hasStart = args.size() > 2;
  const std::size_t at = hasStart ? 1 : 0;
  const Operand text(args[at]);
  const Operand part(args[at + 1]);
  if (text->isNull() || part->isNull()) return Value::null();
  const std::int32_t start = hasStart ? longOr(args, 0, 1) : 1;
  if (start < 1) throwError(ErrorCode::InvalidCall);
  const ByteView view(*text);
  const ByteView wanted(*part);
  const auto first = static_cast<std::size_t>(start) - 1;
  if ((*view).empty() || first >= (*view).size()) return Value::longInt(0);
  const std::size_t found = findText(*view, *wanted, first);
  return lengthValue(found == std::string_view::npos ? 0 : found + 1);
}

}  // namespace quorvane::vbs::intrinsic
