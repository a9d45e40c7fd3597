#include "probe.h"

#include <new>

namespace probe {

long living = 0;

namespace {

HMODULE self = nullptr;

class Factory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
    *out = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
    return *out ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** out) override {
    IUnknown* made = make(L"probe");
    const HRESULT code = made->QueryInterface(id, out);
    made->Release();
    return code;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

LONG writeKey(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
  return ::RegSetKeyValueW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + key).c_str(), name, REG_SZ,
                           text.c_str(), static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

}  // namespace

}  // namespace probe

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD, void*) {
  probe::self = module;
  return TRUE;
}

extern "C" __declspec(dllexport) HRESULT WINAPI
    DllGetClassObject(REFCLSID wanted, REFIID id, void** out) {
  static probe::Factory factory;
  if (wanted != probe::kClass) return CLASS_E_CLASSNOTAVAILABLE;
  return factory.QueryInterface(id, out);
}

extern "C" __declspec(dllexport) HRESULT WINAPI DllCanUnloadNow() {
  return probe::living == 0 ? S_OK : S_FALSE;
}

extern "C" __declspec(dllexport) HRESULT WINAPI DllRegisterServer() {
  wchar_t id[40] = {};
  wchar_t path[MAX_PATH] = {};
  ::StringFromGUID2(probe::kClass, id, 40);
  ::GetModuleFileNameW(probe::self, path, MAX_PATH);
  const std::wstring server = std::wstring(L"CLSID\\") + id + L"\\InprocServer32";
  const bool done = probe::writeKey(L"Quorvane.Probe\\CLSID", nullptr, id) == 0 &&
                    probe::writeKey(server, nullptr, path) == 0 &&
                    probe::writeKey(server, L"ThreadingModel", L"Apartment") == 0;
  return done ? S_OK : E_FAIL;
}
