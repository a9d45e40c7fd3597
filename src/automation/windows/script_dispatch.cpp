#include "automation/windows/script_dispatch.h"

#include <new>
#include <string>
#include <unordered_map>
#include <vector>

#include "automation/windows/failures.h"
#include "automation/windows/script_items.h"
#include "automation/windows/value_conversion.h"

namespace quorvane::automation {

using vbs::CallKind;
using vbs::Value;

namespace {

/// What tells these objects from all others.
constexpr GUID kOwnObject{
    0x6c0e5a1d, 0x51c7, 0x4f0e, {0x9a, 0x35, 0x7d, 0x1b, 0x0f, 0x62, 0xc4, 0x8e}};

using Known = std::unordered_map<vbs::Object*, ScriptDispatch*>;

/// Never destroyed: objects may outlive everything local to the thread.
Known& known() {
  thread_local Known* const all = new Known;
  return *all;
}

CallKind kindOf(WORD use, bool wantsResult, const Value* last) {
  constexpr WORD kAssigns = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
  if ((use & kAssigns) == kAssigns) {
    return last && last->deref().isObject() ? CallKind::Set : CallKind::Let;
  }
  if (use & DISPATCH_PROPERTYPUTREF) return CallKind::Set;
  if (use & DISPATCH_PROPERTYPUT) return CallKind::Let;
  return wantsResult || use == DISPATCH_PROPERTYGET ? CallKind::Get : CallKind::Call;
}

/// The arguments of a call from outside, in a script's order. What the caller passes by reference
/// is a variable to the script.
class ArgumentsFromOutside {
 public:
  explicit ArgumentsFromOutside(const DISPPARAMS& given) : given_(given) {
    variables_.reserve(given.cArgs);
    for (UINT i = given.cArgs; i-- > 0;) {
      const VARIANT& argument = given.rgvarg[i];
      variables_.push_back(fromVariant(argument));
      values_.push_back(argument.vt & VT_BYREF ? Value::reference(&variables_.back())
                                               : variables_.back());
    }
  }

  vbs::Args all() { return values_; }

  void writeBack() {
    for (UINT i = 0; i < given_.cArgs; ++i) {
      const VARIANT& place = given_.rgvarg[given_.cArgs - 1 - i];
      if (place.vt & VT_BYREF) storeInto(place, variables_[i]);
    }
  }

 private:
  const DISPPARAMS& given_;
  std::vector<Value> variables_;
  std::vector<Value> values_;
};

bool namesOnlyTheValue(const DISPPARAMS& given) {
  return given.cNamedArgs == 0 ||
         (given.cNamedArgs == 1 && given.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT);
}

}  // namespace

ScriptDispatch::ScriptDispatch(vbs::Object& object) : object_(&object) {
  known()[&object] = this;
}

ScriptDispatch::~ScriptDispatch() {
  known().erase(object_.get());
}

ComPtr<IDispatch> ScriptDispatch::of(vbs::Object& object) {
  const auto found = known().find(&object);
  if (found != known().end()) return ComPtr<IDispatch>(found->second);
  return ComPtr<IDispatch>::adopt(new ScriptDispatch(object));
}

vbs::Object* ScriptDispatch::objectBehind(IUnknown& object) {
  ScriptDispatch* own = nullptr;
  if (FAILED(object.QueryInterface(kOwnObject, reinterpret_cast<void**>(&own)))) return nullptr;
  vbs::Object* behind = own->object_.get();
  own->Release();
  return behind;
}

HRESULT ScriptDispatch::QueryInterface(REFIID id, void** out) {
  *out = id == IID_IUnknown || id == IID_IDispatch || id == kOwnObject ? this : nullptr;
  if (!*out) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG ScriptDispatch::AddRef() {
  return ++references_;
}

ULONG ScriptDispatch::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT ScriptDispatch::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT ScriptDispatch::GetTypeInfo(UINT, LCID, ITypeInfo** out) {
  *out = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT ScriptDispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (count == 0) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  try {
    const auto name = vbs::String::fromWide(reinterpret_cast<const char16_t*>(names[0]));
    ids[0] = object_->findMember(name.lower().narrow());
  } catch (...) {
    return E_OUTOFMEMORY;
  }
  return ids[0] == vbs::kNoMember || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT ScriptDispatch::Invoke(DISPID id, REFIID, LCID, WORD use, DISPPARAMS* given,
                               VARIANT* result, EXCEPINFO* texts, UINT*) {
  if (result) ::VariantInit(result);
  if (!namesOnlyTheValue(*given)) return DISP_E_NONAMEDARGS;
  AddRef();  // a script may make the caller let go
  HRESULT code = S_OK;
  try {
    invoke(id, use, *given, result);
  } catch (const vbs::ScriptError& error) {
    code = report(error, texts);
  } catch (...) {
    CallToOthers::throwLater(std::current_exception());
    code = E_ABORT;
  }
  Release();
  return code;
}

void ScriptDispatch::invoke(DISPID id, WORD use, const DISPPARAMS& given, VARIANT* result) {
  if (id == DISPID_NEWENUM) {
    result->punkVal = makeItems(*object_).release();
    result->vt = VT_UNKNOWN;
    return;
  }
  ArgumentsFromOutside arguments(given);
  const vbs::Args all = arguments.all();
  const CallKind kind = kindOf(use, result != nullptr, all.empty() ? nullptr : &all.back());
  const Value value = object_->invoke(id, kind, all);
  if (result) toVariant(value, *result);
  arguments.writeBack();
}

}  // namespace quorvane::automation
