#include "vbscript/values/value.h"

#include <algorithm>
#include <new>

#include "vbscript/values/heap.h"

namespace quorvane::vbs {

namespace {

/// Rows of values are moved as bytes: a value may stand anywhere.
Value* allocateRow(std::size_t count) {
  if (count == 0) return nullptr;
  if (count > PTRDIFF_MAX / sizeof(Value)) throwError(ErrorCode::OutOfMemory);
  const std::size_t size = count * sizeof(Value);
  runContext.memory.charge(size);
  auto* row = static_cast<Value*>(takeMemory(size));
  if (!row) {
    runContext.memory.release(size);
    throwError(ErrorCode::OutOfMemory);
  }
  return row;
}

void freeRow(Value* row, std::size_t count) {
  if (!row) return;
  runContext.memory.release(count * sizeof(Value));
  giveMemoryBack(row);
}

std::size_t product(std::span<const std::int32_t> extents) {
  std::size_t count = extents.empty() ? 0 : 1;
  for (const std::int32_t extent : extents) {
    if (extent < 0) throwError(ErrorCode::SubscriptOutOfRange);
    if (__builtin_mul_overflow(count, static_cast<std::size_t>(extent), &count)) {
      throwError(ErrorCode::OutOfMemory);
    }
  }
  return count;
}

bool isAtZero(std::span<const std::int32_t> lowerBounds) {
  return std::ranges::all_of(lowerBounds, [](std::int32_t bound) { return bound == 0; });
}

void reshape(ArrayRep& rep, std::span<const std::int32_t> extents, std::size_t count) {
  std::copy(extents.begin(), extents.end(), reinterpret_cast<std::int32_t*>(&rep + 1));
  rep.count = count;
  const bool isPlain = rep.elementType == Type::Empty && isAtZero(rep.lowerBounds());
  const auto extentOf = [&](std::size_t i) { return static_cast<std::uint32_t>(extents[i]); };
  rep.vectorCount = isPlain && extents.size() == 1 ? extentOf(0) : 0;
  rep.rows = isPlain && extents.size() == 2 ? extentOf(0) : 0;
  rep.columns = isPlain && extents.size() == 2 ? extentOf(1) : 0;
}

/// What stands behind a body: extents and lower bounds.
std::size_t boundsSize(std::size_t rank) {
  return 2 * rank * sizeof(std::int32_t);
}

}  // namespace

ArrayRep* ArrayRep::allocate(std::span<const std::int32_t> extents) {
  if (extents.size() > kMaxRank) throwError(ErrorCode::SubscriptOutOfRange);
  const std::size_t size = sizeof(ArrayRep) + boundsSize(extents.size());
  runContext.memory.charge(size);
  auto* rep = new (::operator new(size)) ArrayRep;
  rep->rank = static_cast<std::uint8_t>(extents.size());
  std::memset(static_cast<void*>(rep + 1), 0, boundsSize(extents.size()));
  return rep;
}

ArrayRep* ArrayRep::create(std::span<const std::int32_t> extents) {
  return create(extents, {});
}

ArrayRep* ArrayRep::create(std::span<const std::int32_t> extents,
                           std::span<const std::int32_t> lowerBounds) {
  const std::size_t count = product(extents);
  ArrayRep* rep = allocate(extents);
  std::copy(lowerBounds.begin(), lowerBounds.end(),
            reinterpret_cast<std::int32_t*>(rep + 1) + rep->rank);
  Value holder = Value::array(rep);  // frees the body when the row cannot be had
  rep->elements = allocateRow(count);
  std::uninitialized_default_construct_n(rep->elements, count);
  reshape(*rep, extents, count);
  ++rep->references;
  return rep;
}

ArrayRep* ArrayRep::fromValues(std::vector<Value> values) {
  const auto extent = static_cast<std::int32_t>(values.size());
  ArrayRep* rep = create({&extent, 1});
  std::move(values.begin(), values.end(), rep->elements);
  return rep;
}

ArrayRep* ArrayRep::fromBytes(std::string_view contents) {
  String bytes(contents);
  const auto extent = static_cast<std::int32_t>(contents.size());
  ArrayRep* rep = allocate({&extent, 1});
  rep->elementType = Type::Byte;
  rep->bytes = std::move(bytes);
  reshape(*rep, {&extent, 1}, contents.size());
  return rep;
}

ArrayRep* ArrayRep::clone() const {
  if (elementType == Type::Byte) return fromBytes(bytes.raw());
  ArrayRep* copy = create(extents(), lowerBounds());
  std::copy_n(elements, count, copy->elements);
  return copy;
}

ArrayRep* ArrayRep::resized(ArrayRep* rep, std::span<const std::int32_t> extents,
                            std::vector<Value>& cut) {
  const auto old = rep->extents();
  if (old.empty()) {
    ArrayRep* fresh = create(extents);
    Value::array(rep);  // gives the reference up
    return fresh;
  }
  if (rep->elementType != Type::Empty || !isAtZero(rep->lowerBounds()) ||
      old.size() != extents.size() || !std::equal(old.begin(), old.end() - 1, extents.begin())) {
    throwError(ErrorCode::SubscriptOutOfRange);
  }
  const std::size_t count = product(extents);
  if (rep->references > 1) {
    ArrayRep* fresh = create(extents);
    std::copy_n(rep->elements, std::min(count, rep->count), fresh->elements);
    Value::array(rep);
    return fresh;
  }
  // Elements are in column order, so a new last extent only cuts or lengthens the row.
  Value* row = allocateRow(count);
  const std::size_t kept = std::min(count, rep->count);
  // The elements move as they are, their counts with them.
  if (kept > 0) {
    std::memcpy(static_cast<void*>(row), static_cast<const void*>(rep->elements),
                kept * sizeof(Value));
  }
  std::uninitialized_default_construct_n(row + kept, count - kept);
  Value* const oldRow = std::exchange(rep->elements, row);
  const std::size_t oldCount = rep->count;
  reshape(*rep, extents, count);
  cut.assign(std::make_move_iterator(oldRow + kept), std::make_move_iterator(oldRow + oldCount));
  std::destroy(oldRow + kept, oldRow + oldCount);
  freeRow(oldRow, oldCount);
  return rep;
}

Value* ArrayRep::at(std::span<const std::int32_t> indexes) const {
  if (indexes.size() != rank || rank == 0 || !elements) return nullptr;
  std::size_t flat = 0;
  std::size_t stride = 1;
  for (std::size_t i = 0; i < rank; ++i) {
    const std::int64_t extent = extents()[i];
    const std::int64_t place = std::int64_t{indexes[i]} - lowerBounds()[i];
    if (place < 0 || place >= extent) return nullptr;
    flat += stride * static_cast<std::size_t>(place);
    stride *= static_cast<std::size_t>(extent);
  }
  return elements + flat;
}

Value ArrayRep::element(std::size_t index) const {
  VBS_ASSERT(index < count);
  if (elementType == Type::Byte) return Value::byte(static_cast<std::uint8_t>(bytes.raw()[index]));
  return elements[index];
}

ArrayRep* Value::writableArray() {
  ArrayRep* rep = payload_.a;
  if (rep->references > 1) {
    payload_.a = rep->clone();
    --rep->references;
  }
  return payload_.a;
}

}  // namespace quorvane::vbs
