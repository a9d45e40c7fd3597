#include "automation/windows/value_conversion.h"

#include <cmath>
#include <cstring>
#include <limits>

#include "automation/windows/array_conversion.h"
#include "automation/windows/failures.h"
#include "automation/windows/script_dispatch.h"
#include "automation/windows/system_object.h"
#include "vbscript/values/convert.h"

namespace quorvane::automation {

using vbs::Type;
using vbs::Value;

namespace {

constexpr int kDeepest = 200;
thread_local int depth = 0;

template <class T>
T read(const void* data) {
  T value;
  // NOLINTNEXTLINE(bugprone-sizeof-expression): it may be a pointer that stands there
  std::memcpy(&value, data, sizeof(T));
  return value;
}

/// For the types that scripts lack.
template <class T>
Value wholeNumber(const void* data) {
  const T number = read<T>(data);
  if (std::in_range<std::int32_t>(number)) {
    return Value::longInt(static_cast<std::int32_t>(number));
  }
  return Value::number(static_cast<double>(number));
}

Value decimalValue(const DECIMAL& decimal) {
  CY exact{};
  DECIMAL back{};
  DECIMAL copy = decimal;
  if (SUCCEEDED(::VarCyFromDec(&copy, &exact)) && SUCCEEDED(::VarDecFromCy(exact, &back)) &&
      ::VarDecCmp(&copy, &back) == VARCMP_EQ) {
    return Value::currency(exact.int64);
  }
  double number = 0;
  throwIfFailed(::VarR8FromDec(&copy, &number));
  return Value::number(number);
}

IDispatch* dispatchOf(vbs::Object* object) {
  if (!object) return nullptr;
  if (auto* system = dynamic_cast<SystemObject*>(object)) return system->sharedDispatch();
  return ScriptDispatch::of(*object).release();
}

}  // namespace

ConversionDepth::ConversionDepth() {
  if (depth == kDeepest) vbs::throwError(vbs::ErrorCode::OutOfStackSpace);
  ++depth;
}

ConversionDepth::~ConversionDepth() {
  --depth;
}

BSTR makeBstr(const vbs::String& text) {
  const vbs::String wide = text.toWide();
  const std::string_view bytes = wide.raw();
  BSTR made = ::SysAllocStringByteLen(nullptr, static_cast<UINT>(bytes.size()));
  if (!made) vbs::throwError(vbs::ErrorCode::OutOfMemory);
  std::memcpy(made, bytes.data(), bytes.size());
  return made;
}

vbs::String textOf(BSTR text) {
  const UINT bytes = ::SysStringByteLen(text);
  if (bytes % 2 != 0) {
    return vbs::String::fromWideBytes({reinterpret_cast<const char*>(text), bytes});
  }
  return vbs::String::fromWide({reinterpret_cast<const char16_t*>(text), bytes / 2});
}

void toVariant(const Value& given, VARIANT& out) {
  const Value& value = given.deref();
  VARTYPE type = VT_EMPTY;
  switch (value.type()) {
    case Type::Empty:
      break;
    case Type::Null:
      type = VT_NULL;
      break;
    case Type::Integer:
      type = VT_I2;
      out.iVal = static_cast<SHORT>(value.asInt());
      break;
    case Type::Long:
      type = VT_I4;
      out.lVal = value.asInt();
      break;
    case Type::Single:
      type = VT_R4;
      out.fltVal = static_cast<float>(value.asDouble());
      break;
    case Type::Double:
      type = VT_R8;
      out.dblVal = value.asDouble();
      break;
    case Type::Currency:
      type = VT_CY;
      out.cyVal.int64 = value.asCurrency();
      break;
    case Type::Date:
      type = VT_DATE;
      out.date = value.asDouble();
      break;
    case Type::Boolean:
      type = VT_BOOL;
      out.boolVal = value.asBoolean() ? VARIANT_TRUE : VARIANT_FALSE;
      break;
    case Type::Byte:
      type = VT_UI1;
      out.bVal = static_cast<BYTE>(value.asInt());
      break;
    case Type::Error:
      type = VT_ERROR;
      out.scode = value.asInt();
      break;
    case Type::String:
      type = VT_BSTR;
      out.bstrVal = makeBstr(value.asString());
      break;
    case Type::Object:
      type = VT_DISPATCH;
      out.pdispVal = dispatchOf(value.asObject());
      break;
    case Type::Array:
      out.parray = makeSafeArray(*value.asArray(), type);
      break;
    default:
      vbs::throwError(vbs::ErrorCode::UnsupportedType);
  }
  out.vt = type;
}

Value valueAt(VARTYPE type, const void* data) {
  if (type & VT_ARRAY) return arrayValue(read<SAFEARRAY*>(data));
  switch (type) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return Value::null();
    case VT_I2:
      return Value::integer(read<SHORT>(data));
    case VT_I4:
    case VT_INT:
      return Value::longInt(read<LONG>(data));
    case VT_R4:
      return Value::single(read<float>(data));
    case VT_R8:
      return Value::number(read<double>(data));
    case VT_CY:
      return Value::currency(read<CY>(data).int64);
    case VT_DATE:
      return Value::date(read<DATE>(data));
    case VT_BSTR:
      return textOf(read<BSTR>(data));
    case VT_DISPATCH:
      return objectValue(read<IDispatch*>(data));
    case VT_UNKNOWN:
      return unknownValue(read<IUnknown*>(data));
    case VT_ERROR:
      return Value::error(read<SCODE>(data));
    case VT_BOOL:
      return Value::boolean(read<VARIANT_BOOL>(data) != VARIANT_FALSE);
    case VT_VARIANT:
      return fromVariant(*static_cast<const VARIANT*>(data));
    case VT_DECIMAL:
      return decimalValue(read<DECIMAL>(data));
    case VT_UI1:
      return Value::byte(read<BYTE>(data));
    case VT_I1:
      return Value::integer(read<std::int8_t>(data));
    case VT_UI2:
      return wholeNumber<USHORT>(data);
    case VT_UI4:
    case VT_UINT:
      return wholeNumber<ULONG>(data);
    case VT_I8:
      return wholeNumber<LONGLONG>(data);
    case VT_UI8:
      return wholeNumber<ULONGLONG>(data);
    default:
      vbs::throwError(vbs::ErrorCode::UnsupportedType);
  }
}

Value fromVariant(const VARIANT& variant) {
  const auto type = static_cast<VARTYPE>(variant.vt & ~VT_BYREF);
  if (variant.vt & VT_BYREF) {
    if (!variant.byref) vbs::throwError(vbs::ErrorCode::InvalidCall);
    const ConversionDepth deeper;  // a variant may point to itself
    return valueAt(type, variant.byref);
  }
  // A decimal fills the whole variant but for its type.
  return type == VT_DECIMAL ? valueAt(type, &variant) : valueAt(type, &variant.byref);
}

void storeInto(const VARIANT& place, const Value& value) {
  Variant fresh;
  toVariant(value, *fresh);
  const auto type = static_cast<VARTYPE>(place.vt & ~VT_BYREF);
  if (type == VT_VARIANT) {
    throwIfFailed(::VariantCopy(place.pvarVal, fresh.address()));
    return;
  }
  if (type & VT_ARRAY) {
    if (fresh->vt != type) vbs::throwError(vbs::ErrorCode::TypeMismatch);
    ::SafeArrayDestroy(std::exchange(*place.pparray, fresh->parray));
    fresh->vt = VT_EMPTY;
    return;
  }
  throwIfFailed(::VariantChangeType(fresh.address(), fresh.address(), 0, type));
  Variant old;  // what stands there, to be ended behind the new
  old->vt = type;
  if (type == VT_DECIMAL) {
    *place.pdecVal = (*fresh).decVal;
    return;
  }
  static_assert(sizeof(VARIANT::llVal) == sizeof(void*));
  const std::size_t size = sizeOf(type);
  std::memcpy(&(*old).byref, place.byref, size);
  std::memcpy(place.byref, &(*fresh).byref, size);
  fresh->vt = VT_EMPTY;
}

}  // namespace quorvane::automation
