#include "probe.h"

#include <algorithm>
#include <map>
#include <thread>
#include <vector>

namespace probe {

namespace {

std::wstring& sharedLog() {
  static std::wstring log;
  return log;
}

void note(const std::wstring& what) {
  sharedLog() += (sharedLog().empty() ? L"" : L" ") + what;
}

HRESULT give(VARIANT* out, const std::wstring& text) {
  if (!out) return S_OK;
  out->vt = VT_BSTR;
  out->bstrVal = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  return S_OK;
}

HRESULT give(VARIANT* out, IUnknown* owned) {
  if (!out) {
    owned->Release();
    return S_OK;
  }
  out->vt = VT_DISPATCH;
  out->pdispVal = static_cast<IDispatch*>(owned);
  return S_OK;
}

/// The argument, behind whatever points to it.
VARIANT& direct(VARIANT& given) {
  return given.vt == (VT_BYREF | VT_VARIANT) ? *given.pvarVal : given;
}

std::wstring textOf(VARIANT& given) {
  VARIANT text;
  ::VariantInit(&text);
  if (FAILED(::VariantChangeTypeEx(&text, &direct(given), 0x0409, 0, VT_BSTR))) return L"?";
  std::wstring units(text.bstrVal ? text.bstrVal : L"");
  ::VariantClear(&text);
  return units;
}

long numberOf(VARIANT& given) {
  VARIANT number;
  ::VariantInit(&number);
  return SUCCEEDED(::VariantChangeType(&number, &direct(given), 0, VT_I4)) ? number.lVal : -1;
}

IDispatch* objectOf(VARIANT& given) {
  return direct(given).vt == VT_DISPATCH ? direct(given).pdispVal : nullptr;
}

/// What is there as long as it is held, and can be asked for `kOther` beside what all are.
template <class Interface, const IID& kOther>
class Counted : public Interface {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == kOther ? this : nullptr;
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

 protected:
  virtual ~Counted() = default;

 private:
  ULONG references_ = 1;
};

/// An object that can only be held.
class Mute final : public Counted<IUnknown, IID_IUnknown> {};

class Three final : public Counted<IEnumVARIANT, IID_IEnumVARIANT> {
 public:
  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* out, ULONG* given) override {
    ULONG count = 0;
    for (; count < wanted && at_ < 3; ++count) {
      static const wchar_t* const kWords[] = {L"one", L"two", L"three"};
      give(&out[count], kWords[at_++]);
    }
    if (given) *given = count;
    return count == wanted ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

 private:
  ~Three() override { note(L"~items"); }
  int at_ = 0;
};

HRESULT STDMETHODCALLTYPE fillLate(EXCEPINFO* info) {
  info->bstrDescription = ::SysAllocString(L"told late");
  info->scode = static_cast<SCODE>(0x800A0001 + 999);
  return S_OK;
}

/// A call in progress: its arguments in the order of the script.
struct Call {
  DISPPARAMS* given;
  WORD use;
  VARIANT* result;
  EXCEPINFO* error;

  UINT count() const { return given->cArgs; }
  VARIANT& operator[](UINT i) const { return given->rgvarg[given->cArgs - 1 - i]; }
  bool assigns() const { return use & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF); }
};

class Probe final : public Counted<IDispatch, IID_IDispatch> {
 public:
  explicit Probe(std::wstring name) : name_(std::move(name)) { ++living; }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** out) override {
    *out = nullptr;
    return DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                          DISPID* ids) override {
    ++lookUps_;
    for (DISPID id = 0; id < static_cast<DISPID>(std::size(kMembers)); ++id) {
      if (::lstrcmpiW(names[0], kMembers[id].name) == 0) {
        *ids = id;
        return S_OK;
      }
    }
    *ids = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD use, DISPPARAMS* given,
                                   VARIANT* result, EXCEPINFO* error, UINT*) override {
    const Call call{given, use, result, error};
    if (id == DISPID_NEWENUM) {
      result->vt = VT_UNKNOWN;
      result->punkVal = new Three;
      return S_OK;
    }
    if (id < 0 || id >= static_cast<DISPID>(std::size(kMembers))) return DISP_E_MEMBERNOTFOUND;
    return (this->*kMembers[id].run)(call);
  }

 private:
  struct Member {
    const wchar_t* name;
    HRESULT (Probe::*run)(const Call& call);
  };
  static const Member kMembers[20];

  ~Probe() override {
    note(L"~" + name_);
    if (kept_) kept_->Release();
    --living;
  }

  /// The default: texts by a key.
  HRESULT item(const Call& call) {
    if (call.count() != (call.assigns() ? 2U : 1U)) return DISP_E_BADPARAMCOUNT;
    if (!call.assigns()) return give(call.result, items_[textOf(call[0])]);
    const bool byReference = call.use & DISPATCH_PROPERTYPUTREF;
    items_[textOf(call[0])] = byReference ? L"an object" : textOf(call[1]);
    return S_OK;
  }
  HRESULT describe(const Call& call) {
    std::wstring words;
    for (UINT i = 0; i < call.count(); ++i) words += (i ? L"; " : L"") + described(call[i]);
    return give(call.result, words);
  }
  HRESULT sample(const Call& call) { return giveSample(textOf(call[0]), call.result); }
  HRESULT log(const Call& call) { return give(call.result, sharedLog()); }
  HRESULT write(const Call& call) {
    note(textOf(call[0]));
    return S_OK;
  }
  HRESULT makeNamed(const Call& call) { return give(call.result, make(textOf(call[0]))); }
  HRESULT itself(const Call& call) {
    AddRef();
    return give(call.result, this);
  }
  HRESULT mute(const Call& call) {
    call.result->vt = VT_UNKNOWN;
    call.result->punkVal = new Mute;
    return S_OK;
  }
  /// A method alone: to be read it is not there.
  HRESULT methodOnly(const Call& call) {
    if (!(call.use & DISPATCH_METHOD)) return DISP_E_MEMBERNOTFOUND;
    note(call.result ? L"with result" : L"without result");
    return S_OK;
  }
  /// Can be read and assigned, never called.
  HRESULT propertyOnly(const Call& call) {
    if (call.use == DISPATCH_METHOD) return DISP_E_MEMBERNOTFOUND;
    if (call.use & DISPATCH_PROPERTYPUTREF) return DISP_E_MEMBERNOTFOUND;
    if (call.use & DISPATCH_PROPERTYPUT) {
      note(L"put " + described(call[0]));
      return S_OK;
    }
    return give(call.result, L"property");
  }
  /// Every argument that can be changed becomes the sample of the kind that it names.
  HRESULT change(const Call& call) {
    for (UINT i = 0; i < call.count(); ++i) {
      if (call[i].vt != (VT_BYREF | VT_VARIANT)) continue;
      const std::wstring kind = textOf(call[i]);
      ::VariantClear(call[i].pvarVal);
      giveSample(kind, call[i].pvarVal);
    }
    return S_OK;
  }
  /// The first element of an array becomes a text.
  HRESULT changeElement(const Call& call) {
    SAFEARRAY* array = direct(call[0]).parray;
    VARIANT* elements = nullptr;
    if (call[0].vt != (VT_BYREF | VT_VARIANT)) return S_OK;
    ::SafeArrayAccessData(array, reinterpret_cast<void**>(&elements));
    ::VariantClear(elements);
    give(elements, L"changed");
    return ::SafeArrayUnaccessData(array);
  }
  /// Calls the default member of an object with the arguments behind it.
  HRESULT callBack(const Call& call) {
    DISPPARAMS arguments{call.given->rgvarg, nullptr, call.count() - 1, 0};
    IDispatch* object = objectOf(call[0]);
    if (!object) return DISP_E_TYPEMISMATCH;
    return object->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_METHOD, &arguments, call.result,
                          call.error, nullptr);
  }
  /// Calls it with a number, a text and anything that it may change, and tells what they are then.
  HRESULT callByReference(const Call& call) {
    long number = 1;
    BSTR text = ::SysAllocString(L"text");
    VARIANT any;
    ::VariantInit(&any);
    VARIANT places[3] = {};
    places[2].vt = VT_BYREF | VT_I4;
    places[2].plVal = &number;
    places[1].vt = VT_BYREF | VT_BSTR;
    places[1].pbstrVal = &text;
    places[0].vt = VT_BYREF | VT_VARIANT;
    places[0].pvarVal = &any;
    DISPPARAMS arguments{places, nullptr, 3, 0};
    const HRESULT code = objectOf(call[0])->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_METHOD,
                                                   &arguments, nullptr, call.error, nullptr);
    const std::wstring words = std::to_wstring(number) + L" " + text + L" " + described(any);
    ::SysFreeString(text);
    ::VariantClear(&any);
    return FAILED(code) ? code : give(call.result, words);
  }
  /// use(object, "name", "get" | "call" | "put" | "putref", arguments...)
  HRESULT use(const Call& call) {
    IDispatch* object = objectOf(call[0]);
    std::wstring name = textOf(call[1]);
    const std::wstring way = textOf(call[2]);
    LPOLESTR names[] = {name.data()};
    DISPID id = DISPID_UNKNOWN;
    const HRESULT found = object->GetIDsOfNames(IID_NULL, names, 1, 0, &id);
    if (FAILED(found)) return found;
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS arguments{call.given->rgvarg, nullptr, call.count() - 3, 0};
    WORD how = way == L"get" ? DISPATCH_PROPERTYGET : DISPATCH_METHOD;
    if (way.starts_with(L"put")) {
      how = way == L"put" ? DISPATCH_PROPERTYPUT : DISPATCH_PROPERTYPUTREF;
      arguments.rgdispidNamedArgs = &named;
      arguments.cNamedArgs = 1;
    }
    return object->Invoke(id, IID_NULL, 0, how, &arguments,
                          arguments.cNamedArgs ? nullptr : call.result, call.error, nullptr);
  }
  /// What an object has for For Each, joined.
  HRESULT walk(const Call& call) {
    VARIANT found;
    ::VariantInit(&found);
    DISPPARAMS none{};
    const HRESULT code = objectOf(call[0])->Invoke(
        DISPID_NEWENUM, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &found, call.error, nullptr);
    if (FAILED(code)) return code;
    IEnumVARIANT* items = nullptr;
    found.punkVal->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(&items));
    std::wstring words;
    VARIANT item;
    while (items->Next(1, &item, nullptr) == S_OK) {
      words += textOf(item) + L";";
      ::VariantClear(&item);
    }
    items->Release();
    ::VariantClear(&found);
    return give(call.result, words);
  }
  HRESULT keep(const Call& call) {
    IDispatch* object = call.count() ? objectOf(call[0]) : nullptr;
    if (object) object->AddRef();
    std::swap(kept_, object);
    if (object) object->Release();
    return S_OK;
  }
  /// fail(code) returns it; fail(code, source, description) tells more; "late" for the source: when
  /// it is asked.
  HRESULT fail(const Call& call) {
    if (call.count() == 1) return static_cast<HRESULT>(numberOf(call[0]));
    if (textOf(call[1]) == L"late") {
      call.error->pfnDeferredFillIn = fillLate;
      return DISP_E_EXCEPTION;
    }
    const long code = numberOf(call[0]);
    if (code > 0) {
      call.error->wCode = static_cast<WORD>(code);
    } else {
      call.error->scode = static_cast<SCODE>(code);
    }
    call.error->bstrSource = ::SysAllocString(textOf(call[1]).c_str());
    call.error->bstrDescription = ::SysAllocString(textOf(call[2]).c_str());
    call.error->bstrHelpFile = ::SysAllocString(L"probe.hlp");
    call.error->dwHelpContext = 77;
    return DISP_E_EXCEPTION;
  }
  /// Calls an object from a thread in another apartment, a little later.
  HRESULT callFromThread(const Call& call) {
    IStream* stream = nullptr;
    const HRESULT code =
        ::CoMarshalInterThreadInterfaceInStream(IID_IDispatch, objectOf(call[0]), &stream);
    if (FAILED(code)) return code;
    std::thread([stream] {
      ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);
      ::Sleep(100);
      IDispatch* object = nullptr;
      if (SUCCEEDED(::CoGetInterfaceAndReleaseStream(stream, IID_IDispatch,
                                                     reinterpret_cast<void**>(&object)))) {
        VARIANT text;
        ::VariantInit(&text);
        give(&text, L"from afar");
        DISPPARAMS arguments{&text, nullptr, 1, 0};
        object->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_METHOD, &arguments, nullptr, nullptr,
                       nullptr);
        ::VariantClear(&text);
        object->Release();
      }
      ::CoUninitialize();
    }).detach();
    return S_OK;
  }
  HRESULT lookUps(const Call& call) { return give(call.result, std::to_wstring(lookUps_)); }

  std::wstring name_;
  std::map<std::wstring, std::wstring> items_;
  IDispatch* kept_ = nullptr;
  int lookUps_ = 0;
};

const Probe::Member Probe::kMembers[20] = {
    {L"Item", &Probe::item},
    {L"Describe", &Probe::describe},
    {L"Sample", &Probe::sample},
    {L"Log", &Probe::log},
    {L"Write", &Probe::write},
    {L"Make", &Probe::makeNamed},
    {L"Itself", &Probe::itself},
    {L"Mute", &Probe::mute},
    {L"MethodOnly", &Probe::methodOnly},
    {L"PropertyOnly", &Probe::propertyOnly},
    {L"Change", &Probe::change},
    {L"ChangeElement", &Probe::changeElement},
    {L"CallBack", &Probe::callBack},
    {L"CallByReference", &Probe::callByReference},
    {L"Use", &Probe::use},
    {L"Walk", &Probe::walk},
    {L"Keep", &Probe::keep},
    {L"Fail", &Probe::fail},
    {L"CallFromThread", &Probe::callFromThread},
    {L"LookUps", &Probe::lookUps},
};

}  // namespace

IUnknown* make(const std::wstring& name) {
  return new Probe(name);
}

}  // namespace probe
