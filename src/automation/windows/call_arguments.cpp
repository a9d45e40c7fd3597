#include "automation/windows/call_arguments.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "automation/windows/value_conversion.h"

namespace quorvane::automation {

using vbs::ArrayRep;
using vbs::Type;
using vbs::Value;

namespace {

bool isSame(const Value& a, const Value& b);

bool haveSameShape(const ArrayRep& a, const ArrayRep& b) {
  return a.elementType == b.elementType && std::ranges::equal(a.extents(), b.extents()) &&
         std::ranges::equal(a.lowerBounds(), b.lowerBounds());
}

bool isSameArray(const ArrayRep& a, const ArrayRep& b) {
  if (!haveSameShape(a, b)) return false;
  if (a.elementType == Type::Byte) return a.bytes == b.bytes;
  return std::equal(a.elements, a.elements + a.count, b.elements, isSame);
}

/// Whether there is nothing to be told apart.
bool isSame(const Value& a, const Value& b) {
  if (a.type() != b.type()) return false;
  switch (a.type()) {
    case Type::Empty:
    case Type::Null:
      return true;
    case Type::Single:
    case Type::Double:
    case Type::Date:
      return std::bit_cast<std::uint64_t>(a.asDouble()) ==
             std::bit_cast<std::uint64_t>(b.asDouble());
    case Type::Currency:
      return a.asCurrency() == b.asCurrency();
    case Type::String:
      return a.asString() == b.asString();
    case Type::Object:
      return a.asObject() == b.asObject();
    case Type::Array:
      return isSameArray(*a.asArray(), *b.asArray());
    default:
      return a.asInt() == b.asInt();
  }
}

/// An array of the same shape changes element by element: the variable may be of fixed bounds, or
/// a loop may be walking it.
void assignElements(Value& variable, ArrayRep& fresh) {
  for (std::size_t i = 0; i < fresh.count; ++i) {
    if (!isSame(variable.asArray()->elements[i], fresh.elements[i])) {
      variable.writableArray()->elements[i] = std::move(fresh.elements[i]);
    }
  }
}

void assign(Value& variable, Value fresh) {
  if (isSame(variable, fresh)) return;
  if (variable.isArray()) {
    const ArrayRep& present = *variable.asArray();
    const bool isByte = present.elementType == Type::Byte;
    if (fresh.isArray() && !isByte && haveSameShape(present, *fresh.asArray())) {
      return assignElements(variable, *fresh.asArray());
    }
    if (variable.isFixedArray()) vbs::throwError(vbs::ErrorCode::TypeMismatch);
    if (present.locks > 0) vbs::throwError(vbs::ErrorCode::ArrayLocked);
  }
  variable = std::move(fresh);
}

}  // namespace

CallArguments::CallArguments(vbs::Args args, vbs::CallKind kind)
    : args_(args), given_(args.size()), places_(args.size()) {
  const bool assigns = kind == vbs::CallKind::Let || kind == vbs::CallKind::Set;
  for (std::size_t i = 0; i < args.size(); ++i) {
    VARIANT& given = *given_[args.size() - 1 - i];
    const bool isAssigned = assigns && i + 1 == args.size();
    if (args[i].is(Type::Reference) && !isAssigned) {
      toVariant(args[i], *places_[i]);
      given.vt = VT_BYREF | VT_VARIANT;
      given.pvarVal = places_[i].address();
    } else {
      toVariant(args[i], given);
    }
  }
  // A row of these is a row of what they hold.
  static_assert(sizeof(Variant) == sizeof(VARIANT));
  params_.rgvarg = given_.empty() ? nullptr : given_.front().address();
  params_.cArgs = static_cast<UINT>(given_.size());
  if (assigns) {
    params_.rgdispidNamedArgs = &named_;
    params_.cNamedArgs = 1;
  }
}

void CallArguments::writeBack() {
  for (std::size_t i = 0; i < args_.size(); ++i) {
    if (given_[args_.size() - 1 - i]->vt != (VT_BYREF | VT_VARIANT)) continue;
    assign(*args_[i].target(), fromVariant(*places_[i]));
  }
}

}  // namespace quorvane::automation
