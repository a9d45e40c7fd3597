#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "vbscript/values/assert.h"
#include "vbscript/values/error.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/string.h"

namespace quorvane::vbs {

class Object;
class Value;

/// The subtypes of a script value; varType() has the numbers that scripts see. Here they are
/// numbered in groups that are told apart by one bit, so that the machine can look at the types of
/// several values at once: whole numbers have kWholeBit, and what is more than bits to overwrite
/// has kCareBit.
enum class Type : std::uint8_t {
  Empty,
  Null,
  Single,
  Double,
  Currency,  ///< 64-bit count of ten-thousandths
  Date,      ///< days since 30 December 1899, the fraction is the time of day
  Boolean,   ///< -1 and 0
  Byte,
  Integer = 8,  ///< 16 bits
  Long,         ///< 32 bits
  String = 16,  ///< counted, as are the next two
  Object,       ///< a null pointer is Nothing
  Array,
  Reference,   ///< internal: points to the variable that stands behind a ByRef parameter
  ArrayLock,   ///< internal: keeps an array in place; the machine alone makes and ends these
  Error = 32,  ///< an error number; kMissing marks an omitted argument
};

inline constexpr unsigned kWholeBit = 8;
inline constexpr unsigned kCareBit = 16;

/// The error number that an omitted argument carries.
inline constexpr std::int32_t kMissing = static_cast<std::int32_t>(0x80020004);

/// The shared body of an array; elements in column order (first index fastest). Arrays have
/// value semantics: a writer that is not the only holder clones first (Value::writableArray).
/// The element row is charged to the memory meter.
struct ArrayRep {
  static constexpr std::size_t kMaxRank = 60;

  std::uint32_t references = 1;
  std::uint32_t locks = 0;         ///< For Each loops and element references; ReDim then fails (10)
  Type elementType = Type::Empty;  ///< Byte for byte arrays from components, else Empty (Variant)
  std::uint8_t rank = 0;           ///< dimensions; 0: not dimensioned yet
  std::uint32_t vectorCount = 0;   ///< elements when there is one dimension of Variants, else 0
  std::uint32_t rows = 0;          ///< first extent when there are two dimensions, else 0
  std::uint32_t columns = 0;       ///< second extent when there are two dimensions, else 0
                                   ///< (all three count indexes from 0: else 0)
  std::size_t count = 0;           ///< elements in all dimensions together
  Value* elements = nullptr;       ///< `count` of them; null in byte arrays
  String bytes;                    ///< a byte array's contents, raw(), nothing otherwise

  /// Makes an array with the given extents (upper bound + 1 each), all elements Empty. Error 9 for
  /// an extent below zero, error 7 when it is too large.
  static ArrayRep* create(std::span<const std::int32_t> extents);
  /// One whose indexes begin elsewhere than at 0: such come from other programs only.
  static ArrayRep* create(std::span<const std::int32_t> extents,
                          std::span<const std::int32_t> lowerBounds);
  static ArrayRep* fromValues(std::vector<Value> values);
  static ArrayRep* fromBytes(std::string_view contents);

  /// The element row copied; one reference, no locks.
  ArrayRep* clone() const;
  /// For ReDim Preserve: the array with a new last extent, elements kept where they still have a
  /// place. Consumes the caller's reference to `rep`, and moves the row when it was the only one.
  /// Error 9 when rank or another extent differ; `rep` is then still the caller's. Elements without
  /// a place go to `cut`, to be ended when the result is where it belongs: their end may run script
  /// code that uses the array.
  static ArrayRep* resized(ArrayRep* rep, std::span<const std::int32_t> extents,
                           std::vector<Value>& cut);
  /// Frees a body whose last reference is gone.
  static void destroy(ArrayRep* rep) noexcept;

  std::span<const std::int32_t> extents() const {
    return {reinterpret_cast<const std::int32_t*>(this + 1), rank};
  }
  /// Of each dimension.
  std::span<const std::int32_t> lowerBounds() const { return {extents().data() + rank, rank}; }

  /// The element, or null when the index is outside, the rank another, or this a byte array.
  Value* at(std::int32_t index) const;
  Value* at(std::int32_t row, std::int32_t column) const;
  Value* at(std::span<const std::int32_t> indexes) const;
  /// The element at a flat index below `count`, of byte arrays as well.
  Value element(std::size_t index) const;

 private:
  friend class EndQueue;
  ArrayRep() = default;
  ~ArrayRep();
  ArrayRep(const ArrayRep&) = delete;
  static ArrayRep* allocate(std::span<const std::int32_t> extents);
};

/// One script value: 16 bytes, a tag and a payload. Strings, arrays and objects are counted.
class Value {
 public:
  Value() : type_(Type::Empty), payload_{} {}
  Value(const Value& other) : type_(other.type_), payload_(other.payload_) {
    if (isCounted()) retain();
  }
  Value(Value&& other) noexcept : type_(other.type_), payload_(other.payload_) {
    other.type_ = Type::Empty;
  }
  Value& operator=(const Value& other) {
    if (other.isCounted()) other.retain();
    const Type type = other.type_;  // read before *this is emptied: they may be one
    const Payload payload = other.payload_;
    Value old(std::move(*this));  // released last: its end may run script code that reads *this
    type_ = type;
    fixed_ = false;
    payload_ = payload;
    return *this;
  }
  Value& operator=(Value&& other) noexcept {
    const Type type = std::exchange(other.type_, Type::Empty);
    const Payload payload = other.payload_;
    Value old(std::move(*this));
    type_ = type;
    fixed_ = false;
    payload_ = payload;
    return *this;
  }
  ~Value() {
    if (isCounted()) drop();
  }

  Value(String text) : type_(Type::String) { payload_.s = text.release(); }
  explicit Value(std::string_view ansi) : Value(String(ansi)) {}
  explicit Value(const char* ansi) : Value(String(ansi)) {}

  static Value null() { return tagged(Type::Null); }
  static Value boolean(bool b) { return fromInt(Type::Boolean, b ? -1 : 0); }
  static Value byte(std::uint8_t n) { return fromInt(Type::Byte, n); }
  static Value integer(std::int16_t n) { return fromInt(Type::Integer, n); }
  static Value longInt(std::int32_t n) { return fromInt(Type::Long, n); }
  /// Integer when it fits in 16 bits, else Long: the type of literals and of many results.
  static Value whole(std::int32_t n) {
    return fromInt(n >= INT16_MIN && n <= INT16_MAX ? Type::Integer : Type::Long, n);
  }
  static Value single(float n) { return fromDouble(Type::Single, n); }
  static Value number(double n) { return fromDouble(Type::Double, n); }
  static Value date(double days) { return fromDouble(Type::Date, days); }
  static Value currency(std::int64_t tenThousandths) {
    Value v = tagged(Type::Currency);
    v.payload_.currency = tenThousandths;
    return v;
  }
  static Value error(std::int32_t number) { return fromInt(Type::Error, number); }
  static Value missing() { return error(kMissing); }
  static Value object(Object* retained);  ///< adds a reference; null is Nothing
  static Value adopt(Object* owned);      ///< takes over the caller's reference
  static Value nothing() { return adopt(static_cast<Object*>(nullptr)); }
  static Value array(ArrayRep* owned) {  ///< takes over the caller's reference
    Value v = tagged(Type::Array);
    v.payload_.a = owned;
    return v;
  }
  static Value reference(Value* target) {
    Value v = tagged(Type::Reference);
    v.payload_.v = target;
    return v;
  }

  static Value arrayLock(ArrayRep* locked) {
    Value v = tagged(Type::ArrayLock);
    v.payload_.a = locked;
    return v;
  }

  Type type() const { return type_; }
  bool is(Type t) const { return type_ == t; }
  bool isEmpty() const { return type_ == Type::Empty; }
  bool isNull() const { return type_ == Type::Null; }
  bool isObject() const { return type_ == Type::Object; }
  bool isString() const { return type_ == Type::String; }
  bool isArray() const { return type_ == Type::Array; }
  bool isMissing() const { return type_ == Type::Error && payload_.i == kMissing; }

  /// Boolean (-1/0), Byte, Integer, Long and Error carry their number here.
  std::int32_t asInt() const { return payload_.i; }
  bool asBoolean() const { return payload_.i != 0; }
  /// Single (held widened), Double and Date.
  double asDouble() const { return payload_.d; }
  std::int64_t asCurrency() const { return payload_.currency; }
  String asString() const {
    VBS_ASSERT(isString());
    if (payload_.s) ++payload_.s->references;
    return String::adopt(payload_.s);
  }
  /// The body without counting; null for the empty string.
  StringRep* stringRep() const {
    VBS_ASSERT(isString());
    return payload_.s;
  }
  /// The string's body moved out for appending in place; this value becomes Empty.
  String takeString() {
    VBS_ASSERT(isString());
    type_ = Type::Empty;
    return String::adopt(payload_.s);
  }
  Object* asObject() const {
    VBS_ASSERT(isObject());
    return payload_.o;
  }
  ArrayRep* asArray() const {
    VBS_ASSERT(isArray() || is(Type::ArrayLock));
    return payload_.a;
  }
  /// The array's body, cloned first when somebody else holds it too.
  ArrayRep* writableArray();
  /// Whether this is the array of a variable declared with bounds: it can't be resized (error 10)
  /// or replaced (13). Copies are like any array.
  bool isFixedArray() const { return isArray() && fixed_; }
  void fixArray() { fixed_ = true; }
  Value* target() const {
    VBS_ASSERT(is(Type::Reference));
    return payload_.v;
  }

  /// The value behind a reference, or this value.
  const Value& deref() const { return type_ == Type::Reference ? *payload_.v : *this; }
  Value& deref() { return type_ == Type::Reference ? *payload_.v : *this; }

  /// For the machine's fast paths, on values known not to be counted. Tag and payload are always
  /// written and copied as two whole pieces: a piece that is read soon after is then at hand, where
  /// the processor would have to put one together from smaller ones.
  void setIntUncounted(Type t, std::int32_t n) {
    VBS_ASSERT(!isCounted());
    type_ = t;
    payload_.currency = static_cast<std::uint32_t>(n);
  }
  void setDoubleUncounted(Type t, double n) {
    VBS_ASSERT(!isCounted());
    type_ = t;
    payload_.d = n;
  }
  void copyUncounted(const Value& source) {
    VBS_ASSERT(!isCounted() && !source.isCounted());
    type_ = source.type_;
    payload_.currency = source.payload_.currency;
  }
  /// Leaves the value Empty whose bits have gone elsewhere, with the reference that they count.
  void forget() { type_ = Type::Empty; }
  bool isCounted() const { return type_ >= Type::String && type_ <= Type::Array; }

 private:
  static Value tagged(Type t) {
    Value v;
    v.type_ = t;
    return v;
  }
  static Value fromInt(Type t, std::int32_t n) {
    Value v;
    v.type_ = t;
    v.payload_.i = n;
    return v;
  }
  static Value fromDouble(Type t, double n) {
    Value v;
    v.type_ = t;
    v.payload_.d = n;
    return v;
  }
  void retain() const;
  void drop();  ///< gives up the counted payload; leaves the tag as it was

  Type type_;
  bool fixed_ = false;  ///< means something for arrays only
  union Payload {
    std::int64_t currency;
    std::int32_t i;
    double d;
    StringRep* s;
    Object* o;
    ArrayRep* a;
    Value* v;
  } payload_;
};
static_assert(sizeof(Value) == 16);

inline Value* ArrayRep::at(std::int32_t index) const {
  return static_cast<std::uint32_t>(index) < vectorCount ? elements + index : nullptr;
}
inline Value* ArrayRep::at(std::int32_t row, std::int32_t column) const {
  if (static_cast<std::uint32_t>(row) >= rows || static_cast<std::uint32_t>(column) >= columns) {
    return nullptr;
  }
  return elements + (static_cast<std::size_t>(column) * rows + static_cast<std::size_t>(row));
}

}  // namespace quorvane::vbs

#include "vbscript/values/object.h"  // the counting of values needs the whole object
