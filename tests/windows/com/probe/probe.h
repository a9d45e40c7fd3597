#pragma once

#include <windows.h>
// clang-format off
#include <oleauto.h>
// clang-format on

#include <string>

/// An object that scripts of tests call: it tells what it was given, and gives what a test asks
/// for. Its log, which all of them share, says in which order things happened.
namespace probe {

constexpr CLSID kClass{
    0x3e1c5d5a, 0x8f27, 0x4a60, {0x8b, 0x1d, 0x52, 0x0e, 0x6a, 0x90, 0xc7, 0x14}};

extern long living;  ///< objects that keep the library loaded

IUnknown* make(const std::wstring& name);

/// Puts a value of the kind into `out`: "ui4", "decimal", "array of i4", ...
HRESULT giveSample(const std::wstring& kind, VARIANT* out);

/// A variant in words, its type and what it points to included: "I2 5", "->VARIANT I2 5".
std::wstring described(VARIANT& variant);

}  // namespace probe
