#include "automation/windows/script_items.h"

#include <utility>

#include "automation/windows/failures.h"
#include "automation/windows/value_conversion.h"

namespace quorvane::automation {

namespace {

class ScriptItems final : public IEnumVARIANT {
 public:
  explicit ScriptItems(vbs::Object& object) : object_(&object), items_(object.enumerate()) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == IID_IEnumVARIANT ? this : nullptr;
    if (!*out) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* out, ULONG* given) override {
    ULONG count = 0;
    HRESULT result = S_OK;
    try {
      vbs::Value item;
      while (count < wanted && items_ && items_->next(item)) {
        ::VariantInit(&out[count]);
        toVariant(item, out[count]);
        ++count;
      }
      result = count == wanted ? S_OK : S_FALSE;
    } catch (const vbs::ScriptError& error) {
      result = codeOf(error);
    } catch (...) {
      CallToOthers::throwLater(std::current_exception());
      result = E_ABORT;
    }
    if (given) *given = count;
    return result;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    for (; count > 0; --count) {
      Variant item;
      const HRESULT result = Next(1, item.address(), nullptr);
      if (result != S_OK) return result;
    }
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

 private:
  ~ScriptItems() = default;

  vbs::Ref<vbs::Object> object_;
  std::unique_ptr<vbs::Enumerator> items_;
  ULONG references_ = 1;
};

}  // namespace

ComPtr<IUnknown> makeItems(vbs::Object& object) {
  return ComPtr<IUnknown>::adopt(new ScriptItems(object));
}

}  // namespace quorvane::automation
