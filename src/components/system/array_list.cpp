#include "components/system/array_list.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "components/component_error.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"
#include "vbscript/values/value_walk.h"

namespace quorvane {

using vbs::Args;
using vbs::CallKind;
using vbs::Type;
using vbs::Value;

namespace {

constexpr std::string_view kSource = "mscorlib";

[[noreturn]] void failRange(std::string_view description) {
  constexpr std::int32_t kArgumentOutOfRange = -2146233086;
  throwComponentError(kArgumentOutOfRange, description, kSource);
}

[[noreturn]] void failCompare() {
  constexpr std::int32_t kInvalidOperation = -2146233079;
  throwComponentError(kInvalidOperation, "Failed to compare two elements in the array.", kSource);
}

[[noreturn]] void failIndex() {
  failRange(
      "Index was out of range. Must be non-negative and less than the size of the collection.\r\n"
      "Parameter name: index");
}

/// What can be ordered with its like.
enum class Kind { Nothing, Number, Date, Boolean, Text, Other };

Kind kindOf(const Value& value) {
  switch (value.type()) {
    case Type::Empty:
    case Type::Null:
      return Kind::Nothing;
    case Type::Byte:
    case Type::Integer:
    case Type::Long:
    case Type::Single:
    case Type::Double:
    case Type::Currency:
      return Kind::Number;
    case Type::Date:
      return Kind::Date;
    case Type::Boolean:
      return Kind::Boolean;
    case Type::String:
      return Kind::Text;
    default:
      return Kind::Other;
  }
}

/// Without regard to letter case; of two that differ in nothing else the lower case comes first.
int compareTexts(const vbs::String& a, const vbs::String& b) {
  const int folded = vbs::String::compareText(a, b);
  return folded != 0 ? folded : vbs::String::compareBinary(b, a);
}

template <class T>
int order(const T& a, const T& b) {
  return a < b ? -1 : b < a ? 1 : 0;
}

/// Less, equal or greater than 0. Nothing comes before everything.
int compare(const Value& a, const Value& b) {
  const Kind kind = kindOf(a);
  const Kind other = kindOf(b);
  if (kind == Kind::Nothing || other == Kind::Nothing) {
    return (other == Kind::Nothing) - (kind == Kind::Nothing);
  }
  if (kind != other || kind == Kind::Other) failCompare();
  if (kind == Kind::Text) return compareTexts(a.asString(), b.asString());
  if (kind == Kind::Boolean) return order(a.asBoolean(), b.asBoolean());
  return order(vbs::toDouble(a), vbs::toDouble(b));
}

bool same(const Value& a, const Value& b) {
  const Kind kind = kindOf(a);
  if (kind != kindOf(b)) return false;
  if (kind == Kind::Text) return a.asString() == b.asString();
  if (kind == Kind::Other) return a.isObject() && b.isObject() && a.asObject() == b.asObject();
  return compare(a, b) == 0;
}

std::size_t counted(const Value& value) {
  const std::int32_t number = vbs::toLong(value);
  if (number < 0) failRange("Non-negative number required.\r\nParameter name: count");
  return static_cast<std::size_t>(number);
}

Value number(std::size_t count) {
  return Value::longInt(static_cast<std::int32_t>(count));
}

class ArrayList final : public vbs::NativeObject<ArrayList> {
 public:
  ArrayList() = default;
  explicit ArrayList(std::vector<Value> values) {
    grow(values.size());
    values_ = std::move(values);
  }
  std::string_view typeName() const override { return "ArrayList"; }
  static std::span<const vbs::Member<ArrayList>> members();

  std::unique_ptr<vbs::Enumerator> enumerate() override {
    return std::make_unique<vbs::ValueWalk>(values_);
  }
  void visitReferences(vbs::ReferenceVisitor& visitor) override {
    for (Value& value : values_) visitor.value(value);
  }
  void dropReferences() override { empty(); }

 private:
  struct Range {
    std::size_t start;
    std::size_t count;
  };

  /// Room for so many elements.
  void grow(std::size_t count) {
    if (count <= capacity_) return;
    setCapacity(std::max({count, capacity_ * 2, std::size_t{4}}));
  }
  void setCapacity(std::size_t capacity) {
    charge_.change(capacity * sizeof(Value));
    capacity_ = capacity;
    values_.reserve(capacity);
  }
  /// The end of elements may run code of the script, which then finds the list empty.
  void empty() {
    std::vector<Value> ended;
    ended.swap(values_);
  }
  std::size_t index(const Value& value) const {
    const std::int32_t wanted = vbs::toLong(value);
    if (wanted < 0 || static_cast<std::size_t>(wanted) >= values_.size()) failIndex();
    return static_cast<std::size_t>(wanted);
  }
  /// The range that two arguments name, or all.
  Range range(Args args) const;
  void insertAll(std::size_t at, const Value& collection);
  std::int32_t find(const Value& wanted, Range range) const;

  Value getItem(Args args) { return values_[index(args[0])]; }
  void putItem(Args args, CallKind) {
    Value& place = values_[index(args[0])];
    const Value old = std::exchange(place, args[1].deref());
  }
  Value add(Args args);
  Value addRange(Args args);
  Value insert(Args args);
  Value insertRange(Args args);
  Value remove(Args args);
  Value removeAt(Args args);
  Value removeRange(Args args);
  Value clear(Args) {
    empty();
    return {};
  }
  Value clone(Args) { return Value::adopt(new ArrayList(values_)); }
  Value getRange(Args args);
  Value contains(Args args) { return Value::boolean(find(args[0], {0, values_.size()}) >= 0); }
  Value indexOf(Args args);
  Value lastIndexOf(Args args);
  Value binarySearch(Args args);
  Value reverse(Args args);
  Value sort(Args);
  Value toArray(Args) { return Value::array(vbs::ArrayRep::fromValues(values_)); }
  Value count(Args) { return number(values_.size()); }
  Value getCapacity(Args) { return number(capacity_); }
  void putCapacity(Args args, CallKind);
  Value trimToSize(Args);
  Value no(Args) { return Value::boolean(false); }
  Value toText(Args) { return Value("System.Collections.ArrayList"); }

  std::vector<Value> values_;
  std::size_t capacity_ = 0;
  vbs::MemoryCharge charge_;  ///< of the capacity
};

std::span<const vbs::Member<ArrayList>> ArrayList::members() {
  using Self = ArrayList;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"item", 1, 1, &Self::getItem, &Self::putItem, true},
      {"add", 1, 1, &Self::add},
      {"count", 0, 0, &Self::count},
      {"addrange", 1, 1, &Self::addRange},
      {"binarysearch", 1, 1, &Self::binarySearch},
      {"capacity", 0, 0, &Self::getCapacity, &Self::putCapacity},
      {"clear", 0, 0, &Self::clear},
      {"clone", 0, 0, &Self::clone},
      {"contains", 1, 1, &Self::contains},
      {"getrange", 2, 2, &Self::getRange},
      {"indexof", 2, 2, &Self::indexOf},
      {"indexof_2", 2, 2, &Self::indexOf},
      {"indexof_3", 1, 1, &Self::indexOf},
      {"insert", 2, 2, &Self::insert},
      {"insertrange", 2, 2, &Self::insertRange},
      {"isfixedsize", 0, 0, &Self::no},
      {"isreadonly", 0, 0, &Self::no},
      {"issynchronized", 0, 0, &Self::no},
      {"lastindexof", 1, 1, &Self::lastIndexOf},
      {"remove", 1, 1, &Self::remove},
      {"removeat", 1, 1, &Self::removeAt},
      {"removerange", 2, 2, &Self::removeRange},
      {"reverse", 0, 0, &Self::reverse},
      {"reverse_2", 2, 2, &Self::reverse},
      {"sort", 0, 0, &Self::sort},
      {"toarray", 0, 0, &Self::toArray},
      {"tostring", 0, 0, &Self::toText},
      {"trimtosize", 0, 0, &Self::trimToSize},
  };
  return kMembers;
}

ArrayList::Range ArrayList::range(Args args) const {
  if (args.size() < 2) return {0, values_.size()};
  const Range range{counted(args[0]), counted(args[1])};
  if (range.start > values_.size() || range.count > values_.size() - range.start) {
    constexpr std::int32_t kArgument = -2147024809;
    throwComponentError(kArgument,
                        "Offset and length were out of bounds for the array or count is greater "
                        "than the number of elements from index to the end of the source "
                        "collection.",
                        kSource);
  }
  return range;
}

Value ArrayList::add(Args args) {
  grow(values_.size() + 1);
  values_.push_back(args[0].deref());
  return number(values_.size() - 1);
}

void ArrayList::insertAll(std::size_t at, const Value& collection) {
  std::vector<Value> added;
  const Value& given = collection.deref();
  if (given.isArray()) {
    const vbs::ArrayRep& array = *given.asArray();
    added.reserve(array.count);
    for (std::size_t i = 0; i < array.count; ++i) added.push_back(array.element(i));
  } else {
    const auto walk = vbs::toObject(given)->enumerate();
    vbs::MemoryCharge charge;
    for (Value item; walk->next(item);) {
      charge.change((added.size() + 1) * sizeof(Value));
      added.push_back(item);
    }
  }
  grow(values_.size() + added.size());
  values_.insert(values_.begin() + static_cast<std::ptrdiff_t>(at), added.begin(), added.end());
}

Value ArrayList::addRange(Args args) {
  insertAll(values_.size(), args[0]);
  return {};
}

Value ArrayList::insert(Args args) {
  const std::size_t at = counted(args[0]);
  if (at > values_.size()) failIndex();
  vbs::countWork((values_.size() - at) * sizeof(Value));
  grow(values_.size() + 1);
  values_.insert(values_.begin() + static_cast<std::ptrdiff_t>(at), args[1].deref());
  return {};
}

Value ArrayList::insertRange(Args args) {
  const std::size_t at = counted(args[0]);
  if (at > values_.size()) failIndex();
  insertAll(at, args[1]);
  return {};
}

Value ArrayList::remove(Args args) {
  const std::int32_t at = find(args[0], {0, values_.size()});
  if (at < 0) return {};
  const Value ended = std::move(values_[static_cast<std::size_t>(at)]);
  values_.erase(values_.begin() + at);
  return {};
}

Value ArrayList::removeAt(Args args) {
  const std::size_t at = index(args[0]);
  vbs::countWork((values_.size() - at) * sizeof(Value));
  const Value ended = std::move(values_[at]);
  values_.erase(values_.begin() + static_cast<std::ptrdiff_t>(at));
  return {};
}

Value ArrayList::removeRange(Args args) {
  const Range gone = range(args);
  const auto first = values_.begin() + static_cast<std::ptrdiff_t>(gone.start);
  const auto last = first + static_cast<std::ptrdiff_t>(gone.count);
  const std::vector<Value> ended(std::make_move_iterator(first), std::make_move_iterator(last));
  values_.erase(first, last);
  return {};
}

Value ArrayList::getRange(Args args) {
  const Range wanted = range(args);
  const auto first = values_.begin() + static_cast<std::ptrdiff_t>(wanted.start);
  return Value::adopt(
      new ArrayList(std::vector<Value>(first, first + static_cast<std::ptrdiff_t>(wanted.count))));
}

std::int32_t ArrayList::find(const Value& wanted, Range range) const {
  const Value& sought = wanted.deref();
  vbs::countWork(range.count * sizeof(Value));
  for (std::size_t i = range.start; i < range.start + range.count; ++i) {
    if (same(values_[i], sought)) return static_cast<std::int32_t>(i);
  }
  return -1;
}

Value ArrayList::indexOf(Args args) {
  const std::size_t start = args.size() > 1 ? counted(args[1]) : 0;
  if (start > values_.size()) failIndex();
  return Value::longInt(find(args[0], {start, values_.size() - start}));
}

Value ArrayList::lastIndexOf(Args args) {
  for (std::size_t i = values_.size(); i > 0; --i) {
    if (same(values_[i - 1], args[0].deref())) return number(i - 1);
  }
  return Value::longInt(-1);
}

/// The place of an equal element, or the complement of the place where one would stand.
Value ArrayList::binarySearch(Args args) {
  const Value& sought = args[0].deref();
  const auto found = std::lower_bound(
      values_.begin(), values_.end(), sought,
      [](const Value& element, const Value& wanted) { return compare(element, wanted) < 0; });
  const auto at = static_cast<std::int32_t>(found - values_.begin());
  return Value::longInt(found != values_.end() && compare(*found, sought) == 0 ? at : ~at);
}

Value ArrayList::reverse(Args args) {
  const Range turned = range(args);
  const auto first = values_.begin() + static_cast<std::ptrdiff_t>(turned.start);
  vbs::countWork(turned.count * sizeof(Value));
  std::reverse(first, first + static_cast<std::ptrdiff_t>(turned.count));
  return {};
}

/// On a copy: an error or the end of the script's time amid the sorting leaves the list as it was.
Value ArrayList::sort(Args) {
  const vbs::MemoryCharge charge(values_.size() * sizeof(Value));
  std::vector<Value> sorted = values_;
  std::stable_sort(sorted.begin(), sorted.end(), [](const Value& a, const Value& b) {
    constexpr std::size_t kComparison = 4096;
    vbs::countWork(kComparison);
    return compare(a, b) < 0;
  });
  std::swap_ranges(sorted.begin(), sorted.end(), values_.begin());
  return {};
}

void ArrayList::putCapacity(Args args, CallKind) {
  const std::int32_t wanted = vbs::toLong(args[0]);
  if (wanted < 0 || static_cast<std::size_t>(wanted) < values_.size()) {
    failRange("capacity was less than the current size.\r\nParameter name: value");
  }
  setCapacity(static_cast<std::size_t>(wanted));
}

Value ArrayList::trimToSize(Args) {
  values_.shrink_to_fit();
  setCapacity(values_.size());
  return {};
}

}  // namespace

const Component kArrayList{"system.collections.arraylist",
                           [](const Services&) { return Value::adopt(new ArrayList()); }};

}  // namespace quorvane
