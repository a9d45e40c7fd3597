#pragma once

#include "automation/windows/com.h"
#include "vbscript/values/object.h"

namespace quorvane::automation {

/// A script's object as others see it: its members by name, its default member (which calls a
/// procedure that GetRef gave), what For Each would walk. Holds the object. There is one for an
/// object as long as anybody holds it, so that others can tell objects apart.
class ScriptDispatch final : public IDispatch {
 public:
  static ComPtr<IDispatch> of(vbs::Object& object);
  /// The object behind one of these; null for everything else.
  static vbs::Object* objectBehind(IUnknown& object);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** out) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD use, DISPPARAMS* given,
                                   VARIANT* result, EXCEPINFO* texts, UINT* wrongArgument) override;

 private:
  explicit ScriptDispatch(vbs::Object& object);
  ~ScriptDispatch();
  void invoke(DISPID id, WORD use, const DISPPARAMS& given, VARIANT* result);

  vbs::Ref<vbs::Object> object_;
  ULONG references_ = 1;
};

}  // namespace quorvane::automation
