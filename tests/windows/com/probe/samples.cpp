#include "probe.h"

#include <map>
#include <vector>

namespace probe {

namespace {

VARIANT of(VARTYPE type) {
  VARIANT made;
  ::VariantInit(&made);
  made.vt = type;
  return made;
}

template <class Set>
VARIANT of(VARTYPE type, Set set) {
  VARIANT made = of(type);
  set(made);
  return made;
}

VARIANT decimal(const wchar_t* text) {
  VARIANT made;
  ::VariantInit(&made);
  ::VarDecFromStr(const_cast<wchar_t*>(text), 0x0409, 0, &made.decVal);
  made.vt = VT_DECIMAL;
  return made;
}

VARIANT text(const wchar_t* characters) {
  return of(VT_BSTR, [&](VARIANT& v) { v.bstrVal = ::SysAllocString(characters); });
}

template <class T>
VARIANT arrayOf(VARTYPE type, LONG first, std::vector<T> elements) {
  SAFEARRAY* array = ::SafeArrayCreateVector(type, first, static_cast<ULONG>(elements.size()));
  T* data = nullptr;
  ::SafeArrayAccessData(array, reinterpret_cast<void**>(&data));
  for (std::size_t i = 0; i < elements.size(); ++i) data[i] = elements[i];
  ::SafeArrayUnaccessData(array);
  return of(static_cast<VARTYPE>(VT_ARRAY | type), [&](VARIANT& v) { v.parray = array; });
}

/// Two rows of three: 11, 12, 13 and 21, 22, 23.
VARIANT table() {
  SAFEARRAYBOUND bounds[] = {{2, 1}, {3, 0}};
  SAFEARRAY* array = ::SafeArrayCreate(VT_VARIANT, 2, bounds);
  for (LONG row = 1; row <= 2; ++row) {
    for (LONG column = 0; column < 3; ++column) {
      LONG place[] = {row, column};
      VARIANT number = of(VT_I4, [&](VARIANT& v) { v.lVal = row * 10 + column + 1; });
      ::SafeArrayPutElement(array, place, &number);
    }
  }
  return of(VT_ARRAY | VT_VARIANT, [&](VARIANT& v) { v.parray = array; });
}

VARIANT sample(const std::wstring& kind) {
  using V = VARIANT;
  if (kind == L"empty") return of(VT_EMPTY);
  if (kind == L"null") return of(VT_NULL);
  if (kind == L"i1") return of(VT_I1, [](V& v) { v.cVal = -5; });
  if (kind == L"ui1") return of(VT_UI1, [](V& v) { v.bVal = 200; });
  if (kind == L"i2") return of(VT_I2, [](V& v) { v.iVal = -2; });
  if (kind == L"ui2") return of(VT_UI2, [](V& v) { v.uiVal = 65535; });
  if (kind == L"i4") return of(VT_I4, [](V& v) { v.lVal = -70000; });
  if (kind == L"ui4") return of(VT_UI4, [](V& v) { v.ulVal = 7; });
  if (kind == L"large ui4") return of(VT_UI4, [](V& v) { v.ulVal = 4000000000U; });
  if (kind == L"i8") return of(VT_I8, [](V& v) { v.llVal = -3; });
  if (kind == L"large i8") return of(VT_I8, [](V& v) { v.llVal = 5000000000; });
  if (kind == L"ui8") return of(VT_UI8, [](V& v) { v.ullVal = 6000000000; });
  if (kind == L"int") return of(VT_INT, [](V& v) { v.intVal = 12; });
  if (kind == L"uint") return of(VT_UINT, [](V& v) { v.uintVal = 13; });
  if (kind == L"r4") return of(VT_R4, [](V& v) { v.fltVal = 1.5F; });
  if (kind == L"r8") return of(VT_R8, [](V& v) { v.dblVal = 0.1; });
  if (kind == L"cy") return of(VT_CY, [](V& v) { v.cyVal.int64 = 123456; });
  if (kind == L"date") return of(VT_DATE, [](V& v) { v.date = 36526.5; });
  if (kind == L"bool") return of(VT_BOOL, [](V& v) { v.boolVal = VARIANT_TRUE; });
  if (kind == L"decimal") return decimal(L"79.125");
  if (kind == L"fine decimal") return decimal(L"0.000001");
  if (kind == L"large decimal") return decimal(L"79000000000000000000000000000");
  if (kind == L"error") return of(VT_ERROR, [](V& v) { v.scode = DISP_E_BADINDEX; });
  if (kind == L"missing") return of(VT_ERROR, [](V& v) { v.scode = DISP_E_PARAMNOTFOUND; });
  if (kind == L"text") return text(L"gr\u00fcn \u4e2d \u20ac");
  if (kind == L"null text") return of(VT_BSTR);
  if (kind == L"odd bytes") {
    return of(VT_BSTR, [](V& v) { v.bstrVal = ::SysAllocStringByteLen("abc", 3); });
  }
  if (kind == L"nothing") return of(VT_DISPATCH);
  if (kind == L"record") return of(VT_RECORD);
  if (kind == L"array of ui1") return arrayOf<BYTE>(VT_UI1, 0, {1, 0, 255});
  if (kind == L"array of i4") return arrayOf<LONG>(VT_I4, 5, {50, 60});
  if (kind == L"array of r8") return arrayOf<double>(VT_R8, 0, {0.5, 1e300});
  if (kind == L"array of bool") return arrayOf<VARIANT_BOOL>(VT_BOOL, 0, {VARIANT_TRUE, 0});
  if (kind == L"array of text") {
    return arrayOf<BSTR>(VT_BSTR, 0, {::SysAllocString(L"a"), ::SysAllocString(L"\u4e2d")});
  }
  if (kind == L"array without dimensions") return of(VT_ARRAY | VT_VARIANT);
  if (kind == L"empty array") return arrayOf<LONG>(VT_I4, 0, {});
  if (kind == L"table") return table();
  return of(VT_ERROR);
}

std::wstring typeName(VARTYPE type) {
  static const std::map<int, const wchar_t*> kNames{
      {VT_EMPTY, L"EMPTY"},
      {VT_NULL, L"NULL"},
      {VT_I2, L"I2"},
      {VT_I4, L"I4"},
      {VT_R4, L"R4"},
      {VT_R8, L"R8"},
      {VT_CY, L"CY"},
      {VT_DATE, L"DATE"},
      {VT_BSTR, L"BSTR"},
      {VT_ERROR, L"ERROR"},
      {VT_DISPATCH, L"DISPATCH"},
      {VT_BOOL, L"BOOL"},
      {VT_UI1, L"UI1"},
      {VT_VARIANT, L"VARIANT"},
      {VT_UNKNOWN, L"UNKNOWN"},
  };
  const auto found = kNames.find(type);
  return found == kNames.end() ? std::to_wstring(type) : found->second;
}

std::wstring contentOf(VARIANT& variant) {
  VARIANT converted;
  ::VariantInit(&converted);
  switch (variant.vt) {
    case VT_EMPTY:
    case VT_NULL:
      return L"";
    case VT_ERROR:
      return variant.scode == DISP_E_PARAMNOTFOUND ? L" missing" : L" other";
    case VT_DISPATCH:
      return variant.pdispVal ? L"" : L" nothing";
    case VT_BSTR: {
      std::wstring units;
      for (UINT i = 0; i < ::SysStringLen(variant.bstrVal); ++i) {
        const wchar_t unit = variant.bstrVal[i];
        units += unit < 128 ? std::wstring(1, unit) : L"<" + std::to_wstring(unit) + L">";
      }
      return L" '" + units + L"' " + std::to_wstring(::SysStringByteLen(variant.bstrVal));
    }
    default:
      if (FAILED(::VariantChangeTypeEx(&converted, &variant, 0x0409, 0, VT_BSTR))) return L" ?";
      std::wstring text = std::wstring(L" ") + converted.bstrVal;
      ::VariantClear(&converted);
      return text;
  }
}

/// Bounds and elements, in the order of memory.
std::wstring describedArray(SAFEARRAY* array) {
  if (!array) return L" none";
  std::wstring words;
  LONG count = 1;
  for (UINT i = 1; i <= array->cDims; ++i) {
    LONG low = 0;
    LONG high = 0;
    ::SafeArrayGetLBound(array, i, &low);
    ::SafeArrayGetUBound(array, i, &high);
    words += L" " + std::to_wstring(low) + L".." + std::to_wstring(high);
    count *= high - low + 1;
  }
  VARTYPE type = VT_EMPTY;
  ::SafeArrayGetVartype(array, &type);
  char* data = nullptr;
  ::SafeArrayAccessData(array, reinterpret_cast<void**>(&data));
  words += L" [";
  for (LONG i = 0; i < count; ++i) {
    VARIANT element = of(static_cast<VARTYPE>(VT_BYREF | type));
    element.byref = data + i * static_cast<LONG>(array->cbElements);
    words += (i ? L", " : L"") +
             (type == VT_VARIANT ? described(*element.pvarVal) : std::to_wstring(*element.pbVal));
  }
  ::SafeArrayUnaccessData(array);
  return words + L"]";
}

}  // namespace

HRESULT giveSample(const std::wstring& kind, VARIANT* out) {
  *out = sample(kind);
  return S_OK;
}

std::wstring described(VARIANT& variant) {
  if (variant.vt == (VT_BYREF | VT_VARIANT)) return L"->" + described(*variant.pvarVal);
  if (variant.vt & VT_ARRAY) {
    return L"array of " + typeName(static_cast<VARTYPE>(variant.vt & ~VT_ARRAY)) +
           describedArray(variant.parray);
  }
  return typeName(variant.vt) + contentOf(variant);
}

}  // namespace probe
