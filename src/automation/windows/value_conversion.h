#pragma once

#include "automation/windows/com.h"
#include "vbscript/values/value.h"

/// Values of scripts as the system's, and back.
///
/// There and back a value is the same, with these exceptions. Of the system's types that scripts
/// lack, whole numbers become Long, or Double beyond it; Decimal becomes Currency where that holds
/// it exactly, else Double. An object comes back as what it was: ours as ours, theirs as the same
/// object of the script.
namespace quorvane::automation {

/// Puts a value into `out`, which is empty. References are followed. Throws ScriptError.
void toVariant(const vbs::Value& value, VARIANT& out);

/// The value of any variant, those that only point to one included. Throws ScriptError, 458 for
/// what scripts have no type for.
vbs::Value fromVariant(const VARIANT& variant);

/// The value of a type that stands at `data`.
vbs::Value valueAt(VARTYPE type, const void* data);

/// Puts a value where a caller has a place of a type for it, VT_BYREF and all. Throws ScriptError.
void storeInto(const VARIANT& place, const vbs::Value& value);

/// The text as the system has it; the caller's to free. A byte string keeps its bytes.
BSTR makeBstr(const vbs::String& text);
vbs::String textOf(BSTR text);

/// Bounds how deep arrays may stand in each other while they are converted: error 28.
class ConversionDepth {
 public:
  ConversionDepth();
  ConversionDepth(const ConversionDepth&) = delete;
  ConversionDepth& operator=(const ConversionDepth&) = delete;
  ~ConversionDepth();
};

}  // namespace quorvane::automation
