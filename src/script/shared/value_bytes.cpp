#include "script/shared/value_bytes.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>
#include <vector>

#include "script/script_values.h"

namespace quorvane::value_bytes {

namespace {

using vbs::ArrayRep;
using vbs::Type;
using vbs::Value;

constexpr std::uint64_t kMostElements = INT32_MAX;

/// Arrays within arrays.
constexpr int kDeepest = 32;

// What tells apart the forms of one type.
constexpr char kWideText = 40;
constexpr char kByteArray = 41;
constexpr char kBareArray = 42;  ///< has no dimensions yet

constexpr char tagOf(Type type) {
  return static_cast<char>(type);
}

void appendNumber(std::string& out, std::uint64_t number, int bytes) {
  for (int i = 0; i < bytes; ++i) out += static_cast<char>(number >> 8 * i & 0xff);
}

void appendTexts(std::string& out, char tag, std::string_view bytes) {
  out += tag;
  appendNumber(out, bytes.size(), 4);
  out += bytes;
}

void appendAny(std::string& out, const Value& value, int depth);

void appendArray(std::string& out, const ArrayRep& array, int depth) {
  if (array.elementType == Type::Byte) return appendTexts(out, kByteArray, array.bytes.raw());
  if (array.rank == 0) {
    out += kBareArray;
    return;
  }
  out += tagOf(Type::Array);
  out += static_cast<char>(array.rank);
  for (const std::int32_t extent : array.extents()) {
    appendNumber(out, static_cast<std::uint32_t>(extent), 4);
  }
  for (std::size_t i = 0; i < array.count; ++i) appendAny(out, array.elements[i], depth + 1);
}

[[noreturn]] void refuse() {
  script_values::fail(vbs::ErrorCode::TypeMismatch,
                      "The shared session store keeps values and arrays, no objects");
}

void appendAny(std::string& out, const Value& given, int depth) {
  const Value& value = given.deref();
  if (depth > kDeepest) vbs::throwError(vbs::ErrorCode::OutOfStackSpace);
  switch (value.type()) {
    case Type::Empty:
    case Type::Null:
      out += tagOf(value.type());
      return;
    case Type::Byte:
    case Type::Boolean:
    case Type::Integer:
    case Type::Long:
    case Type::Error:
      out += tagOf(value.type());
      return appendNumber(out, static_cast<std::uint32_t>(value.asInt()), 4);
    case Type::Single:
    case Type::Double:
    case Type::Date:
      out += tagOf(value.type());
      return appendNumber(out, std::bit_cast<std::uint64_t>(value.asDouble()), 8);
    case Type::Currency:
      out += tagOf(value.type());
      return appendNumber(out, static_cast<std::uint64_t>(value.asCurrency()), 8);
    case Type::String: {
      const vbs::String text = value.asString();
      return appendTexts(out, text.isAnsi() ? tagOf(Type::String) : kWideText, text.raw());
    }
    case Type::Array:
      return appendArray(out, *value.asArray(), depth);
    default:
      refuse();
  }
}

/// Reads what append() has written; whatever else it is given ends with nothing.
class Reader {
 public:
  explicit Reader(std::string_view& bytes) : bytes_(bytes) {}

  std::optional<Value> value(int depth) {
    if (bytes_.empty() || depth > kDeepest) return std::nullopt;
    const char tag = bytes_.front();
    bytes_.remove_prefix(1);
    switch (tag) {
      case kWideText:
        return text(&vbs::String::fromWideBytes);
      case kByteArray:
        return byteArray();
      case kBareArray:
        return Value::array(ArrayRep::create({}));
      default:
        return plain(static_cast<Type>(tag), depth);
    }
  }

 private:
  std::optional<std::uint64_t> number(std::size_t bytes) {
    if (bytes_.size() < bytes) return std::nullopt;
    std::uint64_t read = 0;
    for (std::size_t i = 0; i < bytes; ++i) {
      read |= std::uint64_t{static_cast<unsigned char>(bytes_[i])} << 8 * i;
    }
    bytes_.remove_prefix(bytes);
    return read;
  }

  std::optional<std::string_view> counted() {
    const auto length = number(4);
    if (!length || *length > bytes_.size()) return std::nullopt;
    const std::string_view found = bytes_.substr(0, *length);
    bytes_.remove_prefix(*length);
    return found;
  }

  std::optional<Value> text(vbs::String (*make)(std::string_view)) {
    const auto found = counted();
    return found ? std::optional(Value(make(*found))) : std::nullopt;
  }

  std::optional<Value> byteArray() {
    const auto found = counted();
    return found ? std::optional(Value::array(ArrayRep::fromBytes(*found))) : std::nullopt;
  }

  std::optional<Value> plain(Type type, int depth) {
    switch (type) {
      case Type::Empty:
        return Value();
      case Type::Null:
        return Value::null();
      case Type::String:
        return text([](std::string_view ansi) { return vbs::String(ansi); });
      case Type::Array:
        return array(depth);
      case Type::Single:
      case Type::Double:
      case Type::Date:
      case Type::Currency:
        return eightBytes(type);
      default:
        return fourBytes(type);
    }
  }

  std::optional<Value> eightBytes(Type type) {
    const auto bits = number(8);
    if (!bits) return std::nullopt;
    if (type == Type::Currency) return Value::currency(static_cast<std::int64_t>(*bits));
    const double read = std::bit_cast<double>(*bits);
    if (type == Type::Date) return Value::date(read);
    return type == Type::Single ? Value::single(static_cast<float>(read)) : Value::number(read);
  }

  std::optional<Value> fourBytes(Type type) {
    const auto bits = number(4);
    if (!bits) return std::nullopt;
    const auto read = static_cast<std::int32_t>(static_cast<std::uint32_t>(*bits));
    switch (type) {
      case Type::Byte:
        return Value::byte(static_cast<std::uint8_t>(read));
      case Type::Boolean:
        return Value::boolean(read != 0);
      case Type::Integer:
        return Value::integer(static_cast<std::int16_t>(read));
      case Type::Long:
        return Value::longInt(read);
      case Type::Error:
        return Value::error(read);
      default:
        return std::nullopt;
    }
  }

  /// An element takes a byte at least, so there are not more of them than bytes.
  std::optional<Value> array(int depth) {
    const auto rank = number(1);
    if (!rank || *rank == 0 || *rank > ArrayRep::kMaxRank) return std::nullopt;
    std::vector<std::int32_t> extents;
    std::uint64_t count = 1;
    for (std::uint64_t i = 0; i < *rank; ++i) {
      const auto extent = number(4);
      if (!extent || *extent > kMostElements) return std::nullopt;
      count = std::min(count * *extent, kMostElements);
      extents.push_back(static_cast<std::int32_t>(*extent));
    }
    if (count > bytes_.size()) return std::nullopt;
    Value made = Value::array(ArrayRep::create(extents));
    ArrayRep& rep = *made.asArray();
    for (std::size_t i = 0; i < rep.count; ++i) {
      auto element = value(depth + 1);
      if (!element) return std::nullopt;
      rep.elements[i] = std::move(*element);
    }
    return made;
  }

  std::string_view& bytes_;
};

}  // namespace

void append(std::string& out, const vbs::Value& value) {
  appendAny(out, value, 0);
}

std::optional<vbs::Value> take(std::string_view& bytes) {
  return Reader(bytes).value(0);
}

}  // namespace quorvane::value_bytes
