#include "automation/windows/array_conversion.h"

#include <array>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

#include "automation/windows/failures.h"
#include "automation/windows/value_conversion.h"
#include "vbscript/values/memory_meter.h"

namespace quorvane::automation {

using vbs::ArrayRep;
using vbs::Value;

namespace {

struct Destroy {
  void operator()(SAFEARRAY* array) const { ::SafeArrayDestroy(array); }
};
using OwnedArray = std::unique_ptr<SAFEARRAY, Destroy>;

/// The elements of an array, which stays where it is as long as this lives. They stand in the same
/// order as ours: the first index is the fastest.
class Elements {
 public:
  explicit Elements(SAFEARRAY* array) : array_(array) {
    throwIfFailed(::SafeArrayAccessData(array, reinterpret_cast<void**>(&data_)));
  }
  Elements(const Elements&) = delete;
  Elements& operator=(const Elements&) = delete;
  ~Elements() { ::SafeArrayUnaccessData(array_); }
  char* at(std::size_t index) const { return data_ + index * array_->cbElements; }

 private:
  SAFEARRAY* array_;
  char* data_ = nullptr;
};

VARTYPE elementType(SAFEARRAY* array) {
  VARTYPE type = VT_EMPTY;
  throwIfFailed(::SafeArrayGetVartype(array, &type));
  return type;
}

/// Of each dimension, the first one first.
struct Shape {
  std::vector<std::int32_t> extents;
  std::vector<std::int32_t> lowerBounds;
};

Shape shapeOf(const SAFEARRAY& array) {
  Shape shape;
  for (USHORT i = array.cDims; i-- > 0;) {  // they stand the other way round
    const SAFEARRAYBOUND& bound = array.rgsabound[i];
    const std::int64_t last = std::int64_t{bound.lLbound} + bound.cElements - 1;
    if (!std::in_range<std::int32_t>(bound.cElements) || !std::in_range<std::int32_t>(last)) {
      vbs::throwError(vbs::ErrorCode::OutOfMemory);
    }
    shape.extents.push_back(static_cast<std::int32_t>(bound.cElements));
    shape.lowerBounds.push_back(bound.lLbound);
  }
  return shape;
}

}  // namespace

std::size_t sizeOf(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    default:
      return 8;  // numbers of this size, and all that is pointed to
  }
}

SAFEARRAY* makeSafeArray(const ArrayRep& array, VARTYPE& type) {
  const ConversionDepth deeper;
  const bool isBytes = array.elementType == vbs::Type::Byte;
  const VARTYPE element = isBytes ? VT_UI1 : VT_VARIANT;
  type = element | VT_ARRAY;
  if (array.rank == 0) return nullptr;
  vbs::runContext.memory.require(array.count * (isBytes ? 1 : sizeof(VARIANT)));
  std::array<SAFEARRAYBOUND, ArrayRep::kMaxRank> bounds{};
  for (std::size_t i = 0; i < array.rank; ++i) {
    bounds[i].cElements = static_cast<ULONG>(array.extents()[i]);
    bounds[i].lLbound = array.lowerBounds()[i];
  }
  OwnedArray made(::SafeArrayCreate(element, array.rank, bounds.data()));
  if (!made) vbs::throwError(vbs::ErrorCode::OutOfMemory);
  if (array.count == 0) return made.release();
  {
    const Elements elements(made.get());
    if (isBytes) {
      std::memcpy(elements.at(0), array.bytes.raw().data(), array.count);
    } else {
      for (std::size_t i = 0; i < array.count; ++i) {
        toVariant(array.elements[i], *reinterpret_cast<VARIANT*>(elements.at(i)));
      }
    }
  }
  return made.release();
}

Value arrayValue(SAFEARRAY* array) {
  const ConversionDepth deeper;
  if (!array || array->cDims == 0) return Value::array(ArrayRep::create({}));
  if (array->cDims > ArrayRep::kMaxRank) vbs::throwError(vbs::ErrorCode::UnsupportedType);
  const VARTYPE type = elementType(array);
  const Shape shape = shapeOf(*array);
  if (type == VT_UI1 && shape.extents.size() == 1) {
    const Elements elements(array);
    return Value::array(
        ArrayRep::fromBytes({elements.at(0), static_cast<std::size_t>(shape.extents[0])}));
  }
  ArrayRep* made = ArrayRep::create(shape.extents, shape.lowerBounds);
  Value value = Value::array(made);
  if (made->count == 0) return value;
  const Elements elements(array);
  for (std::size_t i = 0; i < made->count; ++i) made->elements[i] = valueAt(type, elements.at(i));
  return value;
}

}  // namespace quorvane::automation
